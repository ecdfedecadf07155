#include "duplicate/plan/HealthGate.h"

#include "duplicate/plan/RunGuards.h"
#include "platform/DiskHealth.h"
#include "platform/Host.h"

#include <algorithm>

namespace orvana
{

void markFailing(platform::Host &host, const ScannedDevices &devices, RunChoice &choice)
{
    choice.isFailing = {};
    const auto enclosure = chosenEnclosure(devices, choice.enclosure);
    if (!enclosure)
        return;
    for (const auto &disk : (*enclosure)->hddArray()) {
        const auto bay = bayOfDisk(*disk);
        const auto marks = disk->fingerprint();
        const auto &insisted = choice.insisted;
        if (!bay || choice.isSourceBay(*bay) ||
            std::find(insisted.begin(), insisted.end(), marks.serial.value_or(std::string())) !=
                insisted.end())
            continue;
        choice.isFailing[*bay] =
            verdictOf(host.health().healthOf(marks.device)) == platform::HealthVerdict::Failing;
    }
}

} // namespace orvana
