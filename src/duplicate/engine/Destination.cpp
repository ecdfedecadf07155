#include "duplicate/engine/Destination.h"

#include "duplicate/engine/SourceFiles.h"

#include <algorithm>
#include <cerrno>

namespace orvana
{

using platform::Access;
using platform::Attributes;
using platform::Expected;
using platform::File;
using platform::FileProblem;
using platform::Folder;

namespace
{

struct SplitPath
{
    std::string_view folder;
    std::string_view name;
};

SplitPath split(std::string_view path)
{
    const auto slash = path.rfind('/');
    if (slash == std::string_view::npos)
        return {std::string_view(), path};
    return {path.substr(0, slash), path.substr(slash + 1)};
}

bool isLeftOpen(const Attributes &folder, const Attributes &like)
{
    if (!folder.permissions || !like.permissions)
        return false;
    const auto final = platform::withSearch(*like.permissions);
    const auto open = final | platform::OwnerRights;
    return open != final && *folder.permissions == open;
}

} // namespace

Destination::Destination(platform::VolumeFiles &files, std::string root) : m_root(std::move(root))
{
    auto opened = files.openFolder(m_root, platform::Reach::Beneath);
    if (!opened) {
        m_openError = opened.error();
        return;
    }
    m_volume = std::make_unique<platform::DeepFolder>(std::move(*opened));
    m_traits = m_volume->traits();
    if (const auto own = m_volume->attributes(".", platform::Links::Follow, platform::Want::Basics))
        m_rootAttributes = *own;
}

bool Destination::isRoot(const Attributes &attributes) const
{
    return isOpen() && attributes.device == m_rootAttributes.device &&
           attributes.inode == m_rootAttributes.inode;
}

Expected<std::string_view> Destination::beneath(std::string_view path) const
{
    if (!m_volume)
        return tl::unexpected(m_openError);
    if (!path.starts_with(m_root))
        return platform::failure(FileProblem::LeadsOutOfVolume);
    path.remove_prefix(m_root.size());
    if (!path.empty() && path.front() != '/')
        return platform::failure(FileProblem::LeadsOutOfVolume);
    while (path.starts_with('/'))
        path.remove_prefix(1);
    return path;
}

Expected<Folder *> Destination::holderOf(std::string_view beneathPath)
{
    const auto folder = split(beneathPath).folder;
    if (folder.empty())
        return m_volume.get();
    if (m_holder && m_holderPath == folder)
        return m_holder.get();
    auto opened = m_volume->openFolder(folder);
    if (!opened)
        return tl::unexpected(opened.error());
    checkHolder();
    m_holder = std::move(*opened);
    m_holderPath = folder;
    return m_holder.get();
}

// Checks whether the folder in hand is still at its path. Called before another folder takes its place.
void Destination::checkHolder()
{
    if (!m_holder || m_moved)
        return;
    const auto there = m_volume->attributes(m_holderPath, platform::Links::Follow, platform::Want::Basics);
    const auto own = m_holder->attributes(".", platform::Links::Follow, platform::Want::Basics);
    if (own && (!there || there->device != own->device || there->inode != own->inode))
        m_moved = m_root + "/" + m_holderPath;
}

std::optional<std::string> Destination::movedFolder(Folder &anywhere)
{
    if (!m_volume)
        return std::nullopt;
    checkHolder();
    if (const auto deep = m_volume->movedFolder(); deep && !m_moved)
        m_moved = m_root + "/" + *deep;
    const auto there = anywhere.attributes(m_root, platform::Links::Follow, platform::Want::Basics);
    if (!there || !isRoot(*there))
        return m_root;
    return m_moved;
}

Expected<void> Destination::makeFolder(std::string_view beneathPath, const Attributes &like)
{
    const auto holder = holderOf(beneathPath);
    if (!holder)
        return tl::unexpected(holder.error());
    return (*holder)->makeFolder(split(beneathPath).name, like);
}

Expected<void> Destination::makeFolderWithParents(std::string_view beneathPath, const Attributes &like)
{
    Expected<void> made;
    for (std::size_t end = 0; end != beneathPath.size();) {
        end = std::min(beneathPath.find('/', end + 1), beneathPath.size());
        const auto folder = beneathPath.substr(0, end);
        made = makeFolder(folder, like);
        if (made)
            m_openToOwner.emplace_back(folder, like);
        else if (made.error().problem != FileProblem::Exists)
            break;
    }
    return made;
}

bool Destination::holds(const std::string &path) const
{
    const auto place = beneath(path);
    return place && m_volume->attributes(*place, platform::Links::Follow, platform::Want::Basics);
}

Expected<Destination::Made> Destination::createFolder(const std::string &path, const Attributes &like)
{
    const auto place = beneath(path);
    if (!place)
        return tl::unexpected(place.error());
    if (place->empty())
        return Made::Existed;
    auto made = makeFolder(*place, like);
    if (!made && made.error().problem == FileProblem::NotFound)
        made = makeFolderWithParents(*place, like);
    if (made)
        return Made::New;
    if (made.error().problem != FileProblem::Exists)
        return tl::unexpected(made.error());
    const auto there = m_volume->attributes(*place, platform::Links::Follow, platform::Want::Basics);
    if (there && there->type == platform::FileType::Folder)
        return isLeftOpen(*there, like) ? Made::LeftOpen : Made::Existed;
    return tl::unexpected(there ? platform::fileError(ENOTDIR) : there.error());
}

Expected<Destination::Made> Destination::createParent(const std::string &path, const Attributes &like)
{
    const auto place = beneath(path);
    if (!place)
        return tl::unexpected(place.error());
    const auto holder = holderOf(*place);
    if (holder)
        return Made::Existed;
    const auto folder = path.substr(0, path.rfind('/'));
    const bool hasFileAbove = holder.error().problem == FileProblem::NotAFolder && !holds(folder);
    // Only a missing folder is made. If the folder exists but cannot be opened, creating the file gives the
    // error.
    if (holder.error().problem != FileProblem::NotFound && !hasFileAbove)
        return Made::Existed;
    if (const auto made = makeFolderWithParents(split(*place).folder, like); !made)
        return tl::unexpected(made.error());
    return Made::New;
}

void Destination::finishFolder(const std::string &path, const Attributes &like)
{
    if (const auto place = beneath(path); place && !place->empty())
        (void)m_volume->finishFolder(*place, like);
}

Expected<Destination::Entry> Destination::entryOf(std::string_view path)
{
    const auto place = beneath(path);
    if (!place)
        return tl::unexpected(place.error());
    const auto holder = holderOf(*place);
    if (!holder)
        return tl::unexpected(holder.error());
    return Entry{*place, *holder, split(*place).name};
}

Expected<std::unique_ptr<File>> Destination::createFile(const std::string &path, const Attributes &like)
{
    const auto entry = entryOf(path);
    if (!entry)
        return tl::unexpected(entry.error());
    return entry->holder->createFile(entry->name, like);
}

Expected<std::unique_ptr<File>> Destination::openFile(const std::string &path, Access access)
{
    const auto entry = entryOf(path);
    if (!entry)
        return tl::unexpected(entry.error());
    auto opened = entry->holder->openFile(entry->name, access);
    // A link may lead out of its folder without leading out of the volume. So the path is tried again from
    // the volume.
    if (!opened && opened.error().problem == FileProblem::LeadsOutOfVolume)
        return m_volume->openFile(entry->place, access);
    return opened;
}

Expected<std::unique_ptr<File>> Destination::openExisting(const std::string &path,
                                                          const SourceFiles &sourceFiles, Access access)
{
    const auto place = beneath(path);
    if (!place)
        return tl::unexpected(place.error());
    const auto there = m_volume->attributes(*place, platform::Links::Follow, platform::Want::Basics);
    if (there && sourceFiles.mayBeSource(*m_volume, *place, *there))
        return platform::failure(FileProblem::OfSource);
    auto file = openFile(path, access);
    if (!file)
        return file;
    // Somebody may have put another file there meanwhile.
    const auto opened = (*file)->attributes();
    const bool isSame = there && opened && opened->device == there->device && opened->inode == there->inode;
    return isSame ? std::move(file) : tl::unexpected(platform::fileError(ESTALE));
}

Expected<Attributes> Destination::addName(const std::string &path, const std::string &name)
{
    const auto file = beneath(path);
    const auto added = beneath(name);
    if (!file || !added)
        return tl::unexpected((file ? added : file).error());
    const auto linked = m_volume->addName(*file, *added);
    if (!linked && linked.error().problem != FileProblem::Exists)
        return tl::unexpected(linked.error());
    const auto own = m_volume->attributes(*file, platform::Links::DoNotFollow, platform::Want::Basics);
    const auto there = m_volume->attributes(*added, platform::Links::DoNotFollow, platform::Want::Basics);
    if (!own || !there)
        return tl::unexpected((own ? there : own).error());
    if (own->device != there->device || own->inode != there->inode)
        return platform::failure(FileProblem::Exists);
    return there;
}

Expected<void> Destination::removeFile(const std::string &path, const SourceFiles &sourceFiles)
{
    const auto place = beneath(path);
    if (!place)
        return tl::unexpected(place.error());
    const auto there = m_volume->attributes(*place, platform::Links::DoNotFollow, platform::Want::Basics);
    if (!there)
        return tl::unexpected(there.error());
    const bool isFile = there->type == platform::FileType::Regular;
    if (!isFile && there->type != platform::FileType::SymbolicLink)
        return platform::failure(FileProblem::NotAFile);
    if (isFile && sourceFiles.mayBeSource(*m_volume, *place, *there))
        return platform::failure(FileProblem::OfSource);
    return m_volume->remove(*place);
}

void Destination::removeLink(const std::string &path)
{
    const auto place = beneath(path);
    if (!place || place->empty())
        return;
    const auto there = m_volume->attributes(*place, platform::Links::DoNotFollow, platform::Want::Basics);
    if (there && there->type == platform::FileType::SymbolicLink)
        (void)m_volume->remove(*place); // what then stands in the way is told when the entry is made
}

Expected<void> Destination::makeLink(const std::string &path, const std::string &text)
{
    const auto place = beneath(path);
    if (!place)
        return tl::unexpected(place.error());
    if (m_volume->linkText(*place) == text)
        return {};
    removeLink(path);
    return m_volume->makeLink(*place, text);
}

Expected<std::string> Destination::linkText(const std::string &path) const
{
    const auto place = beneath(path);
    return place ? m_volume->linkText(*place) : tl::unexpected(place.error());
}

Expected<platform::MissingParts>
Destination::applyToFolder(const std::string &path, const platform::Metadata &metadata, platform::Keep keep)
{
    const auto place = beneath(path);
    if (!place)
        return tl::unexpected(place.error());
    if (place->empty())
        return platform::MissingParts();
    return m_volume->apply(*place, metadata, keep);
}

void Destination::finishFolders()
{
    // The innermost folder comes first: the final permissions of a folder may close the way to the folders in
    // it.
    for (auto folder = m_openToOwner.rbegin(); m_volume && folder != m_openToOwner.rend(); ++folder)
        (void)m_volume->finishFolder(folder->first, folder->second);
    m_openToOwner.clear();
}

void Destination::close()
{
    finishFolders();
    m_holder.reset();
    if (m_volume)
        m_openError = platform::fileError(EBADF);
    m_volume.reset();
}

void Destination::expect(const std::optional<FolderIdentity> &identity)
{
    if (m_volume && identity != FolderIdentity{m_rootAttributes.device, m_rootAttributes.inode})
        refuse(platform::fileError(ESTALE));
}

void Destination::refuse(const platform::FileError &error)
{
    close();
    m_openError = error;
}

} // namespace orvana
