#pragma once

#include "foundation/PathJson.h"

#include <string>
#include <vector>

namespace orvana
{
class ORVScanDevice;
}

namespace orvana::cli
{

/// Returns the results of a scan as lines with aligned columns.
std::vector<std::string> devicesText(const ORVScanDevice &scanner);

/// Returns the results of a scan as JSON. docs/terminal-json.md documents it.
Json devicesJson(const ORVScanDevice &scanner);

} // namespace orvana::cli
