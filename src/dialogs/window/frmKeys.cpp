#include "dialogs/window/frmKeys.h"

#include <QHeaderView>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

frmKeys::frmKeys(const std::vector<KeyLine>& lines, QWidget* parent) : QDialog(parent)
{
    setObjectName("frmKeys");
    setWindowTitle("窗口按键");
    auto* const list = new QTreeWidget;
    list->setObjectName("ListKeys");
    list->setHeaderLabels({"按键", "作用"});
    list->setRootIsDecorated(false);
    list->setAlternatingRowColors(true);
    list->setStyleSheet("QTreeWidget::item { padding: 3px 0 }");
    for (const KeyLine& line : lines)
        new QTreeWidgetItem(list, {line.keys, line.does});
    list->setCurrentItem(list->topLevelItem(0));
    list->setColumnWidth(0, fontMetrics().averageCharWidth() * 22);
    auto* const leave = new QPushButton("退出(&X)");
    leave->setObjectName("CmdExit");
    connect(leave, &QPushButton::clicked, this, &QDialog::reject);
    auto* const keys = new QHBoxLayout;
    keys->addStretch();
    keys->addWidget(leave);
    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(list, 1);
    layout->addLayout(keys);
    resize(fontMetrics().averageCharWidth() * 100, fontMetrics().height() * 34);
}
