#pragma once

#include "duplicate/engine/CopyCensus.h"

#include <string>
#include <vector>

namespace orvana::cli
{

/// Counts a selection as the window does: what it has to fit into, and what the total is reckoned from. On a
/// thread of its own, for which it waits; gives up early, with what it has, once `isCancelled` says so.
CopyCensus countSelection(platform::Host &host, const std::vector<std::string> &selection,
                          const std::function<bool()> &isCancelled);

} // namespace orvana::cli
