#include "office/office_host.h"

#include "office/uno_workbook.h"
#include "office/user_window.h"

#include <QScopeGuard>

OfficeHost::OfficeHost()
    : m_thread([this] {
          m_office.reset();
          m_local.reset();
      })
{}

void OfficeHost::Run(const Job& job, Input input)
{
    const auto action = [&] {
        OfficeApplication application(m_watch, RunningOffice());
        job(application);
    };
    Do(action, input == Input::Waits ? QEventLoop::ExcludeUserInputEvents : QEventLoop::AllEvents);
}

void OfficeHost::Cancel()
{
    if (m_isBusy)
        m_watch.Cancel();
}

void OfficeHost::HandOver(const QString& path, const QString& caption, bool isNew)
{
    Do([&] { OpenUserWindow(Local(), m_watch, path, caption, isNew); }, QEventLoop::ExcludeUserInputEvents);
}

void OfficeHost::Do(const std::function<void()>& action, QEventLoop::ProcessEventsFlags events)
{
    if (m_isBusy.exchange(true))
        throw SpreadsheetError{SpreadsheetError::Kind::Busy, "正在处理另一个Excel文件，请稍候重新操作！"};
    const auto free = qScopeGuard([&] { m_isBusy = false; });
    m_watch.Begin();
    m_thread.Do(
        [&] {
            try {
                CheckInstalled();
                action();
            } catch (...) {
                m_watch.ThrowIfStopped();
                throw;
            }
            m_watch.ThrowIfStopped();
        },
        events);
}

const LocalUno& OfficeHost::Local()
{
    if (!m_local)
        m_local = std::make_unique<LocalUno>();
    return *m_local;
}

const OfficeProcess& OfficeHost::RunningOffice()
{
    if (m_office && !m_office->Answers())
        m_office.reset();
    if (!m_office)
        m_office = std::make_unique<OfficeProcess>(Local(), m_watch);
    return *m_office;
}

SpreadsheetHost* NewSpreadsheetHost()
{
    return new OfficeHost;
}
