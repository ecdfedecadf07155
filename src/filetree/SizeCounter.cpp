#include "filetree/SizeCounter.h"

#include "foundation/WorkerThread.h"
#include "platform/Host.h"

#include <algorithm>
#include <condition_variable>
#include <exception>
#include <iterator>
#include <mutex>
#include <optional>
#include <system_error>
#include <thread>
#include <utility>

namespace orvana
{

using platform::Attributes;
using platform::Expected;
using platform::FileType;
using platform::Links;
using platform::Want;

SizeCounter::SizeCounter(platform::Host &host, CountTotals &totals, std::function<void()> fileCounted)
    : m_folder(host.volumeFiles().workingFolder()), m_reserved(host), m_totals(totals),
      m_fileCounted(std::move(fileCounted))
{
}

/// The folders of a tree that wait to be counted. Two threads take them and bring those that they find.
class SizeCounter::Folders
{
public:
    explicit Folders(const std::string &first) : m_waiting{first} {}

    /// Takes a folder. Nullopt when there is none for the moment: see `isDone`.
    std::optional<std::string> take()
    {
        const std::lock_guard lock(m_mutex);
        if (m_waiting.empty())
            return std::nullopt;
        auto folder = std::move(m_waiting.back());
        m_waiting.pop_back();
        ++m_inWork;
        return folder;
    }

    /// Brings what was found in a folder that was taken.
    void bring(std::vector<std::string> found)
    {
        const std::lock_guard lock(m_mutex);
        std::move(found.begin(), found.end(), std::back_inserter(m_waiting));
        --m_inWork;
        m_changed.notify_all();
    }

    /// A folder that was taken will never be brought: its thread has failed.
    void breakOff()
    {
        const std::lock_guard lock(m_mutex);
        m_waiting.clear();
        m_inWork = 0;
        m_changed.notify_all();
    }

    /// Waits until there is a folder to take, or none will come any more, but not for long.
    void waitForMore()
    {
        std::unique_lock lock(m_mutex);
        m_changed.wait_for(lock, std::chrono::milliseconds(10),
                           [this] { return !m_waiting.empty() || m_inWork == 0; });
    }

    bool isDone() const
    {
        const std::lock_guard lock(m_mutex);
        return m_waiting.empty() && m_inWork == 0;
    }

    bool isEnoughForTwo() const
    {
        const std::lock_guard lock(m_mutex);
        return m_waiting.size() > 1;
    }

private:
    mutable std::mutex m_mutex;
    std::condition_variable m_changed;
    std::vector<std::string> m_waiting; // and not a recursion: a tree may be deeper than a stack
    int m_inWork = 0;
};

/// A second thread that counts folders, until there are none, or the first one is cancelled or has ended.
class SizeCounter::Helper
{
public:
    Helper(SizeCounter &counter, Folders &folders)
        : m_thread([&counter, &folders, this](const std::stop_token &token) {
              try {
                  work(counter, folders, token);
              } catch (...) {
                  m_error = std::current_exception();
                  folders.breakOff();
              }
          }),
          m_cancel(WorkerThread::currentToken(), [this] { m_thread.request_stop(); })
    {
    }

    /// Waits for the end. Throws what the thread could not deal with.
    void join()
    {
        m_thread.join();
        if (m_error)
            std::rethrow_exception(m_error);
    }

private:
    static void work(SizeCounter &counter, Folders &folders, const std::stop_token &token)
    {
        while (!token.stop_requested() && !folders.isDone()) {
            if (const auto folder = folders.take())
                folders.bring(counter.countEntries(*folder, token, [&] { ++counter.m_untold; }));
            else
                folders.waitForMore();
        }
    }

    std::exception_ptr m_error;
    std::jthread m_thread;
    std::stop_callback<std::function<void()>> m_cancel;
};

void SizeCounter::sizeOfFolder(const std::string &path)
{
    WorkerThread::exitIfCancelled();
    const auto target = m_folder.attributes(path, Links::Follow, Want::Basics);
    if (target && target->type == FileType::Folder)
        countTree(path);
    else
        countFile(m_folder.attributes(path, Links::DoNotFollow, Want::HiddenExtension), m_fileCounted);
}

void SizeCounter::countTree(const std::string &path)
{
    constexpr std::int64_t WorthHelp = 1000; // files; a thread costs as much as counting a hundred
    Folders folders(path);
    std::optional<Helper> helper;
    const auto begun = m_totals.totalFiles.load();
    bool mayHelp = true;
    while (!folders.isDone()) {
        WorkerThread::exitIfCancelled();
        if (const auto folder = folders.take())
            folders.bring(countEntries(*folder, WorkerThread::currentToken(), m_fileCounted));
        else
            folders.waitForMore();
        tellOfHelper();
        if (mayHelp && m_totals.totalFiles - begun >= WorthHelp && folders.isEnoughForTwo()) {
            mayHelp = false;
            try {
                helper.emplace(*this, folders);
            } catch (const std::system_error &) {
                continue; // without a second thread it takes longer
            }
        }
    }
    if (helper)
        helper->join();
    tellOfHelper();
}

void SizeCounter::tellOfHelper()
{
    for (auto files = m_untold.exchange(0); files > 0; --files)
        m_fileCounted();
}

// Returns the folders in it. On a thread that is to end, those that were found so far.
std::vector<std::string> SizeCounter::countEntries(const std::string &path, const std::stop_token &token,
                                                   const std::function<void()> &tell)
{
    std::vector<std::string> folders;
    // If the path of a folder holds a reserved word, everything in the folder is reserved.
    if (ReservedPaths::holdsReservedWord(path))
        return folders;
    const auto folder = m_folder.openFolder(path);
    auto names = folder ? (*folder)->list("") : tl::unexpected(folder.error());
    while (names && !names->empty() && !token.stop_requested()) {
        const auto name = names->takeNext();
        if (name.starts_with('.') || m_reserved.containsEntry(path, name))
            continue;
        const auto read = (*folder)->attributes(name, Links::DoNotFollow, Want::HiddenExtension);
        if (read && (read->type == FileType::SymbolicLink || read->hiddenExtension))
            continue;
        if (read && read->type == FileType::Folder)
            folders.push_back(path + "/" + std::string(name));
        else
            countFile(read, tell);
    }
    return folders;
}

void SizeCounter::countFile(const Expected<Attributes> &read, const std::function<void()> &tell)
{
    if (read && read->hiddenExtension)
        return;
    if (read)
        m_totals.totalSize += read->size;
    ++m_totals.totalFiles;
    tell();
}

} // namespace orvana
