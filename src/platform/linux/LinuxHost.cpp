#include "platform/linux/LinuxHost.h"

namespace orvana::platform::linux_host
{

namespace
{

std::string ownDiskUtility()
{
    std::error_code error;
    return diskUtilityOf(std::filesystem::read_symlink("/proc/self/exe", error));
}

} // namespace

std::string diskUtilityOf(const std::filesystem::path &program)
{
    const auto folder = program.parent_path();
    const auto installed = folder.parent_path() / "libexec/orvana-plurimo/orvana-diskutil";
    std::error_code error;
    if (std::filesystem::exists(installed, error))
        return installed.native();
    return (folder / "orvana-diskutil").native();
}

LinuxHost::LinuxHost(std::unique_ptr<Workspace> workspace, MainQueue *queue, const SystemFiles &files,
                     const SetupPrograms &programs)
    : m_machine(files), m_launcher(m_machine, ownDiskUtility()), m_enclosureSetup(m_machine, programs),
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
