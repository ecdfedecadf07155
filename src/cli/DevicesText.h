#pragma once

#include "foundation/PathJson.h"

#include <string>
#include <vector>

namespace orvana
{
class ORVScanDevice;
}

namespace orvana::platform
{
class HealthReader;
}

namespace orvana::cli
{

/// Returns the results of a scan as lines with aligned columns. With `health`, each disk is asked how it is.
std::vector<std::string> devicesText(const ORVScanDevice &scanner, platform::HealthReader *health = nullptr);

/// Returns the results of a scan as JSON. docs/terminal-json.md documents it.
Json devicesJson(const ORVScanDevice &scanner, platform::HealthReader *health = nullptr);

} // namespace orvana::cli
