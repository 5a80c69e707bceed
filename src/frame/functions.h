#pragma once

// The functions of the whole suite as the main window offers them, by category, and what each word does. The window
// shows these lists and does what RunFunction leaves to it; it decides nothing itself.

#include "frame/run_mode.h"
#include "handover/program.h"

#include <QString>
#include <QStringList>

/// The node between two groups of a tree. It runs nothing.
inline const QString kTreeSeparator = QStringLiteral("------------------------");

struct FunctionCategory
{
    QString caption;
    QStringList pictures; // the main entries
    QStringList items;    // the further entries
    QStringList tree;     // with separators
};

/// Captions of the category buttons, in order.
QStringList CategoryCaptions(QStringView moduleRunMode = kModuleRunMode);
/// Null for a caption without entries (退出).
const FunctionCategory* FindCategory(const QString& caption);

/// The steps of a function that need a window.
enum class WindowStep
{
    None,
    OpenBill,     // frmWareManage on a new bill of OperateType
    OpenAssembly, // frmGroupPiece on a new bill
    AskExit,      // frmExit
    EndProcess,   // at once, without closing logic
};

/// Runs the function of a word as far as no window is needed: rights, guards, the start of a sibling, messages.
/// @return what the window has to do
WindowStep RunFunction(Program& program, const QString& functionWord, QStringView moduleRunMode = kModuleRunMode);
