#include "foundation/LiteralWords.h"

namespace orvana
{

TEST(LiteralWords, AnyTextComesBackAsItWas)
{
    for (const std::string text : {"",
                                   "[2019]",
                                   "a,b",
                                   "\"q\"",
                                   "'",
                                   "-f",
                                   "--",
                                   "100%",
                                   "%%",
                                   "{}",
                                   "[]",
                                   "[a,b]",
                                   "\x01",
                                   "\x01o",
                                   "\x01"
                                   "5b",
                                   "B=COPY1",
                                   "a b",
                                   "\xff\xfe",
                                   "\n",
                                   "a=b=c"}) {
        const char *argv[] = {"program", text.c_str()};
        EXPECT_EQ(literal(shelteredWords(2, argv).at(0)), text) << text;
    }
}

TEST(LiteralWords, OptionsKeepTheirNames)
{
    const char *argv[] = {"program", "--to=[d]", "--yes", "--", "--to=[d]"};
    const auto words = shelteredWords(5, argv);
    EXPECT_TRUE(words[0].starts_with("--to="));
    EXPECT_EQ(words[0].find('['), std::string::npos);
    EXPECT_EQ(words[1], "--yes");
    EXPECT_EQ(words[3].find('='), std::string::npos) << "behind \"--\" there are no options";
}

} // namespace orvana
