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

/// What a scan found, as lines with aligned columns.
std::vector<std::string> devicesText(const ORVScanDevice &scanner);

/// The same for programs; documented in docs/terminal-json.md.
Json devicesJson(const ORVScanDevice &scanner);

} // namespace orvana::cli
