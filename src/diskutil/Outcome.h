#pragma once

#include "foundation/ExitStatus.h"

#include <string>
#include <tl/expected.hpp>

namespace orvana::diskutil
{

/// Why something was not done, in plain words for the user.
struct Trouble
{
    ExitStatus status;
    std::string reason;
    bool canBeAllowed = false; ///< only a right is missing, for which the user can be asked
};

template <class T>
using Outcome = tl::expected<T, Trouble>;

inline tl::unexpected<Trouble> trouble(ExitStatus status, std::string reason)
{
    return tl::unexpected(Trouble{status, std::move(reason)});
}

} // namespace orvana::diskutil
