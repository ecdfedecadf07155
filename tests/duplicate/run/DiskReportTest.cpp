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
