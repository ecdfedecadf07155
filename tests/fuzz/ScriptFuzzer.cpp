// Feeds the fuzzer's input to the reader of scripts. Every step has a name and the number of its line, and
// the numbers rise.

#include "app/ScriptFile.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const auto text = QString::fromUtf8(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    int line = 0;
    for (const auto &step : orvana::scriptSteps(text)) {
        if (step.name.isNull() || step.name.startsWith(QLatin1Char('#')) || step.line <= line)
            std::abort();
        line = step.line;
    }
    if (line > text.count(QLatin1Char('\n')) + 1)
        std::abort();
    return 0;
}
