#include "bills/bill_menus.h"

#include "bills/toolbar_icons.h"

#include <QAction>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>
#include <QToolButton>

namespace {

struct Entry
{
    const char* name; // null for a line between groups
    const char* caption;
};

constexpr Entry kPrintFormats[] = {
    {"PT", "普通格式"},
    {"Excel", "Excel格式(无条形码)"},
    {"Excel_TXM_S", "Excel格式(数字条形码)"},
    {"Excel_TXM_T", "Excel格式(图形条形码)"},
};

/// Menus whose entries are the templates of the account set.
constexpr const char* kTemplateMenus[] = {"FIntoExcel", "MPDirect_Excel_D", "MPPreview_Excel_D"};

QAction* NewAction(QMainWindow& window, const QString& name, const QString& caption)
{
    auto* const action = new QAction(caption, &window);
    action->setObjectName(name);
    return action;
}

QMenu* AddMenu(QMenu* parent, const QString& name, const QString& caption)
{
    QMenu* const menu = parent->addMenu(caption);
    menu->setObjectName(name);
    return menu;
}

QAction* AddEntry(QMainWindow& window, QMenu* menu, const QString& name, const QString& caption)
{
    QAction* const action = NewAction(window, name, caption);
    menu->addAction(action);
    return action;
}

/// An entry with the name of a template; an "&" in it marks no key.
void AddTemplate(QMainWindow& window, QMenu* menu, const QString& name, const QString& templateName)
{
    AddEntry(window, menu, name, QString(templateName).replace("&", "&&"))->setData(templateName);
}

void AddKeyEntry(QMainWindow& window, QMenu* menu, const BillKey& key)
{
    // The key itself belongs to the toolbar's action: here it is only said.
    QAction* const entry = NewAction(window, key.menuEntry, QString(key.tip) + "\t" + key.shortcut);
    QObject::connect(entry, &QAction::triggered, window.findChild<QAction*>(key.control), &QAction::trigger);
    menu->addAction(entry);
}

/// @param before  the key in front of which it stands; null for the end
QAction* AddKey(QMainWindow& window, QToolBar& toolbar, const BillKey& key, QAction* before)
{
    QAction* const action = NewAction(window, key.control, key.caption);
    const QString shortcut = key.shortcut;
    action->setIcon(ToolbarIcon(QString(key.control)));
    action->setToolTip(shortcut.isEmpty() ? QString(key.tip) : QString(key.tip) + " (" + shortcut + ")");
    action->setShortcut(QKeySequence(shortcut));
    toolbar.insertAction(before, action);
    auto* const button = qobject_cast<QToolButton*>(toolbar.widgetForAction(action));
    button->setObjectName(key.control);
    button->setFocusPolicy(Qt::NoFocus);
    button->setMinimumWidth(window.fontMetrics().horizontalAdvance("审核") + 22);
    return action;
}

void AddPrintFormats(QMainWindow& window, QMenu* menu, const QString& prefix)
{
    for (const Entry& format : kPrintFormats)
        AddEntry(window, menu, prefix + format.name, format.caption);
}

void MakePrintMenu(QMainWindow& window)
{
    QMenu* const print = window.menuBar()->addMenu("打印(&P)");
    print->setObjectName("MPrint");
    constexpr Entry kWays[] = {{"PDirect", "直接打印"}, {"PPreview", "打印预览"}};
    for (const Entry& way : kWays) {
        QMenu* const menu = AddMenu(print, way.name, way.caption);
        const QString prefix = QString("M") + way.name + "_";
        AddPrintFormats(window, menu, prefix);
        AddMenu(menu, prefix + "Excel_D", "Excel格式");
    }
    auto* const button = window.findChild<QToolButton*>("ToolPrint");
    button->setMenu(print);
    button->setPopupMode(QToolButton::InstantPopup);
}

} // namespace

