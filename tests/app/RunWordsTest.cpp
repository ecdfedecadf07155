#include "app/RunWords.h"

#include "languages/Languages.h"

#include <gtest/gtest.h>

namespace orvana
{

TEST(RunWords, CompleteSaysWhatIsMissingForVerified)
{
    DestinationSummary destination;
    destination.copied = 3;
    destination.durability = Durability::OnDisk;
    const auto detail = [&] { return RunWords::detailOf(Verdict::Complete, destination); };
    EXPECT_EQ(detail(), QStringLiteral("not verified"));
    destination.verified = 2;
    destination.verifiedFrom = VerifiedFrom::Disk;
    EXPECT_EQ(detail(), QStringLiteral("not all verified"));
    destination.verified = 3;
    destination.verifiedFrom = VerifiedFrom::Cache;
    EXPECT_EQ(detail(), QStringLiteral("read from memory"));
    destination.durability = Durability::Memory;
    EXPECT_EQ(detail(), QStringLiteral("in memory only"));
}

// The terminal asks with the core's sentence, and the window with its own, which can be translated.
TEST(RunWords, EnglishQuestionBeforeAnEraseIsTheCoresOwn)
{
    DiskAtStake disk;
    disk.erase.bay = Bay::B;
    disk.erase.info.diskModule = "HD <b>";
    disk.erase.info.diskVolume = "NEW %1";
    for (const std::string serial : {"", "S%2"}) {
        disk.erase.info.diskSN = serial;
        for (const std::string present : {"OLD\n", "None", "Unformatted"}) {
            for (const std::uint64_t files : {0U, 1U, 2U, 1234567U}) {
                for (const std::uint64_t bytes : {0U, 3000000U}) {
                    for (const int flags : {0, 1, 2, 3, 4}) {
                        disk.content = {flags == 4, (flags & 1) != 0, bytes, files, (flags & 2) != 0};
                        EXPECT_EQ(RunWords::stake(disk, present).toStdString(), stakeText(disk, present));
                    }
                }
            }
        }
    }
}

TEST(RunWords, QuestionBeforeAnEraseIsInTheUsersLanguage)
{
    DiskAtStake disk;
    disk.erase.bay = Bay::B;
    disk.erase.info.diskModule = "HD";
    disk.erase.info.diskSN = "S1";
    disk.erase.info.diskVolume = "NEW";
    disk.content = {false, true, 3'000'000, 12, false};
    const WindowLanguage german(QStringLiteral("de"));
    EXPECT_EQ(RunWords::stake(disk, "OLD").toStdString(),
              "Slot-B: HD, Seriennummer S1, jetzt OLD, enthält 2.86 MB in "
              "mindestens 12 Dateien, wird NEW");
}

} // namespace orvana
