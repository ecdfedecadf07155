#include "duplicate/evidence/ChecksumLine.h"

#include "support/Shell.h"
#include "support/TemporaryTree.h"

#include <gtest/gtest.h>

namespace orvana
{

namespace
{

const std::string Md5 = "ab56b4d92b40713acc5af89985d4b786";
const std::string Sha256 = "36bbe50ed96841d10443bcb670d6554f0a34b761be67ec9c4a8ad2c0c44ca42c";

std::string problem(const std::string &line, std::optional<DigestFormat> expected = std::nullopt)
{
    const auto read = readChecksumLine(line, expected);
    return read ? "none" : read.error();
}

ChecksumLine read(const std::string &line, std::optional<DigestFormat> expected = std::nullopt)
{
    const auto found = readChecksumLine(line, expected);
    EXPECT_TRUE(found && *found) << line;
    return found && *found ? **found : ChecksumLine();
}

TEST(ChecksumLine, FormsOfAllCheckersAreRead)
{
    const ChecksumLine wanted{DigestFormat::Sha256, Sha256, "a  b"};
    EXPECT_EQ(read(Sha256 + "  a  b"), wanted);
    EXPECT_EQ(read(Sha256 + " *a  b\r"), wanted);
    EXPECT_EQ(read(Sha256 + "  ./a  b"), wanted);
    EXPECT_EQ(read("SHA256 (a  b) = " + Sha256), wanted);
    EXPECT_EQ(read("XXH3_55c65158ee9e652d  f").format, DigestFormat::Xxh3);
    EXPECT_EQ(read("55C65158EE9E652D  f"), (ChecksumLine{DigestFormat::Xxh64, "55c65158ee9e652d", "f"}));
    EXPECT_EQ(read("MD5 (a) = b) = " + Md5).path, "a) = b");
}

TEST(ChecksumLine, DigitsThatTwoFormatsHaveAreWhatIsExpected)
{
    EXPECT_EQ(read(Md5 + "  f", DigestFormat::Md5).format, DigestFormat::Md5);
    EXPECT_EQ(read(Md5 + "  f", DigestFormat::Xxh128).format, DigestFormat::Xxh128);
    EXPECT_EQ(problem(Md5 + "  f"), "begins with no digest that is known or expected");
}

TEST(ChecksumLine, EmptyLinesAndCommentsAreNothing)
{
    for (const char *line : {"", "\r", "# made yesterday"})
        EXPECT_EQ(readChecksumLine(line, std::nullopt).value(), std::nullopt);
}

TEST(ChecksumLine, PathThatLeadsOutOfTheFolderIsRefused)
{
    for (const char *path : {"/etc/passwd", "../a", "a/../../b", "a/..", "a//b", "a/./b", "", "a/", "./"})
        EXPECT_EQ(problem(Sha256 + "  " + path), "has a path that does not lie below the folder") << path;
    EXPECT_EQ(problem("\\" + Sha256 + "  \\n/../a"), "has a path that does not lie below the folder");
    EXPECT_EQ(problem(Sha256 + "  " + std::string("a\0b", 3)),
              "has a path that does not lie below the folder");
    EXPECT_EQ(read(Sha256 + "  ..a/b..").path, "..a/b..");
}

TEST(ChecksumLine, DamagedLineIsRefusedWithItsReason)
{
    EXPECT_EQ(problem("hello"), "is not \"digest, two blanks, path\"");
    EXPECT_EQ(problem(Sha256 + " f"), "is not \"digest, two blanks, path\"");
    EXPECT_EQ(problem(Sha256.substr(1) + "  f"), "begins with no digest that is known or expected");
    EXPECT_EQ(problem("SHA256 (f) = " + Md5), "has no sha256 digest");
    EXPECT_EQ(problem("SHA256 (f"), "has no digest behind the path");
    EXPECT_EQ(problem("\\" + Sha256 + "  a\\t"), "has an unknown escape in its path");
    EXPECT_EQ(problem("\\" + Sha256 + "  a\\"), "has an unknown escape in its path");
    EXPECT_EQ(problem("\\"), "is not \"digest, two blanks, path\"");
}

TEST(ChecksumLine, WhatIsWrittenIsReadBackTheSame)
{
    for (const std::string path :
         {"a", "a b", "\xFF\xFE", "back\\slash", "new\nline", "return\r", "a) = b", "*"}) {
        const ChecksumLine line{DigestFormat::Sha256, Sha256, path};
        ASSERT_TRUE(textOf(line));
        EXPECT_EQ(read(*textOf(line)), line);
    }
}

TEST(ChecksumLine, NameThatXxhsumCannotReadHasNoLine)
{
    ChecksumLine line{DigestFormat::Xxh128, Md5, "new\nline"};
    EXPECT_EQ(textOf(line), std::nullopt);
    line.path = "back\\slash";
    EXPECT_EQ(textOf(line), Md5 + "  back\\slash");
    line.path = "../a";
    EXPECT_EQ(textOf(line), std::nullopt);
    EXPECT_EQ(textOf({DigestFormat::C4, std::string(90, 'c'), "a"}), std::nullopt);
}

TEST(ChecksumLine, CoreutilsAcceptOurLinesAndWeTheirs)
{
    const test::TemporaryTree tree;
    for (const std::string name : {"plain", "two  blanks", "back\\slash", "new\nline", "\xFF"}) {
        tree.file(name, "abcde");
        const auto ours = textOf({DigestFormat::Sha256, Sha256, name});
        ASSERT_TRUE(ours);
        tree.file("list", *ours + "\n");
        const auto folder = "cd " + test::asWord(tree.path("")) + " && ";
        EXPECT_EQ(test::runShell(folder + "sha256sum --strict -c list").status, 0) << name;
        for (const std::string options : {"", "--tag "}) {
            const auto theirs = test::must(folder + "sha256sum " + options + "-- " + test::asWord(name));
            EXPECT_EQ(read(theirs), (ChecksumLine{DigestFormat::Sha256, Sha256, name})) << theirs;
        }
    }
}

} // namespace

} // namespace orvana
