#include "duplicate/evidence/ManifestWriter.h"

#include "duplicate/evidence/EvidenceWalk.h"
#include "duplicate/evidence/HistoryWriter.h"
#include "duplicate/evidence/IgnorePatterns.h"
#include "duplicate/evidence/Leftovers.h"
#include "duplicate/evidence/SortKey.h"
#include "duplicate/evidence/SumsWriter.h"
#include "foundation/DisplayPath.h"

#include <algorithm>
#include <map>
#include <set>
#include <utility>

namespace orvana
{

namespace
{

constexpr const char *LostAndFound = "lost+found"; // of ext file systems, in their root

EvidenceRemark withoutManifest(const std::string &folder, const std::string &reason)
{
    return {EvidenceRemark::Kind::NoManifest, folder, reason};
}

bool isThere(const platform::Folder &volume, const std::string &path)
{
    return volume.attributes(path, platform::Links::DoNotFollow, platform::Want::Basics).has_value();
}

std::string unfinishedHistory()
{
    return std::string(HistoryFolder).append(UnfinishedEnd);
}

// Returns the items below the folder that a rule left out, as a history around them calls them.
std::vector<std::string> skippedIn(const std::string &folder, const platform::Folder &volume,
                                   const ManifestOrder &order)
{
    std::vector<std::string> within;
    for (const auto &path : order.skipped) {
        if (isWithin(path, folder) && path != folder)
            within.push_back(path);
    }
    if (folder.empty() && isThere(volume, LostAndFound))
        within.emplace_back(LostAndFound);
    return within;
}

// The folders whose "ascmhl" came with the copy, and the manifests in it.
class CopiedHistories
{
public:
    CopiedHistories(const EvidenceLog &log, std::size_t copy)
    {
        EvidenceLog::Reader reader(log, copy);
        while (reader.next()) {
            const auto &path = reader.entry().path;
            const auto holder = withoutName(path);
            if (reader.entry().isFolder && nameIn(path) == HistoryFolder)
                m_manifests[holder];
            else if (nameIn(holder) == HistoryFolder && generationOf(nameIn(path)))
                m_manifests[withoutName(holder)].emplace(nameIn(path));
        }
    }

    bool holds(const std::string &folder) const { return m_manifests.contains(folder); }

    std::set<std::string> manifestsOf(const std::string &folder) const
    {
        const auto found = m_manifests.find(folder);
        return found == m_manifests.end() ? std::set<std::string>() : found->second;
    }

private:
    static std::string withoutName(const std::string &path)
    {
        const auto slash = path.rfind('/');
        return slash == std::string::npos ? std::string() : path.substr(0, slash);
    }

    std::map<std::string, std::set<std::string>> m_manifests; // file names, by the folder of the history
};

/// What a first walk finds out: the digests that stand at the beginning of the manifests, and the folders
/// that cannot get one.
class FirstLook : public EvidenceVisitor
{
public:
    FirstLook(const platform::Folder &volume, const CopiedHistories &histories,
              const ManifestOrder &manifests)
        : copied(histories), order(manifests), m_volume(volume)
    {
    }

    void enters(const std::string &folder, bool isNew) override
    {
        if (isRoot(folder)) {
            m_open.push_back(folder);
            readPatterns(folder);
        }
        // A history that was there before is not continued, and neither is one around it.
        if (!isNew && !copied.holds(folder) && isThere(m_volume, joined(folder, HistoryFolder)))
            refusals.emplace(m_open.front(),
                             folder == m_open.front()
                                 ? "it has a history of its own already"
                                 : "a folder in it has a history of its own: " + displayPath(folder));
        if (nameIn(folder) == unfinishedHistory())
            refusals.emplace(m_open.front(),
                             "the name of a folder in it is needed for the history: " + displayPath(folder));
    }

    void file(const EvidenceEntry &) override {}
    void cannotBeListed(const std::string &, const std::string &) override {}

    bool isIgnored(const std::string &path, bool isFolder) override
    {
        return m_open.empty() || isIgnoredIn(m_open.back(), path, isFolder);
    }

    bool isIgnoredIn(const std::string &root, const std::string &path, bool isFolder) const
    {
        const auto patterns = m_patterns.find(root);
        return patterns != m_patterns.end() && patterns->second.matches(pathWithin(path, root), isFolder);
    }

    bool holdsOnly(const std::string &folder, std::size_t count) override
    {
        return !m_open.empty() && holdsOnlyIn(m_open.back(), folder, count);
    }

    bool holdsOnlyIn(const std::string &root, const std::string &folder, std::size_t count) const
    {
        auto names = m_volume.list(folder);
        if (!names || names->error())
            return false;
        while (!names->empty()) {
            const auto name = names->takeNext();
            if (name == unfinishedHistory() || isIgnoredIn(root, joined(folder, name), false))
                continue;
            if (count-- == 0)
                return false;
        }
        return true;
    }

    void leaves(const std::string &folder, std::int64_t, const std::optional<FolderDigest> &digest) override
    {
        if (!isRoot(folder))
            return;
        m_open.pop_back();
        if (digest)
            digests.emplace(folder, *digest);
    }

    bool isRoot(const std::string &folder) const
    {
        return copied.holds(folder) ||
               std::find(order.scopes.begin(), order.scopes.end(), folder) != order.scopes.end();
    }

    const CopiedHistories &copied;
    const ManifestOrder &order;
    std::map<std::string, FolderDigest> digests;
    std::map<std::string, std::string> refusals; ///< scopes that get no manifest, and why

private:
    void readPatterns(const std::string &folder)
    {
        auto patterns = IgnorePatterns::defaults();
        KnownFiles unused(order.style.folderForSorting);
        if (copied.holds(folder)) {
            if (const auto history = readHistory(m_volume, folder, unused))
                patterns = history->ignored();
        }
        for (const auto &path : skippedIn(folder, m_volume, order))
            patterns.push_back(IgnorePatterns::patternOf(pathWithin(path, folder)));
        m_patterns.emplace(folder, IgnorePatterns(patterns));
    }

