#include "duplicate/evidence/DiskVerification.h"

#include "duplicate/evidence/SortKey.h"

#include <algorithm>
#include <deque>
#include <span>
#include <utility>

namespace orvana
{

using platform::Access;
using platform::File;
using platform::FileType;
using platform::Links;
using platform::Reach;
using platform::Sharing;
using platform::Want;

namespace
{

constexpr std::size_t ReadAtOnce = 1UL << 20U;
constexpr std::int64_t NanosecondsOfASecond = 1'000'000'000;
constexpr std::string_view LostAndFound = "lost+found"; // of ext file systems, in their root

} // namespace

/// One list, and all that is known of its folder.
struct DiskVerification::ListWork
{
    ListWork(VerifiedList &list, const std::string &folderForSorting)
        : verified(list), known(folderForSorting), found(folderForSorting), record(folderForSorting)
    {
    }

    VerifiedList &verified;
    KnownFiles known;
    FoundEntries found;
    VerificationRecord record; // of what was read
    IgnorePatterns patterns;
    std::optional<DigestFormat> format; // of the first digest in the list, for files that are new
    std::vector<std::string> unreadableFolders;
};

DiskVerification::DiskVerification(platform::VolumeFiles &files, std::string root,
                                   const VerifyOptions &options, VerifyProgress &progress,
                                   std::function<void(const Finding &)> tell)
    : m_files(files), m_root(std::move(root)), m_options(options), m_progress(progress),
      m_tell(std::move(tell))
{
}

bool DiskVerification::isCancelled()
{
    m_verdict.isCancelled = m_verdict.isCancelled || m_token.stop_requested();
    return m_verdict.isCancelled;
}

DiskVerdict DiskVerification::verify(const std::stop_token &token)
{
    m_token = token;
    auto disk = m_files.openFolder(m_root, Reach::Beneath);
    if (!disk) {
        m_verdict.error = "cannot be opened: " + disk.error().reason();
        return m_verdict;
    }
    m_disk = std::move(*disk);
    // While a run writes to the disk, what is read of it means nothing.
    const auto lock = m_files.lockFolder(m_root, m_options.record ? Sharing::Exclusive : Sharing::Shared);
    if (!lock) {
        m_verdict.error = lock.error().problem == platform::FileProblem::Busy
                              ? "another run is at work on it"
                              : "cannot be locked: " + lock.error().reason();
        return m_verdict;
    }
    for (auto &list : listsToUse()) {
        VerifiedList verified;
        verified.list = std::move(list);
        m_verdict.lists.push_back(std::move(verified));
    }
    // All is counted before anything is compared, so that the progress knows its end.
    std::deque<ListWork> works;
    for (auto &verified : m_verdict.lists) {
        auto &work = works.emplace_back(verified, m_options.folderForSorting);
        if (!isCancelled())
            prepare(work);
    }
    for (auto &work : works) {
        if (work.verified.error.empty() && !isCancelled())
            compare(work);
    }
    for (auto &work : works) {
        if (m_options.record && !isCancelled())
            work.record.append(*m_disk, std::string(nameIn(m_root)), m_options.started,
                               work.format.value_or(DigestFormat::Xxh128), work.verified);
    }
    (void)isCancelled();
    return m_verdict;
}

// Reads the list, and collects all that lies in its folder.
void DiskVerification::prepare(ListWork &work)
{
    auto &verified = work.verified;
    if (const auto error = readList(*m_disk, m_files.workingFolder(), verified.list, work.known)) {
        verified.error = error->text();
        return;
    }
    verified.station = stationCopyOf(verified.list);
    work.patterns = IgnorePatterns(verified.list.ignored);
    KnownFiles::Reader reader(work.known);
    while (reader && !work.format) {
        if (const auto *digest = reader.file().toCheckWith())
            work.format = digest->format;
        reader.next();
    }
    walk(work);
    if (verified.error.empty() && (!work.found.finish() || !work.known.finish()))
        verified.error = "the station has no room to keep the names of the files";
}

std::vector<DiskList> DiskVerification::listsToUse()
{
    if (m_options.manifest)
        return {listFromFile(*m_options.manifest)};
    auto lists = findLists(*m_disk, m_token);
    if (lists)
        return std::move(*lists);
    m_verdict.error = lists.error().text();
    return {};
}

// Every file that the list consists of is held against the copies of the same name.
StationCopy DiskVerification::stationCopyOf(const DiskList &list) const
{
    bool areAllKnown = true;
    for (const auto &manifest : list.manifests) {
        const auto &copies = m_options.station->named(std::string(nameIn(manifest.path)));
        const bool agrees = std::any_of(copies.begin(), copies.end(), [&](const std::string &copy) {
            const auto digest = digestOfFile(m_files.workingFolder(), copy, DigestFormat::C4);
            return digest && *digest == manifest.c4;
        });
        if (!copies.empty() && !agrees)
            return StationCopy::Differs;
        areAllKnown = areAllKnown && agrees;
    }
    return areAllKnown ? StationCopy::Agrees : StationCopy::Unknown;
}

// Collects everything below the folder of the list.
void DiskVerification::walk(ListWork &work)
{
    const auto &folder = work.verified.list.folder;
    remember(work, folder, 0);
    // A list instead of a recursion: a tree may be deeper than the stack allows.
    std::vector<std::string> waiting{folder};
    while (!waiting.empty() && !isCancelled()) {
        const auto here = std::move(waiting.back());
        waiting.pop_back();
        auto names = m_disk->list(here);
        const auto error = names ? names->error() : std::optional(names.error());
        if (error) {
            work.unreadableFolders.push_back(here);
            note(FileFinding::Unreadable, here, error->reason());
        }
        while (names && !names->empty() && !isCancelled())
            addEntry(work, joined(here, names->takeNext()), waiting);
    }
}

void DiskVerification::remember(ListWork &work, const std::string &folder, std::int64_t modified) const
{
    if (m_options.record)
        work.record.addFolder(folder, modified);
}

bool DiskVerification::isPassedOver(const ListWork &work, const std::string &path, bool isFolder) const
{
    const auto &list = work.verified.list;
    // The list may lie on the disk. A checksum file may list anything.
    return path == list.file || m_root + "/" + path == list.file || path == LostAndFound ||
           (list.kind != ListKind::Sums && work.patterns.matches(pathWithin(path, list.folder), isFolder));
}

void DiskVerification::addEntry(ListWork &work, const std::string &path, std::vector<std::string> &waiting)
{
    const auto own = m_disk->attributes(path, Links::DoNotFollow, Want::Basics);
    const bool isFolder = own && own->type == FileType::Folder;
    const auto &list = work.verified.list;
    if (isFolder && list.kind == ListKind::History && nameIn(path) == HistoryFolder) {
        const auto holder = path.substr(0, path.size() - std::min(path.size(), HistoryFolder.size() + 1));
        remember(work, path, 0);
        if (holder == list.folder)
            return;
        if (const auto error = readNestedHistory(*m_disk, holder, work.known);
            error && work.verified.error.empty())
            work.verified.error = error->text();
        return;
    }
    if (isPassedOver(work, path, isFolder))
        return;
    // A link to a file counts as the file that it leads to.
    const auto there = m_disk->attributes(path, Links::Follow, Want::Basics);
    const std::uint64_t size = there && there->type == FileType::Regular ? there->size : 0;
    const std::int64_t modified = own ? own->modified / NanosecondsOfASecond : 0;
    work.found.add({path, isFolder, size, modified});
    if (isFolder)
        waiting.push_back(path);
    else
        m_progress.totalBytes += size;
}

void DiskVerification::compare(ListWork &work)
{
    m_block.resize(ReadAtOnce);
    KnownFiles::Reader list(work.known);
    FoundEntries::Reader disk(work.found);
    while ((disk || list) && !isCancelled()) {
        const auto found = disk ? sortKey(disk.entry().path) : std::string();
        const auto listed = list ? sortKey(list.file().path) : std::string();
        if (list && (!disk || listed < found)) {
            noteMissing(work, list.file());
            list.next();
            continue;
        }
        const bool isListed = list && listed == found;
        compareEntry(work, disk.entry(), isListed ? &list.file() : nullptr);
        if (isListed)
            list.next();
        disk.next();
    }
    if (list.hasFailed() || disk.hasFailed())
        work.verified.error = "what was kept of the names of the files cannot be read again";
}

void DiskVerification::noteMissing(const ListWork &work, const KnownFile &known)
{
    const auto &path = known.path;
    if (known.isMoved || isPassedOver(work, path, known.isFolder))
        return;
    const bool isBelowUnreadable =
        std::any_of(work.unreadableFolders.begin(), work.unreadableFolders.end(),
                    [&](const std::string &folder) { return isWithin(path, folder); });
    if (isBelowUnreadable)
        note(FileFinding::Unreadable, path, "its folder cannot be read");
    else
        note(FileFinding::Missing, path);
}

// True for what is no content although no list has it: other checksum files beside the list, and, where a
// checksum file is the list, histories.
bool DiskVerification::isNoContent(const ListWork &work, const std::string &path)
{
    static const IgnorePatterns usual;
    const auto &list = work.verified.list;
    const bool isBesideList = joined(list.folder, nameIn(path)) == path;
    const bool isSums =
        list.kind == ListKind::Sums ? isNameOfSums(nameIn(path)) : isNameOfOurSums(nameIn(path));
    return (isSums && isBesideList) || usual.matches(path, false);
}

void DiskVerification::compareEntry(ListWork &work, const FoundEntry &entry, const KnownFile *known)
{
    const auto *expected = known && !known->isFolder ? known->toCheckWith() : nullptr;
    if (entry.isFolder) {
        if (known && !known->isFolder)
            note(FileFinding::Changed, entry.path);
        else
            remember(work, entry.path, entry.modified);
        return;
    }
    if (!expected) {
        if (isNoContent(work, entry.path))
            return;
        note(known && known->isFolder ? FileFinding::Changed : FileFinding::New, entry.path);
        if (!m_options.record)
            return;
    }
    const auto format = expected ? expected->format : work.format.value_or(DigestFormat::Xxh128);
    const auto digest = digestOf(entry.path, format);
    if (m_verdict.isCancelled)
        return;
    if (!digest) {
        note(FileFinding::Unreadable, entry.path, digest.error().reason());
        return;
    }
    if (expected)
        note(*digest == expected->text ? FileFinding::Whole : FileFinding::Changed, entry.path);
    if (m_options.record)
        work.record.addFile(entry.path, entry.size, entry.modified, format, *digest);
}

// The disk reads the next block while this one is digested.
platform::Expected<std::string> DiskVerification::digestOf(const std::string &path, DigestFormat format)
{
    const auto file = m_disk->openFile(path, Access::Read);
    if (!file)
        return tl::unexpected(file.error());
    (*file)->dropCached(0, File::ToTheEnd);
    Digest digest(format);
    for (std::uint64_t offset = 0; !isCancelled();) {
        const auto count = (*file)->read(m_block, offset);
        if (!count)
            return tl::unexpected(count.error());
        offset += *count;
        if (*count == m_block.size())
            (*file)->willRead(offset, m_block.size());
        digest.add({reinterpret_cast<const char *>(m_block.data()), *count});
        m_progress.bytes += *count;
        m_verdict.bytes += *count;
        if (*count < m_block.size())
            break;
    }
    return digest.text();
}

void DiskVerification::note(FileFinding finding, const std::string &path, std::string reason)
{
    switch (finding) {
    case FileFinding::Whole:
        ++m_verdict.whole;
        break;
    case FileFinding::Changed:
        ++m_verdict.changed;
        break;
    case FileFinding::Missing:
        ++m_verdict.missing;
        break;
    case FileFinding::New:
        ++m_verdict.added;
        break;
    case FileFinding::Unreadable:
        ++m_verdict.unreadable;
        break;
    }
    ++m_progress.files;
    if (finding != FileFinding::Whole)
        m_tell({finding, path, std::move(reason)});
}

} // namespace orvana
