#pragma once

// The entries by which a bill window prints, previews, sets up and exports: through the print host, by the templates
// of the kind, and by those that the user has added.

#include "bills/paper/bill_print.h"

#include <QObject>
#include <functional>

class QLabel;
class QMainWindow;

class PrintCommands : public QObject
{
public:
    /// Hangs the work on the entries of the window, which are there already.
    /// @param loading  shown while a template is filled
    /// @param isStored  whether what is on the screen is stored; otherwise the user has been asked
    PrintCommands(Program& program, const BillText& bill, const BillPaper& paper, QMainWindow& window, QLabel& loading,
                  std::function<bool()> isStored);

private:
    void ConnectFormats();
    void ConnectLists();
    bool MayPrint(const QString& function);
    void RunPlain(const QString& action);
    void SetUp(const QString& form);
    void Fill(const QString& templateName, SheetGoal goal);

    Program& m_program;
    const BillText& m_bill;
    const BillPaper& m_paper;
    QMainWindow& m_window;
    QLabel& m_loading;
    const std::function<bool()> m_isStored;
};
