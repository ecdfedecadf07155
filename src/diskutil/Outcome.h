#pragma once

#include <string>
#include <tl/expected.hpp>

namespace orvana::diskutil
{

/// What the program leaves with.
enum ExitStatus : int {
    Done = 0,
    Failed = 1,     ///< begun and not finished: what is on the disk is not known
    WrongUsage = 2, ///< nothing was looked at
    Refused = 3,    ///< no byte of the disk was changed
    NotThere = 4,   ///< no such disk, or no disk service
};

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
