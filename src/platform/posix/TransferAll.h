#pragma once

#include "platform/FileError.h"

#include <cerrno>
#include <cstddef>
#include <sys/types.h>

namespace orvana::platform::posix
{

/// The one loop that knows short counts and interruptions. `transfer` is given how many bytes are done, moves
/// more from there on, and returns their count, 0 at the end, or -1 with errno. Returns the bytes moved:
/// fewer than `size` only at the end.
template <class Transfer>
Expected<std::size_t> transferAll(std::size_t size, Transfer transfer)
{
    std::size_t done = 0;
    while (done < size) {
        const ssize_t count = transfer(done);
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return failure(errno);
        if (count == 0)
            break;
        done += static_cast<std::size_t>(count);
    }
    return done;
}

} // namespace orvana::platform::posix
