#pragma once

#include "platform/VolumeFiles.h"

#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvana::platform
{

/// A folder whose deepest entries are as near as all others.
///
/// The system walks through every name of a path, so an entry below 30,000 folders costs 30,000 steps each
/// time. Here the folders on the way to the last long path stay open, some hundred bytes of path apart, and
/// the next path begins at the nearest of them. Paths of ordinary length go to the folder itself, as without
/// this class.
///
/// A folder that stays open is used even when somebody moves it meanwhile; `movedFolder` tells. Errors are
/// those of the folder. Several threads may use it.
class DeepFolder final : public Folder
{
public:
    explicit DeepFolder(std::unique_ptr<Folder> folder) : m_own(std::move(folder)), m_start(*m_own) {}

    /// `folder` must outlive this object.
    explicit DeepFolder(Folder &folder) : m_start(folder) {}

    /// Returns the path of a folder that stayed open and is no longer where it was; nullopt if there was none
    /// since the beginning.
    std::optional<std::string> movedFolder();

    Expected<Attributes> attributes(std::string_view path, Links links, Want want) const override;
    Expected<std::string> realPath(std::string_view path) const override;
    Expected<NameList> list(std::string_view path) const override;
    Expected<std::unique_ptr<Folder>> openFolder(std::string_view path) const override;
    Expected<std::unique_ptr<File>> openFile(std::string_view path, Access access) const override;
    Expected<std::unique_ptr<File>> createFile(std::string_view path, const Attributes &like) const override;
    Expected<void> makeFolder(std::string_view path, const Attributes &like) const override;
    Expected<void> finishFolder(std::string_view path, const Attributes &like) const override;
    Expected<std::string> linkText(std::string_view path) const override;
    Expected<void> makeLink(std::string_view path, const std::string &text) const override;
    Expected<Metadata> metadata(std::string_view path, Keep keep) const override;
    Expected<MissingParts> apply(std::string_view path, const Metadata &metadata, Keep keep) const override;
    Expected<void> remove(std::string_view path) const override;

    // Entries of two paths, and the volume as a whole, are asked of the folder itself.
    Expected<void> rename(std::string_view from, std::string_view to, Existing existing) const override
    {
        return m_start.rename(from, to, existing);
    }
    Expected<void> addName(std::string_view path, std::string_view name) const override
    {
        return m_start.addName(path, name);
    }
    Expected<void> syncVolume() override { return m_start.syncVolume(); }
    VolumeTraits traits() const override { return m_start.traits(); }
    Expected<std::uint64_t> freeBytes() const override { return m_start.freeBytes(); }

private:
    /// A folder on the way to the last long path.
    struct Step
    {
        std::size_t length; ///< of its path, as the beginning of `m_path`
        std::shared_ptr<Folder> folder;
    };

    /// A folder to begin at, and the rest of the path.
    struct Place
    {
        std::shared_ptr<Folder> step; ///< empty for the folder itself
        std::string_view rest;
    };

    Place nearest(std::string_view path) const;
    void leaveStepsBeside(std::string_view path) const;
    void thinOut() const;
    void checkStep(std::size_t index) const;
    const Folder &folderBefore(std::size_t index) const;
    std::size_t lengthBefore(std::size_t index) const;
    template <typename Ask>
    auto asked(std::string_view path, Ask ask) const;

    std::unique_ptr<Folder> m_own;
    Folder &m_start;

    mutable std::mutex m_mutex;
    mutable std::string m_path; ///< of the last step
    mutable std::vector<Step> m_steps;
    mutable std::optional<std::string> m_moved;
};

} // namespace orvana::platform
