#include "diskutil/ImageDisk.h"

#include "support/Shell.h"

#include <cstdint>
#include <fstream>
#include <gtest/gtest.h>
#include <stdexcept>

namespace orvana::test
{

namespace
{

std::string littleEndian(std::uint64_t number, int bytes)
{
    std::string text;
    for (int i = 0; i < bytes; ++i)
        text += static_cast<char>(number >> (8 * i) & 0xFFU);
    return text;
}

// The checksum of the label of a volume group's member: CRC-32 with its own start value, not inverted.
std::uint32_t labelSum(const std::string &bytes)
{
    std::uint32_t sum = 0xf597a6cfU;
    for (const char c : bytes) {
        sum ^= static_cast<std::uint8_t>(c);
        for (int bit = 0; bit < 8; ++bit)
            sum = (sum & 1U) != 0 ? sum >> 1U ^ 0xedb88320U : sum >> 1U;
    }
    return sum;
}

} // namespace

ImageDisk::ImageDisk(const std::string &folder, std::string name, int megabytes)
    : m_name(std::move(name)), m_image(folder + "/" + m_name)
{
    must("truncate -s " + std::to_string(megabytes) + "M " + asWord(m_image));
    m_node = must("losetup -f --show " + asWord(m_image));
    examine();
}

ImageDisk::~ImageDisk()
{
    runShell("umount -A " + partition() + " || umount -A -l " + partition());
    runShell("partx -d " + m_node);
    if (const auto said = runShell("losetup -d " + m_node); said.status != 0)
        ADD_FAILURE() << said.text;
}

void ImageDisk::makePartition() const
{
    must("parted -s " + m_node + " mklabel gpt mkpart data 1MiB 100%");
    must("udevadm settle --timeout=30");
}

void ImageDisk::makeVolume(const std::string &type, const std::string &label) const
{
    makePartition();
    must("mkfs." + type + " -q -L " + asWord(label) + " " + partition());
    examine();
}

void ImageDisk::makePairWith(const ImageDisk &other) const
{
    makePartition();
    other.makePartition();
    must("mkfs.btrfs -q -m raid1 -d raid1 " + partition() + " " + other.partition());
    examine();
    other.examine();
}

void ImageDisk::mount(const std::string &place) const
{
    must("mount -o noatime " + partition() + " " + asWord(place));
}

void ImageDisk::unmount() const
{
    must("umount " + partition());
}

std::string ImageDisk::mountPoint() const
{
    const auto lines = runShell("findmnt -n -o TARGET -S " + partition()).text;
    return lines.substr(0, lines.find('\n'));
}

std::string ImageDisk::owner() const
{
    return must("stat -c %U " + asWord(mountPoint()));
}

std::string ImageDisk::label() const
{
    return must("blkid -p -o value -s LABEL " + partition());
}

std::string ImageDisk::type() const
{
    return must("blkid -p -o value -s TYPE " + partition());
}

void ImageDisk::attachAgain() const
{
    attach(m_image);
}

void ImageDisk::attach(const std::string &image) const
{
    runShell("partx -d " + m_node);
    must("losetup -d " + m_node);
    must("losetup " + m_node + " " + asWord(image));
    examine();
}

// Writes the start of a second-generation superblock, by which members are recognised.
void ImageDisk::plantRaidMember() const
{
    std::string block(256, '\0');
    block.replace(0, 4, littleEndian(0xa92b4efcU, 4));
    block.replace(4, 4, littleEndian(1, 4));
    block.replace(16, 16, std::string(16, 'u'));
    block.replace(144, 8, littleEndian(8, 8)); // its own place, in blocks
    write(4096, block);
    examine();
}

void ImageDisk::plantVolumeGroupMember() const
{
    std::string block(512, '\0');
    block.replace(0, 8, "LABELONE");
    block.replace(8, 8, littleEndian(1, 8));
    block.replace(20, 4, littleEndian(32, 4));
    block.replace(24, 8, "LVM2 001");
    block.replace(32, 32, std::string(32, 'u'));
    block.replace(16, 4, littleEndian(labelSum(block.substr(20)), 4));
    write(512, block);
    examine();
}

void ImageDisk::markExternal() const
{
    const auto name = m_node.substr(m_node.rfind('/') + 1);
    std::ofstream("/run/udev/rules.d/98-" + name + ".rules")
        << "KERNEL==\"" << name << "|" << name << "p*\", ENV{UDISKS_SYSTEM}=\"0\", ENV{UDISKS_AUTO}=\"1\"\n";
    must("udevadm control --reload");
    examine();
}

std::vector<std::string> ImageDisk::expectations() const
{
    const auto device = m_node.substr(m_node.rfind('/') + 1);
    return {"--expect-sequence=" + must("cat /sys/block/" + device + "/diskseq"), "--expect-serial=" + m_name,
            "--expect-size=" + must("blockdev --getsize64 " + m_node), "--expect-bay=bay of " + m_name};
}

std::string ImageDisk::digest() const
{
    return must("sync && sha256sum < " + m_node);
}

void ImageDisk::examine() const
{
    must("sync; for d in /sys/class/block/" + m_node.substr(m_node.rfind('/') + 1) +
         "*; do udevadm trigger --action=change $d; done; udevadm settle --timeout=30");
}

void ImageDisk::write(std::size_t offset, const std::string &bytes) const
{
    std::fstream disk(m_node, std::ios::in | std::ios::out | std::ios::binary);
    disk.seekp(static_cast<std::streamoff>(offset));
    disk << bytes << std::flush;
    if (!disk)
        throw std::runtime_error(m_node + " cannot be written");
}

} // namespace orvana::test
