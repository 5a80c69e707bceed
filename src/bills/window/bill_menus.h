#pragma once

// The keys and menus of the bill windows as tables: which command stands where, under which caption and shortcut.

#include "bills/bill_text.h"
#include "bills/life/audit.h"
#include "bills/life/lifecycle.h"
#include "bills/life/neighbours.h"
#include "bills/lines/line_entry.h"
#include "bills/saving/posting.h"

#include "dialogs/window/frmKeys.h"

#include <optional>

class QAction;
class QMainWindow;
class QMenu;
struct BillPaper;

/// The rules behind the commands: those of every bill, but for the three that each window brings along.
struct BillCommands
{
    using Rule = void (*)(Program&, BillText&);

    bool (*isHeadReady)(Program&, BillText&) = nullptr; // for lines from elsewhere; a refusal has been said
    Rule build = NewBill;
    Posting (*save)(Program&, BillText&) = nullptr;
    const BillPaper* paper = nullptr; // how it is printed
    Rule audit = AuditBill;
    Rule unAudit = UnAuditBill;
    Rule remove = FDelete;
    Rule insertRow = InsertGridRow;
    Rule deleteRow = DeleteGridRow;
    Rule redWord = VoidBill;
    Rule before = PreviousBill;
    Rule back = NextBill;
};

/// What a command asks of a bill that holds what is not stored.
enum class Unsaved
{
    Stays,      // nothing
    Goes,       // whether it may be lost
    SavedFirst, // that it is saved first
};

/// A key of the toolbar, and where its command stands in the menus.
struct BillKey
{
    const char* control;
    const char* caption;
    const char* tip;
    const char* shortcut;
    const char* menu;                       // that the key itself stands in; null for none
    const char* menuEntry;                  // of its own in the menu File; null for none
    std::optional<Command> command;         // that locks it; unset for one that is never locked
    BillCommands::Rule BillCommands::*rule; // null where the window does more than run a rule
    bool opensGroup;
    Unsaved unsaved = Unsaved::Stays;
};
const std::vector<BillKey>& BillKeys();

/// A command without a key on the toolbar.
struct MenuKey
{
    const char* name;
    const char* caption;
    const char* shortcut;
    const char* menu;
};
const std::vector<MenuKey>& MenuKeys();

/// Toolbar1 with all keys as actions of the window, each bearing its key's name.
void MakeBillToolbar(QMainWindow& window);
/// The menus File, MEdit, MBill, MPrint and MHelp, in which every command stands with its keys. Every entry bears its
/// name.
void MakeBillMenus(QMainWindow& window);
/// A key that only one window has, in front of another one; nothing hangs on it yet.
QAction* InsertBillKey(QMainWindow& window, const BillKey& key, const char* before);
/// An entry of the menu File that only one window has; nothing hangs on it yet.
QAction* InsertFileEntry(QMainWindow& window, const char* name, const QString& caption);
/// The keys of a window and what they do: its commands, then those of typing.
std::vector<KeyLine> KeysOf(const QMainWindow& window);
/// The names of Excel templates in the three menus that list them, each entry with its name as data; a placeholder for
/// none.
void FillTemplateMenus(QMainWindow& window, const QStringList& names);
