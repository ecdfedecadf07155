// The disk utility with a rule for images in place of the enclosures' bays: an image in the folder that
// ORVANA_IMAGE_BAYS names is a disk in a bay; one whose name begins with "outside" is in none.

#include "diskutil/Program.h"

#include <QCoreApplication>
#include <cstdlib>

using namespace orvana;

namespace
{

std::optional<diskutil::KnownDisk> imageDisk(const platform::linux_host::SystemState &,
                                             const platform::linux_host::Device &device)
{
    const auto image = device.attribute("loop/backing_file");
    const char *bays = std::getenv("ORVANA_IMAGE_BAYS");
    if (!bays || !image.starts_with(std::string(bays) + "/"))
        return std::nullopt;
    const auto name = image.substr(image.rfind('/') + 1);
    const auto sequence = platform::linux_host::decimalNumber(device.property("DISKSEQ"));
    const auto blocks = platform::linux_host::decimalNumber(device.attribute("size"));
    if (sequence < 0 || blocks <= 0)
        return std::nullopt;
    return diskutil::KnownDisk{{.sequence = static_cast<std::uint64_t>(sequence),
                                .serial = name,
                                .blocks = static_cast<std::uint64_t>(blocks),
                                .place = "bay of " + name},
                               !name.starts_with("outside")};
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    diskutil::leave(diskutil::runProgram({argv + 1, argv + argc}, imageDisk));
}
