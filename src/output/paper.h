#pragma once

// The printing system of the machine.

#include "handover/program.h"

#include <QProcess>
#include <QTimer>
#include <chrono>
#include <functional>

/// The pages of a PDF on their way to the default printer, beside the program's own work. It says what hinders them,
/// and goes by itself when it has ended.
class PrintJob : public QObject
{
public:
    /// @param taken  false for pages that the printing system refused, which is said next, or that the user gave up
    using Ended = std::function<void(bool taken)>;
    static constexpr std::chrono::seconds kPatience{60};

    /// @param pdf  read at once: the file may go
    /// @param patience  until a printing system that does not answer is given up
    PrintJob(Program& program, const QString& pdf, const QString& title, Ended ended = {},
             std::chrono::milliseconds patience = kPatience);
    /// At the end of the program a print on its way gets a last moment.
    ~PrintJob() override;

    /// The user no longer wants it.
    void Cancel();

private:
    void Start(const QByteArray& pages, const QString& title);
    QString Refusal();
    void End(bool taken, const QString& refusal);

    Program& m_program;
    const Ended m_ended;
    const std::chrono::milliseconds m_waited;
    QProcess m_lp;
    QTimer m_patience;
    bool m_isGivenUp = false;
};