const std::vector<BillKey>& BillKeys()
{
    using C = BillCommands;
    static const std::vector<BillKey> keys = {
        {"ToolBuild", "新建", "新建", "Ctrl+N", "FBuild", {}, &C::build, false},
        {"ToolSave", "保存", "保存", "Ctrl+S", "FSave", Command::Save, nullptr, false},
        {"ToolAuditing", "审核", "审核", "F7", nullptr, Command::Audit, &C::audit, true},
        {"ToolUnAuditing", "反审核", "反审核", "F8", nullptr, Command::UnAudit, &C::unAudit, false},
        {"ToolDelete", "删除", "删除单据", "F12", "FDelete", Command::Delete, &C::remove, true},
        {"ToolInsertRow", "插入行", "插入行", "Ctrl+Ins", nullptr, Command::InsertRow, &C::insertRow, true},
        {"ToolDeleteRow", "删除行", "删除行", "Ctrl+Del", nullptr, Command::DeleteRow, &C::deleteRow, false},
        {"ToolRedWord", "作废", "作废", "F9", nullptr, Command::Void, &C::redWord, true},
        {"ToolPrint", "打印", "打印", "", nullptr, Command::Print, nullptr, true},
        {"ToolIn", "导入", "导入", "Ctrl+I", nullptr, Command::Import, nullptr, true},
        {"ToolPos", "扫描", "扫描", "F6", nullptr, Command::Scan, nullptr, false},
        {"ToolImg", "图文", "图文", "F11", nullptr, {}, nullptr, false},
        {"ToolBefore", "前单", "前单", "Ctrl+PgUp", nullptr, {}, &C::before, true},
        {"ToolBack", "后单", "后单", "Ctrl+PgDown", nullptr, {}, &C::back, false},
        {"ToolExit", "退出", "退出", "Ctrl+Q", "FExit", {}, nullptr, true},
    };
    return keys;
}

void MakeBillToolbar(QMainWindow& window)
{
    auto* const toolbar = window.addToolBar("工具栏");
    toolbar->setObjectName("Toolbar1");
    toolbar->setMovable(false);
    toolbar->setContextMenuPolicy(Qt::PreventContextMenu);
    toolbar->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    const int icon = std::max(22, window.fontMetrics().height() * 3 / 2);
    toolbar->setIconSize(QSize(icon, icon));
    for (const BillKey& key : BillKeys()) {
        if (key.opensGroup)
            toolbar->addSeparator();
        AddKey(window, *toolbar, key, nullptr);
    }
}

QAction* InsertBillKey(QMainWindow& window, const BillKey& key, const char* before)
{
    return AddKey(window, *window.findChild<QToolBar*>("Toolbar1"), key, window.findChild<QAction*>(before));
}

QAction* InsertFileEntry(QMainWindow& window, const char* name, const QString& caption)
{
    QAction* const entry = NewAction(window, name, caption);
    window.findChild<QMenu*>("File")->insertAction(window.findChild<QAction*>("FJXCAccount"), entry);
    return entry;
}

void MakeBillMenus(QMainWindow& window)
{
    QMenu* const file = window.menuBar()->addMenu("文件(&F)");
    file->setObjectName("File");
    const std::vector<BillKey>& keys = BillKeys();
    for (const BillKey& key : keys) {
        if (key.menuEntry && &key != &keys.back())
            AddKeyEntry(window, file, key);
    }
    file->addSeparator();
    AddEntry(window, file, "FJXCAccount", "自动生成会计凭证对应科目设置");
    QMenu* const printSet = AddMenu(file, "FPrintSet", "打印设置");
    AddPrintFormats(window, printSet, "MPrintSet_");
    AddEntry(window, printSet, "MPrintSet_Excel_D", "Excel格式");
    file->addSeparator();
    AddEntry(window, file, "MMSHFormat", "界面列表格式设置");
    AddEntry(window, file, "FDeleteMSHFormat", "删除界面列表格式");
    QMenu* const toExcel = AddMenu(file, "FExcle", "导出至Excel文件...");
    AddEntry(window, toExcel, "FExcle_PT", "普通格式");
    AddMenu(toExcel, "FIntoExcel", "设置的格式");
    file->addSeparator();
    AddKeyEntry(window, file, keys.back());
    MakePrintMenu(window);
    FillTemplateMenus(window, {});
}

void FillTemplateMenus(QMainWindow& window, const QStringList& names)
{
    const QStringList captions = names.isEmpty() ? QStringList("暂无") : names;
    for (const char* menuName : kTemplateMenus) {
        auto* const menu = window.findChild<QMenu*>(menuName);
        menu->clear();
        for (const QString& caption : captions)
            AddTemplate(window, menu, QString(menuName) + "_Inf", caption);
    }
}
