#pragma once

#include <string>
#include <string_view>

namespace orvana
{

/// A text that came from a disk, made safe to show: always valid UTF-8, on one line.
///
/// Control characters, bytes that are not UTF-8, and the Unicode characters that break a line or turn the
/// writing direction appear as \xNN, one for each byte. Everything else stays as it is.
std::string displayPath(std::string_view bytes);

/// True when the bytes are well-formed UTF-8.
bool isUtf8(std::string_view bytes);

} // namespace orvana
