#pragma once

#include "duplicate/evidence/EvidenceLog.h"
#include "duplicate/evidence/History.h"
#include "duplicate/evidence/Manifest.h"
#include "duplicate/evidence/ManifestFile.h"
#include "duplicate/evidence/MhlXml.h"

#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace orvana
{

/// Appends one generation to the history of one folder, or begins its history.
///
/// Nothing of it has its final name before it is on the disk: first the manifest, then the chain. So a cut at
/// any moment leaves the history as it was, or with a whole new generation.
class HistoryWriter
{
public:
    /// What is known of the folder before the manifest begins.
    struct Start
    {
        std::optional<FolderDigest> digest;
        std::vector<std::string> skipped; ///< what a rule left out, paths below the volume
        std::set<std::string> copied;     ///< manifests that came with the copy: not to be taken back
    };

    /// Reads the history, if there is one, and opens a manifest for the folder `root` of the volume. The
    /// error says why the folder gets no generation. `volume` must outlive the writer.
    static tl::expected<std::unique_ptr<HistoryWriter>, std::string>
    open(platform::Folder &volume, const std::string &root, const ManifestStyle &style, const Start &start,
         EvidenceListener tell);

    /// Removes what has no final name yet.
    ~HistoryWriter();
    HistoryWriter(const HistoryWriter &) = delete;
    HistoryWriter &operator=(const HistoryWriter &) = delete;

    const std::string &root() const { return m_root; }

    /// Adds a file, in order of the paths, which are those below the volume.
    void file(const EvidenceEntry &file);

    void folder(const std::string &path, std::int64_t modified, const std::optional<FolderDigest> &digest);

    /// Refers to a manifest of a history that lies below this one. Its path is one below the volume.
    void refer(const MhlReference &manifest);

    struct Committed
    {
        MhlReference manifest; ///< its path is one below the volume
        std::uint64_t files = 0;
    };

    /// Finishes the manifest and brings it to the disk, and then the chain. The error says what failed.
    tl::expected<Committed, std::string> commit();

private:
    HistoryWriter(platform::Folder &volume, std::string root, const ManifestStyle &style,
                  EvidenceListener tell);

    tl::expected<void, std::string> readOldGenerations(const std::set<std::string> &copied);
    tl::expected<void, std::string> takeBack(const Generation &unfinished,
                                             const std::set<std::string> &copied);
    tl::expected<void, std::string> makeHistoryFolder();
    tl::expected<void, std::string> openManifest();
    void start(const std::optional<FolderDigest> &digest, const std::vector<std::string> &skipped);
    void writeEntry(const std::string &xml);
    DigestAction actionFor(const EvidenceEntry &file, const std::string &path);
    void passKnownFilesBefore(const std::string &path);
    platform::Expected<void> putInPlace(const MhlReference &manifest);
    platform::Expected<void> writeChain(const std::string &path, const MhlReference &manifest);
    std::string pathOf(std::string_view inRoot) const;
    std::string manifestName() const;

    platform::Folder &m_volume;
    const std::string m_root;
    const ManifestStyle &m_style;
    EvidenceListener m_tell;
    std::optional<History> m_old;
    KnownFiles m_known;
    std::optional<KnownFiles::Reader> m_knownReader;
    std::string m_name; // file name of the manifest
    std::string
        m_unfinished; // what has no final name yet: a manifest, or the whole folder; empty for nothing
    std::optional<ManifestFile> m_manifest;
    std::vector<MhlReference> m_references;
    bool m_hasEntries = false;
    bool m_isCommitted = false;
    std::uint64_t m_files = 0;
};

} // namespace orvana
