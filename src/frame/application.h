#pragma once

// What holds for all windows of the program: Qt's own texts and the names of days and months are Chinese whatever the
// system speaks, a key that does nothing is heard, and no window is larger than its screen.

#include <QApplication>
#include <QTranslator>

class Application : public QApplication
{
public:
    Application(int& argc, char** argv);

    bool notify(QObject* receiver, QEvent* event) override;

private:
    QTranslator m_texts; // of Qt; empty where they are not installed
};
