#include "platform/posix/NamelessFile.h"

#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <system_error>
#include <unistd.h>

namespace orvana::platform::posix
{

namespace
{

constexpr mode_t OwnerOnly = 0600;

// Not every file system knows files without a name. There the name is removed at once.
int openAndRemove(const std::string &folder)
{
    std::string name = folder + "/plurimo-XXXXXX";
    const int number = ::mkostemp(name.data(), O_CLOEXEC);
    if (number >= 0)
        ::unlink(name.c_str());
    return number;
}

} // namespace

Descriptor openNamelessFile(const std::string &folder)
{
    std::error_code ignored;
    for (const auto &place : {folder, std::filesystem::temp_directory_path(ignored).string()}) {
        if (place.empty())
            continue;
        const int number = ::open(place.c_str(), O_TMPFILE | O_RDWR | O_CLOEXEC, OwnerOnly);
        if (number >= 0)
            return Descriptor(number);
        if (const int named = openAndRemove(place); named >= 0)
            return Descriptor(named);
    }
    return Descriptor();
}

} // namespace orvana::platform::posix
