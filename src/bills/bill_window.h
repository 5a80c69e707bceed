#pragma once

// What the bill windows share: the head's texts bound to their boxes, the grid with its editors, totals and options
// below it, and what every command does around its rule. What differs is passed in.

#include "bills/bill_menus.h"
#include "bills/cell_editors.h"

#include <QMainWindow>
#include <memory>

class GridView;
class QBoxLayout;
class QLabel;
class QLineEdit;

class BillWindow : public QMainWindow
{
    Q_OBJECT

public:
    ~BillWindow() override;

    const BillText& bill() const { return m_bill; }

protected:
    /// @param bill  what the window shows; a window with more on its head passes a record of its own kind
    BillWindow(Program& program, std::shared_ptr<BillText> bill, const BillCommands& commands);

    /// Builds the window around its head. Called once, when the bill is loaded.
    void Build(QWidget* head);
    /// A box that shows a text of the bill and, where it is typed, changes it.
    QLineEdit* MakeBox(const char* control, QString& text, bool isTyped = true);
    /// Lets an existing widget show a text of the bill.
    void Bind(QWidget* widget, QString& text);

    /// Puts the bill on the screen.
    virtual void ShowBill();
    virtual void FocusFirstField() = 0;
    /// The one place where a choice is asked of the user.
    void OpenPicker(const PickerNeeded& picker);
    /// On to the next box, as the tab key goes.
    void GoOn();
    GridView& grid() { return *m_grid; }

    bool event(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

    Program& m_program;

private:
    const std::shared_ptr<BillText> m_owner; // before what refers to it

protected:
    BillText& m_bill;

private:
    struct Binding
    {
        QWidget* widget;
        QString* text;
    };

    QWidget* MakeCaptionBand();
    QWidget* MakeFoot();
    QWidget* MakeTotals();
    void AddOptions(QBoxLayout* foot);
    void AddCheck(QBoxLayout* foot, const char* control, const QString& caption, bool& flag);
    void AddFreeze(QBoxLayout* foot);
    void ConnectKeys();
    void Run(BillCommands::Rule rule);
    void Save();
    void ShowCommands();
    void ShowTotals();

    const BillCommands m_commands;
    std::vector<Binding> m_bindings;
    GridView* m_grid = nullptr;
    CellEditors* m_editors = nullptr;
    QLabel* m_loading = nullptr; // LoadingPic
};
