#include "version/WebAddress.h"

#include <cstdlib>

namespace orvana
{

std::string webAddress(std::string_view path)
{
    // NOLINTNEXTLINE(concurrency-mt-unsafe): the program never changes its environment.
    const char *chosen = std::getenv("ORVANA_WEB_BASE");
    std::string address = chosen != nullptr && *chosen != '\0' ? chosen : ORVANA_WEB_BASE;
    while (address.ends_with('/'))
        address.pop_back();
    return address.append(path);
}

} // namespace orvana
