#include "duplicate/disktool/VolumeName.h"

#include <gtest/gtest.h>

namespace orvana
{

TEST(NameGuards, OrdinaryNamesAreAllowed)
{
    for (const char *name : {"COPY1", "My Disk", "...", "Überspielung 1", "none"})
        EXPECT_EQ(refusalOfName(name, EraseFormat::Ext4), std::nullopt) << name;
}

TEST(NameGuards, NameIsNeeded)
{
    EXPECT_EQ(refusalOfName("", EraseFormat::Ext4), NameRefusalReason::Empty);
}

TEST(NameGuards, NamesThatMeanSomethingElseAreRefused)
{
    for (const char *name : {".", "..", "None", "Unformatted"})
        EXPECT_EQ(refusalOfName(name, EraseFormat::Ext4), NameRefusalReason::Reserved) << name;
}

TEST(NameGuards, NamesThatWouldLeadElsewhereAreRefused)
{
    EXPECT_EQ(refusalOfName("a/b", EraseFormat::Ext4), NameRefusalReason::Separator);
    EXPECT_EQ(refusalOfName(std::string("a\0b", 3), EraseFormat::Ext4), NameRefusalReason::Separator);
}

TEST(NameGuards, NamesThatAreNoTextAreRefused)
{
    EXPECT_EQ(refusalOfName("a\xFF", EraseFormat::Ext4), NameRefusalReason::NotText);
    EXPECT_EQ(refusalOfName("a\nb", EraseFormat::Ext4), NameRefusalReason::NotText);
}

TEST(NameGuards, BlanksThatTheListOfVolumesLosesAreRefused)
{
    for (const char *name : {" a", "a ", "a  b"})
        EXPECT_EQ(refusalOfName(name, EraseFormat::Ext4), NameRefusalReason::LostBlanks) << name;
}

TEST(NameGuards, XfsTakesNoBlanks)
{
    EXPECT_EQ(refusalOfName("COPY 1", EraseFormat::Xfs), NameRefusalReason::Blanks);
    EXPECT_EQ(refusalOfName("COPY 1", EraseFormat::ExFat), std::nullopt);
}

TEST(NameGuards, CharacterThatIsNotShownIsRefused)
{
    EXPECT_EQ(refusalOfName("a\xE2\x80\x8E"
                            "b",
                            EraseFormat::Ext4),
              NameRefusalReason::NotText)
        << "it turns the writing direction";
}

TEST(NameGuards, EachFormatHasItsLimit)
{
    EXPECT_EQ(refusalOfName(std::string(16, 'a'), EraseFormat::Ext4), std::nullopt);
    EXPECT_EQ(refusalOfName(std::string(17, 'a'), EraseFormat::Ext4), NameRefusalReason::TooLong);
    EXPECT_EQ(refusalOfName(std::string(12, 'a'), EraseFormat::Xfs), std::nullopt);
    EXPECT_EQ(refusalOfName(std::string(13, 'a'), EraseFormat::Xfs), NameRefusalReason::TooLong);
    EXPECT_EQ(refusalOfName(std::string(11, 'a'), EraseFormat::ExFat), std::nullopt);
    EXPECT_EQ(refusalOfName(std::string(12, 'a'), EraseFormat::ExFat), NameRefusalReason::TooLong);
}

TEST(NameGuards, FormatIsTheOneOfTheSettingElseExt4)
{
    EXPECT_EQ(eraseFormatOf("xfs"), EraseFormat::Xfs);
    EXPECT_EQ(eraseFormatOf("exfat"), EraseFormat::ExFat);
    for (const char *setting : {"", "ext4", "XFS", "btrfs"})
        EXPECT_EQ(eraseFormatOf(setting), EraseFormat::Ext4) << setting;
}

TEST(NameGuards, LimitsAreInBytesOrCharactersAsTheFormatKeepsThem)
{
    const std::string elevenUmlauts = "üüüüüüüüüüü";
    EXPECT_EQ(refusalOfName(elevenUmlauts, EraseFormat::Ext4), NameRefusalReason::TooLong);
    EXPECT_EQ(refusalOfName(elevenUmlauts, EraseFormat::ExFat), std::nullopt);
    const std::string sixPictures = "😀😀😀😀😀😀";
    EXPECT_EQ(refusalOfName(sixPictures, EraseFormat::ExFat), NameRefusalReason::TooLong);
}

} // namespace orvana
