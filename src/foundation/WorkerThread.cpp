#include "foundation/WorkerThread.h"

#include "foundation/SystemLog.h"

#include <algorithm>
#include <condition_variable>
#include <exception>
#include <mutex>
#include <system_error>
#include <utility>

namespace orvana
{

namespace
{

struct Cancelled
{
};

thread_local std::stop_token tokenOfThisThread;

void runJob(const std::function<void()> &job)
{
    try {
        job();
    } catch (const Cancelled &) {
        // Every cancelled job ends here.
    } catch (const std::exception &error) {
        systemLog("worker thread ended: " + std::string(error.what()));
    }
}

} // namespace

struct WorkerThread::End
{
    void announce()
    {
        const std::lock_guard lock(mutex);
        ended = true;
        changed.notify_all();
    }

    mutable std::mutex mutex;
    std::condition_variable changed;
    bool ended = false;
};

WorkerThread::WorkerThread(std::function<void()> job) : m_end(std::make_shared<End>())
{
    const auto shared = std::make_shared<std::function<void()>>(std::move(job));
    const auto work = [shared, end = m_end] {
        runJob(*shared);
        // The job's captures are destroyed before the end is announced. A waiting thread may destroy the
        // objects that they refer to as soon as it learns of the end.
        *shared = nullptr;
        end->announce();
    };
    try {
        m_thread = std::jthread([work](std::stop_token token) {
            tokenOfThisThread = std::move(token);
            work();
        });
    } catch (const std::system_error &error) {
        systemLog("no thread can be started: " + std::string(error.what()));
        work();
    }
}

WorkerThread::~WorkerThread() = default;

bool WorkerThread::hasEnded() const
{
    const std::lock_guard lock(m_end->mutex);
    return m_end->ended;
}

bool WorkerThread::waitForEnd(std::chrono::milliseconds limit) const
{
    std::unique_lock lock(m_end->mutex);
    return m_end->changed.wait_for(lock, limit, [this] { return m_end->ended; });
}

bool WorkerThread::isCancelled()
{
    return tokenOfThisThread.stop_requested();
}

void WorkerThread::exitIfCancelled()
{
    if (isCancelled())
        throw Cancelled();
}

std::stop_token WorkerThread::currentToken()
{
    return tokenOfThisThread;
}

void RetiredThreads::add(std::unique_ptr<WorkerThread> thread)
{
    std::erase_if(m_threads, [](const auto &t) { return t->hasEnded(); });
    m_threads.push_back(std::move(thread));
}

bool RetiredThreads::allEnded() const
{
    return std::all_of(m_threads.begin(), m_threads.end(), [](const auto &t) { return t->hasEnded(); });
}

bool RetiredThreads::waitForAll(std::chrono::milliseconds limit) const
{
    const auto deadline = std::chrono::steady_clock::now() + limit;
    return std::all_of(m_threads.begin(), m_threads.end(), [&](const auto &thread) {
        const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(
            deadline - std::chrono::steady_clock::now());
        return thread->waitForEnd(std::max(left, std::chrono::milliseconds(0)));
    });
}

bool RetiredThreads::joinAll(std::chrono::milliseconds limit)
{
    const bool all = waitForAll(limit);
    for (const auto &thread : m_threads) {
        if (!thread->hasEnded())
            thread->abandon();
    }
    m_threads.clear();
    return all;
}

} // namespace orvana
