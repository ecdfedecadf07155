#pragma once

#include "diskutil/Outcome.h"
#include "diskutil/RawDisk.h"
#include "diskutil/VolumeFormat.h"

#include <vector>

namespace orvana::diskutil
{

enum class Password { IsAskedFor, IsNotAskedFor };

/// Changes disks. Nodes have the kernel's names, "/dev/sdb" and "/dev/sdb1". Every call waits until its work
/// has ended, and no call waits for ever.
class DiskService
{
public:
    virtual ~DiskService() = default;

    /// Succeeds if file systems of this format can be made here.
    virtual Outcome<void> checkFormat(const VolumeFormat &format) = 0;

    /// Unmounts the file system of the node once. If it is in use, the trouble has the status Refused.
    virtual Outcome<void> unmount(const std::string &node) = 0;

    /// Succeeds if nobody else uses the whole disk: no mount in another namespace, no set of disks, no
    /// program. With `Password::IsNotAskedFor` and no permission to open the disk, we cannot tell, and report
    /// it as unused.
    virtual Outcome<void> checkNobodyHas(const std::string &node, Password password) = 0;

    /// Opens the whole disk for nobody else, to be read and written. Asks the user nothing. If a right is
    /// missing or somebody uses the disk, the trouble has the status Refused.
    virtual Outcome<std::unique_ptr<RawDisk>> openAlone(const std::string &node) = 0;

    /// The rights that the service may require for changing the disk, in the order in which to ask for them.
    virtual std::vector<std::string> rightsToChange(const std::string &node) = 0;

    /// Asks the user for the right, unless the user already has it, and waits for the answer. The functions
    /// that change disks never ask: a question can wait for hours, and the node may be another disk by then.
    virtual Outcome<void> askFor(const std::string &right) = 0;

    /// Writes a new, empty partition table over the whole disk. If a right is missing, the trouble has the
    /// status Refused; if the service is missing, NotThere. Nothing was written then. With any other status
    /// the old table may be gone.
    virtual Outcome<void> makeTable(const std::string &node) = 0;

    /// Makes one partition over the whole disk, with a file system of this name that belongs to the calling
    /// user. Returns the partition's node.
    virtual Outcome<std::string> makeVolume(const std::string &node, const VolumeFormat &format,
                                            const std::string &name) = 0;

    /// Mounts the file system of the node, unless it is already mounted. Returns the mount point.
    virtual Outcome<std::string> mount(const std::string &node) = 0;

    /// Ejects the drive, powers it off or puts it into standby, as far as the drive can and the user may.
    /// Never does this to another drive.
    virtual Outcome<void> release(const std::string &node) = 0;
};

} // namespace orvana::diskutil
