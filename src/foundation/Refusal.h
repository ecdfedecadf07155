#pragma once

#include "foundation/ExitStatus.h"

#include <string>

namespace orvana
{

/// Why a command cannot start: one line for the user, and the status to leave with.
struct Refusal
{
    ExitStatus status;
    std::string reason;
};

} // namespace orvana
