#include "office/call_watch.h"

#include <csignal>
#include <utility>

CallWatch::CallWatch() : m_thread([this] { Watch(); }) {}

CallWatch::~CallWatch()
{
    {
        const std::lock_guard lock(m_mutex);
        m_atEnd = true;
    }
    m_changed.notify_one();
    m_thread.join();
}

void CallWatch::Begin()
{
    const std::lock_guard lock(m_mutex);
    m_stop = Stop::None;
}

pid_t CallWatch::Follow(pid_t office)
{
    const std::lock_guard lock(m_mutex);
    const pid_t before = std::exchange(m_office, office);
    if (m_stop != Stop::None)
        EndOffice(m_stop); // cancelled while it was starting
    return before;
}

void CallWatch::Cancel()
{
    const std::lock_guard lock(m_mutex);
    EndOffice(Stop::Cancelled);
}

void CallWatch::ThrowIfStopped() const
{
    const std::lock_guard lock(m_mutex);
    if (m_stop == Stop::Cancelled)
        throw SpreadsheetError{SpreadsheetError::Kind::Cancelled, "操作已取消！"};
    if (m_stop == Stop::NoAnswer)
        throw SpreadsheetError{SpreadsheetError::Kind::Stopped, "LibreOffice长时间没有响应，已被结束，请重新操作！"};
}

CallWatch::Limit::Limit(CallWatch& watched, std::chrono::seconds time) : watch(watched)
{
    watch.ThrowIfStopped();
    {
        const std::lock_guard lock(watch.m_mutex);
        watch.m_deadline = Clock::now() + time;
    }
    watch.m_changed.notify_one();
}

CallWatch::Limit::~Limit()
{
    const std::lock_guard lock(watch.m_mutex);
    watch.m_deadline = Clock::time_point::max(); // the watch wakes once at the old one and sees it
}

void CallWatch::Watch()
{
    std::unique_lock lock(m_mutex);
    while (!m_atEnd) {
        if (m_deadline == Clock::time_point::max()) {
            m_changed.wait(lock);
            continue;
        }
        m_changed.wait_until(lock, m_deadline);
        if (Clock::now() >= m_deadline) {
            EndOffice(Stop::NoAnswer);
            m_deadline = Clock::time_point::max();
        }
    }
}

void CallWatch::EndOffice(Stop reason)
{
    m_stop = reason;
    if (m_office > 0)
        kill(m_office, SIGKILL);
}

SpreadsheetError CallWatch::OfficeEnded()
{
    return {SpreadsheetError::Kind::Stopped, "LibreOffice意外退出，操作没有完成，请重新操作！"};
}

void CallWatch::Raise(const SpreadsheetError& failure) const
{
    ThrowIfStopped();
    throw failure;
}
