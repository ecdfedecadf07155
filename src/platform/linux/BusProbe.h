#pragma once

#include <string>

namespace orvana::platform::linux_host
{

enum class BusKind { Session, System };

/// Whether a message bus answers, within two seconds. The library that talks to it waits without any limit
/// for one that accepts and says nothing. `address` is the bus's, "unix:path=/run/bus"; an empty one stands
/// for the machine's own of that kind. What cannot be tried beforehand counts as answering.
bool doesBusAnswer(BusKind kind, const std::string &address = {});

} // namespace orvana::platform::linux_host
