#include "duplicate/engine/Workers.h"

#include <chrono>
#include <system_error>
#include <utility>

namespace orvana
{

namespace
{

constexpr std::chrono::microseconds StayAwake{40};

constexpr std::uint64_t packed(std::uint64_t round, std::uint64_t all)
{
    return round << 32U | all << 16U;
}

constexpr std::uint64_t begun(std::uint64_t word)
{
    return word & 0xFFFFU;
}

constexpr std::uint64_t all(std::uint64_t word)
{
    return word >> 16U & 0xFFFFU;
}

void pause()
{
#if defined(__x86_64__)
    __builtin_ia32_pause();
#else
    std::this_thread::yield();
#endif
}

// Waits for a moment without sleeping. Returns true when `condition` came to hold.
template <class Condition>
bool awaitAwake(Condition condition)
{
    const auto until = std::chrono::steady_clock::now() + StayAwake;
    do {
        for (int i = 0; i < 32; ++i) {
            if (condition())
                return true;
            pause();
        }
    } while (std::chrono::steady_clock::now() < until);
    return condition();
}

} // namespace

Workers::Workers(std::size_t count)
{
    m_threads.reserve(count);
    try {
        while (m_threads.size() < count)
            m_threads.emplace_back([this] { runLane(); });
    } catch (const std::system_error &) {
        // Fewer workers do the same work. Without any, `start` does it.
    }
}

Workers::~Workers()
{
    m_end = true;
    ++m_call;
    m_call.notify_all();
}

void Workers::start(const Work &work, std::size_t pieces, std::size_t helpers)
{
    m_work = &work;
    m_unfinished = pieces;
    m_pieces = packed(++m_round, pieces);
    if (m_threads.empty())
        help();
    if (m_asleep == 0)
        return;
    ++m_call;
    if (helpers >= m_threads.size()) {
        m_call.notify_all();
        return;
    }
    for (std::size_t i = 0; i < helpers; ++i)
        m_call.notify_one();
}

bool Workers::hasWork() const
{
    const auto word = m_pieces.load();
    return begun(word) < all(word);
}

bool Workers::doOnePiece()
{
    auto word = m_pieces.load();
    do {
        if (begun(word) >= all(word))
            return false;
    } while (!m_pieces.compare_exchange_weak(word, word + 1));
    doPiece(begun(word));
    if (--m_unfinished == 0)
        m_unfinished.notify_all();
    return true;
}

void Workers::doPiece(std::size_t piece)
{
    try {
        (*m_work.load())(piece);
    } catch (...) {
        noteException();
    }
}

void Workers::noteException()
{
    const std::lock_guard lock(m_exceptionMutex);
    if (!m_exception)
        m_exception = std::current_exception();
}

void Workers::help()
{
    while (doOnePiece()) {
    }
}

void Workers::waitForAllPieces()
{
    if (awaitAwake([this] { return m_unfinished == 0; }))
        return;
    for (auto unfinished = m_unfinished.load(); unfinished != 0; unfinished = m_unfinished.load())
        m_unfinished.wait(unfinished);
}

void Workers::doBeside(const Work &work, std::size_t pieces, std::size_t helpers,
                       const std::function<void()> &meanwhile)
{
    start(work, pieces, helpers);
    try {
        meanwhile();
    } catch (...) {
        noteException();
    }
    waitForAllPieces();
    if (const auto exception = std::exchange(m_exception, nullptr))
        std::rethrow_exception(exception);
}

void Workers::share(const Work &work, std::size_t pieces, std::size_t helpers)
{
    if (helpers > 0 && pieces > 1) {
        doBeside(work, pieces, helpers, [this] { help(); });
        return;
    }
    for (std::size_t piece = 0; piece < pieces; ++piece)
        work(piece);
}

void Workers::awaitWork(unsigned lastCall)
{
    if (awaitAwake([this] { return hasWork() || m_end; }))
        return;
    ++m_asleep;
    // Nobody wakes this worker for work that came before it counted as asleep.
    if (!hasWork() && !m_end)
        m_call.wait(lastCall);
    --m_asleep;
}

void Workers::runLane()
{
    while (!m_end) {
        const auto lastCall = m_call.load();
        awaitWork(lastCall);
        help();
    }
}

} // namespace orvana
