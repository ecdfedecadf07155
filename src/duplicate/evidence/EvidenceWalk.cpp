#include "duplicate/evidence/EvidenceWalk.h"

#include "duplicate/evidence/MhlXml.h"
#include "duplicate/evidence/SortKey.h"

#include <algorithm>
#include <utility>

namespace orvana
{

namespace
{

std::string holderOf(const std::string &path)
{
    const auto slash = path.rfind('/');
    return slash == std::string::npos ? std::string() : path.substr(0, slash);
}

// Returns the path of the first name below the scope that a history cannot hold; nullopt if there is none.
// The folders above an entry may have no entry of their own.
std::optional<std::string> outermostBadName(const std::string &path, const std::string &scope)
{
    for (auto end = path.find('/', scope.empty() ? 0 : scope.size() + 1);; end = path.find('/', end + 1)) {
        auto part = path.substr(0, end);
        if (part.size() > scope.size() && !canBeInMhl(nameIn(part)))
            return part;
        if (end == std::string::npos)
            return std::nullopt;
    }
}

} // namespace

EvidenceWalk::EvidenceWalk(std::vector<std::string> scopes, DigestFormat format, std::string folderForSorting,
                           EvidenceVisitor &visitor)
    : m_scopes(std::move(scopes)), m_format(format), m_folderForSorting(std::move(folderForSorting)),
      m_visitor(visitor)
{
}

bool EvidenceWalk::walk(const EvidenceLog &log, std::size_t copy)
{
    EvidenceLog::Reader reader(log, copy);
    while (reader.next())
        visit(reader.entry(), reader.state());
    if (reader.hasFailed())
        return false; // what is open stays unfinished
    while (!m_levels.empty())
        leave();
    return true;
}

const std::string *EvidenceWalk::scopeOf(const std::string &path) const
{
    const auto found = std::find_if(m_scopes.begin(), m_scopes.end(),
                                    [&](const std::string &scope) { return isWithin(path, scope); });
    return found == m_scopes.end() ? nullptr : &*found;
}

void EvidenceWalk::visit(const EvidenceEntry &entry, CopyState state)
{
    const auto &path = entry.path;
    const auto *scope = scopeOf(path);
    if (!scope || (m_passedOver && isWithin(path, *m_passedOver)))
        return;
    m_passedOver.reset();
    leaveUntil(path);
    const auto bad = outermostBadName(path, *scope);
    if (path != *scope)
        enterParents(holderOf(bad.value_or(path)), *scope);
    if (bad) {
        m_passedOver = bad;
        m_levels.back().isWhole = false;
        return m_visitor.cannotBeListed(*bad, "its name is not UTF-8, or holds a control character");
    }
    if (path != *scope && m_visitor.isIgnored(path, entry.isFolder)) {
        m_passedOver = path;
        return;
    }
    if (state == CopyState::Bad && !m_levels.empty())
        m_levels.back().isWhole = false;
    if (entry.isFolder) {
        enter(path, *scope, entry.modified, state == CopyState::New);
        m_levels.back().isWhole = state != CopyState::Bad;
    } else if (state != CopyState::Bad) {
        ++m_levels.back().count;
        if (entry.format == m_format)
            m_levels.back().digest.addFile(nameIn(path), entry.digest);
        else
            m_levels.back().isWhole = false; // digests of several formats cannot be mixed
        m_visitor.file(entry);
    }
}

// A file may have been ticked without the folders above it, which then have no entry.
void EvidenceWalk::enterParents(const std::string &path, const std::string &scope)
{
    if (!m_levels.empty() && m_levels.back().path == path)
        return;
    if (path != scope)
        enterParents(holderOf(path), scope);
    enter(path, scope, 0, false);
}

void EvidenceWalk::enter(const std::string &path, const std::string &scope, std::int64_t modified, bool isNew)
{
    if (path != scope)
        ++m_levels.back().count;
    m_levels.push_back({path, FolderDigestMaker(m_format, m_folderForSorting), modified, 0, isNew, true});
    m_visitor.enters(path, isNew);
}

void EvidenceWalk::leaveUntil(const std::string &path)
{
    while (!m_levels.empty() && (path == m_levels.back().path || !isWithin(path, m_levels.back().path)))
        leave();
}

void EvidenceWalk::leave()
{
    auto level = std::move(m_levels.back());
    m_levels.pop_back();
    bool isKept = true;
    std::optional<FolderDigest> digest = level.digest.result(isKept);
    if (!isKept || !level.isWhole || (!level.isNew && !m_visitor.holdsOnly(level.path, level.count)))
        digest.reset();
    m_visitor.leaves(level.path, level.modified, digest);
    if (m_levels.empty())
        return;
    if (digest)
        m_levels.back().digest.addFolder(nameIn(level.path), *digest);
    else
        m_levels.back().isWhole = false;
}

} // namespace orvana
