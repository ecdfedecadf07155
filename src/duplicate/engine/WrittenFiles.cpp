#include "duplicate/engine/WrittenFiles.h"

#include <functional>
#include <roaring/roaring64map.hh>

// Later versions of the library use this namespace. Earlier versions do not declare it.
namespace roaring
{
}

namespace orvana
{

using namespace roaring;

using platform::Attributes;
using platform::FileType;
using platform::Folder;
using platform::Links;
using platform::Want;

namespace
{

std::size_t hashOf(std::string_view text)
{
    return std::hash<std::string_view>()(text);
}

std::string_view folderOf(std::string_view path)
{
    const auto slash = path.rfind('/');
    return slash == std::string_view::npos ? std::string_view(".") : path.substr(0, slash);
}

std::string_view nameOf(std::string_view path)
{
    return path.substr(path.rfind('/') + 1); // without a slash, this is the whole path
}

} // namespace

/// A set of inode numbers that takes a few bits for each.
struct WrittenFiles::Inodes
{
    Roaring64Map numbers;
};

WrittenFiles::WrittenFiles() = default;
WrittenFiles::~WrittenFiles() = default;
WrittenFiles::WrittenFiles(WrittenFiles &&) noexcept = default;
WrittenFiles &WrittenFiles::operator=(WrittenFiles &&) noexcept = default;

WrittenFiles::Owner WrittenFiles::ownerOf(const Folder &volume, std::string_view path,
                                          std::string_view source)
{
    const auto file = volume.attributes(path, Links::Follow, Want::Basics);
    const auto entry = volume.attributes(path, Links::DoNotFollow, Want::Basics);
    if (!file || !entry)
        return Owner::Nobody;
    const auto written = m_inodes.find(file->device);
    const bool isWritten = written != m_inodes.end() && written->second->numbers.contains(file->inode);
    if (!volume.traits().hasStableInodes) {
        // Inode numbers come and go on such a volume. A name that is not in the folder's list exactly like
        // this is another name of an existing file, and this run may have written that file.
        return isExactName(volume, folderOf(path), nameOf(path)) && entry->type != FileType::SymbolicLink
                   ? (isWritten ? Owner::SameSource : Owner::Nobody)
                   : Owner::OtherSource;
    }
    if (!isWritten)
        return Owner::Nobody;
    if (entry->type == FileType::SymbolicLink)
        return Owner::OtherSource;
    if (const auto known = m_sourcesOfManyNamed.find(file->inode); known != m_sourcesOfManyNamed.end())
        return known->second == hashOf(source) ? Owner::SameSource : Owner::OtherSource;
    // Each place on the destination belongs to one source. So a file with a single name belongs to this
    // source, if `path` is that name.
    return isExactName(volume, folderOf(path), nameOf(path)) ? Owner::SameSource : Owner::OtherSource;
}

void WrittenFiles::add(const Attributes &file, std::string_view source)
{
    auto &inodes = m_inodes[file.device];
    if (!inodes)
        inodes = std::make_unique<Inodes>();
    inodes->numbers.add(file.inode);
    if (file.links > 1)
        m_sourcesOfManyNamed[file.inode] = hashOf(source);
}

bool WrittenFiles::isExactName(const Folder &volume, std::string_view folder, std::string_view name)
{
    const auto hash = hashOf(name);
    if (m_hasFolder && m_folder == folder && m_names.contains(hash))
        return true;
    // The name may have been added since the folder was read.
    readNames(volume, folder);
    return m_names.contains(hash);
}

void WrittenFiles::readNames(const Folder &volume, std::string_view folder)
{
    m_names.clear();
    m_folder = folder;
    m_hasFolder = true;
    auto names = volume.list(folder);
    while (names && !names->empty())
        m_names.insert(hashOf(names->takeNext()));
}

std::string WrittenFiles::otherNameOf(const Folder &volume, std::string_view path)
{
    const auto file = volume.attributes(path, Links::Follow, Want::Basics);
    auto names = volume.list(folderOf(path));
    while (file && names && !names->empty()) {
        const std::string name(names->takeNext());
        if (name == nameOf(path))
            continue;
        const auto other =
            volume.attributes(std::string(folderOf(path)) + "/" + name, Links::DoNotFollow, Want::Basics);
        if (other && other->device == file->device && other->inode == file->inode)
            return name;
    }
    return {};
}

} // namespace orvana
