#include "baywriter/BayWriter.h"

#include "enclosures/DefinitionFolder.h"
#include "foundation/ExitStatus.h"
#include "support/TemporaryTree.h"

#include <filesystem>
#include <gtest/gtest.h>

namespace orvana::baywriter
{

namespace
{

constexpr const char *Dock = R"({"version":1,"name":"Dock","bays":{"A":{"path":"a"},"B":{"path":"b"}}})";

int udevWasTold = 0;

class BayWriter : public testing::Test
{
protected:
    BayWriter() { udevWasTold = 0; }

    int run(const std::vector<std::string> &words)
    {
        testing::internal::CaptureStderr();
        const int status = runProgram(words, m_tree.path("d"), [] { ++udevWasTold; });
        m_said = testing::internal::GetCapturedStderr();
        return status;
    }

    test::TemporaryTree m_tree;
    std::string m_said;
};

} // namespace

TEST_F(BayWriter, DefinitionIsAddedOnceAndRemoved)
{
    EXPECT_EQ(run({"add", "dock", Dock}), AllDone) << m_said;
    const auto text = m_tree.read("d/dock.json");
    EXPECT_EQ(enclosures::readDefinition("dock", text)->name, "Dock");
    EXPECT_EQ(run({"add", "dock", Dock}), SomethingFailed);
    EXPECT_EQ(m_said, "orvana-bays: " + m_tree.path("d/dock.json") + ": is there already\n");
    EXPECT_EQ(m_tree.read("d/dock.json"), text);
    EXPECT_EQ(udevWasTold, 1);
    EXPECT_EQ(run({"remove", "dock"}), AllDone);
    EXPECT_FALSE(m_tree.exists("d/dock.json"));
    EXPECT_EQ(udevWasTold, 2);
    EXPECT_EQ(run({"remove", "dock"}), SomethingFailed);
}

TEST_F(BayWriter, WhatIsNoDefinitionIsNotWritten)
{
    EXPECT_EQ(run({"add", "dock", "{}"}), WrongUsage);
    EXPECT_EQ(m_said, "orvana-bays: the definition: /: needs \"version\"\n");
    EXPECT_EQ(run({"add", "dock", std::string(100'000, '[')}), WrongUsage);
    EXPECT_FALSE(m_tree.exists("d"));
}

TEST_F(BayWriter, NamesThatLeadElsewhereAreRefused)
{
    m_tree.file("victim.json", Dock);
    for (const char *id : {"../victim", "/etc/passwd", "", "a/b", ".", "UPPER"}) {
        EXPECT_EQ(run({"add", id, Dock}), WrongUsage) << id;
        EXPECT_EQ(run({"remove", id}), WrongUsage) << id;
    }
    EXPECT_TRUE(m_tree.exists("victim.json"));
    EXPECT_EQ(udevWasTold, 0);
}

TEST_F(BayWriter, AnythingElseIsAWrongCall)
{
    for (const std::vector<std::string> &words : {std::vector<std::string>{},
                                                  {"add"},
                                                  {"add", "dock"},
                                                  {"remove"},
                                                  {"remove", "a", "b"},
                                                  {"list", "x"}})
        EXPECT_EQ(run(words), WrongUsage);
}

} // namespace orvana::baywriter
