#pragma once

#include "duplicate/engine/CopyCensus.h"

#include <string>
#include <vector>

namespace orvana::cli
{

/// Counts the files and bytes of a selection as the window does. The result decides which bays are too small,
/// and is the total of the progress. Counts on a thread of its own and waits for that thread. If
/// `isCancelled` returns true, it stops early and returns the count so far.
CopyCensus countSelection(platform::Host &host, const std::vector<std::string> &selection,
                          const std::function<bool()> &isCancelled);

} // namespace orvana::cli
