#pragma once

#include <cstdint>
#include <string>

namespace orvana
{

/// A size in bytes as people read it: two decimals and a unit from "Bytes" to "TB", stepping by 1024 as
/// soon as the value exceeds 1023. Reckoned in single precision; beyond "TB" the number just grows.
std::string sizeText(std::uint64_t bytes);

} // namespace orvana
