#pragma once

#include "foundation/ExitStatus.h"

#include <string>

namespace orvana
{

/// The reason why a command cannot start: the exit status, and one line for the user.
struct Refusal
{
    ExitStatus status;
    std::string reason;
};

} // namespace orvana
