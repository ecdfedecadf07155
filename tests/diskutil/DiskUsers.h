// Other users of a disk, or of a volume on it, while the disk is to be erased.

#pragma once

#include "diskutil/ImageDisk.h"

namespace orvana::test
{

/// A process of the test that runs until the object is destroyed.
class ChildProcess
{
public:
    ~ChildProcess();
    ChildProcess(const ChildProcess &) = delete;
    ChildProcess &operator=(const ChildProcess &) = delete;

    std::string number() const { return std::to_string(m_process); }

protected:
    ChildProcess() = default;

    pid_t m_process = -1;
};

/// A program, "sleep", that works in a folder.
class BusyProcess : public ChildProcess
{
public:
    explicit BusyProcess(const std::string &folder);
};

/// A process that has mounted a device where no other process sees it.
class ForeignMount : public ChildProcess
{
public:
    ForeignMount(const std::string &node, const std::string &place);
};

/// Swap space on a whole disk, in use.
class Swap
{
public:
    explicit Swap(const ImageDisk &disk);
    ~Swap();
    Swap(const Swap &) = delete;
    Swap &operator=(const Swap &) = delete;

private:
    std::string m_node;
};

/// A swap file on a mounted volume, in use.
class SwapFile
{
public:
    explicit SwapFile(std::string path);
    ~SwapFile();
    SwapFile(const SwapFile &) = delete;
    SwapFile &operator=(const SwapFile &) = delete;

private:
    std::string m_path;
};

/// A small file system that is served by a program.
class ServedMount
{
public:
    /// Makes the folder, and the image beside it.
    explicit ServedMount(const std::string &place);
    ~ServedMount();
    ServedMount(const ServedMount &) = delete;
    ServedMount &operator=(const ServedMount &) = delete;

    /// Stops the program. A process that reads the folder then waits.
    void fallSilent() const;

private:
    std::string m_place;
    std::string m_node;
    std::string m_server; ///< number of the process
};

/// An image file on a mounted volume, on a loop device of its own; no process has it open.
class AttachedImage
{
public:
    explicit AttachedImage(const std::string &path);
    ~AttachedImage();
    AttachedImage(const AttachedImage &) = delete;
    AttachedImage &operator=(const AttachedImage &) = delete;

    std::string device() const { return m_node.substr(5); } ///< "loop3"

private:
    std::string m_node;
};

} // namespace orvana::test
