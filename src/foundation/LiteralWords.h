#pragma once

#include <string>
#include <vector>

namespace orvana
{

/// Encodes the words of a command line for the parser. Letters, digits and "-" stay. Every other byte of a
/// value becomes a mark and two hexadecimal digits. Otherwise the parser would take brackets for lists,
/// commas for separators, and an empty word for a missing word. `literal` gives back the text that the user
/// typed.
std::vector<std::string> shelteredWords(int argc, const char *const *argv);

/// Returns the text as the user typed it. `sheltered` is any text that the parser gives back.
std::string literal(const std::string &sheltered);

/// Returns the text as the user typed it, made safe to show: valid UTF-8, and no control characters except
/// newlines. For texts such as the parser's complaints.
std::string shownLiteral(const std::string &sheltered);

} // namespace orvana
