#pragma once

#include "platform/VolumeFiles.h"

namespace orvana::platform::posix
{

/// What the process gives to new entries by itself; none of it changes while it runs.
struct ProcessDefaults
{
    static ProcessDefaults ofThisProcess();

    unsigned umask;
    std::uint32_t owner;
    std::uint32_t group;
};

/// Permissions of a new file with the attributes of `like`.
unsigned newFileMode(const Attributes &like, const ProcessDefaults &defaults);

/// Permissions of a new folder: those of `like`, with search wherever there is read.
unsigned newFolderMode(const Attributes &like, const ProcessDefaults &defaults);

/// Gives the new open entry owner, group, the permissions `mode` and the hidden-extension flag, as far as
/// the system allows; a refusal is ignored. Without the owner the set-id bits are not given either.
void applyAttributes(int descriptor, const Attributes &like, unsigned mode, const ProcessDefaults &defaults);

} // namespace orvana::platform::posix
