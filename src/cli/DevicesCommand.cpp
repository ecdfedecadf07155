#include "cli/DevicesCommand.h"

#include "cli/DevicesText.h"
#include "cli/Terminal.h"
#include "discovery/ORVScanDevice.h"
#include "discovery/ThunderBoltMonitor.h"
#include "foundation/NotificationCenter.h"
#include "foundation/NotificationNames.h"
#include "foundation/PlainMainQueue.h"
#include "platform/Host.h"
#include "platform/VolumeEvents.h"
#include "platform/posix/CancelRequest.h"

#include <nlohmann/json.hpp>

namespace orvana::cli
{

namespace
{

const char *nameOf(platform::VolumeChange change)
{
    switch (change) {
    case platform::VolumeChange::Mounted:
        return "volume mounted";
    case platform::VolumeChange::Unmounted:
        return "volume unmounted";
    case platform::VolumeChange::Renamed:
        return "volume renamed";
    }
    return "";
}

void watchDevices(platform::Host &host, PlainMainQueue &queue, Terminal &terminal, bool json)
{
    NotificationCenter center;
    const auto say = [&](const char *what) {
        terminal.print(json ? Json{{"event", what}}.dump() : std::string(what));
    };
    const auto attached = center.subscribe(notification::TBDeviceAttached,
                                           [&](const Notification &) { say("controller attached"); });
    const auto detached = center.subscribe(notification::TBDeviceDeattached,
                                           [&](const Notification &) { say("controller detached"); });
    ThunderBoltMonitor monitor(host.registry(), center);
    monitor.MonitorInit();
    host.volumeEvents().subscribe([&](platform::VolumeChange change) { say(nameOf(change)); });
    const platform::posix::CancelRequest cancelRequest([&] { queue.quit(); });
    queue.run();
}

} // namespace

ExitStatus runDevices(platform::Host &host, PlainMainQueue &queue, Terminal &terminal,
                      const DevicesOptions &options)
{
    ORVScanDevice scanner(host.registry(), host.launcher());
    scanner.setDetectOption("Orvana");
    scanner.scanTBDevice();
    scanner.scanOtherDevice();
    scanner.scanOtherTBDevice();
    auto *health = options.health ? &host.health() : nullptr;
    if (options.json) {
        terminal.print(devicesJson(scanner, health).dump(options.watch ? -1 : 2));
    } else {
        for (const auto &line : devicesText(scanner, health))
            terminal.print(line);
    }
    if (options.watch)
        watchDevices(host, queue, terminal, options.json);
    return AllDone;
}

} // namespace orvana::cli
