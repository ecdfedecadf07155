// Feeds the fuzzer's input to the reader of logs, as a log that grows: the first byte says how much of the
// rest is there at first. What is shown must be UTF-8, and must not have more lines than the reader promises.

#include "foundation/DisplayPath.h"
#include "log/LogReader.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <sys/mman.h>
#include <unistd.h>

namespace
{

void check(const std::optional<orvana::LogReading> &reading)
{
    if (!reading)
        return;
    if (!orvana::isUtf8(reading->text))
        std::abort();
    if (std::count(reading->text.begin(), reading->text.end(), '\n') >
        static_cast<std::ptrdiff_t>(orvana::LogReader::ShownLines))
        std::abort();
}

void write(int file, const std::uint8_t *data, std::size_t size)
{
    if (::write(file, data, size) != static_cast<ssize_t>(size))
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    if (size == 0)
        return 0;
    static const int file = ::memfd_create("log", MFD_CLOEXEC);
    if (::ftruncate(file, 0) != 0 || ::lseek(file, 0, SEEK_SET) != 0)
        std::abort();
    orvana::LogReader reader("/proc/self/fd/" + std::to_string(file));
    const std::size_t first = (size - 1) * data[0] / 255;
    write(file, data + 1, first);
    const auto reading = reader.readOn();
    if (!reading)
        std::abort(); // the first call always has a text
    check(reading);
    write(file, data + 1 + first, size - 1 - first);
    check(reader.readOn());
    return 0;
}
