#pragma once

#include "platform/simulator/SimulatedMachine.h"

namespace orvana::platform::simulator
{

/// The ports and definitions of a simulated machine. Definitions are read and written by way of the machine's
/// file, as another program would do it, so that any thread may.
class SimulatedSetup final : public enclosures::EnclosureSetup
{
public:
    explicit SimulatedSetup(const SimulatedMachine &machine) : m_machine(machine), m_file(machine.file()) {}

    enclosures::PortSnapshot look() override { return m_machine.ports(); }
    enclosures::DefinitionSet definitions() override;
    tl::expected<void, std::string> add(const enclosures::Definition &definition) override;
    tl::expected<void, std::string> remove(const std::string &id) override;

private:
    const SimulatedMachine &m_machine;
    const std::string m_file;
};

} // namespace orvana::platform::simulator
