#include "platform/posix/PosixFolder.h"

#include "platform/posix/FinderInfo.h"
#include "platform/posix/KeptMetadata.h"
#include "platform/posix/PathOpener.h"
#include "platform/posix/PosixFile.h"
#include "platform/posix/StatAttributes.h"
#include "platform/posix/VolumeTraits.h"

#include <cerrno>
#include <climits>
#include <cstdio>
#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

namespace orvana::platform::posix
{

namespace
{

struct CloseListing
{
    void operator()(DIR *listing) const { ::closedir(listing); }
};

std::string pathThroughDescriptor(int at, const std::string &name)
{
    return at == AT_FDCWD ? name : "/proc/self/fd/" + std::to_string(at) + "/" + name;
}

Expected<Attributes> basicsAt(int at, const std::string &name, Links links)
{
    struct stat status{};
    if (::fstatat(at, name.c_str(), &status, links == Links::Follow ? 0 : AT_SYMLINK_NOFOLLOW) != 0)
        return failure(errno);
    return attributesOf(status);
}

Expected<std::string> linkTextAt(int at, const std::string &name)
{
    std::string text(PATH_MAX, '\0');
    const auto length = ::readlinkat(at, name.c_str(), text.data(), text.size());
    if (length < 0)
        return failure(errno);
    text.resize(static_cast<std::size_t>(length));
    return text;
}

} // namespace

Expected<Attributes> PosixFolder::attributesFollowing(std::string_view path) const
{
    const auto opened = openPath(m_number, path, O_PATH, 0, m_reach);
    if (!opened)
        return tl::unexpected(opened.error());
    struct stat status{};
    if (::fstat(opened->number(), &status) != 0)
        return failure(errno);
    return attributesOf(status);
}

Expected<Attributes> PosixFolder::attributes(std::string_view path, Links links, Want want) const
{
    if (path.empty())
        path = ".";
    if (m_reach == Reach::Anywhere && path.size() < PATH_MAX) {
        const std::string name(path);
        auto read = basicsAt(m_number, name, links);
        if (read && want == Want::HiddenExtension)
            read->hiddenExtension = hasFlag(name);
        return read;
    }
    if (links == Links::Follow)
        return attributesFollowing(path);
    const auto entry = openHolder(m_number, path, m_reach);
    if (!entry)
        return tl::unexpected(entry.error());
    auto read = basicsAt(entry->at, entry->name, links);
    if (read && want == Want::HiddenExtension)
        read->hiddenExtension = hasHiddenExtension(pathThroughDescriptor(entry->at, entry->name).c_str());
    return read;
}

bool PosixFolder::hasFlag(const std::string &name) const
{
    if (!hasExtendedAttributes(m_number, name.c_str()).value_or(true))
        return false;
    if (name.front() == '/')
        return hasHiddenExtension(name.c_str());
    const auto path =
        m_absolutePath.empty() ? pathThroughDescriptor(m_number, name) : m_absolutePath + "/" + name;
    return hasHiddenExtension(path.c_str());
}

Expected<std::string> PosixFolder::realPath(std::string_view path) const
{
    const auto opened = openPath(m_number, path, O_PATH, 0, m_reach);
    if (!opened)
        return tl::unexpected(opened.error());
    return linkTextAt(AT_FDCWD, "/proc/self/fd/" + std::to_string(opened->number()));
}

Expected<NameList> PosixFolder::list(std::string_view path) const
{
    auto opened = openPath(m_number, path, O_RDONLY | O_DIRECTORY | O_NONBLOCK, 0, m_reach);
    if (!opened)
        return tl::unexpected(opened.error());
    const std::unique_ptr<DIR, CloseListing> listing(::fdopendir(opened->number()));
    if (!listing)
        return failure(errno);
    opened->release();
    NameList names;
    errno = 0;
    // NOLINTNEXTLINE(concurrency-mt-unsafe): the listing belongs to this call alone.
    while (const dirent *entry = ::readdir(listing.get())) {
        const std::string_view name(entry->d_name);
        if (name != "." && name != "..")
            names.add(name);
    }
    if (errno != 0)
        names.breakOff(fileError(errno));
    return names;
}

Expected<std::unique_ptr<Folder>> PosixFolder::openFolder(std::string_view path) const
{
    auto opened = openPath(m_number, path, O_RDONLY | O_DIRECTORY, 0, m_reach);
    // A folder that may be written but not listed is good enough for work on its entries.
    if (!opened && opened.error().code == EACCES)
        opened = openPath(m_number, path, O_PATH | O_DIRECTORY, 0, m_reach);
    if (!opened)
        return tl::unexpected(opened.error());
    const int number = opened->number();
    constexpr std::size_t LongestName = 255;
    const bool isShort = path.size() + LongestName + 1 < PATH_MAX;
    const bool isKnown = m_reach == Reach::Anywhere && path.starts_with('/') && isShort;
    return std::make_unique<PosixFolder>(std::move(*opened), number, m_reach, m_defaults,
                                         isKnown ? std::string(path) : std::string());
}

Expected<std::unique_ptr<File>> PosixFolder::openFile(std::string_view path, Access access) const
{
    const int mode = access == Access::Read ? O_RDONLY : access == Access::Write ? O_WRONLY : O_RDWR;
    // O_NONBLOCK is needed because opening a pipe without a partner would block the run forever.
    auto opened = openPath(m_number, path, mode | O_NONBLOCK | O_NOCTTY, 0, m_reach);
    if (!opened)
        return tl::unexpected(opened.error());
    struct stat status{};
    if (::fstat(opened->number(), &status) != 0)
        return failure(errno);
    if (!S_ISREG(status.st_mode))
        return failure(FileProblem::NotAFile);
    return std::make_unique<PosixFile>(std::move(*opened));
}

Expected<std::unique_ptr<File>> PosixFolder::createFile(std::string_view path, const Attributes &like) const
{
    const unsigned mode = newFileMode(like, m_defaults);
    auto opened = openPath(m_number, path, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_NONBLOCK,
                           mode & 0777U, m_reach);
    if (!opened)
        return tl::unexpected(opened.error());
    applyAttributes(opened->number(), like, mode, m_defaults);
    return std::make_unique<PosixFile>(std::move(*opened));
}

Expected<void> PosixFolder::makeFolder(std::string_view path, const Attributes &like) const
{
    const auto entry = openHolder(m_number, path, m_reach);
    if (!entry)
        return tl::unexpected(entry.error());
    const unsigned mode = newFolderMode(like, m_defaults) | OwnerRights;
    if (::mkdirat(entry->at, entry->name.c_str(), mode & 0777U) != 0)
        return failure(errno);
    const auto made = openPath(entry->at, entry->name, O_RDONLY | O_DIRECTORY | O_NOFOLLOW, 0, m_reach);
    if (!made)
        return tl::unexpected(made.error());
    applyAttributes(made->number(), like, mode, m_defaults);
    return {};
}

Expected<void> PosixFolder::finishFolder(std::string_view path, const Attributes &like) const
{
    const unsigned mode = newFolderMode(like, m_defaults);
    if ((mode | OwnerRights) == mode)
        return {};
    const auto opened = openPath(m_number, path, O_RDONLY | O_DIRECTORY | O_NOFOLLOW, 0, m_reach);
    if (!opened)
        return tl::unexpected(opened.error());
    struct stat status{};
    // This only removes permissions that `makeFolder` added. The file system may have refused others, so none
    // is set again.
    if (::fstat(opened->number(), &status) != 0 || ::fchmod(opened->number(), status.st_mode & mode) != 0)
        return failure(errno);
    return {};
}

Expected<void> PosixFolder::rename(std::string_view from, std::string_view to, Existing existing) const
{
    const auto source = openHolder(m_number, from, m_reach);
    if (!source)
        return tl::unexpected(source.error());
    const auto target = openHolder(m_number, to, m_reach);
    if (!target)
        return tl::unexpected(target.error());
    const char *const oldName = source->name.c_str();
    const char *const newName = target->name.c_str();
    if (existing == Existing::Keep) {
        if (::renameat2(source->at, oldName, target->at, newName, RENAME_NOREPLACE) == 0)
            return {};
        // Some file systems cannot refuse by themselves.
        if (errno != EINVAL && errno != ENOSYS)
            return failure(errno);
        if (basicsAt(target->at, target->name, Links::DoNotFollow))
            return failure(FileProblem::Exists);
    }
    if (::renameat(source->at, oldName, target->at, newName) != 0)
        return failure(errno);
    return {};
}

Expected<std::string> PosixFolder::linkText(std::string_view path) const
{
    const auto entry = openHolder(m_number, path, m_reach);
    if (!entry)
        return tl::unexpected(entry.error());
    return linkTextAt(entry->at, entry->name);
}

Expected<void> PosixFolder::makeLink(std::string_view path, const std::string &text) const
{
    const auto entry = openHolder(m_number, path, m_reach);
    if (!entry)
        return tl::unexpected(entry.error());
    if (::symlinkat(text.c_str(), entry->at, entry->name.c_str()) != 0)
        return failure(errno);
    return {};
}

Expected<void> PosixFolder::addName(std::string_view path, std::string_view name) const
{
    const auto file = openHolder(m_number, path, m_reach);
    if (!file)
        return tl::unexpected(file.error());
    const auto added = openHolder(m_number, name, m_reach);
    if (!added)
        return tl::unexpected(added.error());
    if (::linkat(file->at, file->name.c_str(), added->at, added->name.c_str(), 0) != 0)
        return failure(errno);
    return {};
}

Expected<Metadata> PosixFolder::metadata(std::string_view path, Keep keep) const
{
    const auto folder = openPath(m_number, path, O_RDONLY | O_DIRECTORY | O_NOFOLLOW, 0, m_reach);
    if (folder)
        return metadataOf(folder->number(), keep);
    const auto entry = openHolder(m_number, path, m_reach);
    if (!entry)
        return tl::unexpected(entry.error());
    return metadataOfLink(entry->at, entry->name.c_str());
}

Expected<MissingParts> PosixFolder::apply(std::string_view path, const Metadata &metadata, Keep keep) const
{
    const auto folder = openPath(m_number, path, O_RDONLY | O_DIRECTORY | O_NOFOLLOW, 0, m_reach);
    if (folder)
        return applyMetadata(folder->number(), metadata, keep);
    const auto entry = openHolder(m_number, path, m_reach);
    if (!entry)
        return tl::unexpected(entry.error());
    return applyToLink(entry->at, entry->name.c_str(), metadata, keep);
}

Expected<void> PosixFolder::remove(std::string_view path) const
{
    const auto entry = openHolder(m_number, path, m_reach);
    if (!entry)
        return tl::unexpected(entry.error());
    if (::unlinkat(entry->at, entry->name.c_str(), 0) == 0)
        return {};
    if (errno != EISDIR && errno != EPERM)
        return failure(errno);
    if (::unlinkat(entry->at, entry->name.c_str(), AT_REMOVEDIR) != 0)
        return failure(errno);
    return {};
}

Expected<void> PosixFolder::syncVolume()
{
    if (::syncfs(m_number) != 0)
        return failure(errno);
    return {};
}

VolumeTraits PosixFolder::traits() const
{
    return traitsOf(m_number);
}

Expected<std::uint64_t> PosixFolder::freeBytes() const
{
    struct statvfs system{};
    if (::fstatvfs(m_number, &system) != 0)
        return failure(errno);
    return std::uint64_t{system.f_bavail} * system.f_frsize;
}

} // namespace orvana::platform::posix
