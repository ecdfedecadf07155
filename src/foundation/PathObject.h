#pragma once

#include <memory>
#include <string>

namespace orvana
{

/// A path whose identity counts: two objects with the same text are not the same path. Null is missing.
using PathObject = std::shared_ptr<const std::string>;

} // namespace orvana
