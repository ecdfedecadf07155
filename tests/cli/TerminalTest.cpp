#include "cli/Terminal.h"

#include <array>
#include <gtest/gtest.h>
#include <unistd.h>

namespace orvana::cli
{

TEST(Terminal, LineThatFitsIsLeftAlone)
{
    EXPECT_EQ(fitted("Größe", 5), "Größe");
}

TEST(Terminal, LongLineLosesItsMiddle)
{
    EXPECT_EQ(fitted("Duplicating /a/b/c", 9), "Dupl…/b/c");
    EXPECT_EQ(fitted("äöüäöü", 3), "ä…ü");
    EXPECT_EQ(fitted("abcdef", 2), "ab");
}

/// A user who typed something before the question and then closed the terminal.
class Question : public testing::Test
{
protected:
    bool answer(const std::string &typed)
    {
        std::array<int, 2> ends{};
        EXPECT_EQ(::pipe(ends.data()), 0);
        EXPECT_EQ(::write(ends[1], typed.data(), typed.size()), static_cast<ssize_t>(typed.size()));
        ::close(ends[1]);
        Terminal terminal(m_null, m_null, false, ends[0]);
        const bool isYes = terminal.confirm("Go on?", [] { return false; });
        ::close(ends[0]);
        return isYes;
    }

    void TearDown() override { std::fclose(m_null); }

    std::FILE *m_null = std::fopen("/dev/null", "w");
};

TEST_F(Question, OnlyAPlainYesIsAYes)
{
    EXPECT_TRUE(answer("y\n"));
    EXPECT_TRUE(answer("yes\n"));
    for (const char *typed : {"n\n", "\n", "Y?\n", "yesterday\n"})
        EXPECT_FALSE(answer(typed)) << typed;
}

TEST_F(Question, EndOfTheInputIsANo)
{
    EXPECT_FALSE(answer(""));
    EXPECT_FALSE(answer("y"));
}

TEST_F(Question, WithNobodyThereTheAnswerIsNo)
{
    Terminal terminal(m_null, m_null, false);
    EXPECT_FALSE(terminal.canAsk());
    EXPECT_FALSE(terminal.confirm("Go on?", [] { return false; }));
}

TEST_F(Question, SignalEndsTheWaiting)
{
    std::array<int, 2> ends{};
    ASSERT_EQ(::pipe(ends.data()), 0);
    Terminal terminal(m_null, m_null, false, ends[0]);
    int looks = 0;
    EXPECT_FALSE(terminal.confirm("Go on?", [&] { return ++looks > 1; }));
    ::close(ends[0]);
    ::close(ends[1]);
}

} // namespace orvana::cli
