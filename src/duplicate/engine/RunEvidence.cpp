#include "duplicate/engine/RunEvidence.h"

#include "duplicate/engine/Target.h"
#include "duplicate/evidence/History.h"
#include "duplicate/evidence/SortKey.h"
#include "duplicate/report/RunReport.h"
#include "foundation/DisplayPath.h"

#include <algorithm>
#include <chrono>

namespace orvana
{

using platform::Attributes;
using platform::FileType;
using platform::Links;
using platform::Want;

namespace
{

// Patterns for more left-out items than this would be of no use to anybody.
constexpr std::size_t MostSkipped = 1000;

constexpr std::int64_t NanosecondsOfASecond = 1'000'000'000;

std::int64_t now()
{
    using namespace std::chrono;
    return duration_cast<seconds>(system_clock::now().time_since_epoch()).count();
}

std::string noStates(const std::deque<Target> &targets)
{
    return std::string(targets.size(), static_cast<char>(CopyState::NotMade));
}

char letterOf(CopyState state)
{
    return static_cast<char>(state);
}

bool isFolder(const platform::Folder &files, const std::string &path)
{
    const auto there = files.attributes(path, Links::Follow, Want::Basics);
    return there && there->type == FileType::Folder;
}

ProblemKind kindOf(EvidenceRemark::Kind kind)
{
    switch (kind) {
    case EvidenceRemark::Kind::NotListed:
        return ProblemKind::NotInManifest;
    case EvidenceRemark::Kind::NoManifest:
        return ProblemKind::NoManifest;
    case EvidenceRemark::Kind::NotAsInHistory:
        return ProblemKind::NotAsInHistory;
    }
    return ProblemKind::NotInManifest;
}

// The path of a copy below its destination, which is the same for all copies of an item.
std::string placeOf(const std::deque<Target> &targets, const OutArray &copies)
{
    for (const auto &target : targets) {
        if (target.index >= copies.size() || !copies[target.index])
            continue;
        if (const auto place = target.destination.placeOf(*copies[target.index]))
            return std::string(*place);
    }
    return {};
}

// True when every manifest on the destination is one of the source's, so that the source's history goes on
// where that of the destination ends.
bool isBeginningOf(const platform::Folder &volume, const std::string &place, const platform::Folder &sources,
                   const std::string &source)
{
    const auto file = volume.openFile(joined(place, ChainName), platform::Access::Read);
    const auto chain = file ? readChain(**file) : tl::unexpected(ManifestError());
    if (!chain)
        return false;
    // A manifest that the chain does not name is what a run that was cut has left.
    return std::all_of(chain->begin(), chain->end(), [&](const MhlReference &generation) {
        const auto theirs = digestOfFile(sources, joined(source, generation.path), DigestFormat::C4);
        return theirs && digestOfFile(volume, joined(place, generation.path), DigestFormat::C4) == *theirs;
    });
}

} // namespace

RunEvidence::RunEvidence(EvidenceOrder order, const CopyJob &job, platform::Folder &sources,
                         RunReport &report)
    : m_order(std::move(order)), m_job(job), m_sources(sources), m_report(report),
      m_log(m_order.folderForSorting)
{
    m_manifests.kind = m_order.manifest;
    m_manifests.scopes = scopes();
    m_format = m_order.format ? *m_order.format : formatOfSource(m_manifests.scopes);
    m_manifests.style = {.format = m_format,
                         .started = m_order.started,
                         .host = nameOfMachine(),
                         .comment = {},
                         .process = "transfer",
                         .programVersion = PLURIMO_VERSION,
                         .rootName = {},
                         .folderForSorting = m_order.folderForSorting,
                         .stationFolder = {}};
}

// As `TreeWalk` does it, only the length of the source's root is used.
std::string RunEvidence::pathOf(const std::string &item) const
{
    auto path = item.substr(std::min(item.size(), m_job.SrcDiskPath.size()));
    while (path.starts_with('/'))
        path.erase(0, 1);
    return path;
}

std::vector<std::string> RunEvidence::scopes()
{
    if (m_order.manifest == ManifestKind::None)
        return {};
    if (m_order.isWholeVolume)
        return {std::string()};
    std::vector<std::string> folders;
    for (const auto &item : m_job.SrcFileArray) {
        if (isFolder(m_sources, item))
            folders.push_back(pathOf(item));
    }
    auto scopes = outermost(std::move(folders));
    for (const auto &item : m_job.SrcFileArray) {
        const auto path = pathOf(item);
        if (std::none_of(scopes.begin(), scopes.end(),
                         [&](const auto &scope) { return isWithin(path, scope); })) {
            for (std::size_t i = 0; i < m_job.DesFileArray.size(); ++i)
                m_report.evidence(i, item, "it was ticked by itself, not in a folder",
                                  ProblemKind::NotInManifest);
        }
    }
    return scopes;
}

DigestFormat RunEvidence::formatOfSource(const std::vector<std::string> &scopes) const
{
    constexpr auto Default = DigestFormat::Xxh128;
    if (m_order.manifest != ManifestKind::Mhl)
        return Default;
    for (const auto &scope : scopes) {
        KnownFiles known(m_order.folderForSorting);
        const auto root = scope.empty() ? m_job.SrcDiskPath : m_job.SrcDiskPath + "/" + scope;
        if (!readHistory(m_sources, root, known))
            continue;
        for (const auto format : AllDigestFormats) {
            if (known.holds(format))
                return format;
        }
    }
    return Default;
}

void RunEvidence::add(std::span<const std::byte> block)
{
    if (m_digest)
        m_digest->add({reinterpret_cast<const char *>(block.data()), block.size()});
}

void RunEvidence::startFile()
{
    m_digest.emplace(m_format);
    m_text.clear();
}

void RunEvidence::endFile()
{
    m_text = m_digest->text();
    m_digest.reset();
}

void RunEvidence::noteFile(std::deque<Target> &targets, const OutArray &copies,
                           const std::optional<Attributes> &source, bool isVerified)
{
    EvidenceEntry entry{.path = placeOf(targets, copies),
                        .isFolder = false,
                        .size = source ? source->size : 0,
                        .modified = source ? source->modified / NanosecondsOfASecond : 0,
                        .digested = now(),
                        .format = m_format,
                        .digest = m_text,
                        .states = noStates(targets)};
    for (const auto &target : targets) {
        if (target.index >= copies.size() || !copies[target.index] || target.isDoneBefore)
            continue;
        const bool isGood =
            target.isCopied && !target.hasFailed && !m_text.empty() && (!isVerified || target.isVerified);
        entry.states[target.index] = letterOf(isGood ? CopyState::Good : CopyState::Bad);
    }
    m_log.add(entry);
}

void RunEvidence::noteFolder(std::deque<Target> &targets, const OutArray &copies, const Attributes &like,
                             std::string states)
{
    m_log.add({.path = placeOf(targets, copies),
               .isFolder = true,
               .size = 0,
               .modified = like.modified / NanosecondsOfASecond,
               .digested = now(),
               .format = m_format,
               .digest = {},
               .states = std::move(states)});
}

void RunEvidence::withdraw(const std::deque<Target> &targets, const Target &target, const std::string &copy)
{
    OutArray copies(targets.size());
    copies[target.index] = copy;
    EvidenceEntry entry;
    entry.path = placeOf(targets, copies);
    entry.format = m_format;
    entry.states = noStates(targets);
    entry.states[target.index] = letterOf(CopyState::Bad);
    m_log.add(entry);
}

void RunEvidence::noteLeftOut(const std::string &item)
{
    if (m_manifests.skipped.size() < MostSkipped)
        m_manifests.skipped.push_back(pathOf(item));
}

std::vector<std::pair<std::size_t, std::string>>
RunEvidence::keepForeignHistories(std::deque<Target> &targets, const std::string &source, OutArray &copies)
{
    std::vector<std::pair<std::size_t, std::string>> taken;
    if (m_order.manifest != ManifestKind::Mhl || nameIn(source) != HistoryFolder)
        return taken;
    for (auto &target : targets) {
        if (target.index >= copies.size() || !copies[target.index] || !target.destination.isOpen())
            continue;
        const auto place = target.destination.placeOf(*copies[target.index]);
        const auto &volume = *target.destination.volume();
        if (!place || !volume.attributes(*place, Links::DoNotFollow, Want::Basics) ||
            isBeginningOf(volume, std::string(*place), m_sources, source))
            continue;
        m_report.evidence(target.index, source, "the destination has another history there, which is kept",
                          ProblemKind::NoManifest);
        taken.emplace_back(target.index, std::move(*copies[target.index]));
        copies[target.index].reset();
    }
    return taken;
}

void RunEvidence::finish()
{
    m_hasLost = !m_log.finish();
}

void RunEvidence::writeManifests(Target &target)
{
    const auto index = target.index;
    if (m_hasLost)
        return m_report.evidence(index, m_job.SrcDiskPath, "the station has no room for the digests",
                                 ProblemKind::NoManifest);
    auto order = m_manifests;
    if (index < m_order.comments.size())
        order.style.comment = m_order.comments[index];
    order.style.rootName = index < m_order.names.size() && !m_order.names[index].empty()
                               ? m_order.names[index]
                               : std::string(nameIn(target.destination.root()));
    if (!m_order.stationFolder.empty())
        order.style.stationFolder = m_order.stationFolder + "/" + std::to_string(index + 1);
    const auto tell = [&](const EvidenceRemark &remark) {
        m_report.evidence(index, joined(m_job.SrcDiskPath, remark.path), remark.text, kindOf(remark.kind));
    };
    for (const auto &manifest :
         orvana::writeManifests(*target.destination.volume(), m_log, index, order, tell))
        m_report.manifest(index, {manifest.path, std::string(nameOf(manifest.digestFormat)), manifest.digest,
                                  static_cast<std::int64_t>(manifest.files)});
}

} // namespace orvana
