#pragma once

#include <string>
#include <string_view>

namespace orvana
{

/// Returns a text that came from a disk in a form that is safe to show: valid UTF-8 on one line.
///
/// Each byte of the following appears as \xNN: control characters, bytes that are not UTF-8, and Unicode
/// characters that break a line or change the writing direction. Everything else stays as it is.
std::string displayPath(std::string_view bytes);

/// True when the bytes are well-formed UTF-8.
bool isUtf8(std::string_view bytes);

} // namespace orvana
