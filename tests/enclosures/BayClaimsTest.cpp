#include "enclosures/BayClaims.h"

#include <gtest/gtest.h>

namespace orvana::enclosures
{

namespace
{

const Anchor Hub{Bus::Usb, 0x2109, 0x0817, {}};

Anchor hubWith(const std::string &serial)
{
    return {Bus::Usb, 0x2109, 0x0817, serial};
}

Port portOf(const Anchor &anchor, const std::string &below, std::optional<int> lun = {})
{
    return {{}, anchor, below, lun};
}

Port pathOf(const std::string &path)
{
    return {path, {}, {}, {}};
}

Definition dock(const Anchor &anchor, const std::string &id = "dock")
{
    return {id, "Dock", {{'A', {portOf(anchor, "1")}}, {'B', {portOf(anchor, "2")}}}};
}

/// A disk below the device of that key.
DiskPlace diskAt(const std::string &name, const std::string &key, const std::string &below,
                 std::optional<int> lun = 0)
{
    return {name, "path-" + name, lun, {{key, below}}};
}

/// The bays that are taken: "A sdb" for the first definition, "2A sdb" for the second.
std::vector<std::string> baysOf(const BayClaims &claims)
{
    std::vector<std::string> bays;
    for (const auto &[disk, claim] : claims.bays)
        bays.push_back((claim.definition == 0 ? "" : std::to_string(claim.definition + 1)) + claim.bay + " " +
                       disk);
    return bays;
}

using Bays = std::vector<std::string>;

} // namespace

TEST(BayClaims, DiskIsInTheBayThatNamesItsPort)
{
    const auto claims =
        claimBays({dock(Hub)}, {{"hub", hubWith("D1")}},
                  {diskAt("sdb", "hub", "1"), diskAt("sdc", "hub", "2"), diskAt("sdd", "hub", "3")});
    EXPECT_EQ(baysOf(claims), (Bays{"A sdb", "B sdc"}));
    EXPECT_EQ(claims.isPresent, std::vector<bool>{true});
    EXPECT_TRUE(claims.unclear.empty());
    EXPECT_TRUE(claims.remarks.empty());
}

TEST(BayClaims, DefinitionWithAnAnchorIsThereWhileTheAnchorIs)
{
    EXPECT_EQ(claimBays({dock(Hub)}, {}, {}).isPresent, std::vector<bool>{false});
    EXPECT_EQ(claimBays({dock(Hub)}, {{"hub", Hub}}, {}).isPresent, std::vector<bool>{true});
    EXPECT_EQ(claimBays({dock(hubWith("D1"))}, {{"hub", hubWith("D2")}}, {}).isPresent,
              std::vector<bool>{false});
    const Definition backplane{"b", "B", {{'A', {pathOf("ata-1")}}, {'B', {pathOf("ata-2")}}}};
    EXPECT_EQ(claimBays({backplane}, {}, {}).isPresent, std::vector<bool>{true});
}

TEST(BayClaims, AnchorThatIsThereTwiceHasNoBaysWithDisksInItOrNot)
{
    const std::string remark =
        "Dock (dock.json): USB 2109:0817 is there 2 times and cannot be told apart; it has no bays";
    for (const auto &[first, second] :
         {std::pair(Hub, Hub), {hubWith("D1"), hubWith("D2")}, {hubWith("D1"), Hub}}) {
        const auto claims = claimBays({dock(Hub)}, {{"1", first}, {"2", second}}, {diskAt("sdb", "1", "1")});
        EXPECT_EQ(baysOf(claims), Bays{});
        EXPECT_EQ(claims.isPresent, std::vector<bool>{false});
        EXPECT_EQ(claims.remarks, Bays{remark});
    }
    const auto same = claimBays({dock(hubWith("D1"))}, {{"1", hubWith("D1")}, {"2", hubWith("D1")}}, {});
    EXPECT_EQ(same.isPresent, std::vector<bool>{false});
}

TEST(BayClaims, TwoDocksOfOneKindAreToldBySerialNumber)
{
    const auto claims = claimBays({dock(hubWith("D1"), "one"), dock(hubWith("D2"), "two")},
                                  {{"1", hubWith("D1")}, {"2", hubWith("D2")}},
                                  {diskAt("sdb", "1", "1"), diskAt("sdc", "2", "1")});
    EXPECT_EQ(baysOf(claims), (Bays{"A sdb", "2A sdc"}));
}

TEST(BayClaims, AnchorOfTheMachineItselfHasNoBays)
{
    const auto claims =
        claimBays({dock(Hub)}, {{"hub", Hub, "is built into the machine"}}, {diskAt("sdb", "hub", "1")});
    EXPECT_EQ(baysOf(claims), Bays{});
    EXPECT_EQ(claims.remarks,
              Bays{"Dock (dock.json): USB 2109:0817 is built into the machine; it has no bays"});
}

TEST(BayClaims, PortThatTwoDefinitionsNameIsNoBay)
{
    auto other = dock(Hub, "other");
    other.bays = {{'C', {portOf(Hub, "2")}}, {'D', {pathOf("path-sdb")}}};
    const auto claims =
        claimBays({dock(Hub), other}, {{"hub", Hub}}, {diskAt("sdb", "hub", "1"), diskAt("sdc", "hub", "2")});
    EXPECT_EQ(baysOf(claims), Bays{});
    EXPECT_EQ(claims.unclear.at("sdb"),
              "its port is Slot-A of Dock (dock.json) and also Slot-D of Dock (other.json)");
    EXPECT_TRUE(claims.unclear.contains("sdc"));
    EXPECT_EQ(
        sharedPorts({dock(Hub), other}),
        Bays{"port 2 below USB 2109:0817 is Slot-B of Dock (dock.json) and also Slot-C of Dock (other.json); "
             "it is no bay"});
}

TEST(BayClaims, PortThatTwoDisksClaimIsNoBay)
{
    const auto claims =
        claimBays({dock(Hub)}, {{"hub", Hub}},
                  {diskAt("sdb", "hub", "1", 0), diskAt("sdc", "hub", "1", 1), diskAt("sdd", "hub", "2")});
    EXPECT_EQ(baysOf(claims), Bays{"B sdd"});
    EXPECT_EQ(claims.unclear.at("sdb"), "another disk is at Slot-A of Dock (dock.json), too");
    EXPECT_TRUE(claims.unclear.contains("sdc"));
}

TEST(BayClaims, SeveralDisksBehindOneBridgeAreToldByTheirNumber)
{
    const Definition bridge{"b", "B", {{'A', {portOf(Hub, "", 0)}}, {'B', {portOf(Hub, "", 1)}}}};
    const auto claims =
        claimBays({bridge}, {{"hub", Hub}},
                  {diskAt("sdb", "hub", "", 0), diskAt("sdc", "hub", "", 1), diskAt("sdd", "hub", "", 2)});
    EXPECT_EQ(baysOf(claims), (Bays{"A sdb", "B sdc"}));
}

TEST(BayClaims, BayMayHaveSeveralPortsButOneDisk)
{
    const Anchor slow{Bus::Usb, 0x2109, 0x2817, {}};
    Definition usb3 = dock(Hub);
    usb3.bays['A'].push_back(portOf(slow, "1"));
    const std::vector<AnchorDevice> hubs{{"fast", Hub}, {"slow", slow}};
    EXPECT_EQ(baysOf(claimBays({usb3}, hubs, {diskAt("sdb", "slow", "1")})), Bays{"A sdb"});
    EXPECT_EQ(baysOf(claimBays({usb3}, hubs, {diskAt("sdb", "fast", "1")})), Bays{"A sdb"});
    EXPECT_EQ(baysOf(claimBays({usb3}, hubs, {diskAt("sdb", "fast", "1"), diskAt("sdc", "slow", "1")})),
              Bays{});
}

TEST(BayClaims, DiskWithoutAPathIsAtNoPath)
{
    const Definition backplane{"b", "B", {{'A', {pathOf("ata-1")}}, {'B', {pathOf("ata-2")}}}};
    EXPECT_EQ(baysOf(claimBays({backplane}, {}, {{"sdb", "", {}, {}}, {"sdc", "ata-2", {}, {}}})),
              Bays{"B sdc"});
}

} // namespace orvana::enclosures
