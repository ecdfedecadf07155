#pragma once

#include "platform/FileError.h"
#include "platform/Metadata.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace orvana::platform
{

enum class FileType { Regular, Folder, SymbolicLink, Special };

/// The facts that are known of a file or folder. A new entry that is made from these attributes gets the same
/// permissions, owner, group and hidden-extension flag, but not the same size and time.
struct Attributes
{
    static constexpr std::uint32_t Unknown = 0xFFFFFFFF; ///< owner or group is not known and not set

    FileType type = FileType::Regular;
    std::uint64_t size = 0;      ///< bytes
    std::uint64_t allocated = 0; ///< bytes of the disk; a file with holes takes less than its size
    /// The twelve permission bits. Nullopt for a link, which has no permissions of its own. A new entry
    /// without them gets the process's default.
    std::optional<std::uint32_t> permissions;
    std::uint32_t owner = Unknown;
    std::uint32_t group = Unknown;
    std::int64_t modified = 0; ///< nanoseconds since 1970
    std::int64_t changed = 0;  ///< when content or attributes changed last; nanoseconds since 1970
    std::uint64_t device = 0;
    std::uint64_t inode = 0;
    std::uint64_t links = 1;      ///< number of names that the file has
    bool hiddenExtension = false; ///< filled in only for Want::HiddenExtension
};

/// Returns the permissions with search permission added wherever there is read permission. New folders get
/// these permissions.
constexpr std::uint32_t withSearch(std::uint32_t permissions)
{
    return permissions | (permissions & 0444U) >> 2U;
}

/// The permissions that the owner has on a new folder until the folder gets its final permissions.
inline constexpr std::uint32_t OwnerRights = 0700;

enum class Links { Follow, DoNotFollow };
enum class Want { Basics, HiddenExtension };
enum class Access { Read, Write, ReadAndWrite };
enum class Existing { Keep, Replace };

/// Names of a folder's entries, in the order of the file system. They are kept in pieces of memory, each of
/// which is given back once its names were taken: a folder may have a million entries.
class NameList
{
public:
    void add(std::string_view name);
    bool empty() const { return m_pieces.empty() || (isPieceTaken() && m_piece + 1 == m_pieces.size()); }

    /// Takes the next name. The list must not be empty. The view is valid until the next call.
    std::string_view takeNext();

    /// Returns the name that `takeNext` would take. The list must not be empty.
    std::string_view next() const
    {
        return isPieceTaken() ? m_pieces[m_piece + 1].c_str() : m_pieces[m_piece].c_str() + m_next;
    }

    /// The reason why the listing broke off after the last of these names; nullopt for a complete listing.
    const std::optional<FileError> &error() const { return m_error; }
    void breakOff(const FileError &error) { m_error = error; }

private:
    bool isPieceTaken() const { return m_next >= m_pieces[m_piece].size(); }

    std::vector<std::string> m_pieces; // each name ends with a NUL, which no name contains
    std::optional<FileError> m_error;
    std::size_t m_piece = 0;
    std::size_t m_next = 0; // offset in the piece
};

/// A part of a file.
struct Range
{
    std::uint64_t offset = 0;
    std::uint64_t length = 0;

    bool operator==(const Range &) const = default;
};

/// An open regular file. Several threads may read, write and call the functions on ranges. `close` must be
/// the last call.
class File
{
public:
    /// As the length of a range, this value means: to the end of the file.
    static constexpr std::uint64_t ToTheEnd = 0;

    virtual ~File() = default;

    virtual Expected<Attributes> attributes() const = 0;

    /// Reads until `into` is full or the file ends. Returns the number of bytes read, which is 0 at or beyond
    /// the end.
    virtual Expected<std::size_t> read(std::span<std::byte> into, std::uint64_t offset) = 0;

    /// Announces that the range will be read soon. Never fails.
    virtual void willRead(std::uint64_t offset, std::uint64_t length) = 0;

    /// Writes all of `bytes` at `offset`. The file grows as needed and is never shortened.
    virtual Expected<void> write(std::span<const std::byte> bytes, std::uint64_t offset) = 0;

    /// Cuts the file to `size` bytes. A shorter file stays as it is.
    virtual Expected<void> cutTo(std::uint64_t size) = 0;

    /// Makes the file at least `size` bytes long. What is new reads as zeros, and is a hole where the volume
    /// can keep one.
    virtual Expected<void> growTo(std::uint64_t size) = 0;

    /// Returns the parts of the range that are not holes, in order. A volume that does not know its holes
    /// gives the whole range.
    virtual std::vector<Range> dataIn(const Range &range) const = 0;

    /// Makes the range a hole, which reads as zeros. Fails where the volume cannot do that, and leaves the
    /// file's length as it is.
    virtual Expected<void> makeHole(const Range &range) = 0;

    /// Returns what `keep` asks for.
    virtual Expected<Metadata> metadata(Keep keep) const = 0;

    /// Gives the file what `keep` asks for. Returns the parts that the volume did not take. Call it after the
    /// last write, which would change the date.
    virtual MissingParts apply(const Metadata &metadata, Keep keep) = 0;

    /// Starts writing the range to the disk and returns without waiting for it.
    virtual Expected<void> startWriteOut(std::uint64_t offset, std::uint64_t length) = 0;

    /// Waits until the data of the range is on the disk.
    virtual Expected<void> finishWriteOut(std::uint64_t offset, std::uint64_t length) = 0;

    /// Waits until the file's data is on the disk. Uses the file system's own sync of the file.
    virtual Expected<void> sync() = 0;

    /// Drops the range from the page cache, so that the next read of the range comes from the disk.
    virtual void dropCached(std::uint64_t offset, std::uint64_t length) = 0;

    /// True when a check found no page of the file in memory, so that the next read comes from the disk.
    /// Pages that another process maps stay in memory.
    virtual bool isOutOfMemory() const = 0;

    /// Closes the file and returns the file system's error, if there is one. The destructor closes the file
    /// without reporting an error.
    virtual Expected<void> close() = 0;
};

/// File systems with rules of their own for names and sizes.
enum class VolumeFamily {
    Unix,
    Fat,
    ExFat,
    HfsPlus,
    Unknown, ///< a program of the user keeps the files, and its rules are not known
};

/// The abilities of a folder's file system.
struct VolumeTraits
{
    std::uint64_t device = 0;
    bool isMountRoot = false;             ///< the folder is the top of a mounted volume
    bool isReadOnly = false;              ///< the volume, or this mount of it, accepts no writes
    bool readsBackFromDisk = false;       ///< cached pages can be dropped, so that a read comes from the disk
    bool keepsSmallFilesInInodes = false; ///< a small file is read from its inode, which stays in memory
    bool hasStableInodes = false;         ///< a file keeps its inode number while it is closed
    bool needsFileSync = false; ///< a sync of the volume does not reach the disk; each file must be synced
    bool isMemory = false;      ///< the files lie in memory; there is no disk
    VolumeFamily family = VolumeFamily::Unix;
    std::uint64_t blockSize = 4096;     ///< bytes; a file takes whole blocks
    bool writesOutInBackground = false; ///< holds written data in memory for a while
};

/// An open folder. All paths are relative to the folder and may have any length.
///
/// In a folder opened with Reach::Beneath, no path leads out of the folder: a link to the outside, a mount in
/// the path, or a ".." that leads above the folder gives LeadsOutOfVolume. With Reach::Anywhere, links are
/// followed wherever they lead, and an absolute path is used as it is. Several threads may use a folder.
class Folder
{
public:
    virtual ~Folder() = default;

    virtual Expected<Attributes> attributes(std::string_view path, Links links, Want want) const = 0;

    /// Returns the absolute path of the file or folder, without links.
    virtual Expected<std::string> realPath(std::string_view path) const = 0;

    /// Returns the names of the entries, without "." and "..". If the listing breaks off, returns the names
    /// that were read, and their `error` gives the reason.
    virtual Expected<NameList> list(std::string_view path) const = 0;

    virtual Expected<std::unique_ptr<Folder>> openFolder(std::string_view path) const = 0;

    /// Opens an existing regular file and leaves it unchanged. Any other kind of entry gives NotAFile.
    virtual Expected<std::unique_ptr<File>> openFile(std::string_view path, Access access) const = 0;

    /// Creates an empty file with the permissions, owner, group and hidden-extension flag of `like`, as far
    /// as the system allows, and opens it for writing. Gives Exists when any entry, even a link, has the
    /// name.
    virtual Expected<std::unique_ptr<File>> createFile(std::string_view path,
                                                       const Attributes &like) const = 0;

    /// Creates one folder with the attributes of `like`, and with search permission wherever `like` has read
    /// permission. Until `finishFolder`, the owner has all permissions on the folder.
    virtual Expected<void> makeFolder(std::string_view path, const Attributes &like) const = 0;

    /// Removes the extra permissions that `makeFolder` gave to the owner.
    virtual Expected<void> finishFolder(std::string_view path, const Attributes &like) const = 0;

    /// Gives the entry `from` the name `to`, in one step as far as the file system can. With Existing::Keep
    /// gives Exists when any entry has the name `to`. A link itself is renamed, not what it leads to.
    virtual Expected<void> rename(std::string_view from, std::string_view to, Existing existing) const = 0;

    /// Returns the path that a link holds. Any other kind of entry gives an error.
    virtual Expected<std::string> linkText(std::string_view path) const = 0;

    /// Makes a symbolic link that holds the path `text`. Gives Exists when any entry has the name.
    virtual Expected<void> makeLink(std::string_view path, const std::string &text) const = 0;

    /// Gives the file `path` the further name `name`. Gives Exists when any entry has the name.
    virtual Expected<void> addName(std::string_view path, std::string_view name) const = 0;

    /// Returns what `keep` asks for of a folder or link. A link is not followed.
    virtual Expected<Metadata> metadata(std::string_view path, Keep keep) const = 0;

    /// Gives a folder or link what `keep` asks for. Returns the parts that the volume did not take.
    virtual Expected<MissingParts> apply(std::string_view path, const Metadata &metadata,
                                         Keep keep) const = 0;

    /// Removes a file, a link or an empty folder.
    virtual Expected<void> remove(std::string_view path) const = 0;

    /// Waits until the whole file system of the folder is on the disk. Reports once an error that occurred
    /// since the folder was opened.
    virtual Expected<void> syncVolume() = 0;

    virtual VolumeTraits traits() const = 0;

    /// Returns the number of bytes that an ordinary user may still write.
    virtual Expected<std::uint64_t> freeBytes() const = 0;
};

enum class Reach { Beneath, Anywhere };

enum class Sharing { Shared, Exclusive };

/// A lock on a folder. It keeps others from taking a lock on the folder that conflicts with it. The lock ends
/// with the object, and with the process at the latest.
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

    /// Opens the folder at `path`, which is absolute or relative to the working folder, and may have any
    /// length.
    virtual Expected<std::unique_ptr<Folder>> openFolder(const std::string &path, Reach reach) = 0;

    /// Locks the folder against other runs of this program and of all other programs on the machine. Never
    /// waits: gives FileProblem::Busy when another run holds a conflicting lock. If the folder cannot be
    /// locked at all, because of its file system or because it may not be read, returns a lock that keeps
    /// nobody away.
    virtual Expected<std::unique_ptr<FolderLock>> lockFolder(const std::string &path, Sharing sharing) = 0;

    /// Returns the working folder, with Reach::Anywhere. Sources are read from it.
    virtual Folder &workingFolder() = 0;
};

} // namespace orvana::platform
