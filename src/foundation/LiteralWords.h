#pragma once

#include <string>
#include <vector>

namespace orvana
{

/// The words of a command line in a form in which the parser finds nothing but letters, digits and the dashes
/// of options: it would take brackets for lists, commas for separators, and an empty word for none at all.
/// `literal` gives back the text that the user typed.
std::vector<std::string> shelteredWords(int argc, const char *const *argv);

/// The text as the user typed it, of anything that the parser gives back.
std::string literal(const std::string &sheltered);

/// The same for text that is shown, such as the parser's complaints: valid, and without control characters
/// but newlines.
std::string shownLiteral(const std::string &sheltered);

} // namespace orvana
