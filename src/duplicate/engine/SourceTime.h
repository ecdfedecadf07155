#pragma once

#include "platform/VolumeFiles.h"

namespace orvana
{

/// True when the file may be written to now without getting a newer time. This is so when its time is a whole
/// number of seconds, as on a file system that keeps no fractions, and is not older than the longest step of
/// such times.
bool mayChangeUnseen(const platform::Attributes &attributes);

/// True when both are attributes of one file that nobody wrote to in between.
bool isUnchanged(const platform::Attributes &before, const platform::Attributes &now);

/// Returns the attributes of a source that is about to be read. Waits until a later write to the source would
/// give it another time. For a file that nobody writes to, this takes at most two seconds. For a file that is
/// written to all the while, the wait ends after four seconds. Ends the calling worker when its cancel is
/// requested.
platform::Expected<platform::Attributes> attributesOnceOldEnough(const platform::File &source);

} // namespace orvana
