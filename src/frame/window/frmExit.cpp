#include "frame/window/frmExit.h"

#include "frame/backup.h"
#include "frame/window/frmMain_icons.h"

#include <QApplication>
#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>

namespace {

QPushButton* NamedButton(const QString& name, const QString& caption, QWidget* parent)
{
    auto* const button = new QPushButton(caption, parent);
    button->setObjectName(name);
    button->setMinimumWidth(parent->fontMetrics().height() * 6);
    return button;
}

} // namespace

frmExit::frmExit(Program& program, QWidget* parent) : QDialog(parent), m_program(program)
{
    setObjectName("frmExit");
    setWindowTitle("退出吗？");
    setModal(true);

    auto* const picture = new QLabel(this);
    picture->setPixmap(FunctionBadge("退出", fontMetrics().height() * 5 / 2));
    auto* const question = new QLabel("确认退出吗？", this);
    question->setObjectName("Label1");
    m_backup = new QCheckBox("自动备份数据库", this);
    m_backup->setObjectName("ChBackup");
    const bool offered = program.parameters.DatabaseType != "SQL";
    m_backup->setChecked(offered);
    m_backup->setVisible(offered);

    auto* const ok = NamedButton("CmdOk", "确 定", this);
    auto* const back = NamedButton("CmdExit", "取 消", this);
    ok->setDefault(true);
    auto* const buttons = new QHBoxLayout;
    buttons->setSpacing(10);
    buttons->addStretch();
    buttons->addWidget(ok);
    buttons->addWidget(back);

    auto* const grid = new QGridLayout(this);
    grid->setContentsMargins(24, 22, 24, 18);
    grid->setHorizontalSpacing(18);
    grid->setVerticalSpacing(12);
    grid->addWidget(picture, 0, 0, 2, 1, Qt::AlignTop);
    grid->addWidget(question, 0, 1);
    grid->addWidget(m_backup, 1, 1);
    grid->setRowMinimumHeight(2, 6);
    grid->addLayout(buttons, 3, 0, 1, 2);
    grid->setColumnMinimumWidth(1, fontMetrics().height() * 13);
    grid->setSizeConstraint(QLayout::SetFixedSize);

    connect(ok, &QPushButton::clicked, this, &frmExit::CmdOk);
    connect(back, &QPushButton::clicked, this, &QDialog::reject);
}

void frmExit::CmdOk()
{
    if (m_backup->isChecked()) {
        QApplication::setOverrideCursor(Qt::WaitCursor);
        BackUpDataFolder(m_program);
        QApplication::restoreOverrideCursor();
    }
    accept();
}
