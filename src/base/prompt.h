#pragma once

// Message boxes and file dialogs as a seam: windows show them, tests script them, acctset answers them by rule. All
// boxes have the title "系统提示", but for the database's own error box, which has none.

#include <QString>

/// A way on from a question with two of them.
enum class Choice
{
    First,
    Second,
    Cancel,
};

class Prompt
{
public:
    virtual ~Prompt() = default;
    /// Information icon, OK.
    virtual void Inform(const QString& text) = 0;
    /// Information icon, OK and Cancel, which end the command alike.
    virtual void InformOrCancel(const QString& text) { Inform(text); }
    /// Information icon, OK, under the title "错误": a stored file that is not there.
    virtual void InformFault(const QString& text) { Inform(text); }
    /// Critical icon, OK: a failed start, a missing program.
    virtual void Warn(const QString& text) = 0;
    /// Yes and no; true for yes.
    virtual bool Ask(const QString& text) = 0;
    /// Two ways on by their captions, and 取消.
    virtual Choice Choose(const QString& text, const QString& first, const QString& second) = 0;
    /// A database error: no icon, no title, OK.
    virtual void Error(const QString& text) = 0;
    /// A file to open. Empty when none was chosen.
    /// @param filters  as a file dialog takes them: "Workbook (*.xls *.xlsx);;All Files (*)"
    virtual QString AskFile(const QString& title, const QString& filters) = 0;
    /// Whether there is a pointer to show that the program waits.
    virtual bool showsBusy() const { return false; }
    /// The program waits for a slow server, or does so no longer.
    virtual void Busy(bool /*busy*/) {}
};
