#pragma once

// The real bill windows on the small account set, for tests that press keys in them.

#include "bills/screen.h"
#include "bills/window/frmWareManage.h"
#include "bills/window/grid/grid_view.h"
#include "support/window.h"

#include <QToolButton>

/// A bill's window on the small account set.
template <typename Screen, typename Window>
class WindowOn : public WindowOf<Window, Screen>
{
protected:
    using Screen::test;
    using WindowOf<Window, Screen>::window;

    std::pair<int, int> At() { return {window->bill().MSH.currentRow, window->bill().MSH.currentColumn}; }
    GridView* Grid() { return this->template Find<GridView>("MSH"); }
    /// A line as the grid shows it: the texts of the columns in sight.
    QStringList Line(int row)
    {
        QStringList texts;
        for (int column = 0; column < Grid()->model()->columnCount(); ++column)
            if (!Grid()->isColumnHidden(column))
                texts << Grid()->model()->index(row - 1, column).data().toString();
        return texts;
    }
    void ClickCell(int row, int column)
    {
        const QModelIndex index = Grid()->model()->index(row - 1, column - 1);
        QTest::mouseClick(Grid()->viewport(), Qt::LeftButton, {}, Grid()->visualRect(index).center());
    }
    /// Keys of the toolbar that can be pressed, in order, without Tool.
    QString Keys()
    {
        QStringList keys;
        for (const BillKey& key : BillKeys())
            if (this->template Find<QToolButton>(key.control)->isEnabled())
                keys << QString(key.control).mid(4);
        return keys.join(' ');
    }
    int Count(const char* table) { return test.Run(Sql("select * from ") + Name(table)).size(); }
    /// Saves by its key and gives the boxes.
    QStringList SaveByKey()
    {
        this->Press({Qt::Key_S}, Qt::ControlModifier);
        return test.prompt.TakeTexts();
    }
};

class WareManageTest : public WindowOn<BillScreen, frmWareManage>
{
protected:
    void MakeWindow()
    {
        window.reset(new frmWareManage(test.program));
        window->setAttribute(Qt::WA_DeleteOnClose, false);
    }
    void OpenNew(const char* operation)
    {
        test.program.parameters.OperateType = operation;
        MakeWindow();
        Show();
        window->frm_Initialize(false);
    }
    void OpenSaved(const char* table, const QString& code)
    {
        MakeWindow();
        window->FillBill(table, code);
        Show();
    }
    /// The head of a new transfer, up to the first cell of the grid.
    void TypeHead() { TypeAndEnter({"101", "102", "", "memo", ""}); }
    /// A new transfer with its head and a good in the first line.
    void OpenTransfer(const char* operation = "同价调拨")
    {
        OpenNew(operation);
        TypeHead();
        TypeAndEnter({"A001"});
    }
    /// A new loss report with its head and a good in the first line.
    void OpenLoss()
    {
        OpenNew("盘点报损");
        TypeAndEnter({"101", "", "", "", "A001"});
    }
};
