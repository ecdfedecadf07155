#pragma once

#include "platform/VolumeFiles.h"

namespace orvana
{

/// True when the file may be written to now without getting a newer time: its time is a whole number of
/// seconds, as on a file system that keeps no fractions, and not older than the longest step of such times.
bool mayChangeUnseen(const platform::Attributes &attributes);

/// True when both are attributes of one file that nobody wrote to in between.
bool isUnchanged(const platform::Attributes &before, const platform::Attributes &now);

/// The attributes of a source that is about to be read. Waits until a later write to it would give it another
/// time, which takes two seconds at most for a file that is left alone. A file that is written to all the
/// while is waited for at most four seconds. Ends the calling worker when its cancel is requested.
platform::Expected<platform::Attributes> attributesOnceOldEnough(const platform::File &source);

} // namespace orvana
