#include "duplicate/run/JournalChoice.h"

#include "duplicate/journal/Journals.h"
#include "platform/Host.h"

namespace orvana
{

namespace
{

JournalPlace placeOf(const std::string &root, const ScannedDevices &devices)
{
    JournalPlace place{.root = root, .volume = {}, .disk = {}};
    const auto mounted = devices.volumeAbove(root);
    if (!mounted.disk)
        return place;
    place.volume = mounted.volume->volumeId().value_or(std::string());
    place.disk = mounted.disk->fingerprint().serial.value_or(std::string());
    return place;
}

} // namespace

JournalOrder journalOf(const RunOrder &order, const CopyJob &job, const ScannedDevices &devices,
                       const std::string &folder)
{
    JournalOrder journal;
    journal.folder = folder;
    journal.source = placeOf(job.SrcDiskPath, devices);
    journal.destinations.reserve(job.DesFileArray.size());
    for (const auto &root : job.DesFileArray)
        journal.destinations.push_back(placeOf(root, devices));
    journal.job = order.job;
    journal.resume = order.choice.settings.resume;
    return journal;
}

void endJournalsOf(platform::Host &host, const std::vector<DiskUtilInfo> &disks, const std::string &folder)
{
    std::vector<JournalPlace> places;
    places.reserve(disks.size());
    for (const auto &disk : disks)
        places.push_back({.root = {}, .volume = {}, .disk = disk.diskSN});
    if (const auto journals =
            folder.empty() ? tl::unexpected(std::string()) : Journals::open(host.volumeFiles(), folder))
        journals->end(places, {});
}

} // namespace orvana
