#pragma once

// A real window under test: keys go to whatever has the focus, and the dialogs over it are answered.

#include "support/test_program.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QTest>
#include <QTimer>
#include <functional>
#include <gtest/gtest.h>

/// Milliseconds that are waited at most: a busy machine is slow.
constexpr int kPatience = 60000;

/// A program to open windows on.
struct ProgramScreen : testing::Test
{
    TestProgram test;
};

template <typename Window, typename Screen = ProgramScreen>
class WindowOf : public Screen
{
protected:
    /// Makes the window on the program and shows it.
    template <typename... Rest>
    void ShowNew(const Rest&... rest)
    {
        window = std::make_unique<Window>(Screen::test.program, rest...);
        Show();
    }
    void Show()
    {
        window->show();
        window->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(window.get(), kPatience));
    }

    void Press(std::initializer_list<Qt::Key> keys, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        for (const Qt::Key key : keys)
            QTest::keyClick(FocusWidget(), key, modifiers);
    }
    void TypeText(const QString& text) { QTest::keyClicks(FocusWidget(), text); }
    /// As an input method does.
    void Write(const QString& text)
    {
        QInputMethodEvent written;
        written.setCommitString(text);
        QApplication::sendEvent(FocusWidget(), &written);
    }
    void TypeAndEnter(std::initializer_list<const char*> texts)
    {
        for (const char* text : texts) {
            TypeText(text);
            Press({Qt::Key_Return});
        }
    }
    void Click(const char* button) { Find<QAbstractButton>(button)->click(); }
    void Trigger(const char* action) { Find<QAction>(action)->trigger(); }

    template <typename Widget>
    Widget* Find(const char* name)
    {
        auto* const found = window->template findChild<Widget*>(name);
        EXPECT_TRUE(found) << name;
        return found;
    }
    QString Box(const char* name) { return Find<QLineEdit>(name)->text(); }
    QString Text(const char* label) { return Find<QLabel>(label)->text(); }
    bool Shown(const char* name) { return Find<QWidget>(name)->isVisible(); }
    /// Of the open dialog or, active again behind a closed one, of the window.
    QWidget* FocusWidget()
    {
        QWidget* const dialog = QApplication::activeModalWidget();
        if (!dialog && !window->isActiveWindow()) {
            window->activateWindow();
            EXPECT_TRUE(QTest::qWaitForWindowActive(window.get(), kPatience));
        }
        QWidget* const focus = dialog ? dialog->focusWidget() : QApplication::focusWidget();
        EXPECT_TRUE(focus);
        return focus ? focus : window.get();
    }
    QString Focus() { return FocusWidget()->objectName(); }

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
            EXPECT_TRUE(QTest::qWaitForWindowActive(dialog, kPatience));
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
