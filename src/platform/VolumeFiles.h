#pragma once

#include "platform/FileError.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace orvana::platform
{

enum class FileType { Regular, Folder, SymbolicLink, Special };

/// What is known of a file or folder. A new entry made like it gets everything but size and time: a copy
/// carries its own.
struct Attributes
{
    static constexpr std::uint32_t Unknown = 0xFFFFFFFF; ///< owner or group; nothing is changed then

    FileType type = FileType::Regular;
    std::uint64_t size = 0; ///< bytes
    /// The twelve permission bits; a link has none of its own, and a new entry gets the process's default.
    std::optional<std::uint32_t> permissions;
    std::uint32_t owner = Unknown;
    std::uint32_t group = Unknown;
    std::int64_t modified = 0; ///< nanoseconds since 1970
    std::uint64_t device = 0;
    std::uint64_t inode = 0;
    std::uint64_t links = 1;      ///< names that the file has
    bool hiddenExtension = false; ///< read only where it is asked for
};

/// The permissions with search permission wherever there is read permission: those of a new folder.
constexpr std::uint32_t withSearch(std::uint32_t permissions)
{
    return permissions | (permissions & 0444U) >> 2U;
}

/// The owner's permissions on a new folder until the folder gets its final ones.
inline constexpr std::uint32_t OwnerRights = 0700;

enum class Links { Follow, DoNotFollow };
enum class Want { Basics, HiddenExtension };
enum class Access { Read, Write };

/// Names of a folder's entries, in the order of the file system, kept in one block of memory.
class NameList
{
public:
    void add(std::string_view name);
    bool empty() const { return m_next >= m_bytes.size(); }

    /// Takes the next name. Not to be called on an empty list; the view lives as long as the list.
    std::string_view takeNext();

    /// Why the listing broke off after the last of these names; nullopt for a complete one.
    const std::optional<FileError> &error() const { return m_error; }
    void breakOff(const FileError &error) { m_error = error; }

private:
    std::string m_bytes; // each name ends with a NUL, which no name holds
    std::optional<FileError> m_error;
    std::size_t m_next = 0;
};

/// An open regular file. Reading, writing and the calls on ranges may be made from several threads; `close`
/// comes last.
class File
{
public:
    /// As the length of a range: to the end of the file.
    static constexpr std::uint64_t ToTheEnd = 0;

    virtual ~File() = default;

    virtual Expected<Attributes> attributes() const = 0;

    /// Reads until `into` is full or the file ends; returns the bytes read, 0 at or beyond the end.
    virtual Expected<std::size_t> read(std::span<std::byte> into, std::uint64_t offset) = 0;

    /// Tells that the range will be read soon. Never fails.
    virtual void willRead(std::uint64_t offset, std::uint64_t length) = 0;

    /// Writes all of `bytes` at `offset`; the file grows as needed and is never shortened.
    virtual Expected<void> write(std::span<const std::byte> bytes, std::uint64_t offset) = 0;

    /// Sends the range on its way to the disk and returns without waiting for it.
    virtual Expected<void> startWriteOut(std::uint64_t offset, std::uint64_t length) = 0;

    /// Waits until the range is on the disk, as far as its data is concerned.
    virtual Expected<void> finishWriteOut(std::uint64_t offset, std::uint64_t length) = 0;

    /// Waits until the file's data is on the disk, by the file system's own sync.
    virtual Expected<void> sync() = 0;

    /// Forgets what memory holds of the range, so that the next read of it comes from the disk.
    virtual void dropCached(std::uint64_t offset, std::uint64_t length) = 0;

    /// True when memory was seen to hold nothing of the file, so that the next read comes from the disk.
    /// Pages that another process maps stay in memory.
    virtual bool isOutOfMemory() const = 0;

    /// Closes the file and tells what the file system says to it. The destructor closes silently.
    virtual Expected<void> close() = 0;
};

/// What a folder's file system can do.
struct VolumeTraits
{
    std::uint64_t device = 0;
    bool isMountRoot = false;             ///< the folder is the top of a mounted volume
    bool isReadOnly = false;              ///< the volume, or this mount of it, takes no writes
    bool readsBackFromDisk = false;       ///< cached pages can be dropped, so that a read shows the disk
    bool keepsSmallFilesInInodes = false; ///< reading such a file back shows its inode, which stays in memory
    bool hasStableInodes = false;         ///< a file keeps its inode number while it is closed
    bool needsFileSync = false; ///< a sync of the volume does not reach it; each file has to be synced
    bool isMemory = false;      ///< there is no disk beneath it
    bool writesOutInBackground = false; ///< holds written data in memory for a while
};

/// An open folder; everything is named by a path relative to it, of any length.
///
/// A folder opened with Reach::Beneath never lets a path out: a link that leads outside, a mount on the way
/// or ".." above it gives LeadsOutOfVolume. With Reach::Anywhere, links are followed wherever they lead and
/// an absolute path is taken as such. A folder may be used from several threads.
class Folder
{
public:
    virtual ~Folder() = default;

    virtual Expected<Attributes> attributes(std::string_view path, Links links, Want want) const = 0;

    /// The place of the file or folder: an absolute path without links.
    virtual Expected<std::string> realPath(std::string_view path) const = 0;

    /// Names without "." and "..". A listing that breaks off gives the names that were read, and their
    /// `error` says why there are no more.
    virtual Expected<NameList> list(std::string_view path) const = 0;

    virtual Expected<std::unique_ptr<Folder>> openFolder(std::string_view path) const = 0;

    /// Opens an existing regular file as it is; anything else gives NotAFile.
    virtual Expected<std::unique_ptr<File>> openFile(std::string_view path, Access access) const = 0;

    /// Creates an empty file with the permissions, owner, group and hidden-extension flag of `like`, as far
    /// as the system allows, and opens it for writing. Exists when anything, a link included, has the name.
    virtual Expected<std::unique_ptr<File>> createFile(std::string_view path,
                                                       const Attributes &like) const = 0;

    /// Creates one folder with the attributes of `like`, open to its owner until `finishFolder`, and with
    /// search permission wherever `like` has read permission.
    virtual Expected<void> makeFolder(std::string_view path, const Attributes &like) const = 0;

    /// Takes the owner's extra rights away again that `makeFolder` gave.
    virtual Expected<void> finishFolder(std::string_view path, const Attributes &like) const = 0;

    /// Waits until all of the folder's file system is on the disk. An error that came up since the folder
    /// was opened is told once.
    virtual Expected<void> syncVolume() = 0;

    virtual VolumeTraits traits() const = 0;

    /// Bytes that an ordinary user may still write.
    virtual Expected<std::uint64_t> freeBytes() const = 0;
};

enum class Reach { Beneath, Anywhere };

enum class Sharing { Shared, Exclusive };

/// Holds a folder against whoever wants to lock it in a way that does not go with this. It ends with the
/// object, and with the process at the latest.
class FolderLock
{
public:
    FolderLock() = default;
    virtual ~FolderLock() = default;
    FolderLock(const FolderLock &) = delete;
    FolderLock &operator=(const FolderLock &) = delete;
};

/// The files of the machine. Callable from any thread.
class VolumeFiles
{
public:
    virtual ~VolumeFiles() = default;

    /// Opens the folder at `path`, absolute or relative to the working folder, of any length.
    virtual Expected<std::unique_ptr<Folder>> openFolder(const std::string &path, Reach reach) = 0;

    /// Locks the folder against other runs, of this program and of all others on the machine. Never waits: a
    /// folder that somebody holds gives FileProblem::Busy. A folder that cannot be locked at all, by its file
    /// system or because it may not be read, gives a lock that keeps nobody away.
    virtual Expected<std::unique_ptr<FolderLock>> lockFolder(const std::string &path, Sharing sharing) = 0;

    /// The working folder, with Reach::Anywhere: the place from which sources are read.
    virtual Folder &workingFolder() = 0;
};

} // namespace orvana::platform
