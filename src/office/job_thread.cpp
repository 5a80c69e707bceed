#include "office/job_thread.h"

#include <QCoreApplication>
#include <future>
#include <optional>
#include <utility>

namespace {

constexpr std::chrono::minutes kIdle(10);

/// A window that waits for a job cannot be closed under it.
class NoClosing : public QObject
{
public:
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() != QEvent::Close)
            return false;
        event->ignore();
        return true;
    }
};

void WaitInLoop(QEventLoop& loop, QEventLoop::ProcessEventsFlags events)
{
    NoClosing noClosing;
    if (events.testFlag(QEventLoop::ExcludeUserInputEvents))
        QCoreApplication::instance()->installEventFilter(&noClosing);
    loop.exec(events);
}

} // namespace

JobThread::JobThread(std::function<void()> whenIdle) : m_whenIdle(std::move(whenIdle)), m_thread([this] { Work(); }) {}

JobThread::~JobThread()
{
    {
        const std::lock_guard lock(m_mutex);
        m_atEnd = true;
    }
    m_changed.notify_one();
    m_thread.join();
}

void JobThread::Do(const std::function<void()>& job, QEventLoop::ProcessEventsFlags events)
{
    std::optional<QEventLoop> loop;
    if (QCoreApplication::instance())
        loop.emplace();
    const auto done = std::make_shared<std::promise<void>>();
    {
        const std::lock_guard lock(m_mutex);
        m_job = [&job, &loop, done] {
            std::exception_ptr failure;
            try {
                job();
            } catch (...) {
                failure = std::current_exception();
            }
            // The loop first: it lives as long as the promise is not kept.
            if (loop)
                QMetaObject::invokeMethod(&*loop, &QEventLoop::quit, Qt::QueuedConnection);
            failure ? done->set_exception(failure) : done->set_value();
        };
    }
    m_changed.notify_one();
    if (loop)
        WaitInLoop(*loop, events);
    done->get_future().get(); // a loop may end early, when the program is about to end
}

void JobThread::Work()
{
    std::unique_lock lock(m_mutex);
    while (!m_atEnd) {
        const bool isIdle = !m_changed.wait_for(lock, kIdle, [this] { return m_job || m_atEnd; });
        const std::function<void()> next = isIdle ? m_whenIdle : std::exchange(m_job, nullptr);
        lock.unlock();
        if (next)
            next();
        lock.lock();
    }
    m_whenIdle();
}
