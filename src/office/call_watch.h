#pragma once

// Every call into LibreOffice goes through here. A call has no time-out of its own: what does not come back in time, or
// is cancelled, is ended by ending the office, after which the waiting call comes back by itself.

#include "base/spreadsheet.h"

#include <chrono>
#include <com/sun/star/lang/DisposedException.hpp>
#include <condition_variable>
#include <mutex>
#include <sys/types.h>
#include <thread>

class CallWatch
{
public:
    /// A sheet of 5,000 rows comes in far less.
    static constexpr std::chrono::seconds kWorkLimit{60};

    CallWatch();
    ~CallWatch();
    CallWatch(const CallWatch&) = delete;
    CallWatch& operator=(const CallWatch&) = delete;

    /// A new job: nothing is cancelled yet.
    void Begin();
    /// The process that answers from now on, 0 for none. It must not be reaped while it is followed.
    /// @return the one that answered before
    pid_t Follow(pid_t office);
    /// From any thread.
    void Cancel();
    /// Throws SpreadsheetError when the job was cancelled or the office was ended for not answering.
    void ThrowIfStopped() const;

    /// @param failure  what it means when LibreOffice refuses
    /// @param time     after which an office without an answer is ended
    /// @return what the action returns. Throws SpreadsheetError.
    template <class Action>
    auto Call(const SpreadsheetError& failure, const Action& action, std::chrono::seconds time = kWorkLimit)
    {
        const Limit limit(*this, time);
        try {
            return action();
        } catch (const com::sun::star::lang::DisposedException&) {
            Raise(OfficeEnded());
        } catch (const com::sun::star::uno::Exception&) {
            Raise(failure);
        }
    }

private:
    using Clock = std::chrono::steady_clock;

    enum class Stop
    {
        None,
        Cancelled,
        NoAnswer,
    };

    struct Limit
    {
        Limit(CallWatch& watched, std::chrono::seconds time);
        ~Limit();
        CallWatch& watch;
    };

    void Watch();
    void EndOffice(Stop reason);
    static SpreadsheetError OfficeEnded();
    [[noreturn]] void Raise(const SpreadsheetError& failure) const;

    mutable std::mutex m_mutex;
    std::condition_variable m_changed;
    Clock::time_point m_deadline = Clock::time_point::max();
    pid_t m_office = 0;
    Stop m_stop = Stop::None;
    bool m_atEnd = false;
    std::thread m_thread;
};
