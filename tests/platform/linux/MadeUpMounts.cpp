// The mounts and swap spaces of a made-up machine.

#include "platform/linux/MadeUpMachine.h"

#include <fstream>

namespace orvana::test
{

void MadeUpMachine::mount(const std::string &node, const std::string &point, const std::string &type)
{
    std::string line = "36 1 ";
    line.append(m_numbers.at(node)).append(" / ").append(point).append(" rw - ").append(type);
    mountLine(line.append(" /dev/").append(node).append(" rw"));
}

void MadeUpMachine::mountLine(const std::string &line)
{
    m_mounts.push_back(line);
    writeMounts();
}

void MadeUpMachine::unmount(const std::string &point)
{
    std::erase_if(m_mounts, [&](const std::string &line) {
        return line.find(" " + point + " rw") != std::string::npos;
    });
    writeMounts();
}

void MadeUpMachine::swapOn(const std::string &node) const
{
    std::ofstream(swapFile(), std::ios::app) << "/dev/" << node << " partition 100 0 -2\n";
}

void MadeUpMachine::swapOnFile(const std::string &path) const
{
    std::ofstream(swapFile(), std::ios::app) << path << " file 100 0 -2\n";
}

void MadeUpMachine::writeMounts() const
{
    std::string text = "21 1 0:20 / /proc rw - proc proc rw\n";
    for (const auto &line : m_mounts)
        text.append(line).append("\n");
    m_tree.file("mountinfo", text);
}

} // namespace orvana::test
