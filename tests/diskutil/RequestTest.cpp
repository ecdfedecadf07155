// The command line, and the names that volumes may have.

#include "diskutil/Request.h"
#include "diskutil/VolumeFormat.h"

#include <gtest/gtest.h>

namespace orvana::diskutil
{

TEST(DiskUtilityRequest, EraseHasFormatNameDeviceAndExpectations)
{
    const auto request = readRequest({"eraseDisk", "JHFS+", "COPY 1", "/dev/sdb", "--expect-sequence=7",
                                      "--expect-serial=SN=1", "--expect-size=512", "--expect-bay=x/0"});
    ASSERT_TRUE(request);
    EXPECT_EQ(request->verb, Verb::EraseDisk);
    EXPECT_EQ(request->format, "JHFS+");
    EXPECT_EQ(request->name, "COPY 1");
    EXPECT_EQ(request->node, "/dev/sdb");
    EXPECT_EQ(request->expected.sequence, 7U);
    EXPECT_EQ(request->expected.serial, "SN=1");
    EXPECT_EQ(request->expected.size, 512U);
    EXPECT_EQ(request->expected.bay, "x/0");
}

TEST(DiskUtilityRequest, DisksThatMustNotBeTouchedAreNamedByTheirMarks)
{
    const auto request =
        readRequest({"eject", "/dev/sdb", "--spare=device=/dev/sda,arrival=3,size=512,wwn=0x5,serial=S,1=x",
                     "--spare=size=7,serial="});
    ASSERT_TRUE(request);
    ASSERT_EQ(request->expected.spared.size(), 2U);
    EXPECT_EQ(request->expected.spared[0], (platform::DiskFingerprint{"/dev/sda", "S,1=x", "0x5", 3, 512}));
    EXPECT_EQ(request->expected.spared[1],
              (platform::DiskFingerprint{"", std::nullopt, std::nullopt, std::nullopt, 7}));
}

TEST(DiskUtilityRequest, MarkThatIsNotUnderstoodIsWrong)
{
    for (const char *word : {"--spare=", "--spare=serial", "--spare=size=x,serial=", "--spare=size=1",
                             "--spare=colour=red,serial=", "--spare=size=1,size=2,serial=",
                             "--spare=size=99999999999999999999,serial=", "--spare=,serial="}) {
        const auto request = readRequest({"eject", "/dev/sdb", word});
        ASSERT_FALSE(request) << word;
        EXPECT_EQ(request.error().status, WrongUsage);
    }
}

TEST(DiskUtilityRequest, EjectHasADevice)
{
    const auto request = readRequest({"eject", "/dev/sdb"});
    ASSERT_TRUE(request);
    EXPECT_EQ(request->verb, Verb::Eject);
    EXPECT_EQ(request->node, "/dev/sdb");
    EXPECT_EQ(request->expected.serial, std::nullopt);
}

TEST(DiskUtilityRequest, QuestionForABayHasADeviceAlone)
{
    const auto request = readRequest({"isInBay", "/dev/sdb"});
    ASSERT_TRUE(request);
    EXPECT_EQ(request->verb, Verb::IsInBay);
    EXPECT_EQ(request->node, "/dev/sdb");
    EXPECT_FALSE(readRequest({"isInBay"}));
    EXPECT_FALSE(readRequest({"isInBay", "--expect-size=1"}));
    EXPECT_FALSE(readRequest({"isInBay", "/dev/sdb", "/dev/sdc"}));
}

TEST(DiskUtilityRequest, VolumeMayBeNamedLikeAnOption)
{
    const auto request = readRequest({"eraseDisk", "ext4", "--expect-size=1", "/dev/sdb"});
    ASSERT_TRUE(request);
    EXPECT_EQ(request->name, "--expect-size=1");
    EXPECT_EQ(request->expected.size, std::nullopt);
}

TEST(DiskUtilityRequest, AnythingElseIsWrongUsage)
{
    const std::vector<std::string> wrong[] = {
        {},
        {"eraseDisk"},
        {"eraseDisk", "JHFS+", "COPY", "/dev/sdb", "more"},
        {"eject"},
        {"eject", "/dev/sdb", "/dev/sdc"},
        {"eject", "/dev/sdb", "--force"},
        {"eject", "/dev/sdb", "--expect-size=12x"},
        {"eject", "/dev/sdb", "--expect-sequence="},
        {"eject", "/dev/sdb", "--expect-serial=SN1", "--expect-serial=SN2"},
        {"erasedisk", "JHFS+", "COPY", "/dev/sdb"},
    };
    for (const auto &words : wrong) {
        const auto request = readRequest(words);
        ASSERT_FALSE(request);
        EXPECT_EQ(request.error().status, WrongUsage);
    }
}

TEST(DiskUtilityFormat, JournaledStandsForExt4OrTheSetting)
{
    EXPECT_STREQ(formatOf("JHFS+", std::nullopt)->type, "ext4");
    EXPECT_STREQ(formatOf("JHFS+", "xfs")->type, "xfs");
    EXPECT_STREQ(formatOf("exfat", "xfs")->type, "exfat");
    EXPECT_STREQ(formatOf("JHFS+", "")->type, "ext4") << "an empty setting is none";
}

TEST(DiskUtilityFormat, UnknownFormatIsRefused)
{
    EXPECT_EQ(formatOf("vfat", std::nullopt).error().status, Refused);
    EXPECT_EQ(formatOf("JHFS+", "reiserfs").error().status, Refused);
}

TEST(DiskUtilityFormat, NameOfJustTheLimitIsTaken)
{
    EXPECT_TRUE(checkName(*formatOf("ext4", {}), std::string(16, 'x')));
    EXPECT_TRUE(checkName(*formatOf("xfs", {}), std::string(12, 'x')));
    EXPECT_TRUE(checkName(*formatOf("exfat", {}), "äöüäöüäöüäö"));
}

TEST(DiskUtilityFormat, NameOverTheLimitIsRefusedWithNameAndLimit)
{
    const auto ext4 = checkName(*formatOf("ext4", {}), "seventeen letters");
    ASSERT_FALSE(ext4);
    EXPECT_EQ(ext4.error().status, Refused);
    EXPECT_EQ(ext4.error().reason, "\"seventeen letters\": longer than 16 bytes, which is the limit of ext4");
    EXPECT_FALSE(checkName(*formatOf("ext4", {}), "äöüäöüäöü")) << "its bytes count";
    EXPECT_FALSE(checkName(*formatOf("xfs", {}), std::string(13, 'x')));
    EXPECT_EQ(checkName(*formatOf("exfat", {}), std::string(12, 'x')).error().reason,
              "\"xxxxxxxxxxxx\": longer than 11 characters, which is the limit of exFAT");
    EXPECT_FALSE(checkName(*formatOf("exfat", {}), "😀😀😀😀😀😀")) << "each counts twice";
}

TEST(DiskUtilityFormat, NameThatStandsForSomethingElseIsRefused)
{
    for (const auto &name :
         {std::string(), std::string("."), std::string(".."), std::string("None"), std::string("Unformatted"),
          std::string("a/b"), std::string("a\0b", 3), std::string("a\nb"), std::string("a\xFF")})
        EXPECT_FALSE(checkName(*formatOf("ext4", {}), name)) << name;
}

TEST(DiskUtilityFormat, BlankIsRefusedWhereTheFileSystemTakesNone)
{
    EXPECT_FALSE(checkName(*formatOf("xfs", {}), "COPY 1"));
    EXPECT_TRUE(checkName(*formatOf("ext4", {}), "COPY 1"));
}

} // namespace orvana::diskutil
