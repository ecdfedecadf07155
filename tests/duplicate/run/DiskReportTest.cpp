// The entries of a report about whole disks: erased, failed, refused or left out.

#include "duplicate/run/DiskReport.h"
#include "duplicate/report/RunReport.h"
#include "support/StoppedClock.h"
#include "support/TemporaryTree.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace orvana
{

using Lines = std::vector<std::string>;

class DiskReport : public testing::Test
{
protected:
    Json written()
    {
        m_report.begin("/Volumes/Master", {}, false);
        m_report.finish(RunOutcome::Finished);
        return Json::parse(test::contentOf(m_report.path()));
    }

    test::TemporaryTree m_tree;
    test::StoppedClock m_clock;
    RunReport m_report{m_tree.folder("reports"), "stamp", m_clock};
    ErasePlan m_erase{.disks = {{Bay::B, {"SN2", "Model 2", "/dev/disk2", "COPY1"}},
                                {Bay::C, {"SN3", "Model 3", "/dev/disk3", "COPY2"}}},
                      .refusals = {},
                      .badNames = {}};
};

/// Disks that get new errors each time that they are asked.
class WearingDisks final : public platform::HealthReader
{
public:
    platform::DiskHealth healthOf(const std::string &device) override
    {
        platform::DiskHealth health;
        health.isFailing = false;
        health.errors = device == "/dev/disk2" ? m_errors += 3 : 0;
        return health;
    }

private:
    std::int64_t m_errors = 0;
};

TEST_F(DiskReport, WhatIsNewOfADisksHealthAfterTheRunIsTold)
{
    std::vector<PlannedDestination> destinations(2);
    destinations[0].bay = Bay::B;
    destinations[0].name = "COPY1";
    destinations[0].disk = {"SN2", "Model 2", "/dev/disk2", "COPY1"};
    destinations[1].bay = Bay::C;
    destinations[1].name = "COPY2";
    destinations[1].disk = {"SN3", "Model 3", "/dev/disk3", "COPY2"};
    WearingDisks reader;
    const auto before = healthOf(destinations, reader);
    m_report.describe(disksOf(destinations, before));
    m_report.begin("/Volumes/Master", {"/Volumes/COPY1", "/Volumes/COPY2"}, false);
    m_report.failed(0, "/Volumes/Master/a", "Input/output error");
    m_report.finish(RunOutcome::Finished);
    reportHealthAfter(m_report, destinations, before, reader);
    EXPECT_EQ(healthLines(m_report.summary()),
              (Lines{"Slot-B (COPY1): warning: 3 new errors", "Slot-C (COPY2): good"}));
    const auto report = Json::parse(test::contentOf(m_report.path()));
    EXPECT_EQ(report["destinations"][0]["health"], "good");
    EXPECT_EQ(report["destinations"][0]["healthAfter"], "warning: 3 new errors");
    EXPECT_EQ(report["problems"].size(), 1U);
}

TEST_F(DiskReport, NamesEachErasedDisk)
{
    reportErase(m_report, m_erase, {{m_erase.disks[0].info, true, {}}, {m_erase.disks[1].info, true, {}}});
    EXPECT_TRUE(isAllDone(m_report.summary()));
    EXPECT_EQ(diskLines(m_report.summary()), Lines());
    EXPECT_EQ(written()["disks"][0], Json::parse(R"({"bay":"Slot-B","name":"COPY1","model":"Model 2",
        "serial":"SN2","device":"/dev/disk2","outcome":"erased"})"));
}

TEST_F(DiskReport, FailedEraseIsToldWithItsReason)
{
    reportErase(m_report, m_erase,
                {{m_erase.disks[0].info, false, "Error: busy"}, {m_erase.disks[1].info, true, {}}});
    EXPECT_FALSE(isAllDone(m_report.summary()));
    EXPECT_EQ(diskLines(m_report.summary()), (Lines{"Slot-B (COPY1): could not be erased: Error: busy"}));
    const auto disk = written()["disks"][0];
    EXPECT_EQ(disk["outcome"], "eraseFailed");
    EXPECT_EQ(disk["reason"], "Error: busy");
}

TEST_F(DiskReport, OnlyBaysWhoseEraseIsKnownToHaveSucceededAreErased)
{
    const auto bays = baysNotErased(m_erase, {{m_erase.disks[0].info, true, {}}});
    EXPECT_FALSE(bays[Bay::B]);
    EXPECT_TRUE(bays[Bay::C]) << "the tool was stopped before it";
    EXPECT_TRUE(bays[Bay::D]) << "it was in no plan";
}

TEST_F(DiskReport, DiskThatTheToolDidNotComeToCountsAsFailed)
{
    reportErase(m_report, m_erase, {{m_erase.disks[0].info, true, {}}});
    EXPECT_EQ(diskLines(m_report.summary()),
              (Lines{"Slot-C (COPY2): could not be erased: the erase was stopped before it"}));
}

TEST_F(DiskReport, RefusedDiskFailsTheRun)
{
    reportDestinations(
        m_report,
        {{{Bay::C, "COPY2", "/Volumes/COPY2", {}, {}}}, {{"Slot-B", "COPY1", RefusalReason::NotMounted}}, {}},
        {});
    EXPECT_FALSE(isAllDone(m_report.summary()));
    EXPECT_EQ(diskLines(m_report.summary()), (Lines{"Slot-B (COPY1): refused: its volume is not mounted"}));
}

TEST_F(DiskReport, DiskThatIsLeftOutAsExpectedDoesNotFailTheRun)
{
    RunChoice choice;
    choice.names[Bay::D] = "SMALL";
    reportDestinations(m_report,
                       {{{Bay::C, "COPY2", "/Volumes/COPY2", {}, {}}},
                        {{"Slot-A", "Master", RefusalReason::CarriesSource}},
                        {Bay::D}},
                       choice);
    EXPECT_TRUE(isAllDone(m_report.summary()));
    EXPECT_EQ(diskLines(m_report.summary()), (Lines{"Slot-A (Master): left out: it carries the source",
                                                    "Slot-D (SMALL): left out: the selection does not fit"}));
    EXPECT_EQ(written()["disks"][1]["outcome"], "leftOut");
}

TEST_F(DiskReport, WhatIsRefusedForTheEraseAndForTheCopyIsToldOnce)
{
    const std::vector<DiskRefusal> refusals{{"Slot-A", "Master", RefusalReason::CarriesSource}};
    m_erase.refusals = refusals;
    reportErase(m_report, m_erase, {});
    reportDestinations(m_report, {{}, refusals, {}}, {});
    EXPECT_EQ(diskLines(m_report.summary()).size(), 3U);
}

TEST_F(DiskReport, RunWithoutADestinationSaysSo)
{
    reportDestinations(m_report, {}, {});
    EXPECT_FALSE(isAllDone(m_report.summary()));
    EXPECT_EQ(written()["note"], "no destination");
}

TEST_F(DiskReport, OrdinaryRunHasNoNote)
{
    EXPECT_FALSE(written().contains("note"));
}

TEST_F(DiskReport, NameThatIsNoTextCarriesItsBytes)
{
    m_report.disk({"Slot-B", "a\xFF", {}, DiskOutcome::Refused, "x"});
    EXPECT_TRUE(written()["disks"][0].contains("nameBytes"));
}

} // namespace orvana
