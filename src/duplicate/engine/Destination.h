#pragma once

#include "duplicate/engine/CopyJob.h"
#include "platform/DeepFolder.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace orvana
{

class SourceFiles;

/// One destination volume, held open for a run. Everything is written beneath it and nowhere else.
///
/// Paths are the full paths that the run builds; they begin with the destination's root. A path that does not
/// lie beneath the root gives LeadsOutOfVolume. Only one thread at a time may open and create.
class Destination
{
public:
    /// Opens the volume. If that fails, `isOpen` returns false, and every other function fails with the
    /// reason.
    Destination(platform::VolumeFiles &files, std::string root);

    /// Calls `close`.
    ~Destination() { close(); }
    Destination(Destination &&) = default;
    Destination &operator=(Destination &&) = delete;

    /// Refuses the volume if its root is not the folder `identity`. The folder that was checked may be gone,
    /// and its path may by now lead to a folder of the system disk.
    void expect(const std::optional<FolderIdentity> &identity);

    /// Closes the volume. From now on every function fails with this error.
    void refuse(const platform::FileError &error);

    const std::string &root() const { return m_root; }
    bool isOpen() const { return m_volume != nullptr; }
    const platform::FileError &openError() const { return m_openError; }
    const platform::VolumeTraits &traits() const { return m_traits; }
    platform::Folder *volume() { return m_volume.get(); }

    /// True when `attributes` are those of the destination's own root folder.
    bool isRoot(const platform::Attributes &attributes) const;

    /// True when anything exists at `path`. Links are followed.
    bool holds(const std::string &path) const;

    enum class Made {
        New,
        Existed,
        LeftOpen, ///< it existed with exactly the permissions that an interrupted run leaves
    };

    /// Makes a folder and the missing folders above it, all with the attributes `like`. Anything that already
    /// has the name stays as it is; if it is no folder, that is an error. `finishFolder` gives new and
    /// left-open folders their final permissions.
    platform::Expected<Made> createFolder(const std::string &path, const platform::Attributes &like);

    /// Makes the folder that will hold `path`, if it does not exist.
    platform::Expected<Made> createParent(const std::string &path, const platform::Attributes &like);

    /// Gives a folder made by `createFolder` its final permissions. Until then its owner may write to it.
    void finishFolder(const std::string &path, const platform::Attributes &like);

    /// Gives their final permissions to all folders that were made because they were missing on the way to
    /// another item.
    void finishFolders();

    platform::Expected<std::unique_ptr<platform::File>> createFile(const std::string &path,
                                                                   const platform::Attributes &like);
    platform::Expected<std::unique_ptr<platform::File>> openFile(const std::string &path,
                                                                 platform::Access access);

    /// Returns the path of a folder, possibly the root, that is no longer where it was: files written through
    /// its handle lie elsewhere. Returns nullopt when all folders are in their place. `anywhere` is used to
    /// look up the root.
    std::optional<std::string> movedFolder(platform::Folder &anywhere);

    /// Returns the path relative to the root. Fails for a path that does not lie beneath the root.
    platform::Expected<std::string_view> placeOf(const std::string &path) const { return beneath(path); }

    /// Opens an existing file, unless it is, or may be, a file of the source.
    platform::Expected<std::unique_ptr<platform::File>>
    openExisting(const std::string &path, const SourceFiles &sourceFiles, platform::Access access);

    /// Gives the file at `path` the further name `name`, and returns what is known of it. An entry that is
    /// that file already counts as done. Gives Exists for any other.
    platform::Expected<platform::Attributes> addName(const std::string &path, const std::string &name);

    /// Removes the regular file or link at `path`, unless it is, or may be, a file of the source.
    platform::Expected<void> removeFile(const std::string &path, const SourceFiles &sourceFiles);

    /// Removes what is at `path` if it is a link.
    void removeLink(const std::string &path);

    /// Makes a link that holds the path `text`, and replaces a link that is there.
    platform::Expected<void> makeLink(const std::string &path, const std::string &text);

    /// Returns the path that a link holds.
    platform::Expected<std::string> linkText(const std::string &path) const;

    /// Gives a folder or link what `keep` asks for. Returns the parts that the volume did not take.
    platform::Expected<platform::MissingParts>
    applyToFolder(const std::string &path, const platform::Metadata &metadata, platform::Keep keep);

    /// Gives its folders their final permissions and closes the volume. Afterwards nothing of it is held
    /// open.
    void close();

private:
    platform::Expected<std::string_view> beneath(std::string_view path) const;
    void checkHolder();
    platform::Expected<platform::Folder *> holderOf(std::string_view beneathPath);

    /// A file or folder of the volume: its path below the root, the open folder that holds it, and its name
    /// in that folder.
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
    std::unique_ptr<platform::DeepFolder> m_volume;
    platform::VolumeTraits m_traits;
    platform::Attributes m_rootAttributes;

    // The folder used last. Files come folder by folder, and opening a folder costs more than keeping it
    // open.
    std::string m_holderPath;
    std::unique_ptr<platform::Folder> m_holder;
    std::optional<std::string> m_moved;

    std::vector<std::pair<std::string, platform::Attributes>> m_openToOwner;
};

} // namespace orvana
