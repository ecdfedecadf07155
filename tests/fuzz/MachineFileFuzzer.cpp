// Feeds the fuzzer's input to the reader of the simulator file. Input that the reader accepts must make a
// tree.

#include "platform/simulator/MachineReader.h"
#include "platform/simulator/MachineTree.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    namespace simulator = orvana::platform::simulator;
    const auto read = simulator::readMachine({reinterpret_cast<const char *>(data), size});
    if (!read) {
        if (read.error().empty())
            std::abort();
        return 0;
    }
    const auto tree = simulator::makeTree(read->machine, [](const std::string &) { return 1; });
    return tree->children().empty() ? -1 : 0;
}
