#pragma once

#include "duplicate/evidence/Digest.h"
#include "platform/VolumeFiles.h"

#include <cstdint>
#include <cstdio>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace orvana
{

/// A manifest while it is written: on its disk and, at the same time, as the station's copy.
class ManifestFile
{
public:
    /// Creates the file `path` below `folder`. With a path in `stationCopy` the same bytes go there, too; if
    /// they cannot, the system log says so, and nothing else fails. `own` is the format of the manifest's own
    /// digest.
    static platform::Expected<ManifestFile> create(const platform::Folder &folder, const std::string &path,
                                                   const std::string &stationCopy, DigestFormat own);

    void write(std::string_view text);

    /// Writes what is left and closes the file. Returns the digest of the whole file. To be called once.
    platform::Expected<std::string> close();

    /// Removes the station's copy, because the manifest itself did not get into its place.
    void removeStationCopy();

private:
    struct CloseFile
    {
        void operator()(std::FILE *file) const { std::fclose(file); }
    };

    ManifestFile(std::unique_ptr<platform::File> file, DigestFormat own)
        : m_file(std::move(file)), m_digest(own)
    {
    }
    void openStationCopy(const std::string &path);
    void flush();

    std::unique_ptr<platform::File> m_file;
    std::unique_ptr<std::FILE, CloseFile> m_station;
    std::string m_stationPath;
    Digest m_digest;
    std::string m_buffer;
    std::uint64_t m_offset = 0;
    platform::Expected<void> m_result;
};

} // namespace orvana
