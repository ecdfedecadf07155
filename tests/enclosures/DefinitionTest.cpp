#include "enclosures/Definition.h"

#include <gtest/gtest.h>

namespace orvana::enclosures
{

namespace
{

constexpr const char *Dock =
    R"({ "version": 1, "name": "Desk dock", "anchor": { "usb": "2109:0817", "serial": "D1" },
  "bays": { "A": { "port": "1" }, "B": { "port": "1.2", "lun": 0 },
            "D": [ { "path": "pci-0000:00:17.0-ata-3" }, { "anchor": { "pci": "1b21:2824" }, "port": "01.0/00.0-nvme-1" } ] } })";

std::string errorOf(const std::string &text)
{
    const auto read = readDefinition("desk", text);
    return read ? "no error" : read.error();
}

/// The error of a definition whose bay A has this port.
std::string errorOfPort(const std::string &port, const std::string &anchor = {})
{
    return errorOf(R"({"version":1,"name":"n",)" + anchor + R"("bays":{"B":{"path":"b"},"A":)" + port + "}}");
}

} // namespace

TEST(Definition, NamesPortsByPathOrBelowAnAnchor)
{
    const auto read = readDefinition("desk-dock", Dock);
    ASSERT_TRUE(read) << read.error();
    EXPECT_EQ(read->id, "desk-dock");
    EXPECT_EQ(read->name, "Desk dock");
    const Anchor hub{Bus::Usb, 0x2109, 0x0817, "D1"};
    EXPECT_EQ(read->bays.at('A'), std::vector{(Port{{}, hub, "1", {}})});
    EXPECT_EQ(read->bays.at('B'), std::vector{(Port{{}, hub, "1.2", 0})});
    EXPECT_FALSE(read->bays.contains('C'));
    EXPECT_EQ(read->bays.at('D'),
              (std::vector{Port{"pci-0000:00:17.0-ata-3.0", {}, {}, {}},
                           Port{{}, Anchor{Bus::Pci, 0x1b21, 0x2824, {}}, "01.0/00.0-nvme-1", {}}}))
        << "a SATA path without its target is completed";
}

TEST(Definition, WrittenTextIsReadAsTheSame)
{
    const auto read = readDefinition("desk-dock", Dock);
    const auto again = readDefinition("desk-dock", textOf(*read));
    ASSERT_TRUE(again) << again.error();
    EXPECT_EQ(*again, *read);
    EXPECT_EQ(textOf(*again), textOf(*read));
}

TEST(Definition, WrongEntriesAreNamedWithTheirReason)
{
    EXPECT_EQ(errorOf(""), "not JSON");
    EXPECT_EQ(errorOf("[]"), "/: must be an object");
    EXPECT_EQ(errorOf("{}"), "/: needs \"version\"");
    EXPECT_EQ(errorOf(R"({"version":2})"),
              "/version: must be 1; a later version of the program may read this file");
    EXPECT_EQ(errorOf(R"({"version":1})"), "/: needs \"name\"");
    EXPECT_EQ(errorOf(R"({"version":1,"name":"a\nb"})"), "/name: must be 1 to 64 bytes of text on one line");
    EXPECT_EQ(errorOf(R"({"version":1,"name":"n"})"), "/: needs \"bays\"");
    EXPECT_EQ(errorOf(R"({"version":1,"name":"n","bays":{"A":{"path":"a"}}})"),
              "/bays: needs two to four bays");
    EXPECT_EQ(errorOf(R"({"version":1,"name":"n","bays":{"A":{"path":"a"},"E":{"path":"b"}}})"),
              "/bays/E: is not a known key");
    EXPECT_EQ(errorOf(R"({"version":1,"name":"n","bay":{}, "bays":{"A":{"path":"a"},"B":{"path":"b"}}})"),
              "/bay: is not a known key");
    EXPECT_EQ(errorOfPort(R"({"path":"b"})"), "/bays/B: b is given twice");
    EXPECT_EQ(errorOfPort(R"({"path":"../sda"})"),
              "/bays/A/path: must be a disk's ID_PATH, like \"pci-0000:00:17.0-ata-3.0\"");
    EXPECT_EQ(errorOfPort(R"({"path":7})"), "/bays/A/path: must be a text");
    EXPECT_EQ(errorOfPort(R"({"path":"a","lun":1})"),
              "/bays/A: \"path\" says all; it cannot stand beside \"port\", \"anchor\" or \"lun\"");
    EXPECT_EQ(errorOfPort("{}"), "/bays/A: needs \"path\", \"port\" or \"lun\"");
    EXPECT_EQ(errorOfPort("[]"), "/bays/A: needs one to eight ports");
    EXPECT_EQ(errorOfPort(R"({"port":"1"})"), "/bays/A: needs an \"anchor\", its own or the definition's");
    EXPECT_EQ(errorOfPort(R"([{"path":"a"},{"path":"c","x":1}])"), "/bays/A/1/x: is not a known key");
    const std::string usb = R"("anchor":{"usb":"2109:0817"},)";
    EXPECT_EQ(errorOfPort(R"({"port":"1/2"})", usb),
              "/bays/A/port: must be the numbers of ports, like \"3\" or \"1.3\"");
    EXPECT_EQ(errorOfPort(R"({"lun":-1})", usb), "/bays/A/lun: must not be less than 0");
    const std::string pci = R"("anchor":{"pci":"1b21:2824"},)";
    EXPECT_EQ(errorOfPort(R"({"port":"a b"})", pci),
              "/bays/A/port: must be a place below the bridge, like \"01.0/00.0-nvme-1\"");
}

