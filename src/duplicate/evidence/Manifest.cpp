#include "duplicate/evidence/Manifest.h"

#include "foundation/DisplayPath.h"

#include <array>
#include <unistd.h>

namespace orvana
{

std::string nameOfMachine()
{
    std::array<char, 256> name{};
    return ::gethostname(name.data(), name.size() - 1) == 0 ? displayPath(name.data()) : std::string();
}

} // namespace orvana
