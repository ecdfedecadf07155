#include "duplicate/evidence/SumsWriter.h"

#include "duplicate/evidence/ChecksumLine.h"
#include "duplicate/evidence/Leftovers.h"
#include "duplicate/evidence/ManifestFile.h"
#include "duplicate/evidence/MhlXml.h"
#include "duplicate/evidence/SortKey.h"

namespace orvana
{

namespace
{

std::string nameOfFile(const std::string &scope, const ManifestStyle &style)
{
    const auto folder = scope.empty() ? style.rootName : std::string(nameIn(scope));
    return (folder.empty() ? std::string("files") : folder) + "_" + mhlStamp(style.started) + "." +
           std::string(nameOf(style.format));
}

// Returns the number of lines, or nullopt when the log could not be read to its end.
std::optional<std::uint64_t> writeLines(ManifestFile &file, const EvidenceLog &log, std::size_t copy,
                                        const std::string &scope, const EvidenceListener &tell)
{
    std::uint64_t lines = 0;
    EvidenceLog::Reader reader(log, copy);
    while (reader.next()) {
        const auto &entry = reader.entry();
        if (entry.isFolder || reader.state() == CopyState::Bad || !isWithin(entry.path, scope))
            continue;
        const auto line = textOf({entry.format, entry.digest, std::string(pathWithin(entry.path, scope))});
        if (!line) {
            tell({EvidenceRemark::Kind::NotListed, entry.path, "the format cannot hold its name"});
            continue;
        }
        file.write(*line + "\n");
        ++lines;
    }
    return reader.hasFailed() ? std::nullopt : std::optional(lines);
}

// As for histories, the name is given only once the content is on the disk.
platform::Expected<void> putInPlace(platform::Folder &volume, const std::string &unfinished,
                                    const std::string &path)
{
    auto done = volume.syncVolume();
    if (done)
        done = volume.rename(unfinished, path, platform::Existing::Keep);
    return done ? volume.syncVolume() : done;
}

} // namespace

bool canBeInSums(DigestFormat format)
{
    return format != DigestFormat::C4;
}

tl::expected<WrittenManifest, std::string> writeSums(platform::Folder &volume, const EvidenceLog &log,
                                                     std::size_t copy, const std::string &scope,
                                                     const ManifestStyle &style, const EvidenceListener &tell)
{
    const auto name = nameOfFile(scope, style);
    const auto path = joined(scope, name);
    const auto unfinished = std::string(path).append(UnfinishedEnd);
    removeLeftovers(volume, scope); // of a run that was cut
    const auto station = style.stationFolder.empty() ? std::string() : style.stationFolder + "/" + name;
    auto file = ManifestFile::create(volume, unfinished, station, DigestFormat::Sha256);
    if (!file)
        return tl::unexpected("the checksum file cannot be written: " + file.error().reason());
    const auto lines = writeLines(*file, log, copy, scope, tell);
    const auto digest = file->close();
    const auto put = digest && lines ? putInPlace(volume, unfinished, path) : platform::Expected<void>();
    if (digest && lines && put)
        return WrittenManifest{path, DigestFormat::Sha256, *digest, *lines};
    file->removeStationCopy();
    (void)volume.remove(unfinished);
    if (!lines)
        return tl::unexpected(std::string("what was digested cannot be read again"));
    return tl::unexpected("the checksum file cannot be brought to the disk: " +
                          (digest ? put.error() : digest.error()).reason());
}

} // namespace orvana
