#include "database/patient_store.h"

#include <condition_variable>
#include <future>
#include <mutex>
#include <thread>
#include <utility>

namespace {
/// The thread of a store. Whoever gave it up no longer touches it.
struct Worker
{
    std::mutex mutex;
    std::condition_variable changed;
    std::function<void()> task;
    bool isDismissed = false;
    std::unique_ptr<Store> store; // the thread's own while it has a task

    void Give(std::function<void()> work)
    {
        const std::lock_guard lock(mutex);
        task = std::move(work);
        changed.notify_one();
    }

    /// After the task that it may have.
    void Dismiss()
    {
        const std::lock_guard lock(mutex);
        isDismissed = true;
        changed.notify_one();
    }

    void Work()
    {
        std::unique_lock lock(mutex);
        for (;;) {
            changed.wait(lock, [this] { return task || isDismissed; });
            if (!task)
                break;
            const std::function<void()> next = std::exchange(task, nullptr);
            lock.unlock();
            next();
            lock.lock();
        }
        lock.unlock();
        store.reset();
    }
};

class PatientStore : public Store
{
public:
    PatientStore(std::function<std::unique_ptr<Store>()> open, Patience patience) : m_patience(patience)
    {
        std::thread([worker = m_worker] { worker->Work(); }).detach();
        try {
            Await(m_patience.connect, [worker = m_worker.get(), open = std::move(open)] { worker->store = open(); });
        } catch (const StoreError&) {
            Leave();
            throw;
        }
    }
    /// A store in order is closed when this returns.
    ~PatientStore() override
    {
        if (!m_worker)
            return;
        try {
            Await(m_patience.connect, [worker = m_worker.get()] { worker->store.reset(); });
        } catch (const StoreError&) {
            return; // left behind
        }
        Leave();
    }
    PatientStore(const PatientStore&) = delete;
    PatientStore& operator=(const PatientStore&) = delete;

    Recordset Run(const Sql& sql) override
    {
        return Answer([sql](Store& store) { return store.Run(sql); });
    }
    void BeginUnit() override
    {
        Answer([](Store& store) { store.BeginUnit(); });
    }
    void CommitUnit() override
    {
        Answer([](Store& store) { store.CommitUnit(); });
    }
    void RollbackUnit() override
    {
        Answer([](Store& store) { store.RollbackUnit(); });
    }
    bool inUnit() const override { return m_worker && m_worker->store->inUnit(); }
    bool isLost() const override { return !m_worker || m_worker->store->isLost(); }
    QString advice() const override { return m_worker ? m_worker->store->advice() : QString(); }

private:
    /// What the task needs it owns: it may outlive this.
    template <typename Task>
    std::invoke_result_t<Task> Await(std::chrono::seconds limit, Task task)
    {
        const auto work = std::make_shared<std::packaged_task<std::invoke_result_t<Task>()>>(std::move(task));
        auto answer = work->get_future();
        m_worker->Give([work] { (*work)(); });
        if (answer.wait_for(limit) != std::future_status::ready) {
            Leave();
            throw StoreError{kUnspecifiedError, kSlowServer};
        }
        return answer.get();
    }

    template <typename Question>
    std::invoke_result_t<Question, Store&> Answer(Question question)
    {
        if (!m_worker)
            throw StoreError{kUnspecifiedError, kSlowServer};
        return Await(m_patience.statement, [worker = m_worker.get(), question] { return question(*worker->store); });
    }

    void Leave()
    {
        if (m_worker)
            m_worker->Dismiss();
        m_worker.reset();
    }

    Patience m_patience;
    std::shared_ptr<Worker> m_worker = std::make_shared<Worker>(); // empty once it has been left
};
} // namespace

std::unique_ptr<Store> OpenPatiently(std::function<std::unique_ptr<Store>()> open, Patience patience)
{
    return std::make_unique<PatientStore>(std::move(open), patience);
}
