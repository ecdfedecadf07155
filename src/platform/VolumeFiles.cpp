#include "platform/VolumeFiles.h"

namespace orvana::platform
{

void NameList::add(std::string_view name)
{
    m_bytes += name;
    m_bytes += '\0';
}

std::string_view NameList::takeNext()
{
    const std::string_view name(m_bytes.c_str() + m_next);
    m_next += name.size() + 1;
    return name;
}

} // namespace orvana::platform
