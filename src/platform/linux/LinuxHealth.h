#pragma once

#include "platform/DiskHealth.h"
#include "platform/linux/LinuxMachine.h"

#include <string>

namespace orvana::platform::linux_host
{

/// Adds what the kernel's own files say of the disk with this name ("sda"): temperature, errors, rate of the
/// link. Call it after what the disk service says was added. No right is needed. `sys` is the folder of the
/// system's devices, "/sys".
void addKernelFacts(DiskHealth &health, const std::string &sys, const std::string &name);

/// Adds what the desktop's disk service says of the disk with this name and serial number; nothing when the
/// service is not there, or knows another disk by that name.
void addServiceFacts(DiskHealth &health, const std::string &name, const std::string &serial);

/// The health of the machine's disks: from the disk service, which may ask SATA disks and, from its version
/// 2.10 on, NVMe disks, and from the kernel.
class LinuxHealth final : public HealthReader
{
public:
    explicit LinuxHealth(LinuxMachine &machine) : m_machine(machine) {}

    DiskHealth healthOf(const std::string &device) override;

private:
    LinuxMachine &m_machine;
};

} // namespace orvana::platform::linux_host
