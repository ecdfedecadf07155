#include "diskutil/DiskOperations.h"

#include "foundation/DisplayPath.h"

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

Trouble busy(const MountedPiece &piece, const Trouble &cause, const Surroundings &with)
{
    std::string reason = displayPath(piece.point) + " cannot be unmounted: " + cause.reason;
    const char *before = "; in use by ";
    for (const auto &user : with.usersOf(piece.point)) {
        reason.append(before).append(user);
        before = ", ";
    }
    return {cause.status, reason};
}

// A file system may be mounted several times over; each time the last one goes.
Outcome<DiskFacts> unmountAll(const Request &request, const Surroundings &with, Check check)
{
    auto facts = lookAndCheck(request, with, check);
    while (facts && !facts->mounted.empty()) {
        const auto piece = facts->mounted.back();
        if (const auto done = with.service.unmount(piece.node); !done)
            return tl::unexpected(busy(piece, done.error(), with));
        const auto count = facts->mounted.size();
        facts = lookAndCheck(request, with, check);
        if (facts && facts->mounted.size() >= count)
            return trouble(Refused, displayPath(piece.point) + " does not stay unmounted");
    }
    return facts;
}

// From here on the disk is being changed: a refusal is one no more.
Outcome<void> makeSureAgain(const Request &request, const Surroundings &with)
{
    const auto facts = lookAndCheck(request, with, checkErasable);
    if (!facts)
        return trouble(Failed, facts.error().reason + "; its new partition table is empty");
    if (!facts->mounted.empty())
        return trouble(Failed, displayPath(request.node) + " was mounted meanwhile");
    return {};
}

} // namespace

Outcome<std::string> eraseDisk(const Request &request, const Surroundings &with)
{
    const auto format = formatOf(request.format, with.formatSetting);
    if (!format)
        return tl::unexpected(format.error());
    if (const auto good = checkName(*format, request.name); !good)
        return tl::unexpected(good.error());
    if (const auto facts = lookAndCheck(request, with, checkErasable); !facts)
        return tl::unexpected(facts.error());
    if (const auto possible = with.service.checkFormat(*format); !possible)
        return tl::unexpected(possible.error());
    if (const auto unmounted = unmountAll(request, with, checkErasable); !unmounted)
        return tl::unexpected(unmounted.error());
    if (const auto alone = with.service.checkNobodyHas(request.node, Password::IsAskedFor); !alone)
        return tl::unexpected(alone.error());
    // The service cannot work on a disk that is held open, so between this look and its first write the disk
    // is guarded by nothing.
    if (const auto facts = lookAndCheck(request, with, checkErasable); !facts)
        return tl::unexpected(facts.error());
    else if (!facts->mounted.empty())
        return trouble(Refused, displayPath(request.node) + " was mounted again");

    if (const auto table = with.service.makeTable(request.node); !table)
        return tl::unexpected(table.error());
    if (const auto same = makeSureAgain(request, with); !same)
        return tl::unexpected(same.error());
    const auto volume = with.service.makeVolume(request.node, *format, request.name);
    if (!volume)
        return trouble(Failed,
                       displayPath(request.node) +
                           " has a new partition table, but no volume to use: " + volume.error().reason);
    const auto point = with.service.mount(*volume);
    if (!point)
        return trouble(Failed,
                       displayPath(*volume) + " is erased, but cannot be mounted: " + point.error().reason);
    return "Finished erase on " + request.node + ": " + format->type + " at " + displayPath(*point);
}

Outcome<std::string> ejectDisk(const Request &request, const Surroundings &with)
{
    if (const auto unmounted = unmountAll(request, with, checkEjectable); !unmounted)
        return tl::unexpected(unmounted.error());
    // A password for each disk that is let go would be too much.
    if (const auto alone = with.service.checkNobodyHas(request.node, Password::IsNotAskedFor); !alone)
        return tl::unexpected(alone.error());
    if (const auto released = with.service.release(request.node); !released)
        return tl::unexpected(released.error());
    return "Disk " + request.node + " ejected";
}

} // namespace orvana::diskutil
