#pragma once

// The real bill windows on the small account set, for tests that press keys in them.

#include "bills/frmWareManage.h"
#include "bills/grid_view.h"
#include "bills/screen.h"

#include <QApplication>
#include <QLineEdit>
#include <QTest>
#include <QTimer>
#include <QToolButton>
#include <functional>

/// A real window on the small account set; keys go to whatever has the focus.
template <typename Screen, typename Window>
class WindowOn : public Screen
{
protected:
    using Screen::test;

    void Show()
    {
        window->show();
        window->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    }

    void Press(std::initializer_list<Qt::Key> keys, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        for (const Qt::Key key : keys)
            QTest::keyClick(FocusWidget(), key, modifiers);
    }
    void TypeText(const QString& text) { QTest::keyClicks(FocusWidget(), text); }
    void TypeAndEnter(std::initializer_list<const char*> texts)
    {
        for (const char* text : texts) {
            TypeText(text);
            Press({Qt::Key_Return});
        }
    }
    template <typename Widget>
    Widget* Find(const char* name)
    {
        auto* const found = window->template findChild<Widget*>(name);
        EXPECT_TRUE(found) << name;
        return found;
    }
    QString Box(const char* name) { return Find<QLineEdit>(name)->text(); }
    bool Shown(const char* name) { return Find<QWidget>(name)->isVisible(); }
    /// Of the open dialog or, active again behind a closed one, of the bill's window.
    QWidget* FocusWidget()
    {
        QWidget* const dialog = QApplication::activeModalWidget();
        if (!dialog && !window->isActiveWindow()) {
            window->activateWindow();
            EXPECT_TRUE(QTest::qWaitForWindowActive(window.get()));
        }
        QWidget* const focus = dialog ? dialog->focusWidget() : QApplication::focusWidget();
        EXPECT_TRUE(focus);
        return focus;
    }
    QString Focus() { return FocusWidget()->objectName(); }
    std::pair<int, int> At() { return {window->bill().MSH.currentRow, window->bill().MSH.currentColumn}; }
    /// A line as the grid shows it: the texts of the columns in sight.
    QStringList Line(int row)
    {
        const auto* const grid = Find<GridView>("MSH");
        QStringList texts;
        for (int column = 0; column < grid->model()->columnCount(); ++column)
            if (!grid->isColumnHidden(column))
                texts << grid->model()->index(row - 1, column).data().toString();
        return texts;
    }
    void ClickCell(int row, int column)
    {
        auto* const grid = Find<GridView>("MSH");
        const QModelIndex index = grid->model()->index(row - 1, column - 1);
        QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, grid->visualRect(index).center());
    }
    /// Keys of the toolbar that can be pressed, in order, without Tool.
    QString Keys()
    {
        QStringList keys;
        for (const BillKey& key : BillKeys())
            if (Find<QToolButton>(key.control)->isEnabled())
                keys << QString(key.control).mid(4);
        return keys.join(' ');
    }
    QStringList Row(const char* table)
    {
        const Recordset rows = test.Run(Sql("select * from ") + Name(table));
        QStringList texts;
        for (const QString& column : rows.columns())
            texts << rows.Text(column);
        return texts;
    }
    int Count(const char* table) { return test.Run(Sql("select * from ") + Name(table)).size(); }

    /// Does something in the next dialog over the window, as soon as it is open, and leaves it.
    void InDialog(std::function<void(QWidget& dialog)> act)
    {
        auto* const watch = new QTimer(window.get());
        QObject::connect(watch, &QTimer::timeout, watch, [this, watch, act = std::move(act)] {
            QWidget* const dialog = QApplication::activeModalWidget();
            if (!dialog)
                return;
            watch->stop();
            ++dialogs;
            EXPECT_TRUE(QTest::qWaitForWindowActive(dialog));
            act(*dialog);
            if (dialog->isVisible())
                dialog->close();
            watch->deleteLater();
        });
        watch->start(1);
    }

    std::unique_ptr<Window> window;
    int dialogs = 0; // that have been open
};

class WareManageTest : public WindowOn<BillScreen, frmWareManage>
{
protected:
    void OpenNew(const char* operation)
    {
        test.program.parameters.OperateType = operation;
        window.reset(new frmWareManage(test.program));
        window->setAttribute(Qt::WA_DeleteOnClose, false);
        Show();
        window->frm_Initialize(false);
    }
    void OpenSaved(const char* table, const QString& code)
    {
        window.reset(new frmWareManage(test.program));
        window->setAttribute(Qt::WA_DeleteOnClose, false);
        window->FillBill(table, code);
        Show();
    }
    /// The head of a new transfer, up to the first cell of the grid.
    void TypeHead() { TypeAndEnter({"101", "102", "", "memo", ""}); }
};
