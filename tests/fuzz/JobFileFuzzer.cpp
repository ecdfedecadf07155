// Feeds the fuzzer's input to the reader of job files. A job that the reader accepts must be read back the
// same from the text that the program writes for it, but for the source's name: that is only shown, and is
// written as it is shown.

#include "duplicate/job/JobFile.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    auto read = orvana::parseJob({reinterpret_cast<const char *>(data), size});
    if (!read) {
        if (read.error().empty())
            std::abort();
        return 0;
    }
    const auto again = orvana::parseJob(orvana::textOf(*read));
    read->sourceName = again ? again->sourceName : "";
    if (again != read)
        std::abort();
    return 0;
}
