#pragma once

#include "support/TemporaryTree.h"

#include <string>

namespace orvana::test
{

/// Runs a shell command and returns its status; its output goes to the test's.
int shell(const std::string &command);

/// Output of a shell command, without the newline at its end.
std::string outputOf(const std::string &command);

/// True when this process may mount: it is root. Its mounts then lie in a namespace of its own, which
/// `enterOwnMountNamespace` made, and end with it.
bool canMount();
void enterOwnMountNamespace();

/// A volume on a loop device over an image file, or in memory, mounted for one test.
class MountedVolume
{
public:
    /// `type` is "tmpfs", "exfat" (in user space) or a file system that mkfs makes, with these options for
    /// mkfs; `megabytes` is its size.
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

    /// Takes away what lies beyond the first `megabytes` of the device.
    void shrinkDevice(int megabytes) const;

private:
    TemporaryTree m_tree;
    std::string m_type;
    std::string m_device;
};

} // namespace orvana::test
