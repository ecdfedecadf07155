#include "diskutil/DiskOperations.h"

#include "diskutil/CapacityProbe.h"
#include "foundation/DisplayPath.h"

#include <algorithm>

namespace orvana::diskutil
{

namespace
{

using Check = Outcome<void> (*)(const std::string &, const DiskFacts &);

Outcome<DiskFacts> lookAndCheck(const Request &request, const Surroundings &with, Check check)
{
    const auto facts = with.lookAt(request.node);
    if (!facts)
        return trouble(NotThere, displayPath(request.node) + ": there is no such disk");
    if (const auto same = checkIdentity(request.node, *facts, request.expected); !same)
        return tl::unexpected(same.error());
    if (const auto allowed = check(request.node, *facts); !allowed)
        return tl::unexpected(allowed.error());
    return *facts;
}

Trouble busy(const MountedVolume &volume, const Trouble &cause, const Surroundings &with)
{
    std::string reason = displayPath(volume.point) + " cannot be unmounted: " + cause.reason;
    const char *before = "; in use by ";
    for (const auto &user : with.usersOf(volume.point)) {
        reason.append(before).append(user);
        before = ", ";
    }
    return {cause.status, reason};
}

// A file system may be mounted several times. Each pass removes the last mount.
Outcome<DiskFacts> unmountAll(const Request &request, const Surroundings &with, Check check)
{
    auto facts = lookAndCheck(request, with, check);
    while (facts && !facts->mounted.empty()) {
        const auto volume = facts->mounted.back();
        if (const auto done = with.service.unmount(volume.node); !done)
            return tl::unexpected(busy(volume, done.error(), with));
        const auto count = facts->mounted.size();
        facts = lookAndCheck(request, with, check);
        if (facts && facts->mounted.size() >= count)
            return trouble(Refused, displayPath(volume.point) + " does not stay unmounted");
    }
    return facts;
}

using Change = std::function<Outcome<std::string>()>;

// Changes the disk right after the check. If a right is missing, asks the user for it and then checks
// everything again, because the answer may take long.
Outcome<std::string> checkAndChange(const Request &request, const Surroundings &with,
                                    const std::function<Outcome<void>()> &check, const Change &change)
{
    const auto attempt = [&]() -> Outcome<std::string> {
        const auto good = check();
        return good ? change() : tl::unexpected(good.error());
    };
    auto changed = attempt();
    if (changed || !changed.error().canBeAllowed)
        return changed;
    for (const auto &right : with.service.rightsToChange(request.node)) {
        if (const auto allowed = with.service.askFor(right); !allowed)
            return tl::unexpected(allowed.error());
        changed = attempt();
        if (changed || !changed.error().canBeAllowed)
            return changed;
    }
    return trouble(Refused,
                   "the right to change " + displayPath(request.node) +
                       " was given for one time only, and is needed for longer; who sits at the machine, "
                       "and root, can have it");
}

Outcome<void> lookThatItIsFree(const Request &request, const Surroundings &with)
{
    const auto facts = lookAndCheck(request, with, checkErasable);
    if (!facts)
        return tl::unexpected(facts.error());
    if (!facts->mounted.empty())
        return trouble(Refused, displayPath(request.node) + " was mounted again");
    return {};
}

// The service cannot work on a disk that is held open. So nothing protects the disk between this check and
// the write.
Outcome<void> makeTable(const Request &request, const Surroundings &with)
{
    const auto check = [&]() -> Outcome<void> {
        if (auto alone = with.service.checkNobodyHas(request.node, Password::IsAskedFor); !alone)
            return alone;
        return lookThatItIsFree(request, with);
    };
    const auto made = checkAndChange(request, with, check, [&] {
        return with.service.makeTable(request.node).map([&] { return request.node; });
    });
    if (made)
        return {};
    if (made.error().status != SomethingFailed)
        return tl::unexpected(made.error());
    return trouble(SomethingFailed,
                   displayPath(request.node) + ": what it held may be lost: " + made.error().reason);
}

// Finds out whether the disk holds what it says, after its old table is gone and before it gets the one that
// stays: until then nothing was written without the right to change the disk. The open disk itself says which
// arrival it is, so what is written goes to the disk that was looked at. Returns why the disk was not probed;
// empty if it was.
Outcome<std::string> probe(const Request &request, const Surroundings &with)
{
    const auto disk = with.service.openAlone(request.node);
    if (!disk)
        return "its size was not probed: " + disk.error().reason;
    if (const auto free = lookThatItIsFree(request, with); !free)
        return trouble(SomethingFailed,
                       displayPath(request.node) + " was emptied, and then: " + free.error().reason);
    const auto sequence = (*disk)->sequence();
    if (!sequence)
        return "its size was not probed: " + sequence.error().reason;
    if (*sequence != request.expected.sequence)
        return trouble(SomethingFailed, displayPath(request.node) + " is another disk by now");
    if (const auto lie = capacityLieOf(**disk))
        return trouble(SomethingFailed, displayPath(request.node) +
                                            " was emptied; it is smaller than it says, or broken: " + *lie);
    return std::string();
}

// The disk has been changed by now, so no failure counts as a refusal any more.
Outcome<std::string> makeVolume(const Request &request, const Surroundings &with, const VolumeFormat &format)
{
    const auto made = checkAndChange(
        request, with, [&] { return lookThatItIsFree(request, with); },
        [&] { return with.service.makeVolume(request.node, format, request.name); });
    if (!made)
        return trouble(SomethingFailed, displayPath(request.node) +
                                            " was emptied, but has no volume to use: " + made.error().reason);
    const auto point = with.service.mount(*made);
    if (!point)
        return trouble(SomethingFailed,
                       displayPath(*made) + " is erased, but cannot be mounted: " + point.error().reason);
    return *point;
}

} // namespace

Outcome<std::string> eraseDisk(const Request &request, const Surroundings &with)
{
    const auto format = formatOf(request.format, with.formatSetting);
    if (!format)
        return tl::unexpected(format.error());
    if (const auto good = checkName(*format, request.name); !good)
        return tl::unexpected(good.error());
    const auto held = with.hold(request.expected.sequence.value_or(0));
    if (!held)
        return tl::unexpected(held.error());
    if (const auto facts = lookAndCheck(request, with, checkErasable); !facts)
        return tl::unexpected(facts.error());
    if (const auto possible = with.service.checkFormat(*format); !possible)
        return tl::unexpected(possible.error());
    if (!with.canBeMounted(format->type))
        return trouble(Refused, std::string(format->type) + " volumes cannot be mounted on this machine");
    if (const auto unmounted = unmountAll(request, with, checkErasable); !unmounted)
        return tl::unexpected(unmounted.error());
    if (const auto table = makeTable(request, with); !table)
        return tl::unexpected(table.error());
    const auto unprobed = probe(request, with);
    if (!unprobed)
        return tl::unexpected(unprobed.error());
    if (unprobed->empty()) {
        if (const auto table = makeTable(request, with); !table)
            return trouble(SomethingFailed,
                           displayPath(request.node) +
                               " was emptied, but has no volume to use: " + table.error().reason);
    }
    return makeVolume(request, with, *format).map([&](const std::string &point) {
        const auto remark = unprobed->empty() ? std::string() : "; " + *unprobed;
        return "Finished erase on " + request.node + ": " + format->type + " at " + displayPath(point) +
               remark;
    });
}

Outcome<std::string> ejectDisk(const Request &request, const Surroundings &with)
{
    const auto held = with.hold(request.expected.sequence.value_or(0));
    if (!held)
        return tl::unexpected(held.error());
    const auto facts = lookAndCheck(request, with, checkEjectable);
    if (!facts)
        return tl::unexpected(facts.error());
    std::string lost;
    for (const auto &volume : facts->mounted) {
        if (const auto written = with.writeOut(volume.point); !written)
            lost = written.error().reason;
    }
    if (const auto unmounted = unmountAll(request, with, checkEjectable); !unmounted)
        return trouble(unmounted.error().status,
                       unmounted.error().reason +
                           (lost.empty() ? "" : "; not all could be written: " + lost));
    // Asking for a password for each ejected disk would be too much.
    if (const auto alone = with.service.checkNobodyHas(request.node, Password::IsNotAskedFor); !alone)
        return tl::unexpected(alone.error());
    if (const auto released = with.service.release(request.node); !released)
        return tl::unexpected(released.error());
    if (!lost.empty())
        return trouble(SomethingFailed,
                       "Disk " + request.node + " ejected, but not all could be written to it: " + lost);
    return "Disk " + request.node + " ejected";
}

Outcome<std::string> mountDisk(const Request &request, const Surroundings &with)
{
    const auto held = with.hold(request.expected.sequence.value_or(0));
    if (!held)
        return tl::unexpected(held.error());
    auto facts = lookAndCheck(request, with, checkMountable);
    if (!facts)
        return tl::unexpected(facts.error());
    const auto nodes = facts->fileSystems;
    if (nodes.empty())
        return trouble(Refused, displayPath(request.node) + " has no volume that can be mounted");
    std::string points;
    for (const auto &node : nodes) {
        const auto isMounted = [&](const MountedVolume &volume) { return volume.node == node; };
        if (std::any_of(facts->mounted.begin(), facts->mounted.end(), isMounted))
            continue;
        const auto point = with.service.mount(node);
        if (!point)
            return trouble(point.error().status,
                           displayPath(node) + " cannot be mounted: " + point.error().reason);
        points.append(points.empty() ? "" : ", ").append(displayPath(*point));
        // The service takes a node, so the disk must be the same before each one.
        facts = lookAndCheck(request, with, checkMountable);
        if (!facts)
            return tl::unexpected(facts.error());
    }
    return "Disk " + request.node + (points.empty() ? " is mounted already" : " mounted at " + points);
}

} // namespace orvana::diskutil
