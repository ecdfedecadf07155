// Stands in for WebFetch.cpp in a program that was built without the check for a newer version.

#include "version/view/WebFetch.h"

namespace orvana
{

bool mayFetchFromWeb()
{
    return false;
}

std::optional<std::string> fetchFromWeb(const QUrl & /*address*/)
{
    return std::nullopt;
}

} // namespace orvana
