#include "platform/DiskFingerprint.h"

namespace orvana::platform
{

namespace
{

bool agree(const std::optional<std::string> &a, const std::optional<std::string> &b)
{
    return a && b && !a->empty() && *a == *b;
}

bool agree(const std::optional<std::int64_t> &a, const std::optional<std::int64_t> &b)
{
    return a && b && *a == *b;
}

} // namespace

bool mayBeTheSame(const DiskFingerprint &known, const DiskFingerprint &other)
{
    const bool isSameDevice = !known.device.empty() && known.device == other.device;
    if (isSameDevice || agree(known.arrival, other.arrival) || agree(known.wwn, other.wwn))
        return true;
    const bool hasSerial = known.serial && !known.serial->empty();
    return agree(known.size, other.size) && (!hasSerial || agree(known.serial, other.serial));
}

} // namespace orvana::platform
