#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <exception>
#include <functional>
#include <mutex>
#include <thread>
#include <vector>

namespace orvana
{

/// Threads that divide pieces of work among themselves, one piece for each destination.
///
/// All functions are called by one thread. A worker that has just worked stays awake for a moment, because
/// waking a thread takes longer than writing a small file.
class Workers
{
public:
    using Work = std::function<void(std::size_t piece)>;

    explicit Workers(std::size_t count);
    ~Workers();
    Workers(const Workers &) = delete;
    Workers &operator=(const Workers &) = delete;

    /// Runs `work` for the pieces 0 to `pieces` - 1 on the workers while the caller runs `meanwhile`. Wakes
    /// at most `helpers` sleeping workers; workers that are awake help too. Returns when all pieces and
    /// `meanwhile` are done. Then throws the first exception of any of them.
    void doBeside(const Work &work, std::size_t pieces, std::size_t helpers,
                  const std::function<void()> &meanwhile);

    /// The caller and the workers share the pieces 0 to `pieces` - 1. Wakes workers, returns and throws as
    /// `doBeside` does. With 0 helpers or a single piece the caller works alone, and an exception ends the
    /// work at once.
    void share(const Work &work, std::size_t pieces, std::size_t helpers);

private:
    void start(const Work &work, std::size_t pieces, std::size_t helpers);
    void help();
    void waitForAllPieces();
    bool doOnePiece();
    void doPiece(std::size_t piece);
    void noteException();
    bool hasWork() const;
    void runLane();
    void awaitWork(unsigned lastCall);

    std::atomic<const Work *> m_work{nullptr};
    // One word holds the number of the round, the count of its pieces and the count of begun pieces. So a
    // worker that comes late can never begin a piece of another round.
    std::atomic<std::uint64_t> m_pieces{0};
    std::atomic<std::size_t> m_unfinished{0};
    std::atomic<unsigned> m_call{0}; // counts the times that sleeping workers were called
    std::atomic<std::size_t> m_asleep{0};
    std::atomic<bool> m_end{false};
    std::uint64_t m_round = 0;
    std::mutex m_exceptionMutex;
    std::exception_ptr m_exception; // the first exception of this round
    std::vector<std::jthread> m_threads;
};

} // namespace orvana
