#include "duplicate/evidence/Verification.h"

#include <atomic>
#include <deque>
#include <exception>
#include <mutex>
#include <thread>
#include <utility>

namespace orvana
{

namespace
{

constexpr std::chrono::seconds PatienceAtTheEnd{3};
constexpr std::chrono::milliseconds BetweenLooks{5};

} // namespace

struct Verification::Disk
{
    std::string root;
    VerifyProgress progress;
    DiskVerdict verdict;
    std::atomic<bool> hasEnded{false};
    std::jthread thread;
};

struct Verification::State
{
    State(platform::VolumeFiles &volumes, VerifyOptions how, Listener told)
        : files(volumes), options(std::move(how)), listener(std::move(told))
    {
    }

    /// Calls the listener, unless nobody listens any more.
    template <class Tell>
    void tell(Tell call)
    {
        const std::lock_guard lock(mutex);
        if (isListening)
            call(listener);
    }

    platform::VolumeFiles &files;
    const VerifyOptions options;
    std::mutex mutex;
    bool isListening = true; // under the mutex, as each call of the listener
    const Listener listener;
    std::deque<Disk> disks; // a deque, because the disks must stay where they are
};

Verification::Verification(platform::VolumeFiles &files, std::vector<std::string> roots,
                           VerifyOptions options, Listener listener)
    : m_state(std::make_shared<State>(files, std::move(options), std::move(listener)))
{
    for (auto &root : roots)
        m_state->disks.emplace_back().root = std::move(root);
    for (std::size_t i = 0; i < m_state->disks.size(); ++i)
        m_state->disks[i].thread =
            std::jthread([state = m_state, i](const std::stop_token &token) { verify(state, i, token); });
}

Verification::~Verification()
{
    cancel();
    const auto end = std::chrono::steady_clock::now() + PatienceAtTheEnd;
    for (auto &disk : m_state->disks) {
        while (!disk.hasEnded && std::chrono::steady_clock::now() < end)
            std::this_thread::sleep_for(BetweenLooks);
    }
    {
        const std::lock_guard lock(m_state->mutex);
        m_state->isListening = false;
    }
    for (auto &disk : m_state->disks) {
        if (disk.hasEnded)
            disk.thread.join();
        else
            disk.thread.detach();
    }
}

void Verification::cancel()
{
    for (auto &disk : m_state->disks)
        disk.thread.request_stop();
}

std::size_t Verification::count() const
{
    return m_state->disks.size();
}

const std::string &Verification::root(std::size_t disk) const
{
    return m_state->disks[disk].root;
}

const VerifyProgress &Verification::progress(std::size_t disk) const
{
    return m_state->disks[disk].progress;
}

bool Verification::hasEnded(std::size_t disk) const
{
    return m_state->disks[disk].hasEnded;
}

const DiskVerdict &Verification::verdict(std::size_t disk) const
{
    return m_state->disks[disk].verdict;
}

void Verification::verify(const std::shared_ptr<State> &state, std::size_t index,
                          const std::stop_token &token)
{
    auto &disk = state->disks[index];
    try {
        DiskVerification one(
            state->files, disk.root, state->options, disk.progress, [&](const Finding &finding) {
                state->tell([&](const Listener &listener) { listener.finding(index, finding); });
            });
        disk.verdict = one.verify(token);
    } catch (const std::exception &error) {
        disk.verdict.error = error.what();
    }
    disk.hasEnded = true;
    state->tell([&](const Listener &listener) { listener.ended(index); });
}

} // namespace orvana
