#pragma once

#include "platform/DiskHealth.h"
#include "platform/simulator/SimulatedMachine.h"

namespace orvana::platform::simulator
{

/// The health of simulated disks, as the machine's file says it.
class SimulatedHealth final : public HealthReader
{
public:
    explicit SimulatedHealth(const SimulatedMachine &machine) : m_machine(machine) {}

    DiskHealth healthOf(const std::string &device) override { return m_machine.healthOf(device); }

private:
    const SimulatedMachine &m_machine;
};

} // namespace orvana::platform::simulator
