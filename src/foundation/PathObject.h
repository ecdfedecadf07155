#pragma once

#include <memory>
#include <string>

namespace orvana
{

/// A path whose identity counts: two objects with the same text are not the same path. Null means no path.
using PathObject = std::shared_ptr<const std::string>;

} // namespace orvana
