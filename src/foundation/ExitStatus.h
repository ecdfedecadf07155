#pragma once

namespace orvana
{

/// The exit statuses of all the programs. Scripts rely on these numbers.
enum ExitStatus : int {
    AllDone = 0,
    SomethingFailed = 1, ///< begun but not finished, or finished with a wrong result
    WrongUsage = 2,      ///< the command line is wrong; nothing was examined
    Refused = 3,         ///< nothing was touched
    NotThere = 4,        ///< no such disk, file or service
    Cancelled = 130,     ///< ended by a signal; shells use this number too
};

} // namespace orvana
