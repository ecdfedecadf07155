#include "duplicate/evidence/VerificationRecord.h"

#include "duplicate/evidence/ManifestWriter.h"
#include "duplicate/evidence/SortKey.h"

#include <algorithm>
#include <chrono>

namespace orvana
{

namespace
{

std::int64_t now()
{
    using namespace std::chrono;
    return duration_cast<seconds>(system_clock::now().time_since_epoch()).count();
}

EvidenceEntry entryFor(const std::string &path, std::int64_t modified)
{
    EvidenceEntry entry;
    entry.path = path;
    entry.modified = modified;
    entry.digested = now();
    entry.states = std::string(1, static_cast<char>(CopyState::Good));
    return entry;
}

// Returns the folders of the histories that can take a generation, and notes why the other lists cannot.
std::vector<std::string> foldersToAppendTo(const platform::Folder &disk, std::vector<VerifiedList> &lists)
{
    const bool isReadOnly = disk.traits().isReadOnly;
    std::vector<std::string> folders;
    for (auto &verified : lists) {
        if (verified.list.kind != ListKind::History)
            verified.notRecorded = "only a history has generations";
        else if (isReadOnly)
            verified.notRecorded = "the volume is read-only";
        else if (!verified.error.empty())
            verified.notRecorded = verified.error;
        else
            folders.push_back(verified.list.folder);
    }
    return folders;
}

// True when the manifest is one of the list's own history, not of one that lies deeper.
bool isOf(const DiskList &list, const std::string &manifest)
{
    return joined(joined(list.folder, HistoryFolder), nameIn(manifest)) == manifest;
}

} // namespace

void VerificationRecord::addFolder(const std::string &path, std::int64_t modified)
{
    auto entry = entryFor(path, modified);
    entry.isFolder = true;
    m_log.add(entry);
}

void VerificationRecord::addFile(const std::string &path, std::uint64_t size, std::int64_t modified,
                                 DigestFormat format, const std::string &digest)
{
    auto entry = entryFor(path, modified);
    entry.size = size;
    entry.format = format;
    entry.digest = digest;
    m_log.add(entry);
}

void VerificationRecord::append(platform::Folder &disk, const std::string &rootName, std::int64_t started,
                                DigestFormat format, std::vector<VerifiedList> &lists)
{
    ManifestOrder order;
    order.kind = ManifestKind::Mhl;
    order.scopes = foldersToAppendTo(disk, lists);
    order.style.format = format;
    order.style.started = started;
    order.style.host = nameOfMachine();
    order.style.comment = "Verified.";
    order.style.process = "in-place";
    order.style.programVersion = PLURIMO_VERSION;
    order.style.rootName = rootName;
    order.style.folderForSorting = m_folderForSorting;
    if (order.scopes.empty())
        return;
    const bool isKept = m_log.finish();
    const auto tell = [&](const EvidenceRemark &remark) {
        for (auto &verified : lists) {
            if (verified.list.folder == remark.path && remark.kind == EvidenceRemark::Kind::NoManifest)
                verified.notRecorded = remark.text;
        }
    };
    const auto written =
        isKept ? writeManifests(disk, m_log, 0, order, tell) : std::vector<WrittenManifest>();
    for (auto &verified : lists) {
        for (const auto &manifest : written) {
            if (isOf(verified.list, manifest.path))
                verified.recorded = manifest.path;
        }
        if (!isKept && verified.notRecorded.empty())
            verified.notRecorded = "the station has no room for the digests";
    }
}

} // namespace orvana
