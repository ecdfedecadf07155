// Feeds the fuzzer's input to the reader of checksum lines. A line that the reader accepts has a path below
// the folder, and is read back the same from the text that the program writes for it.

#include "duplicate/evidence/ChecksumLine.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const std::string_view text(reinterpret_cast<const char *>(data), size);
    if (text.find('\n') != std::string_view::npos)
        return -1; // lines are told apart before they are read
    for (const auto expected : orvana::AllDigestFormats) {
        const auto read = orvana::readChecksumLine(text, expected);
        if (!read && read.error().empty())
            std::abort();
        if (!read || !*read)
            continue;
        const auto &line = **read;
        if (line.path.empty() || line.path.front() == '/' || !orvana::isDigest(line.format, line.digest))
            std::abort();
        const auto written = orvana::textOf(line);
        if (written && orvana::readChecksumLine(*written, line.format) != read)
            std::abort();
    }
    return 0;
}
