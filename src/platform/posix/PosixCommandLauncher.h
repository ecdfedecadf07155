#pragma once

#include "platform/CommandLauncher.h"

namespace orvana::platform::posix
{

/// The place to which a program's standard error goes.
enum class Complaints { ToOurError, IntoTheOutput };

/// Runs real programs, never through a shell.
class PosixCommandLauncher final : public CommandLauncher
{
public:
    explicit PosixCommandLauncher(Complaints complaints = Complaints::ToOurError) : m_complaints(complaints)
    {
    }

    Result run(const std::string &path, const std::vector<std::string> &arguments) override;

    /// Does nothing: this launcher runs what it is given, and knows no disks.
    void setSparedDisks(std::vector<DiskFingerprint>) override {}

private:
    Complaints m_complaints;
};

} // namespace orvana::platform::posix