TEST(Definition, AnchorsHaveIdsOfFourDigitsAndAreNotTheMachinesOwnHub)
{
    const auto anchored = [](const std::string &anchor) {
        return errorOfPort(R"({"port":"1"})", "\"anchor\":" + anchor + ",");
    };
    const std::string ids = "must be two numbers of four hexadecimal digits, like \"2109:0817\"";
    EXPECT_EQ(anchored(R"({"usb":"2109:0817"})"), "no error");
    EXPECT_EQ(anchored(R"({})"), "/anchor: needs either \"usb\" or \"pci\"");
    EXPECT_EQ(anchored(R"({"usb":"2109:0817","pci":"2109:0817"})"),
              "/anchor: needs either \"usb\" or \"pci\"");
    for (const char *wrong :
         {"", "2109", "2109:", ":0817", "2109:08170", "02109:0817", "2109:081G", "2109:0817 "})
        EXPECT_EQ(anchored(std::string(R"({"usb":")") + wrong + "\"}"), "/anchor/usb: " + ids);
    EXPECT_EQ(anchored(R"({"usb":"1d6b:0003"})"),
              "/anchor/usb: is the machine's own hub, which every machine has; name the port by \"path\"");
    EXPECT_EQ(anchored(R"({"pci":"1b21:2824","serial":"x"})"),
              "/anchor/serial: is known of USB devices only");
    EXPECT_EQ(anchored(R"({"usb":"2109:0817","serial":"a\u0007"})"),
              "/anchor/serial: must be a short text on one line");
}

TEST(Definition, DeepOrLongOrWildJsonIsRefused)
{
    for (const char *bracket : {"[", "{\"a\":"})
        EXPECT_TRUE([&] {
            std::string deep;
            for (int i = 0; i < 20'000; ++i)
                deep += bracket;
            const auto error = errorOf(deep);
            return error == "not JSON" || error == "is nested too deeply";
        }());
    EXPECT_EQ(errorOf(std::string(30, '[') + std::string(30, ']')), "is nested too deeply");
    EXPECT_EQ(errorOf("{\"a\xFF\":1}"), "not JSON");
    EXPECT_EQ(errorOf(R"({"version":1e400})"), "not JSON");
}

TEST(Definition, FileNamesAreMadeOfNames)
{
    EXPECT_EQ(idOfName("Desk dock"), "desk-dock");
    EXPECT_EQ(idOfName("  4 x NVMe / Regal 2. "), "4-x-nvme-regal-2");
    EXPECT_EQ(idOfName("\xC3\xA4\xC3\xB6"), "");
    EXPECT_TRUE(isDefinitionId("desk-dock"));
    for (const char *wrong : {"", "Desk", "a b", "../a", "a.json"})
        EXPECT_FALSE(isDefinitionId(wrong)) << wrong;
    EXPECT_FALSE(isDefinitionId(std::string(65, 'a')));
}

} // namespace orvana::enclosures
