#pragma once

#include <string>

namespace orvana::platform::linux_host
{

enum class BusKind { Session, System };

/// Returns true when a message bus answers within two seconds. The bus library itself waits without limit for
/// a bus that accepts the connection and then says nothing. `address` is the address of the bus,
/// "unix:path=/run/bus". An empty address stands for the machine's own bus of that kind. A bus that cannot be
/// tried beforehand counts as answering.
bool doesBusAnswer(BusKind kind, const std::string &address = {});

} // namespace orvana::platform::linux_host
