#include "duplicate/evidence/DiskVerification.h"

#include "duplicate/evidence/SortKey.h"

#include <algorithm>
#include <cstring>
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
constexpr std::size_t Budget = 4UL * 1024 * 1024;
constexpr std::int64_t NanosecondsOfASecond = 1'000'000'000;
constexpr std::string_view LostAndFound = "lost+found"; // of ext file systems, in their root

// What a walk keeps of an entry besides its path.
struct Facts
{
    std::uint64_t size;
    std::int64_t modified;
    bool isFolder;
};

std::string recordOf(const std::string &path, const Facts &facts)
{
    auto record = sortKey(path);
    return record.append(reinterpret_cast<const char *>(&facts), sizeof facts);
}

const IgnorePatterns &usualPatterns()
{
    static const IgnorePatterns patterns;
    return patterns;
}

} // namespace

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
    if (isCancelled() || m_verdict.lists.empty())
        return m_verdict;
    if (m_options.record)
        m_record.emplace(m_options.folderForSorting);
    KnownFiles known(m_options.folderForSorting);
    DiskSort found(m_options.folderForSorting, Budget);
    readLists(known);
    walk(found, known);
    if (!found.finish() || !known.finish())
        m_verdict.error = "the station has no room to keep the names of the files";
    if (m_verdict.error.empty() && !isCancelled())
        compare(found, known);
    if (m_record && m_verdict.error.empty() && !isCancelled())
        m_record->append(*m_disk, std::string(nameIn(m_root)), m_options.started,
                         m_format.value_or(DigestFormat::Xxh128), m_verdict.lists);
    return m_verdict;
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

void DiskVerification::readLists(KnownFiles &known)
{
    for (auto &verified : m_verdict.lists) {
        if (const auto error = readList(*m_disk, m_files.workingFolder(), verified.list, known))
            verified.error = error->text();
        else
            verified.station = stationCopyOf(verified.list);
        m_patterns.emplace_back(verified.list.ignored);
    }
    KnownFiles::Reader reader(known);
    while (reader && !m_format) {
        if (const auto *digest = reader.file().toCheckWith())
            m_format = digest->format;
        reader.next();
    }
}

StationCopy DiskVerification::stationCopyOf(const DiskList &list) const
{
    const auto &copies = m_options.station->named(std::string(nameIn(list.file)));
    const bool agrees = std::any_of(copies.begin(), copies.end(), [&](const std::string &copy) {
        const auto digest = digestOfFile(m_files.workingFolder(), copy, DigestFormat::C4);
        return digest && *digest == list.digest;
    });
    return copies.empty() ? StationCopy::Unknown : agrees ? StationCopy::Agrees : StationCopy::Differs;
}

// Collects everything below the folders of the lists. A list that is of no use says nothing of its folder.
void DiskVerification::walk(DiskSort &found, KnownFiles &known)
{
    for (std::size_t i = 0; i < m_verdict.lists.size(); ++i) {
        if (!m_verdict.lists[i].error.empty())
            continue;
        const auto &folder = m_verdict.lists[i].list.folder;
        if (m_record)
            m_record->addFolder(folder, 0);
        // A list instead of a recursion: a tree may be deeper than the stack allows.
        std::vector<std::string> waiting{folder};
        while (!waiting.empty() && !isCancelled()) {
            const auto here = std::move(waiting.back());
            waiting.pop_back();
            auto names = m_disk->list(here);
            const auto error = names ? names->error() : std::optional(names.error());
            if (error) {
                m_unreadableFolders.push_back(here);
                note(FileFinding::Unreadable, here, error->reason());
            }
            while (names && !names->empty())
                addEntry(found, known, i, joined(here, names->takeNext()), waiting);
        }
    }
}

bool DiskVerification::isPassedOver(std::size_t index, const std::string &path, bool isFolder) const
{
    const auto &list = m_verdict.lists[index].list;
    if (path == list.file || path == LostAndFound)
        return true;
    // A checksum file may list anything, so only what is no content of its folder is passed over.
    if (list.kind == ListKind::Sums)
        return nameIn(path) == HistoryFolder && isFolder;
    return m_patterns[index].matches(pathWithin(path, list.folder), isFolder);
}

