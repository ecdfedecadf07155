#include "platform/simulator/UsedSpace.h"

#include "platform/posix/Descriptor.h"

#include <condition_variable>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <mutex>
#include <optional>
#include <string_view>
#include <sys/stat.h>
#include <thread>
#include <vector>

namespace orvana::platform::simulator
{

namespace
{

constexpr std::chrono::milliseconds Long{10};

struct CloseFolder
{
    void operator()(DIR *folder) const { ::closedir(folder); }
};

/// Adds up the files of one tree on two threads. Asking for a file's size takes nearly all the time, and two
/// processors ask twice as fast.
class TreeSum
{
public:
    explicit TreeSum(const std::string &root) : m_folders{root} {}

    std::uint64_t add()
    {
        {
            const std::jthread helper([this] { work(); });
            work();
        }
        return m_bytes;
    }

    /// Adds up a tree of few folders on this thread alone, and returns nullopt when it has more.
    std::optional<std::uint64_t> addIfSmall()
    {
        constexpr int Few = 50;
        for (int i = 0; i < Few && !m_folders.empty(); ++i) {
            const auto folder = std::move(m_folders.back());
            m_folders.pop_back();
            m_bytes += bytesIn(folder, m_folders);
        }
        return m_folders.empty() ? std::optional(m_bytes) : std::nullopt;
    }

private:
    void work()
    {
        std::unique_lock lock(m_mutex);
        for (;;) {
            m_changed.wait(lock, [&] { return !m_folders.empty() || m_atWork == 0; });
            if (m_folders.empty())
                return;
            const auto folder = std::move(m_folders.back());
            m_folders.pop_back();
            ++m_atWork;
            lock.unlock();
            std::vector<std::string> found;
            const auto bytes = bytesIn(folder, found);
            lock.lock();
            --m_atWork;
            m_bytes += bytes;
            m_folders.insert(m_folders.end(), found.begin(), found.end());
            m_changed.notify_all();
        }
    }

    // Entries are looked up in their folder's descriptor: whole paths would be resolved anew for each file.
    static std::uint64_t bytesIn(const std::string &path, std::vector<std::string> &folders)
    {
        posix::Descriptor descriptor(::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
        const std::unique_ptr<DIR, CloseFolder> folder(descriptor.isOpen() ? ::fdopendir(descriptor.number())
                                                                           : nullptr);
        if (!folder)
            return 0;
        const int place = descriptor.release();
        std::uint64_t bytes = 0;
        // NOLINTNEXTLINE(concurrency-mt-unsafe): the listing belongs to this call alone.
        while (const auto *entry = ::readdir(folder.get())) {
            const std::string_view name = entry->d_name;
            struct stat info{};
            if (name == "." || name == ".." || entry->d_type == DT_LNK)
                continue;
            if (entry->d_type != DT_DIR && ::fstatat(place, entry->d_name, &info, AT_SYMLINK_NOFOLLOW) != 0)
                continue;
            if (entry->d_type == DT_DIR || S_ISDIR(info.st_mode))
                folders.push_back(path + "/" + entry->d_name);
            else if (S_ISREG(info.st_mode))
                bytes += static_cast<std::uint64_t>(info.st_size);
        }
        return bytes;
    }

    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::vector<std::string> m_folders; // still to be added up
    int m_atWork = 0;
    std::uint64_t m_bytes = 0;
};

} // namespace

std::uint64_t bytesBelow(const std::string &folder)
{
    TreeSum sum(folder);
    const auto small = sum.addIfSmall();
    return small ? *small : sum.add();
}

std::uint64_t UsedSpace::of(const std::string &folder)
{
    const auto start = Clock::now();
    auto &sum = m_sums[folder];
    if (start >= sum.goodUntil) {
        sum.bytes = bytesBelow(folder);
        const auto end = Clock::now();
        sum.goodUntil = end - start < Long ? end : end + 4 * (end - start);
    }
    return sum.bytes;
}

} // namespace orvana::platform::simulator
