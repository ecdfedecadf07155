#pragma once

#include "duplicate/engine/CopyJob.h"
#include "platform/VolumeFiles.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace orvana
{

class SourceFiles;

/// One destination volume, held open for a run: everything is written beneath it and nowhere else.
///
/// Paths are the full ones that the run builds, destination root first; one that does not lie beneath the
/// root gives LeadsOutOfVolume. Opening and creating are used by one thread at a time.
class Destination
{
public:
    /// Opens the volume; `isOpen` tells whether that went well. If not, every other function fails with
    /// the reason.
    Destination(platform::VolumeFiles &files, std::string root);

    /// Closes what it finished opening; see `close`.
    ~Destination() { close(); }
    Destination(Destination &&) = default;
    Destination &operator=(Destination &&) = delete;

    /// Refuses to work on another folder than this: what was checked may be gone, and its path may lead to
    /// the system disk's own folder by now.
    void expect(const std::optional<FolderIdentity> &identity);

    /// Closes the volume; from now on every function fails with this error.
    void refuse(const platform::FileError &error);

    const std::string &root() const { return m_root; }
    bool isOpen() const { return m_volume != nullptr; }
    const platform::FileError &openError() const { return m_openError; }
    const platform::VolumeTraits &traits() const { return m_traits; }
    platform::Folder *volume() { return m_volume.get(); }

    /// True when `attributes` are those of the destination's own root folder.
    bool isRoot(const platform::Attributes &attributes) const;

    /// True when anything exists at `path`, links followed.
    bool holds(const std::string &path) const;

    enum class Made {
        New,
        Existed,
        LeftOpen, ///< it existed with exactly the permissions that a run leaves which ends in its midst
    };

    /// Makes a folder and the missing ones above it, all like `like`. Whatever has the name already stays; if
    /// it is no folder, that is the error. `finishFolder` gives new and left-open folders their final
    /// permissions.
    platform::Expected<Made> createFolder(const std::string &path, const platform::Attributes &like);

    /// Makes the folder that is to hold `path`, if it does not exist.
    platform::Expected<Made> createParent(const std::string &path, const platform::Attributes &like);

    /// Ends the time in which the folder made by `createFolder` is open to its owner, whatever its
    /// permissions say.
    void finishFolder(const std::string &path, const platform::Attributes &like);

    /// The same for all folders that were made above another.
    void finishFolders();

    platform::Expected<std::unique_ptr<platform::File>> createFile(const std::string &path,
                                                                   const platform::Attributes &like);
    platform::Expected<std::unique_ptr<platform::File>> openFile(const std::string &path,
                                                                 platform::Access access);

    /// The path of a folder, the root included, that is not where it was any more: what was written through
    /// its handle lies elsewhere. Nullopt when all are in their place. `anywhere` looks the root up.
    std::optional<std::string> movedFolder(platform::Folder &anywhere);

    /// The path beneath the volume; fails for one that lies elsewhere.
    platform::Expected<std::string_view> placeOf(const std::string &path) const { return beneath(path); }

    /// Opens an existing file for writing, unless it is, or may be, a file of the source.
    platform::Expected<std::unique_ptr<platform::File>> openExisting(const std::string &path,
                                                                     const SourceFiles &sourceFiles);

    /// Protects its folders and closes the volume; afterwards nothing of it is held open.
    void close();

private:
    platform::Expected<std::string_view> beneath(std::string_view path) const;
    void checkHolder();
    platform::Expected<platform::Folder *> holderOf(std::string_view beneathPath);

    /// A file or folder of the volume: its place below the top, the open folder that holds it, its name
    /// there.
    struct Entry
    {
        std::string_view place;
        platform::Folder *holder;
        std::string_view name;
    };
    platform::Expected<Entry> entryOf(std::string_view path);
    platform::Expected<void> makeFolder(std::string_view beneathPath, const platform::Attributes &like);
    platform::Expected<void> makeFolderWithParents(std::string_view beneathPath,
                                                   const platform::Attributes &like);

    std::string m_root;
    platform::FileError m_openError;
    std::unique_ptr<platform::Folder> m_volume;
    platform::VolumeTraits m_traits;
    platform::Attributes m_rootAttributes;

    // The folder used last: files come folder by folder, and finding one is dearer than keeping it.
    std::string m_holderPath;
    std::unique_ptr<platform::Folder> m_holder;
    std::optional<std::string> m_moved;

    std::vector<std::pair<std::string, platform::Attributes>> m_openToOwner;
};

} // namespace orvana
