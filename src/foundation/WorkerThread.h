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
/// The job calls `exitIfCancelled` at the places where it may end. If a cancel was requested, the thread ends
/// there, and every object on its stack is destroyed on the way out.
class WorkerThread
{
public:
    /// Starts `job` on a new thread. An exception that leaves the job is written to the system log. When the
    /// system cannot start a thread, the job runs on the calling thread before the constructor returns, and
    /// cannot be cancelled.
    explicit WorkerThread(std::function<void()> job);

    /// Requests a cancel and waits without limit for the end of the job. If the job may hang, call
    /// `waitForEnd` and `abandon` first.
    ~WorkerThread();

    void requestCancel() { m_thread.request_stop(); }

    /// True once the job has ended. Callable from any thread.
    bool hasEnded() const;

    /// Waits at most `limit` for the end of the job. Returns true when the job has ended.
    bool waitForEnd(std::chrono::milliseconds limit) const;

    /// Lets the thread run on by itself. Everything that its job uses must then live as long as the process.
    void abandon()
    {
        if (m_thread.joinable())
            m_thread.detach();
    }

    /// True when the calling thread is a worker whose cancel was requested.
    static bool isCancelled();

    /// Ends the calling worker at once when its cancel was requested. Does nothing on any other thread.
    static void exitIfCancelled();

    /// Returns the stop token of the calling worker. On any other thread returns a token that is never
    /// stopped.
    static std::stop_token currentToken();

private:
    struct End;
    std::shared_ptr<End> m_end;
    std::jthread m_thread;
};

/// Threads that were replaced or cancelled and have not ended yet. Used only on the thread of their owner.
class RetiredThreads
{
public:
    /// Takes over a thread whose cancel was requested. Drops the threads that have ended meanwhile.
    void add(std::unique_ptr<WorkerThread> thread);

    /// True when all threads have ended.
    bool allEnded() const;

    /// Waits at most `limit` for all threads. Returns true when all have ended.
    bool waitForAll(std::chrono::milliseconds limit) const;

    /// Waits at most `limit` for all threads and joins those that have ended. Returns false when some still
    /// run. These are abandoned, and the process should then exit with `std::quick_exit`.
    bool joinAll(std::chrono::milliseconds limit);

private:
    std::vector<std::unique_ptr<WorkerThread>> m_threads;
};

} // namespace orvana
