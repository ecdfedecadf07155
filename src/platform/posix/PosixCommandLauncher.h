#pragma once

#include "platform/CommandLauncher.h"

namespace orvana::platform::posix
{

/// Where what a program writes to its standard error goes.
enum class Complaints { ToOurError, IntoTheOutput };

/// Runs real programs, never by way of a shell.
class PosixCommandLauncher final : public CommandLauncher
{
public:
    explicit PosixCommandLauncher(Complaints complaints = Complaints::ToOurError) : m_complaints(complaints)
    {
    }

    Result run(const std::string &path, const std::vector<std::string> &arguments) override;
    void setSparedDisks(std::vector<DiskFingerprint>) override {
    } // it runs what it is given, and knows no disks

private:
    Complaints m_complaints;
};

} // namespace orvana::platform::posix
