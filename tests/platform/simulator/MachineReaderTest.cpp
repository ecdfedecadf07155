// The reader of the simulated machine's file.

#include "platform/simulator/MachineReader.h"

#include <gtest/gtest.h>

namespace orvana::platform::simulator
{

namespace
{

std::string errorOf(const std::string &text)
{
    const auto read = readMachine(text);
    return read ? "no error" : read.error();
}

} // namespace

TEST(SimulatorFile, WrongEntriesAreNamedWithTheirReason)
{
    EXPECT_EQ(errorOf("{"), "not JSON");
    EXPECT_EQ(errorOf("[]"), "/: must be an object");
    EXPECT_EQ(errorOf("{}"), "/: needs \"login\"");
    EXPECT_EQ(errorOf(R"({"login":7})"), "/login: must be a text");
    EXPECT_EQ(errorOf(R"({"login":"a","enclosure":[]})"), "/enclosure: is not a known key");
    const auto bays = [](const std::string &list) {
        return errorOf(R"({"login":"a","enclosures":[{"uid":1,"bays":[)" + list + "]}]}");
    };
    EXPECT_EQ(bays(R"({"bay":"E","size":1})"),
              "/enclosures/0/bays/0/bay: must be \"A\", \"B\", \"C\" or \"D\"");
    EXPECT_EQ(bays(R"({"bay":"A","size":1},{"bay":"A","size":1})"),
              "/enclosures/0/bays/1/bay: bay A is given twice");
    EXPECT_EQ(bays(R"({"bay":"A","size":-1})"), "/enclosures/0/bays/0/size: must not be less than 0");
    EXPECT_EQ(bays(R"({"bay":"A","size":1.5})"), "/enclosures/0/bays/0/size: must be a whole number");
    EXPECT_EQ(bays(R"({"bay":"A","size":18446744073709551615})"),
              "/enclosures/0/bays/0/size: must be a whole number");
    EXPECT_EQ(bays(R"({"bay":"A","size":1,"raid":"yes"})"),
              "/enclosures/0/bays/0/raid: must be true or false");
    EXPECT_EQ(bays(R"({"bay":"A","size":1,"volumes":[{"name":"x/y","capacity":1}]})"),
              "/enclosures/0/bays/0/volumes/0/name: \"x/y\" cannot be the name of a volume");
    EXPECT_EQ(
        bays(R"({"bay":"A","size":1,"volumes":[{"name":"x","capacity":1,"content":[{"path":"../y"}]}]})"),
        "/enclosures/0/bays/0/volumes/0/content/0/path: must lie within the volume");
    EXPECT_EQ(
        errorOf(
            R"({"login":"a","usbDisks":[{"size":1,"volumes":[{"name":"x","capacity":1,"faults":{"slow":1}}]}]})"),
        "/usbDisks/0/volumes/0/faults/slow: is not a known key");
}

} // namespace orvana::platform::simulator
