#include "platform/posix/Descriptor.h"

#include <unistd.h>

namespace orvana::platform::posix
{

Descriptor::~Descriptor()
{
    if (isOpen())
        ::close(m_number);
}

} // namespace orvana::platform::posix
