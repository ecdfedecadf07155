#include "duplicate/evidence/ManifestFile.h"

#include "foundation/DisplayPath.h"
#include "foundation/SystemLog.h"

#include <cerrno>
#include <filesystem>
#include <span>
#include <system_error>

namespace orvana
{

namespace
{

constexpr std::size_t WriteAtOnce = 64UL * 1024;
constexpr std::uint32_t EverybodyMayRead = 0644;

} // namespace

platform::Expected<ManifestFile> ManifestFile::create(const platform::Folder &folder, const std::string &path,
                                                      const std::string &stationCopy, DigestFormat own)
{
    auto file = folder.createFile(path, {.permissions = EverybodyMayRead});
    if (!file)
        return tl::unexpected(file.error());
    ManifestFile manifest(std::move(*file), own);
    if (!stationCopy.empty())
        manifest.openStationCopy(stationCopy);
    return manifest;
}

// Several manifests of one run may have the same name, so each gets a folder in which the name is free.
void ManifestFile::openStationCopy(const std::string &path)
{
    namespace fs = std::filesystem;
    constexpr int MostFolders = 10'000;
    const fs::path wanted(path);
    int reason = EEXIST;
    for (int number = 1; reason == EEXIST && number < MostFolders; ++number) {
        const auto folder = wanted.parent_path().string() + (number > 1 ? "-" + std::to_string(number) : "");
        std::error_code ignored;
        fs::create_directories(folder, ignored);
        m_stationPath = (fs::path(folder) / wanted.filename()).string();
        m_station.reset(std::fopen(m_stationPath.c_str(), "wxe"));
        reason = m_station ? 0 : errno;
    }
    if (m_station)
        return;
    systemLog("The station's copy of a manifest cannot be written: " + displayPath(m_stationPath) + ": " +
              std::generic_category().message(reason));
    m_stationPath.clear(); // a file of another manifest may have this name
}

void ManifestFile::removeStationCopy()
{
    std::error_code ignored;
    if (!m_stationPath.empty())
        std::filesystem::remove(m_stationPath, ignored);
}

void ManifestFile::write(std::string_view text)
{
    m_buffer += text;
    if (m_buffer.size() >= WriteAtOnce)
        flush();
}

void ManifestFile::flush()
{
    m_digest.add(m_buffer);
    if (m_station)
        std::fwrite(m_buffer.data(), 1, m_buffer.size(), m_station.get());
    if (m_result)
        m_result = m_file->write(std::as_bytes(std::span(m_buffer)), m_offset);
    m_offset += m_buffer.size();
    m_buffer.clear();
}

platform::Expected<std::string> ManifestFile::close()
{
    flush();
    const auto synced = m_file->sync();
    const auto closed = m_file->close();
    for (const auto &step : {m_result, synced, closed}) {
        if (!step)
            return tl::unexpected(step.error());
    }
    if (m_station && std::fflush(m_station.get()) != 0)
        systemLog("The station's copy of a manifest is not whole: " + std::generic_category().message(errno));
    m_station.reset();
    return m_digest.text();
}

} // namespace orvana
