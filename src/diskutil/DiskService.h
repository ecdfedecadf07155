#pragma once

#include "diskutil/Outcome.h"
#include "diskutil/VolumeFormat.h"

#include <vector>

namespace orvana::diskutil
{

enum class Password { IsAskedFor, IsNotAskedFor };

/// What changes disks. Nodes are the kernel's, "/dev/sdb" and "/dev/sdb1". Calls wait for their end; every
/// one has an end.
class DiskService
{
public:
    virtual ~DiskService() = default;

    /// Whether file systems of this format can be made here.
    virtual Outcome<void> checkFormat(const VolumeFormat &format) = 0;

    /// Unmounts the file system of the node once. In use is a trouble of status Refused.
    virtual Outcome<void> unmount(const std::string &node) = 0;

    /// Whether nobody else has the whole disk: a mount in another namespace, a set, a program. Without asking
    /// the user for a password, what an ordinary user may not look at counts as free.
    virtual Outcome<void> checkNobodyHas(const std::string &node, Password password) = 0;

    /// The rights that the service may want of who changes the disk, in the order in which to ask for them.
    virtual std::vector<std::string> rightsToChange(const std::string &node) = 0;

    /// Asks the user for the right, unless they have it, and waits for the answer. What changes disks never
    /// asks: a question can stand for hours, and the disk may be another one by then.
    virtual Outcome<void> askFor(const std::string &right) = 0;

    /// Writes a new, empty partition table over the whole disk. Only a missing right is a trouble of status
    /// Refused, or a service that is not there one of status NotThere; with any other the table may be gone.
    virtual Outcome<void> makeTable(const std::string &node) = 0;

    /// Makes one partition over all of the disk, with a file system of that name which belongs to the calling
    /// user; returns the partition's node.
    virtual Outcome<std::string> makeVolume(const std::string &node, const VolumeFormat &format,
                                            const std::string &name) = 0;

    /// Mounts the file system of the node, unless somebody has already; returns where.
    virtual Outcome<std::string> mount(const std::string &node) = 0;

    /// Ejects the drive, powers it down or has it rest, as far as it can that by itself and the user may.
    /// Never another one.
    virtual Outcome<void> release(const std::string &node) = 0;
};

} // namespace orvana::diskutil
