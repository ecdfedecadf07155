#include "duplicate/evidence/StationCopies.h"

#include <filesystem>
#include <system_error>

namespace orvana
{

namespace
{

namespace fs = std::filesystem;

constexpr std::string_view FolderEnd = "-Manifests";

// An empty list for a folder that cannot be read.
std::vector<fs::path> entriesOf(const fs::path &folder)
{
    std::vector<fs::path> entries;
    std::error_code error;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error))
        entries.push_back(entry->path());
    return entries;
}

} // namespace

StationCopies::StationCopies(const std::string &logFolder)
{
    for (const auto &run : entriesOf(logFolder)) {
        if (!run.filename().string().ends_with(FolderEnd))
            continue;
        for (const auto &copy : entriesOf(run)) {
            for (const auto &manifest : entriesOf(copy))
                m_paths[manifest.filename().string()].push_back(manifest.string());
        }
    }
}

const std::vector<std::string> &StationCopies::named(const std::string &fileName) const
{
    static const std::vector<std::string> none;
    const auto found = m_paths.find(fileName);
    return found == m_paths.end() ? none : found->second;
}

} // namespace orvana
