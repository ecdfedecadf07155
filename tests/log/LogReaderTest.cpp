#include "log/LogReader.h"

#include "support/TemporaryTree.h"

#include <fstream>
#include <gtest/gtest.h>
#include <unistd.h>

namespace orvana
{

class LogReaderTest : public testing::Test
{
protected:
    void append(const std::string &bytes) const
    {
        std::ofstream(m_path, std::ios::binary | std::ios::app) << bytes;
    }

    // Returns the next reading, which must exist and have this kind.
    std::string next(LogReading::Place place)
    {
        const auto reading = m_reader.readOn();
        EXPECT_TRUE(reading) << "nothing new";
        EXPECT_TRUE(!reading || reading->place == place);
        m_isCut = reading && reading->isCut;
        return reading ? reading->text : std::string();
    }

    static std::string linesOf(std::size_t bytes, char letter)
    {
        std::string text;
        while (text.size() < bytes)
            text += std::string(99, letter) + "\n";
        return text;
    }

    test::TemporaryTree m_tree;
    const std::string m_path = m_tree.path("20261121-102030-Log.txt");
    LogReader m_reader{m_path};
    bool m_isCut = false;
};

TEST_F(LogReaderTest, WholeLogIsReadAtFirst)
{
    append("[2026/11/21 10:20:30]: Größe\n");
    EXPECT_EQ(next(LogReading::Place::Anew), "[2026/11/21 10:20:30]: Größe\n");
    EXPECT_FALSE(m_isCut);
}

TEST_F(LogReaderTest, OnlyWhatWasAppendedIsReadLater)
{
    append("one\n");
    next(LogReading::Place::Anew);
    EXPECT_FALSE(m_reader.readOn());
    append("two\n");
    EXPECT_EQ(next(LogReading::Place::AtEnd), "two\n");
    EXPECT_FALSE(m_reader.readOn());
}

TEST_F(LogReaderTest, MissingFileGivesAnEmptyText)
{
    EXPECT_EQ(next(LogReading::Place::Anew), "");
    EXPECT_FALSE(m_reader.readOn());
}

TEST_F(LogReaderTest, FileThatIsNotUtf8GivesAnEmptyText)
{
    append("Gr\xF6\xDF"
           "e\n");
    EXPECT_EQ(next(LogReading::Place::Anew), "");
    EXPECT_FALSE(m_reader.readOn());
}

TEST_F(LogReaderTest, CharacterThatWasHalfWrittenAppearsWhenItIsWhole)
{
    append("Gr\xC3");
    EXPECT_EQ(next(LogReading::Place::Anew), "");
    append("\xB6\xC3\x9F"
           "e\n");
    EXPECT_EQ(next(LogReading::Place::Anew), "Größe\n");
}

TEST_F(LogReaderTest, VanishedLogChangesNothing)
{
    append("one\n");
    next(LogReading::Place::Anew);
    ::unlink(m_path.c_str());
    EXPECT_FALSE(m_reader.readOn());
}

TEST_F(LogReaderTest, AnotherFileOfTheNameIsReadAnew)
{
    append("one\n");
    next(LogReading::Place::Anew);
    const auto other = m_tree.file("other", "another log, longer than the first\n");
    ASSERT_EQ(::rename(other.c_str(), m_path.c_str()), 0);
    EXPECT_EQ(next(LogReading::Place::Anew), "another log, longer than the first\n");
}

TEST_F(LogReaderTest, LogOfTenMebibytesIsReadWhole)
{
    append(std::string(LogReader::ShownBytes, 'a'));
    EXPECT_EQ(next(LogReading::Place::Anew).size(), LogReader::ShownBytes);
    EXPECT_FALSE(m_isCut);
}

TEST_F(LogReaderTest, OfALongerLogTheLastLinesAreRead)
{
    append(linesOf(LogReader::ShownBytes + 150, 'a'));
    const auto text = next(LogReading::Place::Anew);
    EXPECT_TRUE(m_isCut);
    EXPECT_EQ(text.size() % 100, 0U) << "begins with a whole line";
    EXPECT_GT(text.size(), LogReader::ShownBytes - 100);
    EXPECT_LE(text.size(), LogReader::ShownBytes);
}

TEST_F(LogReaderTest, OfVeryManyLinesTheLastAreRead)
{
    append("first\n" + std::string(LogReader::ShownLines, '\n'));
    EXPECT_EQ(next(LogReading::Place::Anew), std::string(LogReader::ShownLines, '\n'));
    EXPECT_TRUE(m_isCut);
}

TEST_F(LogReaderTest, CutNeverLeavesHalfACharacter)
{
    std::string text;
    while (text.size() < LogReader::ShownBytes + 1)
        text += "ß";
    append("a" + text);
    EXPECT_TRUE(next(LogReading::Place::Anew).starts_with("ß"));
}

TEST_F(LogReaderTest, GrowingLogIsCutAgainWhenTooMuchIsShown)
{
    append(linesOf(LogReader::ShownBytes - 1000, 'a'));
    next(LogReading::Place::Anew);
    append(linesOf(1000000, 'b'));
    EXPECT_EQ(next(LogReading::Place::AtEnd).size(), 1000000U);
    append(linesOf(LogReader::MostBytes - LogReader::ShownBytes, 'c'));
    EXPECT_LE(next(LogReading::Place::Anew).size(), LogReader::ShownBytes);
    EXPECT_TRUE(m_isCut);
}

} // namespace orvana
