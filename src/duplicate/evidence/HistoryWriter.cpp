#include "duplicate/evidence/HistoryWriter.h"

#include "duplicate/evidence/IgnorePatterns.h"
#include "duplicate/evidence/Leftovers.h"
#include "duplicate/evidence/SortKey.h"
#include "foundation/DisplayPath.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <span>
#include <utility>

namespace orvana
{

using platform::Existing;
using platform::Expected;

namespace
{

// A volume may take 255 bytes of a name. This leaves room for number, date and endings.
constexpr std::size_t LongestFolderName = 180;

constexpr std::uint32_t EverybodyMayRead = 0755;

using Failure = tl::unexpected<std::string>;

std::string sentence(std::string_view what, const platform::FileError &error)
{
    return std::string(what) + ": " + error.reason();
}

} // namespace

HistoryWriter::HistoryWriter(platform::Folder &volume, std::string root, const ManifestStyle &style,
                             EvidenceListener tell)
    : m_volume(volume), m_root(std::move(root)), m_style(style), m_tell(std::move(tell)),
      m_known(style.folderForSorting)
{
}

HistoryWriter::~HistoryWriter()
{
    if (m_manifest && !m_isCommitted)
        m_manifest->removeStationCopy();
    m_manifest.reset();
    if (m_unfinished.empty())
        return;
    if (m_old)
        (void)m_volume.remove(m_unfinished);
    else
        removeUnfinishedHistory(m_volume, m_unfinished);
}

std::string HistoryWriter::pathOf(std::string_view inRoot) const
{
    return joined(m_root, inRoot);
}

tl::expected<std::unique_ptr<HistoryWriter>, std::string>
HistoryWriter::open(platform::Folder &volume, const std::string &root, const ManifestStyle &style,
                    const Start &start, EvidenceListener tell)
{
    std::unique_ptr<HistoryWriter> writer(new HistoryWriter(volume, root, style, std::move(tell)));
    if (const auto read = writer->readOldGenerations(start.copied); !read)
        return Failure(read.error());
    if (const auto opened = writer->openManifest(); !opened)
        return Failure(opened.error());
    writer->start(start.digest, start.skipped);
    return writer;
}

// A run was cut before it wrote the chain. Its manifest is of no use without.
tl::expected<void, std::string> HistoryWriter::takeBack(const Generation &unfinished,
                                                        const std::set<std::string> &copied)
{
    if (unfinished.facts.tool != ProgramName || copied.contains(unfinished.name))
        return Failure("its history has a manifest that its chain does not name: " +
                       displayPath(unfinished.name));
    if (const auto removed = m_volume.remove(joined(pathOf(HistoryFolder), unfinished.name)); !removed)
        return Failure(sentence("an unfinished manifest cannot be removed", removed.error()));
    return {};
}

tl::expected<void, std::string> HistoryWriter::readOldGenerations(const std::set<std::string> &copied)
{
    auto old = readHistory(m_volume, m_root, m_known);
    if (old && !old->generations.back().isInChain) {
        if (const auto taken = takeBack(old->generations.back(), copied); !taken)
            return taken;
        m_known = KnownFiles(m_style.folderForSorting);
        old = readHistory(m_volume, m_root, m_known);
    }
    if (!old && old.error().problem == HistoryProblem::NoHistory &&
        !m_volume.attributes(pathOf(HistoryFolder), platform::Links::DoNotFollow, platform::Want::Basics))
        return {};
    if (!old)
        return Failure("its history cannot be continued: " + old.error().text());
    if (m_known.hasDigests() && !m_known.holds(m_style.format))
        return Failure("its history has no digests of the format " + std::string(nameOf(m_style.format)) +
                       " and can be continued with one of its own formats only");
    m_old = std::move(*old);
    m_knownReader.emplace(m_known);
    return {};
}

std::string HistoryWriter::manifestName() const
{
    std::string folder = m_root.empty() ? m_style.rootName : std::string(nameIn(m_root));
    if (folder.empty() || !canBeInMhl(std::string_view(folder)))
        folder = "folder";
    while (folder.size() > LongestFolderName || !isUtf8(folder))
        folder.pop_back();
    std::array<char, 16> number{};
    const int next = m_old ? m_old->generations.back().number + 1 : 1;
    const auto length = std::snprintf(number.data(), number.size(), "%04d", next);
    return std::string(number.data(), static_cast<std::size_t>(length)) + "_" + folder + "_" +
           mhlStamp(m_style.started) + ".mhl";
}

tl::expected<void, std::string> HistoryWriter::makeHistoryFolder()
{
    const auto folder = pathOf(HistoryFolder).append(UnfinishedEnd);
    removeUnfinishedHistory(m_volume, folder); // of a run that was cut
    const auto made = m_volume.makeFolder(folder, {.permissions = EverybodyMayRead});
    if (!made)
        return Failure(sentence("the folder " + std::string(HistoryFolder).append(UnfinishedEnd) +
                                    " for its history cannot be made",
                                made.error()));
    m_unfinished = folder;
    return {};
}

tl::expected<void, std::string> HistoryWriter::openManifest()
{
    m_name = manifestName();
    if (m_old) {
        removeLeftovers(m_volume, pathOf(HistoryFolder)); // of a run that was cut
        m_unfinished = joined(pathOf(HistoryFolder), m_name).append(UnfinishedEnd);
    } else if (const auto made = makeHistoryFolder(); !made) {
        return made;
    }
    const auto path = m_old ? m_unfinished : joined(m_unfinished, m_name);
    const auto copy = m_style.stationFolder.empty() ? std::string() : m_style.stationFolder + "/" + m_name;
    auto manifest = ManifestFile::create(m_volume, path, copy, DigestFormat::C4);
    if (!manifest)
        return Failure(sentence("the manifest cannot be written", manifest.error()));
    m_manifest.emplace(std::move(*manifest));
    return {};
}

void HistoryWriter::start(const std::optional<FolderDigest> &digest, const std::vector<std::string> &skipped)
{
    MhlHead head{.started = m_style.started,
                 .host = m_style.host,
                 .comment = m_style.comment,
                 .process = m_style.process,
                 .root = digest,
                 .ignored = m_old ? m_old->ignored() : IgnorePatterns::defaults()};
    for (const auto &path : skipped) {
        const auto pattern = IgnorePatterns::patternOf(pathWithin(path, m_root));
        if (canBeInMhl(std::string_view(pattern)) &&
            std::find(head.ignored.begin(), head.ignored.end(), pattern) == head.ignored.end())
            head.ignored.push_back(pattern);
    }
    m_manifest->write(mhlStart(head, m_style.format, m_style.programVersion));
}

void HistoryWriter::writeEntry(const std::string &xml)
{
    if (!std::exchange(m_hasEntries, true))
        m_manifest->write(MhlEntriesStart);
    m_manifest->write(xml);
}

void HistoryWriter::file(const EvidenceEntry &file)
{
    const std::string path(pathWithin(file.path, m_root));
    MhlFile entry{.path = path,
                  .size = file.size,
                  .modified = file.modified,
                  .digested = file.digested,
                  .format = file.format,
                  .digest = file.digest,
                  .action = actionFor(file, path)};
    writeEntry(mhlEntry(entry));
    ++m_files;
}

DigestAction HistoryWriter::actionFor(const EvidenceEntry &file, const std::string &path)
{
    passKnownFilesBefore(path);
    if (!m_knownReader || !*m_knownReader || m_knownReader->file().path != path)
        return DigestAction::Original;
    const auto known = m_knownReader->file();
    m_knownReader->next();
    const auto *digest = known.inFormat(file.format);
    if (!digest && !known.digests.empty())
        m_tell({EvidenceRemark::Kind::NotAsInHistory, file.path,
                "it cannot be compared: its history has digests of another format only"});
    if (!digest)
        return DigestAction::Original;
    if (digest->text == file.digest)
        return DigestAction::Verified;
    m_tell({EvidenceRemark::Kind::NotAsInHistory, file.path, "it was changed since: its digest is another"});
    return DigestAction::Failed;
}

// What the history knows and the copy does not hold is told.
void HistoryWriter::passKnownFilesBefore(const std::string &path)
{
    const auto key = path.empty() ? std::string() : sortKey(path);
    while (m_knownReader && *m_knownReader && (key.empty() || sortKey(m_knownReader->file().path) < key)) {
        const auto &known = m_knownReader->file();
        if (!known.isFolder && !known.isMoved)
            m_tell({EvidenceRemark::Kind::NotAsInHistory, pathOf(known.path),
                    "it is missing among what was copied"});
        m_knownReader->next();
    }
}

void HistoryWriter::folder(const std::string &path, std::int64_t modified,
                           const std::optional<FolderDigest> &digest)
{
    writeEntry(mhlFolder(pathWithin(path, m_root), modified, m_style.started, digest, m_style.format));
}

void HistoryWriter::refer(const MhlReference &manifest)
{
    m_references.push_back({std::string(pathWithin(manifest.path, m_root)), manifest.c4});
}

tl::expected<HistoryWriter::Committed, std::string> HistoryWriter::commit()
{
    passKnownFilesBefore({});
    if (m_knownReader && m_knownReader->hasFailed())
        return Failure("what was read of its history cannot be read again");
    if (m_hasEntries)
        m_manifest->write(MhlEntriesEnd);
    m_manifest->write(mhlEnd(m_references));
    const auto c4 = m_manifest->close();
    if (!c4)
        return Failure(sentence("the manifest cannot be written", c4.error()));
    const MhlReference manifest{m_name, *c4};
    if (const auto put = putInPlace(manifest); !put)
        return Failure(sentence("the manifest cannot be brought to the disk", put.error()));
    const auto path = joined(pathOf(HistoryFolder), m_name);
    const auto readBack = digestOfFile(m_volume, path, DigestFormat::C4);
    if (!readBack)
        return Failure(sentence("the manifest cannot be read back", readBack.error()));
    if (*readBack != *c4)
        return Failure("the manifest reads back differently than it was written");
    m_isCommitted = true;
    return Committed{{path, *c4}, m_files};
}

// On FAT a name may come to the disk before its content. So each name is given only after a sync.
Expected<void> HistoryWriter::putInPlace(const MhlReference &manifest)
{
    const auto folder = pathOf(HistoryFolder);
    if (!m_old) {
        auto done = writeChain(joined(m_unfinished, ChainName), manifest);
        if (done)
            done = m_volume.syncVolume();
        if (done)
            done = m_volume.rename(m_unfinished, folder, Existing::Keep);
        if (!done)
            return done;
        m_unfinished.clear();
        return m_volume.syncVolume();
    }
    auto done = m_volume.syncVolume();
    if (done)
        done = m_volume.rename(m_unfinished, joined(folder, m_name), Existing::Keep);
    if (!done)
        return done;
    const auto chain = joined(folder, ChainName);
    m_unfinished = std::string(chain).append(UnfinishedEnd);
    done = m_volume.syncVolume();
    if (done)
        done = writeChain(m_unfinished, manifest);
    if (done)
        done = m_volume.syncVolume();
    if (done)
        done = m_volume.rename(m_unfinished, chain, Existing::Replace);
    if (!done)
        return done;
    m_unfinished.clear();
    return m_volume.syncVolume();
}

Expected<void> HistoryWriter::writeChain(const std::string &path, const MhlReference &manifest)
{
    auto generations = m_old ? m_old->chain : std::vector<MhlReference>();
    generations.push_back(manifest);
    auto file = ManifestFile::create(m_volume, path, {}, DigestFormat::C4);
    if (!file)
        return tl::unexpected(file.error());
    file->write(chainText(generations));
    if (const auto closed = file->close(); !closed)
        return tl::unexpected(closed.error());
    return {};
}

} // namespace orvana
