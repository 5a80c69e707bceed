#pragma once

// What holds for all windows of the program: Qt's own texts and the names of days and months are Chinese whatever the
// system speaks, a key that does nothing is heard, and no window is larger than its screen. A key or a click is one
// action of the program's: a connect that fails within it is said once and ends it.

#include "handover/program.h"

#include <QApplication>
#include <QTranslator>

class Application : public QApplication
{
public:
    Application(int& argc, char** argv);

    /// The program whose windows are open; null for none.
    void Serve(Program* program) { m_program = program; }
    bool notify(QObject* receiver, QEvent* event) override;

private:
    bool Deliver(QObject* receiver, QEvent* event);

    Program* m_program = nullptr;
    QTranslator m_texts; // of Qt; empty where they are not installed
};
