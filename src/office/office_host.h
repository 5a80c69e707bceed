#pragma once

// The spreadsheet application behind the seam: LibreOffice, started when it is first needed and kept for the next job.

#include "base/spreadsheet.h"
#include "office/call_watch.h"
#include "office/job_thread.h"
#include "office/office_process.h"

#include <atomic>

class OfficeHost final : public SpreadsheetHost
{
public:
    OfficeHost();

    void Run(const Job& job, Input input) override;
    void Cancel() override;
    void HandOver(const QString& path, const QString& caption, bool isNew) override;

private:
    void Do(const std::function<void()>& action, QEventLoop::ProcessEventsFlags events);
    const LocalUno& Local();
    const OfficeProcess& RunningOffice();

    CallWatch m_watch;
    std::atomic<bool> m_isBusy = false;
    std::unique_ptr<LocalUno> m_local;       // both of
    std::unique_ptr<OfficeProcess> m_office; // the thread
    JobThread m_thread;                      // ends first
};

extern "C" SpreadsheetHost* NewSpreadsheetHost();
