#include "platform/simulator/SimulatedSetup.h"

namespace orvana::platform::simulator
{

enclosures::DefinitionSet SimulatedSetup::definitions()
{
    const auto machine = SimulatedMachine::open(m_file);
    return machine ? enclosures::DefinitionSet{(*machine)->machine().definitions, {}}
                   : enclosures::DefinitionSet{{}, {machine.error()}};
}

tl::expected<void, std::string> SimulatedSetup::add(const enclosures::Definition &definition)
{
    return SimulatedMachine::open(m_file).and_then(
        [&](const auto &machine) { return machine->addDefinition(definition); });
}

tl::expected<void, std::string> SimulatedSetup::remove(const std::string &id)
{
    return SimulatedMachine::open(m_file).and_then(
        [&](const auto &machine) { return machine->removeDefinition(id); });
}

} // namespace orvana::platform::simulator
