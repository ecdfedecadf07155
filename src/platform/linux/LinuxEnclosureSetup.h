#pragma once

#include "enclosures/EnclosureSetup.h"
#include "platform/linux/LinuxMachine.h"

namespace orvana::platform::linux_host
{

/// The programs that write definitions for a user who is not root.
struct SetupPrograms
{
    std::string pkexec = "/usr/bin/pkexec"; ///< runs a program as root when the user may have it so
    std::string helper;                     ///< `orvana-bays`, at the place that the policy names
};

/// The ports of the Linux machine. Definitions are written at once by root, and into a folder that belongs to
/// the user's own tests. Otherwise polkit is asked.
class LinuxEnclosureSetup final : public enclosures::EnclosureSetup
{
public:
    LinuxEnclosureSetup(LinuxMachine &machine, SetupPrograms programs)
        : m_machine(machine), m_programs(std::move(programs))
    {
    }

    enclosures::PortSnapshot look() override;
    enclosures::DefinitionSet definitions() override { return m_machine.files().definitions(); }
    tl::expected<void, std::string> add(const enclosures::Definition &definition) override;
    tl::expected<void, std::string> remove(const std::string &id) override;

private:
    bool mayWrite() const;
    void tellUdev() const;
    tl::expected<void, std::string> askForRoot(const std::vector<std::string> &words) const;

    LinuxMachine &m_machine;
    SetupPrograms m_programs;
};

} // namespace orvana::platform::linux_host
