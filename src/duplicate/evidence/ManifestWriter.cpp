#include "duplicate/evidence/ManifestWriter.h"

#include "duplicate/evidence/EvidenceWalk.h"
#include "duplicate/evidence/HistoryWriter.h"
#include "duplicate/evidence/IgnorePatterns.h"
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

constexpr std::string_view Unfinished = ".part";
constexpr const char *LostAndFound = "lost+found"; // of ext file systems, in their root

EvidenceRemark withoutManifest(const std::string &folder, const std::string &reason)
{
    return {EvidenceRemark::Kind::NoManifest, folder, reason};
}

bool isThere(const platform::Folder &volume, const std::string &path)
{
    return volume.attributes(path, platform::Links::DoNotFollow, platform::Want::Basics).has_value();
}

// The folders whose "ascmhl" came with the copy.
class CopiedHistories
{
public:
    CopiedHistories(const EvidenceLog &log, std::size_t copy)
    {
        EvidenceLog::Reader reader(log, copy);
        while (reader.next()) {
            const auto &path = reader.entry().path;
            if (reader.entry().isFolder && nameIn(path) == HistoryFolder)
                m_roots.insert(path.substr(0, path.size() - std::min(path.size(), HistoryFolder.size() + 1)));
        }
    }

    bool holds(const std::string &folder) const { return m_roots.contains(folder); }

private:
    std::set<std::string> m_roots;
};

/// What a first walk finds out: the digests that stand at the beginning of the manifests, and the folders
/// that cannot get one.
class FirstLook : public EvidenceVisitor
{
public:
    FirstLook(const platform::Folder &volume, const CopiedHistories &copied, const ManifestOrder &order)
        : m_volume(volume), m_copied(copied), m_order(order), m_ignored(IgnorePatterns::defaults())
    {
    }

    void enters(const std::string &folder, bool isNew) override
    {
        if (isRoot(folder))
            m_open.push_back(folder);
        // A history that was there before is not continued, and neither is one around it.
        if (!isNew && !m_copied.holds(folder) && isThere(m_volume, joined(folder, HistoryFolder)))
            foreign.emplace(m_open.front(), folder);
    }

    void file(const EvidenceEntry &) override {}
    void cannotBeListed(const std::string &, const std::string &) override {}

    bool holdsOnly(const std::string &folder, std::size_t count) override
    {
        auto names = m_volume.list(folder);
        if (!names || names->error())
            return false;
        while (!names->empty()) {
            const auto name = names->takeNext();
            if (m_ignored.matches(name, false) || name == unfinishedHistory() ||
                (folder.empty() && name == LostAndFound))
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
        return m_copied.holds(folder) ||
               std::find(m_order.scopes.begin(), m_order.scopes.end(), folder) != m_order.scopes.end();
    }

    std::map<std::string, FolderDigest> digests;
    std::map<std::string, std::string> foreign; ///< scopes, and the folder that has a history already

private:
    static std::string unfinishedHistory() { return std::string(HistoryFolder).append(Unfinished); }

    const platform::Folder &m_volume;
    const CopiedHistories &m_copied;
    const ManifestOrder &m_order;
    IgnorePatterns m_ignored;
    std::vector<std::string> m_open;
};

/// Writes the histories during a second walk. A file belongs to the innermost history around it.
class SecondLook : public EvidenceVisitor
{
public:
    SecondLook(platform::Folder &volume, FirstLook &first, const ManifestOrder &order,
               const EvidenceListener &tell)
        : m_volume(volume), m_first(first), m_order(order), m_tell(tell)
    {
    }

    void enters(const std::string &folder, bool) override
    {
        if (!m_first.isRoot(folder))
            return;
        m_open.push_back({folder, nullptr});
        if (const auto foreign = m_first.foreign.find(m_open.front().root);
            foreign != m_first.foreign.end()) {
            if (folder == m_open.front().root)
                m_tell(withoutManifest(folder, foreign->second == folder
                                                   ? "it has a history of its own already"
                                                   : "a folder in it has a history of its own: " +
                                                         displayPath(foreign->second)));
            return;
        }
        const auto digest = m_first.digests.find(folder);
        auto writer = HistoryWriter::open(m_volume, folder, m_order.style,
                                          digest == m_first.digests.end() ? std::nullopt
                                                                          : std::optional(digest->second),
                                          skippedIn(folder), m_tell);
        if (writer)
            m_open.back().writer = std::move(*writer);
        else
            m_tell(withoutManifest(folder, writer.error()));
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
        return m_first.holdsOnly(folder, count);
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

    std::vector<std::string> skippedIn(const std::string &folder) const
    {
        std::vector<std::string> within;
        for (const auto &path : m_order.skipped) {
            if (isWithin(path, folder) && path != folder)
                within.push_back(path);
        }
        if (folder.empty() && isThere(m_volume, LostAndFound))
            within.emplace_back(LostAndFound);
        return within;
    }

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
    const ManifestOrder &m_order;
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
    if (!EvidenceWalk(order.scopes, style.format, style.folderForSorting, first).walk(log, copy)) {
        tell(withoutManifest({}, "what was digested cannot be read again"));
        return {};
    }
    SecondLook second(volume, first, order, tell);
    EvidenceWalk(order.scopes, style.format, style.folderForSorting, second).walk(log, copy);
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
