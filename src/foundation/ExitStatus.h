#pragma once

namespace orvana
{

/// The exit statuses of all the programs. Scripts rely on these numbers.
enum ExitStatus : int {
    AllDone = 0,
    SomethingFailed = 1, ///< begun and not finished, or finished and not as it should be
    WrongUsage = 2,      ///< nothing was looked at
    Refused = 3,         ///< nothing was touched
    NotThere = 4,        ///< no such disk, file or service
    Cancelled = 130,     ///< by a signal, as shells count it
};

} // namespace orvana
