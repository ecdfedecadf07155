#include "platform/linux/LinuxHost.h"

#include <filesystem>

namespace orvana::platform::linux_host
{

namespace
{

// The disk utility lies beside the program that uses it.
std::string pathOfDiskUtility()
{
    std::error_code error;
    const auto program = std::filesystem::read_symlink("/proc/self/exe", error);
    return (program.parent_path() / "orvana-diskutil").native();
}

} // namespace

LinuxHost::LinuxHost(std::unique_ptr<Workspace> workspace, MainQueue *queue, const SystemFiles &files,
                     const SetupPrograms &programs)
    : m_machine(files), m_launcher(m_machine, pathOfDiskUtility()), m_enclosureSetup(m_machine, programs),
      m_workspace(std::move(workspace))
{
    if (queue)
        m_watch = std::make_unique<MachineWatch>(
            *queue, [this](const MachineEvent &event) { take(event); }, files.definitionFolder);
}

void LinuxHost::take(const MachineEvent &event)
{
    m_registry.take(event);
    if (event.action.empty() || event.subsystem == "block")
        m_events.tellChanges();
}

} // namespace orvana::platform::linux_host
