// Feeds the fuzzer's input to the reader of enclosure definitions. A definition that the reader accepts must
// be read back the same from the text that the program writes for it.

#include "enclosures/Definition.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    namespace enclosures = orvana::enclosures;
    const auto read = enclosures::readDefinition("dock", {reinterpret_cast<const char *>(data), size});
    if (!read) {
        if (read.error().empty())
            std::abort();
        return 0;
    }
    if (enclosures::readDefinition("dock", enclosures::textOf(*read)) != read)
        std::abort();
    return 0;
}
