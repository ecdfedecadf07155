#include "version/WebAddress.h"

#include <cstdlib>

namespace orvana
{

std::string webAddress(std::string_view path)
{
    // NOLINTNEXTLINE(concurrency-mt-unsafe): nothing here changes the environment.
    const char *chosen = std::getenv("ORVANA_WEB_BASE");
    std::string address = chosen && *chosen ? chosen : PLURIMO_WEB_BASE;
    while (address.ends_with('/'))
        address.pop_back();
    return address.append(path);
}

} // namespace orvana
