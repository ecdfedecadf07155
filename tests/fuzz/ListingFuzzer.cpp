// Feeds the fuzzer's input to the parser of the disk-free listing.

#include "discovery/DiskFreeListing.h"
#include "foundation/DisplayPath.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const std::string_view text(reinterpret_cast<const char *>(data), size);
    for (const auto &line : orvana::parseDiskFree(text, "/dev/disk")) {
        if (line.device.empty() || !orvana::isUtf8(orvana::displayPath(line.mountPoint)))
            std::abort();
    }
    return 0;
}
