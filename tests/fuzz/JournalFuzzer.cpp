// Feeds the fuzzer's input to the reader of journals, as a line with a right check. A record that the reader
// accepts must be read back the same from the line that the program writes for it.

#include "duplicate/journal/JournalLine.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <xxhash.h>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    char check[17];
    std::snprintf(check, sizeof check, "%016llx", static_cast<unsigned long long>(XXH3_64bits(data, size)));
    std::string line(check);
    line.append(" ").append(reinterpret_cast<const char *>(data), size);
    const auto read = orvana::parseLine(line);
    if (!read || read->kind != orvana::JournalLine::Kind::Record)
        return 0;
    auto written = orvana::lineOf(read->record);
    written.pop_back();
    const auto again = orvana::parseLine(written);
    if (!again || again->record != read->record)
        std::abort();
    return 0;
}
