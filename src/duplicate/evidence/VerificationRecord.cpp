#include "duplicate/evidence/VerificationRecord.h"

#include "duplicate/evidence/ManifestWriter.h"
#include "duplicate/evidence/MhlXml.h"
#include "duplicate/evidence/SortKey.h"
#include "foundation/DisplayPath.h"

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

// Returns why the list can take no generation; empty if it can.
std::string obstacleTo(const platform::Folder &disk, const VerifiedList &verified)
{
    if (verified.list.kind != ListKind::History)
        return "only a history has generations";
    if (disk.traits().isReadOnly)
        return "the volume is read-only";
    return verified.error;
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
                                DigestFormat format, VerifiedList &verified)
{
    verified.notRecorded = obstacleTo(disk, verified);
    if (!m_log.finish() && verified.notRecorded.empty())
        verified.notRecorded = "the station has no room for the digests";
    if (!verified.notRecorded.empty())
        return;
    ManifestOrder order;
    order.kind = ManifestKind::Mhl;
    order.scopes = {verified.list.folder};
    order.style.format = format;
    order.style.started = started;
    order.style.host = nameOfMachine();
    order.style.comment = "Verified.";
    order.style.process = "in-place";
    order.style.programVersion = PLURIMO_VERSION;
    order.style.rootName = rootName;
    order.style.folderForSorting = m_folderForSorting;
    order.style.stationFolder = m_folderForSorting + "/" + mhlStamp(started) + "-Manifests/" + rootName;
    const auto tell = [&](const EvidenceRemark &remark) {
        if (remark.kind == EvidenceRemark::Kind::NoManifest)
            verified.notRecorded = displayPath(remark.path) + (remark.path.empty() ? "" : ": ") + remark.text;
    };
    for (const auto &manifest : writeManifests(disk, m_log, 0, order, tell)) {
        if (isOf(verified.list, manifest.path))
            verified.recorded = manifest.path;
    }
}

} // namespace orvana
