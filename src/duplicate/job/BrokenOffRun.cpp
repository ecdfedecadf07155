#include "duplicate/job/BrokenOffRun.h"

#include "duplicate/journal/Journals.h"
#include "duplicate/plan/RunChoice.h"
#include "foundation/Paths.h"

#include <algorithm>
#include <filesystem>

namespace orvana
{

namespace
{

// Returns the disks in bays that the journal knows, as the user is told of them.
std::vector<std::string> disksOf(const JournalHead &head, const ORVThunderboltInfo &enclosure)
{
    std::vector<std::string> disks;
    for (const auto &disk : enclosure.hddArray()) {
        const auto bay = bayOfDisk(*disk);
        for (const auto &volume : disk->bsdPathArray()) {
            const auto &root = volume->mountPoint();
            if (bay && root &&
                head.find({*root, volume->volumeId().value_or(""), disk->fingerprint().serial.value_or("")}))
                disks.push_back(slotNameOf(*bay) + ": " + lastComponent(*root));
        }
    }
    return disks;
}

bool isHere(const JournalPlace &source, const ScannedDevices &devices)
{
    const auto mounted = devices.volumeAbove(source.root);
    return mounted.volume && mounted.volume->volumeId() == source.volume;
}

} // namespace

std::optional<BrokenOffRun> brokenOffRun(platform::VolumeFiles &files, const std::string &folder,
                                         const ScannedDevices &devices, const ORVThunderboltInfo &enclosure)
{
    std::error_code ignored;
    if (!std::filesystem::is_directory(folder, ignored))
        return std::nullopt;
    const auto journals = Journals::open(files, folder);
    if (!journals)
        return std::nullopt;
    auto heads = journals->heads();
    std::reverse(heads.begin(), heads.end());
    for (const auto &head : heads) {
        auto job = parseJob(head.job);
        auto disks = disksOf(head, enclosure);
        if (job && !disks.empty() && isHere(head.source, devices))
            return BrokenOffRun{head.name, std::move(*job), std::move(disks)};
    }
    return std::nullopt;
}

} // namespace orvana
