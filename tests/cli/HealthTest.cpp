// Disks that call themselves failing, and what they say in the list of devices and in the report.

#include "cli/MachineFixture.h"

namespace orvana::cli
{

class DiskHealthOption : public SimulatedMachineTest
{
protected:
    DiskHealthOption()
    {
        bay(1)["health"] = {{"failing", true}, {"badSectors", 2000}};
        bay(2)["health"] = {{"failing", false}, {"celsius", 31}};
        bay(3)["attached"] = false;
        m_options.yes = true;
    }
};

TEST_F(DiskHealthOption, WithoutItNoDiskIsLeftOut)
{
    EXPECT_EQ(duplicate(), AllDone);
    EXPECT_EQ(filesOn("COPY1").size(), 5U);
}

TEST_F(DiskHealthOption, FailingDiskIsLeftOutAndTheOthersAreCopiedTo)
{
    m_options.settings.health = true;
    EXPECT_EQ(duplicate(), SomethingFailed);
    EXPECT_EQ(filesOn("COPY1"), (Files{"old1"}));
    EXPECT_EQ(filesOn("COPY2").size(), 5U);
    EXPECT_NE(m_err.find("Slot-B (COPY1): it calls itself failing"), std::string::npos) << m_err;
    EXPECT_EQ(report()["destinations"][0]["health"], "good, 31 °C");
    EXPECT_EQ(report()["destinations"][0]["healthAfter"], "good, 31 °C");
    EXPECT_NE(m_err.find("Slot-C (COPY2): good, 31 °C\n"), std::string::npos) << m_err;
    EXPECT_EQ(report()["problems"].size(), 0U);
}

TEST_F(DiskHealthOption, FailingDiskIsNotErased)
{
    m_options.settings.health = true;
    m_options.erase = true;
    EXPECT_EQ(duplicate(), SomethingFailed);
    EXPECT_EQ(filesOn("COPY1"), (Files{"old1"}));
    EXPECT_EQ(filesOn("COPY2").size(), 4U);
}

TEST_F(DiskHealthOption, FailingDiskIsUsedWhenItsSerialNumberIsInsistedOn)
{
    m_options.settings.health = true;
    m_options.insisted = {"SB"};
    EXPECT_EQ(duplicate(), AllDone);
    EXPECT_EQ(report()["destinations"][0]["health"], "calls itself failing: 2000 bad sectors");
    m_options.insisted = {"SC"};
    EXPECT_EQ(duplicate(), SomethingFailed);
}

TEST_F(DiskHealthOption, FailingSourceIsCopied)
{
    bay(0)["health"] = {{"failing", true}};
    bay(1)["health"] = {{"failing", false}};
    m_options.settings.health = true;
    EXPECT_EQ(duplicate(), AllDone);
}

TEST_F(DiskHealthOption, DevicesSayHowTheyAre)
{
    const auto plain = program({"devices"});
    EXPECT_EQ(plain, AllDone);
    EXPECT_EQ(m_out.find("failing"), std::string::npos);
    EXPECT_EQ(program({"devices", "--health"}), AllDone);
    EXPECT_NE(m_out.find("calls itself failing: 2000 bad sectors"), std::string::npos) << m_out;
    EXPECT_NE(m_out.find("not known"), std::string::npos) << m_out;
}

} // namespace orvana::cli