    const platform::Folder &m_volume;
    std::map<std::string, IgnorePatterns> m_patterns; // by the folder of the history
    std::vector<std::string> m_open;
};

/// Writes the histories during a second walk. A file belongs to the innermost history around it.
class SecondLook : public EvidenceVisitor
{
public:
    SecondLook(platform::Folder &volume, FirstLook &first, const EvidenceListener &tell)
        : m_volume(volume), m_first(first), m_tell(tell)
    {
    }

    void enters(const std::string &folder, bool) override
    {
        if (!m_first.isRoot(folder))
            return;
        m_open.push_back({folder, nullptr});
        const auto refusal = m_first.refusals.find(m_open.front().root);
        if (refusal != m_first.refusals.end()) {
            if (folder == m_open.front().root)
                m_tell(withoutManifest(folder, refusal->second));
            return;
        }
        const auto digest = m_first.digests.find(folder);
        auto writer = HistoryWriter::open(
            m_volume, folder, m_first.order.style,
            {.digest = digest == m_first.digests.end() ? std::nullopt : std::optional(digest->second),
             .skipped = skippedIn(folder, m_volume, m_first.order),
             .copied = m_first.copied.manifestsOf(folder)},
            m_tell);
        if (writer)
            m_open.back().writer = std::move(*writer);
        else
            m_tell(withoutManifest(folder, writer.error()));
    }

    bool isIgnored(const std::string &path, bool isFolder) override
    {
        const bool isIgnored = m_open.empty() || m_first.isIgnoredIn(m_open.back().root, path, isFolder);
        if (isIgnored && innermost() && nameIn(path) != HistoryFolder)
            m_tell({EvidenceRemark::Kind::NotListed, path, "a pattern of its history leaves it out"});
        return isIgnored;
    }

    void file(const EvidenceEntry &file) override
    {
        if (auto *writer = innermost())
            writer->file(file);
    }

    void cannotBeListed(const std::string &path, const std::string &reason) override
    {
        if (innermost())
            m_tell({EvidenceRemark::Kind::NotListed, path, reason});
    }

    bool holdsOnly(const std::string &folder, std::size_t count) override
    {
        return !m_open.empty() && m_first.holdsOnlyIn(m_open.back().root, folder, count);
    }

    void leaves(const std::string &folder, std::int64_t modified,
                const std::optional<FolderDigest> &digest) override
    {
        std::optional<MhlReference> manifest;
        if (m_first.isRoot(folder)) {
            manifest = commit();
            m_open.pop_back();
        }
        auto *outer = innermost();
        if (!outer)
            return;
        outer->folder(folder, modified, digest);
        if (manifest)
            outer->refer(*manifest);
    }

    std::vector<WrittenManifest> written;

private:
    struct Open
    {
        std::string root;
        std::unique_ptr<HistoryWriter> writer; ///< null for a folder that gets no manifest
    };

    HistoryWriter *innermost() { return m_open.empty() ? nullptr : m_open.back().writer.get(); }

    std::optional<MhlReference> commit()
    {
        auto *writer = innermost();
        if (!writer)
            return std::nullopt;
        const auto done = writer->commit();
        if (!done) {
            m_tell(withoutManifest(m_open.back().root, done.error()));
            return std::nullopt;
        }
        written.push_back({done->manifest.path, DigestFormat::C4, done->manifest.c4, done->files});
        return done->manifest;
    }

    platform::Folder &m_volume;
    FirstLook &m_first;
    const EvidenceListener &m_tell;
    std::vector<Open> m_open;
};

std::vector<WrittenManifest> writeHistories(platform::Folder &volume, const EvidenceLog &log,
                                            std::size_t copy, const ManifestOrder &order,
                                            const EvidenceListener &tell)
{
    const auto &style = order.style;
    const CopiedHistories copied(log, copy);
    FirstLook first(volume, copied, order);
    SecondLook second(volume, first, tell);
    for (EvidenceVisitor *look :
         {static_cast<EvidenceVisitor *>(&first), static_cast<EvidenceVisitor *>(&second)}) {
        if (!EvidenceWalk(order.scopes, style.format, style.folderForSorting, *look).walk(log, copy)) {
            tell(withoutManifest({}, "what was digested cannot be read again"));
            break;
        }
    }
    return std::move(second.written);
}

} // namespace

std::vector<std::string> outermost(std::vector<std::string> folders)
{
    std::sort(folders.begin(), folders.end(), [](const std::string &left, const std::string &right) {
        return sortKey(left) < sortKey(right);
    });
    std::vector<std::string> kept;
    for (auto &folder : folders) {
        if (kept.empty() || !isWithin(folder, kept.back()))
            kept.push_back(std::move(folder));
    }
    return kept;
}

std::vector<WrittenManifest> writeManifests(platform::Folder &volume, const EvidenceLog &log,
                                            std::size_t copy, const ManifestOrder &order,
                                            const EvidenceListener &tell)
{
    if (order.kind == ManifestKind::Mhl)
        return writeHistories(volume, log, copy, order, tell);
    std::vector<WrittenManifest> written;
    if (order.kind == ManifestKind::None)
        return written;
    for (const auto &scope : order.scopes) {
        auto manifest = writeSums(volume, log, copy, scope, order.style, tell);
        if (manifest)
            written.push_back(std::move(*manifest));
        else
            tell(withoutManifest(scope, manifest.error()));
    }
    return written;
}

} // namespace orvana
