#pragma once

#include <string>

namespace orvana::test
{

/// The output of a program, both streams together and without the last newline, and its exit status.
struct Said
{
    std::string text;
    int status = -1;
};

/// Runs a command line with empty input.
Said runShell(const std::string &command);

/// Runs a command line and returns its output. Throws if it does not succeed.
std::string must(const std::string &command);

/// The text as one word of a command line.
std::string asWord(const std::string &text);

} // namespace orvana::test
