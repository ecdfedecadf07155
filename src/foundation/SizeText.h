#pragma once

#include <cstdint>
#include <string>

namespace orvana
{

/// Returns a size in bytes as people read it: two decimals and a unit from "Bytes" to "TB". The next unit,
/// 1024 times larger, is used as soon as the value exceeds 1023. Computed in single precision. Beyond "TB"
/// the number just grows.
std::string sizeText(std::uint64_t bytes);

} // namespace orvana
