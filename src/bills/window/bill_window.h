#pragma once

// What the bill windows share: the head's texts bound to their boxes, the grid with its editors, totals and options
// below it, and what every command does around its rule. What differs is passed in.

#include "bills/head_fields.h"
#include "bills/window/bill_menus.h"
#include "bills/window/grid/cell_editors.h"
#include "dialogs/picker_lists.h"
#include "shell/window_memory.h"

#include <QMainWindow>
#include <QTimer>
#include <memory>

class DateBox;
class Draft;
class GridView;
class QBoxLayout;
class QLabel;
class QLineEdit;
struct ColumnFormat;
struct DraftText;

class BillWindow : public QMainWindow
{
    Q_OBJECT

public:
    ~BillWindow() override;

    const BillText& bill() const { return m_bill; }
    /// Loads a saved bill of a head table; without one the window is blank. Called before the window is shown.
    void FillBill(const QString& tableName, const QString& billCode);
    /// Shows what a draft holds on the blank window of its kind; from here on it is this window's draft.
    void TakeDraft(std::unique_ptr<Draft> draft, const DraftText& text);
    /// Whether the bill may leave the screen: nothing would be lost, or the user has saved it or lets it go.
    bool MayGo();
    /// What is not stored has been let go.
    void DropDraft();

protected:
    /// @param bill  what the window shows; a window with more on its head passes a record of its own kind
    BillWindow(Program& program, std::shared_ptr<BillText> bill, const BillCommands& commands);

    /// Builds the window around its head. Called once, when the bill is loaded.
    void Build(QWidget* head);
    /// Where the user last had a window of this class; `usual` before that.
    void RestorePlace(const QSize& usual);
    /// A box that shows a text of the bill and, where it is typed, changes it.
    QLineEdit* MakeBox(const char* control, QString& text, bool isTyped);
    /// A box of the head that every bill window may have, by its name.
    QLineEdit* MakeHeadBox(const char* control);
    /// The bill's day.
    QWidget* MakeDate();
    /// Currency and rate.
    QWidget* MakeMoneyFrame();
    /// Lets an existing widget show a text of the bill.
    void Bind(QWidget* widget, QString& text);

    /// Lists the templates of the bill's group in its menus.
    void ListTemplates();
    /// Puts the bill on the screen.
    virtual void ShowBill();
    virtual void FocusFirstField() = 0;
    /// The one place where a choice is asked of the user. Unset when none was made.
    std::optional<PickedRow> OpenPicker(const PickerNeeded& picker);
    /// Enter in a box of the head: a beginning becomes the warehouse or the person, and the focus goes on.
    virtual void EnterInHead(const QString& control);
    /// Opens the picker of a box of the head. False for a box without one.
    virtual bool PickFor(const QString& control);
    /// What Enter in a box leads to: the next one, past the button beside it.
    void FocusNextBox();
    /// The buttons beside the boxes of a head open its pickers.
    void ConnectPickers(QWidget* head);
    GridView& grid() { return *m_grid; }
    /// Before the lines are replaced under them.
    void HideEditors();
    /// Whether the bill on the screen is a stored one, or blank; a changed one can be saved for that now.
    bool IsStoredNow();
    /// The user has put something into the bill: the title says so, and a draft follows.
    void ShowTitle();

    bool event(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

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
    void ConnectOwnCommands();
    void PickForHead(const HeadPicker& field, const PickerNeeded& picker);
    void PickForLine(const PickerNeeded& picker);
    void PickHere();
    void ShowKeys();
    void Run(const BillKey& key);
    void Save() { SaveBill(); }
    /// True when the bill was stored.
    bool SaveBill();
    bool SaveAndStay();
    void ShowCellAtFault();
    void KeepDraft();
    void ShowDay();
    void OpenImport();
    void ExcelInBill(QWidget* over);
    void ExportGrid();
    void Scan();
    void OpenImages();
    void OpenAccountSettings();
    void FormatColumns();
    void FormatColumn(int column, const ColumnFormat& format);
    void DeleteFormat();
    void RestoreWidths();
    void ShowCommands();
    void ShowTotals();

    const BillCommands m_commands;
    std::vector<Binding> m_bindings;
    GridView* m_grid = nullptr;
    DateBox* m_date = nullptr; // DTPDate
    CellEditors* m_editors = nullptr;
    QLabel* m_loading = nullptr; // LoadingPic
    bool m_importing = false;    // lines are on their way into the bill
    QString m_drawnKey;          // of the layout that m_drawn belongs to
    ColumnWidths m_drawn;        // by the user
    std::unique_ptr<Draft> m_draft;
    QTimer m_draftTimer;         // runs out when the user pauses
    bool m_draftRefused = false; // it could not be written, which has been said
};

/// Asks every open bill window whether it may go; false with the first one that may not.
bool MayLeaveBills();
/// The process ends, and what its bill windows hold has been let go.
void DropDrafts();
