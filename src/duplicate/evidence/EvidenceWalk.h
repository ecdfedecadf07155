#pragma once

#include "duplicate/evidence/EvidenceLog.h"
#include "duplicate/evidence/FolderDigests.h"

#include <optional>
#include <string>
#include <vector>

namespace orvana
{

/// What an `EvidenceWalk` calls on its way. Paths are those of the entries.
class EvidenceVisitor
{
public:
    virtual ~EvidenceVisitor() = default;

    /// A folder whose content comes next. `isNew` is true if it was made for this copy, so that nothing else
    /// can be in it.
    virtual void enters(const std::string &folder, bool isNew) = 0;

    /// A file that counts as done.
    virtual void file(const EvidenceEntry &file) = 0;

    /// True if the history around the file or folder leaves it out. Nothing below it is visited then.
    virtual bool isIgnored(const std::string &path, bool isFolder) = 0;

    /// A file or folder that cannot be in a history, for `reason`. Nothing below it is visited.
    virtual void cannotBeListed(const std::string &path, const std::string &reason) = 0;

    /// True if the folder on the disk has `count` entries and no others.
    virtual bool holdsOnly(const std::string &folder, std::size_t count) = 0;

    /// All content of the folder has been visited. `digest` is missing when something in it does not count as
    /// done, is not listed, or is not of this copy. `modified` is in seconds since 1970, 0 if not known.
    virtual void leaves(const std::string &folder, std::int64_t modified,
                        const std::optional<FolderDigest> &digest) = 0;
};

/// Walks through the entries of one copy and makes the digests of the folders, as ASC MHL wants them: without
/// what the histories leave out.
class EvidenceWalk
{
public:
    /// Visits the entries within `scopes`, folders that do not lie within each other.
    EvidenceWalk(std::vector<std::string> scopes, DigestFormat format, std::string folderForSorting,
                 EvidenceVisitor &visitor);

    /// Visits everything. Returns false when the log could not be read to its end.
    bool walk(const EvidenceLog &log, std::size_t copy);

private:
    struct Level
    {
        std::string path;
        FolderDigestMaker digest;
        std::int64_t modified = 0;
        std::size_t count = 0; ///< entries that count as done
        bool isNew = false;
        bool isWhole = true;
    };

    void visit(const EvidenceEntry &entry, CopyState state);
    const std::string *scopeOf(const std::string &path) const;
    void enter(const std::string &path, const std::string &scope, std::int64_t modified, bool isNew);
    void enterParents(const std::string &path, const std::string &scope);
    void leaveUntil(const std::string &path);
    void leave();

    std::vector<std::string> m_scopes;
    DigestFormat m_format;
    std::string m_folderForSorting;
    EvidenceVisitor &m_visitor;
    std::vector<Level> m_levels;
    std::optional<std::string> m_passedOver;
};

} // namespace orvana
