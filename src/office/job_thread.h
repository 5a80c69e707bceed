#pragma once

// One thread that does one job at a time, while the thread that asked for it waits and paints.

#include <QEventLoop>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>

class JobThread
{
public:
    /// @param whenIdle  runs in the thread when it had nothing to do for a while, and at its end
    explicit JobThread(std::function<void()> whenIdle);
    ~JobThread();
    JobThread(const JobThread&) = delete;
    JobThread& operator=(const JobThread&) = delete;

    /// Returns when the job is done, and throws what it throws.
    /// @param events  which are handled meanwhile; none are where the program has no event loop
    void Do(const std::function<void()>& job, QEventLoop::ProcessEventsFlags events);

private:
    void Work();

    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::function<void()> m_job; // waiting to be taken
    std::function<void()> m_whenIdle;
    bool m_atEnd = false;
    std::thread m_thread;
};