void DiskVerification::addEntry(DiskSort &found, KnownFiles &known, std::size_t index,
                                const std::string &path, std::vector<std::string> &waiting)
{
    const auto own = m_disk->attributes(path, Links::DoNotFollow, Want::Basics);
    const bool isFolder = own && own->type == FileType::Folder;
    const auto &list = m_verdict.lists[index].list;
    if (isFolder && list.kind == ListKind::History && nameIn(path) == HistoryFolder) {
        const auto holder = path.substr(0, path.size() - std::min(path.size(), HistoryFolder.size() + 1));
        if (m_record)
            m_record->addFolder(path, 0);
        if (holder == list.folder)
            return;
        if (const auto error = readNestedHistory(*m_disk, holder, known); error && m_verdict.error.empty())
            m_verdict.error = error->text();
        return;
    }
    if (isPassedOver(index, path, isFolder))
        return;
    // A link to a file counts as the file that it leads to.
    const auto there = m_disk->attributes(path, Links::Follow, Want::Basics);
    const std::uint64_t size = there && there->type == FileType::Regular ? there->size : 0;
    const std::int64_t modified = own ? own->modified / NanosecondsOfASecond : 0;
    found.add(recordOf(path, {size, modified, isFolder}));
    if (isFolder)
        waiting.push_back(path);
    else
        m_progress.totalBytes += size;
}

void DiskVerification::compare(const DiskSort &found, const KnownFiles &known)
{
    m_block.resize(ReadAtOnce);
    KnownFiles::Reader list(known);
    DiskSort::Cursor disk(found);
    while ((disk || list) && !isCancelled()) {
        Entry entry;
        std::string key;
        if (disk) {
            auto record = disk.record();
            entry.path = takeSortKey(record);
            Facts facts{};
            std::memcpy(&facts, record.data(), sizeof facts);
            entry.isFolder = facts.isFolder;
            entry.size = facts.size;
            entry.modified = facts.modified;
            key = sortKey(entry.path);
        }
        const auto listed = list ? sortKey(list.file().path) : std::string();
        if (list && (!disk || listed < key)) {
            noteMissing(list.file());
            list.next();
            continue;
        }
        const bool isListed = list && listed == key;
        compareEntry(entry, isListed ? &list.file() : nullptr);
        if (isListed)
            list.next();
        disk.next();
    }
    if (list.hasFailed() || disk.hasFailed())
        m_verdict.error = "what was kept of the names of the files cannot be read again";
}

void DiskVerification::noteMissing(const KnownFile &known)
{
    const auto &path = known.path;
    const bool isBelowUnreadable =
        std::any_of(m_unreadableFolders.begin(), m_unreadableFolders.end(),
                    [&](const std::string &folder) { return isWithin(path, folder); });
    if (known.isMoved)
        return;
    for (std::size_t i = 0; i < m_verdict.lists.size(); ++i) {
        if (isWithin(path, m_verdict.lists[i].list.folder) && isPassedOver(i, path, known.isFolder))
            return;
    }
    if (isBelowUnreadable)
        note(FileFinding::Unreadable, path, "its folder cannot be read");
    else
        note(FileFinding::Missing, path);
}

void DiskVerification::compareEntry(const Entry &entry, const KnownFile *known)
{
    const auto *expected = known && !known->isFolder ? known->toCheckWith() : nullptr;
    if (entry.isFolder) {
        if (known && !known->isFolder)
            note(FileFinding::Changed, entry.path);
        else if (m_record)
            m_record->addFolder(entry.path, entry.modified);
        return;
    }
    if (!expected) {
        // Checksum files beside the one that is used, and what no history lists, are no content.
        if (usualPatterns().matches(nameIn(entry.path), false) ||
            std::any_of(m_verdict.lists.begin(), m_verdict.lists.end(), [&](const VerifiedList &verified) {
                return verified.list.kind == ListKind::Sums && isNameOfSums(nameIn(entry.path)) &&
                       joined(verified.list.folder, nameIn(entry.path)) == entry.path;
            }))
            return;
        note(known && known->isFolder ? FileFinding::Changed : FileFinding::New, entry.path);
        if (!m_record)
            return;
    }
    const auto format = expected ? expected->format : m_format.value_or(DigestFormat::Xxh128);
    const auto digest = digestOf(entry.path, format);
    if (m_verdict.isCancelled)
        return;
    if (!digest) {
        note(FileFinding::Unreadable, entry.path, digest.error().reason());
        return;
    }
    if (expected)
        note(*digest == expected->text ? FileFinding::Whole : FileFinding::Changed, entry.path);
    if (m_record)
        m_record->addFile(entry.path, entry.size, entry.modified, format, *digest);
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
