// The program itself, with operands that have a special meaning for its parser.

#include "cli/MachineFixture.h"
#include <algorithm>

namespace orvana::cli
{

/// The program itself, with operands that have a special meaning for its parser.
class Operands : public SimulatedMachineTest
{
protected:
    static inline const Files Odd{"[2019]", "[]",  "[a,b]", "a,b", "{}",     "100%", "%%",
                                  "\"q\"",  "'s'", "a=b",   "B=C", "a\\[b]", " ",    "--to=x"};
};

TEST_F(Operands, SourcesAreTakenLiterally)
{
    m_tree.folder("d");
    Files words{"copy"};
    for (const auto &name : Odd)
        words.push_back(m_tree.file("s/" + name, name));
    m_tree.file("s/2019", "not asked for");
    words.insert(words.end(), {"--to", m_tree.path("d")});
    EXPECT_EQ(program(words), AllDone) << m_out;
    auto expected = Odd;
    std::sort(expected.begin(), expected.end());
    EXPECT_EQ(test::treeOf(m_tree.path("d")), expected);
}

TEST_F(Operands, DestinationsAreTakenLiterally)
{
    m_tree.file("s/file");
    for (const auto &name : Odd) {
        m_tree.folder("d/" + name);
        EXPECT_EQ(program({"copy", m_tree.path("s/file"), "--to", m_tree.path("d/" + name)}), AllDone)
            << name;
        EXPECT_TRUE(m_tree.exists("d/" + name + "/file")) << name;
    }
}

TEST_F(Operands, LogsAreTakenLiterally)
{
    for (const std::string name : {"[x-Log.txt]", "x-Log.txt", "-f-Log.txt"})
        m_tree.file("logs/" + name);
    EXPECT_EQ(program({"logs", "delete", "[x-Log.txt]"}), AllDone) << m_out;
    EXPECT_FALSE(m_tree.exists("logs/[x-Log.txt]"));
    EXPECT_TRUE(m_tree.exists("logs/x-Log.txt"));
}

TEST_F(Operands, EmptyOnesAreRefused)
{
    m_tree.folder("d");
    EXPECT_EQ(program({"copy", "", "--to", m_tree.path("d")}), WrongUsage);
    EXPECT_EQ(program({"copy", m_tree.path("d"), "--to", ""}), WrongUsage);
    EXPECT_EQ(program({"copy", m_tree.path("d"), "--to="}), WrongUsage);
}

TEST_F(Operands, ComplaintsShowNoControlCharacters)
{
    EXPECT_EQ(program({"devices", "\x1b[31mred"}), WrongUsage);
    EXPECT_EQ(m_out.find('\x1b'), std::string::npos) << m_out;
}

} // namespace orvana::cli
