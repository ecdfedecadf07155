#include "enclosures/DefinitionFolder.h"

#include "foundation/DisplayPath.h"
#include "platform/posix/BoundedRead.h"
#include "platform/posix/Descriptor.h"
#include "platform/posix/TransferAll.h"

#include <algorithm>
#include <cerrno>
#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace orvana::enclosures
{

namespace
{

using platform::posix::Descriptor;
template <class T>
using Expected = tl::expected<T, std::string>;

constexpr std::size_t LargestFile = 65'536;
constexpr std::size_t MostFiles = 64;

std::string reasonOf(int error)
{
    return std::generic_category().message(error);
}

bool isTrusted(const struct stat &status, Trust trust)
{
    return status.st_uid == 0 || (trust == Trust::RootOrUser && status.st_uid == ::geteuid());
}

/// Returns what is wrong with the owner or the permissions, or an empty text.
std::string weaknessOf(const struct stat &status, Trust trust)
{
    if (!isTrusted(status, trust))
        return "is not owned by root";
    // Others may add to a folder with the sticky bit, such as /tmp, but not replace what is in it.
    const bool isSticky = S_ISDIR(status.st_mode) && (status.st_mode & S_ISVTX) != 0;
    if ((status.st_mode & (S_IWGRP | S_IWOTH)) != 0 && !isSticky)
        return "can be written to by others than its owner";
    return {};
}

// Opens the folder step by step from the root, so that each folder on the way is the one that was checked.
Expected<Descriptor> openFolder(const std::string &path, Trust trust)
{
    Descriptor folder(::open("/", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    std::string place;
    for (std::size_t start = 1; folder.isOpen() && start < path.size();) {
        const auto end = std::min(path.find('/', start), path.size());
        const auto name = path.substr(start, end - start);
        place += "/" + name;
        start = end + 1;
        if (name.empty())
            continue;
        folder = Descriptor(
            ::openat(folder.number(), name.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
        if (!folder.isOpen() && errno == ENOENT)
            return Descriptor();
        struct stat status{};
        if (!folder.isOpen() || ::fstat(folder.number(), &status) != 0)
            return tl::unexpected(displayPath(place) + ": " + reasonOf(errno));
        if (const auto weakness = weaknessOf(status, trust); !weakness.empty())
            return tl::unexpected(displayPath(place) + " " + weakness + "; no definition in it counts");
    }
    return folder;
}

std::vector<std::string> fileNamesIn(const Descriptor &folder)
{
    std::vector<std::string> names;
    Descriptor own(::fcntl(folder.number(), F_DUPFD_CLOEXEC, 0));
    auto *list = own.isOpen() ? ::fdopendir(own.number()) : nullptr;
    if (!list)
        return names;
    own.release(); // closed with the list
    // NOLINTNEXTLINE(concurrency-mt-unsafe): no other thread has this list
    while (const auto *entry = ::readdir(list)) {
        const std::string name = static_cast<const char *>(entry->d_name);
        if (name.ends_with(".json") && name.front() != '.')
            names.push_back(name);
    }
    ::closedir(list);
    std::sort(names.begin(), names.end());
    return names;
}

Expected<std::string> readFile(const Descriptor &folder, const std::string &name, Trust trust)
{
    // Without O_NONBLOCK a FIFO would be waited for.
    const Descriptor file(
        ::openat(folder.number(), name.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    struct stat status{};
    if (!file.isOpen() || ::fstat(file.number(), &status) != 0)
        return tl::unexpected(errno == ELOOP ? "is a link" : reasonOf(errno));
    if (!S_ISREG(status.st_mode))
        return tl::unexpected(std::string("is not a regular file"));
    if (auto weakness = weaknessOf(status, trust); !weakness.empty())
        return tl::unexpected(std::move(weakness));
    auto text = platform::posix::readAtMost(file.number(), LargestFile);
    if (!text)
        return tl::unexpected(text.error().reason());
    if (!*text)
        return tl::unexpected(std::string("has more than 64 KiB"));
    return std::move(**text);
}

Expected<Definition> definitionIn(const Descriptor &folder, const std::string &name, Trust trust)
{
    auto id = name.substr(0, name.rfind('.'));
    if (!isDefinitionId(id))
        return tl::unexpected(std::string("must have a name of a-z, 0-9 and \"-\""));
    return readFile(folder, name, trust).and_then([&](const std::string &text) {
        return readDefinition(id, text);
    });
}

Expected<void> failed(const std::string &folder, const std::string &id, const std::string &reason)
{
    return tl::unexpected(displayPath(folder + "/" + id + ".json") + ": " + reason);
}

bool writeAll(const Descriptor &file, std::string_view text)
{
    const auto written = platform::posix::transferAll(text.size(), [&](std::size_t done) {
        return ::write(file.number(), text.data() + done, text.size() - done);
    });
    return written == text.size() && ::fsync(file.number()) == 0;
}

// Makes the folder and those above it that are missing.
bool makeFolders(const std::string &path)
{
    for (auto slash = path.find('/', 1); slash != std::string::npos; slash = path.find('/', slash + 1))
        ::mkdir(path.substr(0, slash).c_str(), 0755);
    return ::mkdir(path.c_str(), 0755) == 0 || errno == EEXIST;
}

} // namespace

DefinitionSet readDefinitions(const std::string &folder, Trust trust)
{
    DefinitionSet set;
    const auto opened = openFolder(folder, trust);
    if (!opened)
        set.problems.push_back(opened.error());
    if (!opened || !opened->isOpen())
        return set;
    auto names = fileNamesIn(*opened);
    if (names.size() > MostFiles) {
        set.problems.push_back(displayPath(folder) + " has more than 64 definitions; the rest do not count");
        names.resize(MostFiles);
    }
    for (const auto &name : names) {
        auto definition = definitionIn(*opened, name, trust);
        if (definition) {
            set.definitions.push_back(std::move(*definition));
            continue;
        }
        auto path = folder;
        path.append("/").append(name);
        set.problems.push_back(displayPath(path) + ": " + definition.error());
    }
    return set;
}

tl::expected<void, std::string> addDefinition(const std::string &folder, const Definition &definition)
{
    const auto &id = definition.id;
    if (!isDefinitionId(id))
        return failed(folder, displayPath(id), "must have a name of a-z, 0-9 and \"-\"");
    if (!makeFolders(folder))
        return failed(folder, id, reasonOf(errno));
    const auto place = openFolder(folder, Trust::RootOrUser);
    if (!place)
        return tl::unexpected(place.error());
    // The file has no name until it is whole.
    const Descriptor file(::openat(place->number(), ".", O_TMPFILE | O_WRONLY | O_CLOEXEC, 0644));
    if (!file.isOpen() || !writeAll(file, textOf(definition)) || ::fchmod(file.number(), 0644) != 0)
        return failed(folder, id, reasonOf(errno));
    const auto self = "/proc/self/fd/" + std::to_string(file.number());
    const auto name = id + ".json";
    if (::linkat(AT_FDCWD, self.c_str(), place->number(), name.c_str(), AT_SYMLINK_FOLLOW) != 0)
        return failed(folder, id, errno == EEXIST ? "is there already" : reasonOf(errno));
    ::fsync(place->number());
    return {};
}

tl::expected<void, std::string> removeDefinition(const std::string &folder, const std::string &id)
{
    if (!isDefinitionId(id))
        return failed(folder, displayPath(id), "must have a name of a-z, 0-9 and \"-\"");
    const auto place = openFolder(folder, Trust::RootOrUser);
    if (!place)
        return tl::unexpected(place.error());
    const auto name = id + ".json";
    if (!place->isOpen() || ::unlinkat(place->number(), name.c_str(), 0) != 0)
        return failed(folder, id, place->isOpen() ? reasonOf(errno) : reasonOf(ENOENT));
    return {};
}

} // namespace orvana::enclosures
