#include "bills/window/bill_menus.h"

#include "shell/window/toolbar_icons.h"

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

constexpr auto kEdit = "MEdit";
constexpr auto kBill = "MBill";
constexpr auto kHelp = "MHelp";
constexpr Entry kBars[] = {{kEdit, "编辑(&E)"}, {kBill, "单据(&B)"}};

/// What is no command of a menu.
const KeyLine kTypingKeys[] = {
    {"Enter", "单头：按编号或名称取出并进入下一栏；明细：确认并进入下一格"},
    {"Tab  Shift+Tab", "下一栏、上一栏"},
    {"F2", "修改当前格；直接键入则重新录入"},
    {"↑ ↓ ← →", "换格；商品列表打开时在列表中选择"},
    {"Esc", "离开当前格或关闭窗口中的列表"},
    {"Ctrl+V", "从电子表格粘贴多行"},
    {"日期栏", "可输入 20231115、231115、1115、15、+1、-1；↑ ↓ 增减光标处的年、月、日"},
    {"Alt+↓", "打开日历或下拉列表"},
    {"Alt+字母", "打开菜单"},
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

/// An entry with the name of a template; an "&" in it marks no key. It goes when its menu is filled anew.
void AddTemplate(QMenu* menu, const QString& name, const QString& templateName)
{
    QAction* const entry = menu->addAction(QString(templateName).replace("&", "&&"));
    entry->setObjectName(name);
    entry->setData(templateName);
}

/// An entry of its own for a key, in front of another one; null for the end.
void AddKeyEntry(QMainWindow& window, QMenu* menu, const BillKey& key, QAction* before = nullptr)
{
    // The key itself belongs to the toolbar's action: here it is only said.
    QAction* const entry = NewAction(window, key.menuEntry, QString(key.tip) + "\t" + key.shortcut);
    QObject::connect(entry, &QAction::triggered, window.findChild<QAction*>(key.control), &QAction::trigger);
    menu->insertAction(before, entry);
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

void AddMenuKeys(QMainWindow& window, QMenu* menu)
{
    if (!menu->isEmpty())
        menu->addSeparator();
    for (const MenuKey& command : MenuKeys())
        if (QLatin1String(command.menu) == menu->objectName())
            AddEntry(window, menu, command.name, command.caption)->setShortcut(QKeySequence(command.shortcut));
}

/// The keys that stand in a menu themselves, in groups as on the toolbar, and then what is no key.
void MakeKeyMenu(QMainWindow& window, const Entry& bar)
{
    QMenu* const menu = window.menuBar()->addMenu(bar.caption);
    menu->setObjectName(bar.name);
    for (const BillKey& key : BillKeys()) {
        if (QLatin1String(key.menu) != QLatin1String(bar.name))
            continue;
        if (key.opensGroup && !menu->isEmpty())
            menu->addSeparator();
        menu->addAction(window.findChild<QAction*>(key.control));
    }
    AddMenuKeys(window, menu);
}

void MakeHelpMenu(QMainWindow& window)
{
    QMenu* const help = window.menuBar()->addMenu("帮助(&H)");
    help->setObjectName(kHelp);
    AddMenuKeys(window, help);
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
    QObject::connect(window.findChild<QAction*>("ToolPrint"), &QAction::triggered, button, &QToolButton::showMenu);
}

} // namespace

const std::vector<BillKey>& BillKeys()
{
    using C = BillCommands;
    static const std::vector<BillKey> keys = {
        {"ToolBuild", "新建", "新建", "Ctrl+N", nullptr, "FBuild", {}, &C::build, false, Unsaved::Goes},
        {"ToolSave", "保存", "保存", "Ctrl+S", nullptr, "FSave", Command::Save, nullptr, false},
        {"ToolAuditing", "审核", "审核", "F7", kBill, nullptr, Command::Audit, &C::audit, true, Unsaved::SavedFirst},
        {"ToolUnAuditing", "反审核", "反审核", "F8", kBill, nullptr, Command::UnAudit, &C::unAudit, false},
        {"ToolDelete", "删除", "删除单据", "F12", nullptr, "FDelete", Command::Delete, &C::remove, true},
        {"ToolInsertRow", "插入行", "插入行", "Ctrl+Ins", kEdit, nullptr, Command::InsertRow, &C::insertRow, true},
        {"ToolDeleteRow", "删除行", "删除行", "Ctrl+Del", kEdit, nullptr, Command::DeleteRow, &C::deleteRow, false},
        {"ToolRedWord", "作废", "作废", "F9", kBill, nullptr, Command::Void, &C::redWord, true, Unsaved::SavedFirst},
        {"ToolPrint", "打印", "打印", "Ctrl+P", nullptr, nullptr, Command::Print, nullptr, true},
        {"ToolIn", "导入", "导入", "Ctrl+I", kEdit, nullptr, Command::Import, nullptr, true},
        {"ToolPos", "扫描", "扫描", "F6", kEdit, nullptr, Command::Scan, nullptr, false},
        {"ToolImg", "图文", "图文", "F11", kBill, nullptr, {}, nullptr, false},
        {"ToolBefore", "前单", "前单", "Ctrl+PgUp", kBill, nullptr, {}, &C::before, true, Unsaved::Goes},
        {"ToolBack", "后单", "后单", "Ctrl+PgDown", kBill, nullptr, {}, &C::back, false, Unsaved::Goes},
        {"ToolExit", "退出", "退出", "Ctrl+Q", nullptr, "FExit", {}, nullptr, true},
    };
    return keys;
}

const std::vector<MenuKey>& MenuKeys()
{
    static const std::vector<MenuKey> commands = {
        {"FPick", "选取当前栏", "F4", kEdit},
        {"FKeys", "窗口按键", "F1", kHelp},
    };
    return commands;
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
    QAction* const action =
        AddKey(window, *window.findChild<QToolBar*>("Toolbar1"), key, window.findChild<QAction*>(before));
    if (key.menuEntry)
        AddKeyEntry(window, window.findChild<QMenu*>("File"), key, window.findChild<QAction*>("FJXCAccount"));
    return action;
}

QAction* InsertFileEntry(QMainWindow& window, const char* name, const QString& caption)
{
    QAction* const entry = NewAction(window, name, caption);
    window.findChild<QMenu*>("File")->insertAction(window.findChild<QAction*>("FJXCAccount"), entry);
    return entry;
}

std::vector<KeyLine> KeysOf(const QMainWindow& window)
{
    QList<QAction*> commands = window.findChild<QToolBar*>("Toolbar1")->actions();
    for (const MenuKey& command : MenuKeys())
        commands += window.findChild<QAction*>(command.name);
    std::vector<KeyLine> lines;
    for (const QAction* const command : commands)
        if (!command->shortcut().isEmpty())
            lines.push_back({command->shortcut().toString(), command->iconText()});
    lines.insert(lines.end(), std::begin(kTypingKeys), std::end(kTypingKeys));
    return lines;
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
    for (const Entry& bar : kBars)
        MakeKeyMenu(window, bar);
    MakePrintMenu(window);
    MakeHelpMenu(window);
    FillTemplateMenus(window, {});
}

void FillTemplateMenus(QMainWindow& window, const QStringList& names)
{
    const QStringList captions = names.isEmpty() ? QStringList("暂无") : names;
    for (const char* menuName : kTemplateMenus) {
        auto* const menu = window.findChild<QMenu*>(menuName);
        menu->clear();
        for (const QString& caption : captions)
            AddTemplate(menu, QString(menuName) + "_Inf", caption);
    }
}
