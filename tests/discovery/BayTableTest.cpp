#include "discovery/BayTable.h"
#include "discovery/ScanFixture.h"

namespace orvana
{

TEST(BayTable, EveryRowGivesItsBay)
{
    const std::string before = "IOService:/AppleACPIPlatformExpert/PCI0@0/RP05@1C,4/IOPP/UPSB@0/IOPP/";
    const std::string after = "@0/AppleAHCI/";
    const struct
    {
        std::string path;
        std::optional<std::string> bay;
    } rows[] = {
        {before + "pci-bridge@0/IOPP/pci1b21,612" + after + "PRT0@0/IOAHCIDevice@0", "Slot-A"},
        {before + "pci-bridge@1/IOPP/pci1b21,612" + after + "PRT0@0/IOAHCIDevice@0", "Slot-B"},
        {before + "pci-bridge@2/IOPP/pci1b21,612" + after + "PRT0@0/IOAHCIDevice@0", "Slot-C"},
        {before + "pci-bridge@3/IOPP/pci1b21,612" + after + "PRT0@0/IOAHCIDevice@0", "Slot-D"},
        {before + "pci-bridge@4/IOPP/pci1b21,612" + after + "PRT0@0/IOAHCIDevice@0", std::nullopt},
        {before + "pci-bridge@0/IOPP/pci1b21,625" + after + "PRT0@0/IOAHCIDevice@0", "Slot-A"},
        {before + "pci-bridge@0/IOPP/pci1b21,625" + after + "PRT1@1/IOAHCIDevice@0", "Slot-B"},
        {before + "pci-bridge@3/IOPP/pci1b21,625" + after + "PRT0@0/IOAHCIDevice@0", "Slot-C"},
        {before + "pci-bridge@3/IOPP/pci1b21,625" + after + "PRT1@1/IOAHCIDevice@0", "Slot-D"},
        {before + "pci-bridge@1/IOPP/pci1b21,625" + after + "PRT0@0/IOAHCIDevice@0", std::nullopt},
        {before + "pci-bridge@2/IOPP/pci1b21,625" + after + "PRT1@1/IOAHCIDevice@0", std::nullopt},
        {before + "pci-bridge@0/IOPP/pci1b21,625" + after + "PRT2@2/IOAHCIDevice@0", std::nullopt},
        {before + "pci-bridge@0/IOPP/pci8086,2922" + after + "PRT0@0/IOAHCIDevice@0", std::nullopt},
        {"", std::nullopt},
    };
    for (const auto &[path, bay] : rows)
        EXPECT_EQ(bayOf(path), bay) << path;
}

TEST(BayTable, FirstControllerIsNeverLookedAtForTheSecond)
{
    EXPECT_EQ(bayOf("pci1b21,612/pci-bridge@0/IOPP/pci1b21,625/PRT0@0/"), std::nullopt);
}

} // namespace orvana
