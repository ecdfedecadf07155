#pragma once

#include "platform/FileError.h"

#include <cerrno>
#include <cstddef>
#include <sys/types.h>

namespace orvana::platform::posix
{

/// The only loop that handles short counts and interruptions. `transfer` receives the number of bytes that
/// are done, moves more bytes from there, and returns their count, 0 at the end, or -1 with errno. Returns
/// the number of bytes moved, which is less than `size` only at the end.
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
