#include "duplicate/engine/MetadataKeeper.h"

#include "duplicate/engine/RunContext.h"
#include "duplicate/engine/Target.h"
#include "foundation/DisplayPath.h"

#include <cerrno>
#include <set>

namespace orvana
{

using platform::Keep;
using platform::Metadata;
using platform::Part;

namespace
{

// The volume has no links at all.
bool isUnknownKind(const platform::FileError &error)
{
    return error.code == EPERM || error.code == EOPNOTSUPP || error.code == ENOSYS;
}

} // namespace

Keep MetadataKeeper::keep() const
{
    return m_run.manner().keep;
}

bool MetadataKeeper::keepsAll() const
{
    return keep() == Keep::All;
}

void MetadataKeeper::readSource(const platform::File &from)
{
    m_inHand.reset();
    if (keep() == Keep::Nothing)
        return;
    if (auto read = from.metadata(keep()))
        m_inHand = std::move(*read);
}

void MetadataKeeper::applyTo(Target &target, platform::File &copy) const
{
    if (m_inHand)
        target.tally.note(copy.apply(*m_inHand, keep()));
}

void MetadataKeeper::applyToFolder(const std::string &source, const OutArray &copies)
{
    if (keep() == Keep::Nothing)
        return;
    const auto metadata = m_run.sources().metadata(source, keep());
    if (!metadata)
        return;
    m_run.forEachCopy(copies, [&](Target &target, const std::string &copy) {
        const auto missing = target.destination.applyToFolder(copy, *metadata, keep());
        // A folder that could not be made is told elsewhere.
        if (missing)
            target.tally.note(*missing);
    });
}

void MetadataKeeper::applyToFoldersAbove()
{
    const auto &root = m_run.job().SrcDiskPath;
    if (keep() == Keep::Nothing || root.empty())
        return;
    std::set<std::string> above;
    for (const auto &item : m_run.job().SrcFileArray) {
        if (!item.starts_with(root))
            continue;
        for (auto end = item.rfind('/'); end != std::string::npos && end > root.size();
             end = item.rfind('/', end - 1)) {
            if (!above.insert(item.substr(0, end)).second)
                break;
        }
    }
    // The innermost come first: the permissions of a folder may close the way to those in it.
    for (auto folder = above.rbegin(); folder != above.rend(); ++folder) {
        OutArray copies;
        for (const auto &target : m_run.targets())
            copies.emplace_back(m_run.copyOf(target, *folder));
        applyToFolder(*folder, copies);
    }
}

void MetadataKeeper::copyLink(const std::string &source, const OutArray &copies)
{
    m_run.startFile();
    m_run.postMessage("Duplicating " + displayPath(source));
    m_run.countStartedFile(0);
    if (auto *evidence = m_run.evidence())
        evidence->noteLeftOut(source);
    const auto text = m_run.sources().linkText(source);
    const auto metadata = m_run.sources().metadata(source, keep());
    m_run.forEachCopy(copies, [&](Target &target, const std::string &copy) {
        if (text && metadata)
            copyLinkTo(target, source, copy, *text, *metadata);
        else
            m_run.fileFailed(target, source,
                             "The link cannot be read: " + (text ? metadata.error() : text.error()).reason());
    });
}

void MetadataKeeper::copyLinkTo(Target &target, const std::string &source, const std::string &copy,
                                const std::string &text, const Metadata &metadata)
{
    const auto made = target.destination.makeLink(copy, text);
    if (!made && isUnknownKind(made.error())) {
        target.tally.note(Part::Link);
        return;
    }
    if (!made)
        return m_run.cannotDuplicate(target, source, made.error());
    if (const auto missing = target.destination.applyToFolder(copy, metadata, keep()))
        target.tally.note(*missing);
    ++target.tally.copied;
    if (!m_run.setup().verifyFiles())
        return;
    if (target.destination.linkText(copy) == text)
        ++target.tally.verified;
    else
        m_run.report().unverified(target.index, source, "The link does not hold the path that it was given");
}

} // namespace orvana
