#pragma once

#include "duplicate/engine/CopyJob.h"
#include "duplicate/evidence/Digest.h"
#include "duplicate/evidence/EvidenceLog.h"
#include "duplicate/evidence/ManifestWriter.h"
#include "platform/VolumeFiles.h"

#include <cstddef>
#include <deque>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace orvana
{

class RunReport;
struct Target;

/// The evidence that a run is to leave.
struct EvidenceOrder
{
    /// Nullopt takes the format of the source's own history, or xxh128 if it has none.
    std::optional<DigestFormat> format;
    ManifestKind manifest = ManifestKind::None;
    /// The manifests are about whole volumes, because this run erased them. Else about each ticked folder.
    bool isWholeVolume = false;
    std::vector<std::string> comments; ///< for the manifests of each destination of the job, UTF-8
    std::vector<std::string> names;    ///< of the volumes, bytes; empty for a plain folder
    std::string folderForSorting;      ///< for files without a name
    std::string stationFolder;         ///< gets a copy of each manifest; empty for none
    std::int64_t started = 0;          ///< seconds since 1970
};

/// Digests what a run reads, remembers which copies count as done, and writes the manifests at the end.
///
/// `add` is called by one worker at a time, all else by the copy thread.
class RunEvidence
{
public:
    RunEvidence(EvidenceOrder order, const CopyJob &job, platform::Folder &sources, RunReport &report);

    DigestFormat format() const { return m_format; }

    void startFile();
    void add(std::span<const std::byte> block);

    /// Ends the digest of the file in hand.
    void endFile();

    /// Takes the digest that is known of the file in hand, which was not read.
    void adoptDigest(std::string digest) { m_text = std::move(digest); }

    /// The digest of the file in hand, after `endFile`.
    const std::string &digest() const { return m_text; }

    /// Notes what became of the copies of the file in hand. `isVerified` says that every good copy was read
    /// back. `source` are the attributes that the source had, or nullopt.
    void noteFile(std::deque<Target> &targets, const OutArray &copies,
                  const std::optional<platform::Attributes> &source, bool isVerified);

    /// Notes folders with one state for each target.
    void noteFolder(std::deque<Target> &targets, const OutArray &copies, const platform::Attributes &like,
                    std::string states);

    /// Notes that a copy that counted as done was found to be bad.
    void withdraw(const std::deque<Target> &targets, const Target &target, const std::string &copy);

    /// Notes that a rule left the item of the source out.
    void noteLeftOut(const std::string &item);

    /// Takes the history in hand, copies of a source's own "ascmhl", from the destinations that have another
    /// history of their own there, and returns what it took.
    std::vector<std::pair<std::size_t, std::string>>
    keepForeignHistories(std::deque<Target> &targets, const std::string &source, OutArray &copies);

    /// Ends the adding, after the last file.
    void finish();

    /// Writes the manifests of the target, whose data is on its disk. Callable on any thread, one at a time
    /// for each target.
    void writeManifests(Target &target);

    bool wantsManifests() const { return m_order.manifest != ManifestKind::None; }

private:
    std::vector<std::string> scopes();
    DigestFormat formatOfSource(const std::vector<std::string> &scopes) const;
    std::string pathOf(const std::string &item) const;

    EvidenceOrder m_order;
    const CopyJob &m_job;
    platform::Folder &m_sources;
    RunReport &m_report;
    DigestFormat m_format = DigestFormat::Xxh128;
    ManifestOrder m_manifests;
    EvidenceLog m_log;
    std::optional<Digest> m_digest;
    std::string m_text;
    bool m_hasLost = false;
};

} // namespace orvana
