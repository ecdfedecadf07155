#pragma once

#include "platform/VolumeFiles.h"

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>

namespace orvana
{

/// The files that a run has written to one destination. Before anything is overwritten, the run finds out
/// here whether a name leads to a file of another source. This happens with names that the volume treats as
/// equal, with hard links and with symbolic links.
///
/// Needs a few bits for each file. Used by one thread at a time.
class WrittenFiles
{
public:
    WrittenFiles();
    ~WrittenFiles();
    WrittenFiles(WrittenFiles &&) noexcept;
    WrittenFiles &operator=(WrittenFiles &&) noexcept;

    enum class Owner {
        Nobody,      ///< the run has not written to it
        SameSource,  ///< the run has written to it from the same source
        OtherSource, ///< the run has, or may have, written to it from another source
    };

    /// Returns the owner of the existing file at `path` beneath `volume`. Reads from the volume.
    Owner ownerOf(const platform::Folder &volume, std::string_view path, std::string_view source);

    /// Notes that the file is being written from `source`.
    void add(const platform::Attributes &file, std::string_view source);

    /// Returns the name of another entry of the same folder that is the same file as `path`, or an empty text
    /// if there is none.
    static std::string otherNameOf(const platform::Folder &volume, std::string_view path);

private:
    struct Inodes;

    bool isExactName(const platform::Folder &volume, std::string_view folder, std::string_view name);
    void readNames(const platform::Folder &volume, std::string_view folder);

    std::map<std::uint64_t, std::unique_ptr<Inodes>> m_inodes;           // by device
    std::unordered_map<std::uint64_t, std::size_t> m_sourcesOfManyNamed; // hash of the source, by inode

    // Hashes of the names in the folder that was read last.
    std::string m_folder;
    std::unordered_set<std::size_t> m_names;
    bool m_hasFolder = false;
};

} // namespace orvana
