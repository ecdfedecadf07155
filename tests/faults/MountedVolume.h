#pragma once

#include "support/TemporaryTree.h"

#include <string>

namespace orvana::test
{

/// Runs a shell command and returns its status. Its output goes to the output of the test.
int shell(const std::string &command);

/// Output of a shell command, without the newline at its end.
std::string outputOf(const std::string &command);

/// True when this process may mount, because it is root. Its mounts are then in a namespace of its own, made
/// by `enterOwnMountNamespace`, and end with that namespace.
bool canMount();
void enterOwnMountNamespace();

/// A volume on a loop device over an image file, or in memory, mounted for one test.
class MountedVolume
{
public:
    /// `type` is "tmpfs", "exfat" (in user space) or a file system that mkfs can make. `options` go to mkfs;
    /// `megabytes` is the size of the volume.
    MountedVolume(const std::string &type, int megabytes, const std::string &options = "");
    ~MountedVolume();
    MountedVolume(const MountedVolume &) = delete;
    MountedVolume &operator=(const MountedVolume &) = delete;

    std::string root() const { return m_tree.path("mount"); }
    std::string path(const std::string &relative) const { return root() + "/" + relative; }
    std::string image() const { return m_tree.path("image"); }
    const std::string &device() const { return m_device; }

    void remountReadOnly() const;
    void unmountLazily() const;
    void mountAgain() const;

    /// Cuts the device off after its first `megabytes`.
    void shrinkDevice(int megabytes) const;

private:
    TemporaryTree m_tree;
    std::string m_type;
    std::string m_device;
};

} // namespace orvana::test
