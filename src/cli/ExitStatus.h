#pragma once

#include <string>

namespace orvana::cli
{

/// What the program tells its caller.
enum ExitStatus : int {
    AllDone = 0,
    SomethingFailed = 1,
    WrongUsage = 2,
    Refused = 3,
    NotThere = 4,
    Cancelled = 130,
};

/// Why a command cannot start: one line for the user, and the status to leave with.
struct Refusal
{
    ExitStatus status;
    std::string reason;
};

} // namespace orvana::cli
