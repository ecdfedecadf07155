#include "platform/posix/BoundedRead.h"

#include "platform/posix/TransferAll.h"

#include <unistd.h>

namespace orvana::platform::posix
{

Expected<std::optional<std::string>> readAtMost(int descriptor, std::size_t most)
{
    std::string text(most + 1, '\0');
    const auto length = transferAll(text.size(), [&](std::size_t done) {
        return ::read(descriptor, text.data() + done, text.size() - done);
    });
    if (!length)
        return tl::unexpected(length.error());
    if (*length > most)
        return std::nullopt;
    text.resize(*length);
    return text;
}

} // namespace orvana::platform::posix
