#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <stop_token>
#include <string>
#include <thread>
#include <vector>

namespace orvana
{

/// A thread with one job, a cooperative cancel request and one end.
///
/// The job asks `exitIfCancelled` at the places where it may end; the thread then ends at once, and every
/// object on its stack is destroyed on the way out.
class WorkerThread
{
public:
    /// Starts `job` on a new thread. An exception that leaves the job is written to the system log. When the
    /// system has no thread to give, the job runs on the calling thread before the constructor returns, and
    /// cannot be cancelled.
    explicit WorkerThread(std::function<void()> job);

    /// Requests a cancel and waits for the end without limit; `waitForEnd` and `abandon` come first where
    /// the job may hang.
    ~WorkerThread();

    void requestCancel() { m_thread.request_stop(); }

    /// True once the job has ended. Callable from any thread.
    bool hasEnded() const;

    /// Waits at most `limit` for the end of the job; true when it has ended.
    bool waitForEnd(std::chrono::milliseconds limit) const;

    /// Lets the thread go on by itself. What its job uses must then live as long as the process.
    void abandon()
    {
        if (m_thread.joinable())
            m_thread.detach();
    }

    /// True when the calling thread is a worker whose cancel was requested.
    static bool isCancelled();

    /// Ends the calling worker at once when its cancel was requested; on any other thread it does nothing.
    static void exitIfCancelled();

    /// The stop token of the calling worker; on any other thread one that is never stopped.
    static std::stop_token currentToken();

private:
    struct End;
    std::shared_ptr<End> m_end;
    std::jthread m_thread;
};

/// Threads that were replaced or cancelled and have still to end. Used on one thread, their owner's.
class RetiredThreads
{
public:
    /// Takes over a thread whose cancel was requested, and drops those that have ended meanwhile.
    void add(std::unique_ptr<WorkerThread> thread);

    /// True when none is left that has not ended.
    bool allEnded() const;

    /// Waits at most `limit`; true when all have ended.
    bool waitForAll(std::chrono::milliseconds limit) const;

    /// Joins all, at most `limit` long. False when some still run; those are abandoned, and the process
    /// should be left with `std::quick_exit`.
    bool joinAll(std::chrono::milliseconds limit);

private:
    std::vector<std::unique_ptr<WorkerThread>> m_threads;
};

} // namespace orvana
