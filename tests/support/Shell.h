#pragma once

#include <string>

namespace orvana::test
{

/// What a program said, both outputs together and without the last line's end, and what it left with.
struct Said
{
    std::string text;
    int status = -1;
};

/// Runs a command line, with nothing to read.
Said runShell(const std::string &command);

/// The same; anything but success is thrown.
std::string must(const std::string &command);

/// The text as one word of a command line.
std::string asWord(const std::string &text);

} // namespace orvana::test
