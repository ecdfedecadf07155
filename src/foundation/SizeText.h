#pragma once

#include <cstdint>
#include <string>

namespace orvana
{

/// Returns a size in bytes as people read it: two decimals and a unit from "Bytes" to "TB". The next unit,
/// 1024 times larger, is used as soon as the value exceeds 1023. Computed in single precision. Beyond "TB"
/// the number just grows.
std::string sizeText(std::uint64_t bytes);

/// Returns a rate in bytes per second as people read it: "41 MB/s", and below ten of a unit "4.1 MB/s". The
/// units are those of `sizeText`.
std::string rateText(double bytesPerSecond);

} // namespace orvana
