#include "duplicate/engine/HardLinks.h"

#include "duplicate/engine/RunContext.h"
#include "duplicate/engine/SourceTime.h"

namespace orvana
{

using platform::FileProblem;
using platform::Part;

namespace
{

bool hasSeveralNames(const std::optional<platform::Attributes> &source)
{
    return source && source->links > 1;
}

} // namespace

void HardLinks::join(const std::string &source, const OutArray &copies)
{
    const auto &attributes = m_run.sourceInHand();
    if (!hasSeveralNames(attributes))
        return;
    const auto found = m_copied.find({attributes->device, attributes->inode});
    if (found == m_copied.end() || !isUnchanged(found->second.source, *attributes))
        return;
    m_run.forEachCopy(copies, [&](Target &target, const std::string &copy) {
        const auto &first = found->second.copies[target.index];
        if (!first || !joinOne(target, *first, copy, source))
            return;
        target.work = CopyWork::None;
        target.isFurtherName = true;
        target.isVerifiedBefore = false;
        target.digestBefore = found->second.digest;
    });
}

// Returns true if `name` is a name of the copy `first`.
bool HardLinks::joinOne(Target &target, const std::string &first, const std::string &name,
                        const std::string &source)
{
    auto &destination = target.destination;
    auto added = destination.addName(first, name);
    const auto place = destination.placeOf(name);
    if (!added && added.error().problem == FileProblem::Exists && place &&
        target.written.ownerOf(*destination.volume(), *place, source) != WrittenFiles::Owner::OtherSource &&
        destination.removeFile(name, m_run.sourceFiles()))
        added = destination.addName(first, name);
    if (added)
        target.copyInHand = *added;
    else
        target.tally.note(Part::HardLink);
    return added.has_value();
}

void HardLinks::note(const OutArray &copies)
{
    const auto &source = m_run.sourceInHand();
    if (!hasSeveralNames(source))
        return;
    const FolderIdentity key{source->device, source->inode};
    const auto [place, isNew] = m_copied.try_emplace(key);
    auto &copied = place->second;
    if (isNew) {
        copied.source = *source;
        copied.copies.resize(m_run.targets().size());
        if (const auto *evidence = m_run.evidence())
            copied.digest = std::string(nameOf(evidence->format())) + ":" + evidence->digest();
        m_run.forEachCopy(copies, [&](const Target &target, const std::string &copy) {
            if (target.isCopied && !target.hasFailed)
                copied.copies[target.index] = copy;
        });
    }
    if (++copied.names >= source->links)
        m_copied.erase(place);
}

} // namespace orvana
