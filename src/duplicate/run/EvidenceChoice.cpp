#include "duplicate/run/EvidenceChoice.h"

#include "foundation/Clock.h"
#include "foundation/DisplayPath.h"
#include "log/LogData.h"

#include <chrono>

namespace orvana
{

namespace
{

std::string serialOf(const DiskFingerprint &disk)
{
    return disk.serial && !disk.serial->empty() ? ", serial number " + displayPath(*disk.serial)
                                                : std::string();
}

std::string nameOfRun(const LogData &log)
{
    return log.stamp() + (log.number() > 1 ? "-" + std::to_string(log.number()) : "");
}

// One sentence for each thing that a reader may look for years later.
std::string commentFor(std::size_t index, const RunOrder &order, const CopyJob &job,
                       const std::vector<PlannedDestination> &destinations, const LogData &log)
{
    std::string comment = "Run " + nameOfRun(log) + ". Source " + displayPath(job.SrcDiskPath);
    for (const auto &disk : order.choice.sourceDisks)
        comment += serialOf(disk);
    comment += ". Copy ";
    if (index < destinations.size())
        comment += "in " + slotNameOf(destinations[index].bay) + ", ";
    comment += displayPath(job.DesFileArray[index]);
    if (index < destinations.size())
        comment += serialOf(destinations[index].fingerprint);
    comment += ".";
    std::string others;
    for (std::size_t i = 0; i < job.DesFileArray.size(); ++i) {
        if (i != index)
            others += (others.empty() ? " " : ", ") + displayPath(job.DesFileArray[i]);
    }
    return others.empty() ? comment : comment + " Simultaneous backup to" + others + ".";
}

} // namespace

std::optional<EvidenceOrder> evidenceOf(const RunOrder &order, const CopyJob &job,
                                        const std::vector<PlannedDestination> &destinations,
                                        const LogData &log, const Clock &clock)
{
    const auto &settings = order.choice.settings;
    if (settings.manifest == ManifestKind::None && !settings.digest)
        return std::nullopt;
    EvidenceOrder evidence;
    evidence.format = settings.digest;
    evidence.manifest = settings.manifest;
    evidence.isWholeVolume = order.choice.erase && !destinations.empty();
    for (std::size_t i = 0; i < job.DesFileArray.size(); ++i)
        evidence.comments.push_back(commentFor(i, order, job, destinations, log));
    for (const auto &destination : destinations)
        evidence.names.push_back(destination.name);
    evidence.folderForSorting = log.folder();
    evidence.stationFolder = log.folder() + "/" + nameOfRun(log) + "-Manifests";
    evidence.started =
        std::chrono::duration_cast<std::chrono::seconds>(clock.now().time_since_epoch()).count();
    return evidence;
}

} // namespace orvana
