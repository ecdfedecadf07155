#include "filetree/SizeCounter.h"

#include "foundation/WorkerThread.h"
#include "platform/Host.h"

#include <utility>
#include <vector>

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

void SizeCounter::sizeOfFolder(const std::string &path)
{
    WorkerThread::exitIfCancelled();
    const auto target = m_folder.attributes(path, Links::Follow, Want::Basics);
    if (!target || target->type != FileType::Folder) {
        countFile(m_folder.attributes(path, Links::DoNotFollow, Want::HiddenExtension));
        return;
    }
    // A list of folders to visit, and not a recursion: a tree may be deeper than a stack.
    std::vector<std::string> waiting{path};
    while (!waiting.empty()) {
        const auto folder = std::move(waiting.back());
        waiting.pop_back();
        countEntries(folder, waiting);
    }
}

void SizeCounter::countEntries(const std::string &path, std::vector<std::string> &folders)
{
    // If the path of a folder holds a reserved word, everything in the folder is reserved.
    if (ReservedPaths::holdsReservedWord(path))
        return;
    const auto folder = m_folder.openFolder(path);
    auto names = folder ? (*folder)->list("") : tl::unexpected(folder.error());
    while (names && !names->empty()) {
        WorkerThread::exitIfCancelled();
        const auto name = names->takeNext();
        if (name.starts_with('.') || m_reserved.containsEntry(path, name))
            continue;
        const auto read = (*folder)->attributes(name, Links::DoNotFollow, Want::HiddenExtension);
        if (read && (read->type == FileType::SymbolicLink || read->hiddenExtension))
            continue;
        if (read && read->type == FileType::Folder)
            folders.push_back(path + "/" + std::string(name));
        else
            countFile(read);
    }
}

void SizeCounter::countFile(const Expected<Attributes> &read)
{
    if (read && read->hiddenExtension)
        return;
    if (read)
        m_totals.totalSize += read->size;
    ++m_totals.totalFiles;
    m_fileCounted();
}

} // namespace orvana
