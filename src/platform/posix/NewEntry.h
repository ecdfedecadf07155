#pragma once

#include "platform/VolumeFiles.h"

namespace orvana::platform::posix
{

/// The values that new entries of this process get by default. They do not change while the process runs.
struct ProcessDefaults
{
    static ProcessDefaults ofThisProcess();

    unsigned umask;
    std::uint32_t owner;
    std::uint32_t group;
};

/// Returns the permissions of a new file with the attributes of `like`.
unsigned newFileMode(const Attributes &like, const ProcessDefaults &defaults);

/// Returns the permissions of a new folder: those of `like`, with search permission added wherever there is
/// read permission.
unsigned newFolderMode(const Attributes &like, const ProcessDefaults &defaults);

/// Gives the new open entry the owner, the group, the permissions `mode` and the hidden-extension flag, as
/// far as the system allows. A refusal is ignored. If the owner and group cannot be set, the set-id bits are
/// not set either.
void applyAttributes(int descriptor, const Attributes &like, unsigned mode, const ProcessDefaults &defaults);

} // namespace orvana::platform::posix
