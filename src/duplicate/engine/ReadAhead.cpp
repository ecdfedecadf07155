#include "duplicate/engine/ReadAhead.h"

#include "duplicate/engine/SourceTime.h"

#include <algorithm>
#include <utility>

namespace orvana
{

using platform::Access;
using platform::FileType;
using platform::Links;
using platform::Want;

namespace
{

// Of larger files, opening and reading the first bytes is a small part of the work. A file of a whole block
// is not small: it is copied block by block.
constexpr std::size_t Room = std::min(std::size_t{256} * 1024, BlockSize);

} // namespace

void ReadAhead::read()
{
    m_path = std::exchange(m_planned, std::string());
    m_source.reset();
    const auto entry = m_sources.attributes(m_path, Links::DoNotFollow, Want::HiddenExtension);
    if (!entry || entry->type != FileType::Regular || entry->size >= Room || entry->links > 1)
        return; // a further name of a file may need no reading
    auto file = m_sources.openFile(m_path, Access::Read);
    if (!file)
        return;
    const auto opened = (*file)->attributes();
    // A file that may change without showing it is waited for at its turn.
    if (!opened || mayChangeUnseen(*opened))
        return;
    auto &block = m_blocks[m_spare];
    if (!block)
        block = std::make_unique_for_overwrite<std::byte[]>(Room);
    const auto count = (*file)->read({block.get(), Room}, 0);
    if (!count || *count == Room)
        return;
    m_source = Source{*entry, *opened, std::move(*file), {block.get(), *count}};
    m_spare = 1 - m_spare;
}

std::optional<platform::Attributes> ReadAhead::entryAt(const std::string &path) const
{
    return m_source && m_path == path ? std::optional(m_source->entry) : std::nullopt;
}

std::optional<ReadAhead::Source> ReadAhead::take(const std::string &path)
{
    auto source = std::exchange(m_source, std::nullopt);
    return m_path == path ? std::move(source) : std::nullopt;
}

} // namespace orvana
