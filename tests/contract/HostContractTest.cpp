// What every host promises beside its files, run on each.

#include "foundation/PlainMainQueue.h"
#include "platform/Account.h"
#include "platform/CommandLauncher.h"
#include "platform/HardwareRegistry.h"
#include "platform/HostFactory.h"
#include "platform/Places.h"
#include "platform/VolumeEvents.h"
#include "platform/VolumeFiles.h"
#include "platform/Workspace.h"
#include "support/Recorder.h"
#include "support/TemporaryTree.h"

#include <gtest/gtest.h>

namespace orvana::platform
{

namespace
{

struct ThisMachine
{
    std::unique_ptr<Host> host = makeMachineHost();
};

struct SimulatedOne
{
    test::TemporaryTree tree;
    PlainMainQueue queue;
    std::string file = tree.file("machine.json", R"({"login":"anna",
        "internalDisks":[{"size":9,"volumes":[{"name":"System","startup":true,"capacity":9}]}],
        "enclosures":[{"uid":1,"bays":[{"bay":"A","size":9}]}]})");
    std::unique_ptr<Host> host = makeSimulatorHost(file, &queue).value();
};

} // namespace

template <class Backend>
class HostContract : public testing::Test
{
protected:
    Host &host() { return *m_backend.host; }

    Backend m_backend;
};

using Backends = testing::Types<ThisMachine, SimulatedOne>;
TYPED_TEST_SUITE(HostContract, Backends);

TYPED_TEST(HostContract, QueryWithoutADictionaryIsRejected)
{
    EXPECT_NE(this->host().registry().match(std::nullopt).status, RegistrySuccess);
}

TYPED_TEST(HostContract, QueryForAnUnknownClassFindsNothing)
{
    const auto answer = this->host().registry().match(RegistryMatching{"NoSuchClass", {}});
    EXPECT_EQ(answer.status, RegistrySuccess);
    EXPECT_TRUE(answer.entries.empty());
}

TYPED_TEST(HostContract, EntriesKnowTheirWayUpAndDown)
{
    const auto answer = this->host().registry().match(RegistryMatching{"IOPCIDevice", {}});
    for (const auto &entry : answer.entries) {
        ASSERT_NE(entry->parent(), nullptr);
        EXPECT_TRUE(entry->path().starts_with(entry->parent()->path() + "/"));
        const auto siblings = entry->parent()->children();
        EXPECT_EQ(std::count_if(siblings.begin(), siblings.end(),
                                [&](const auto &child) { return child->path() == entry->path(); }),
                  1);
    }
}

TYPED_TEST(HostContract, WatchesAnswerWithWhatIsThere)
{
    auto &registry = this->host().registry();
    const auto there = registry.match(RegistryMatching{"IOPCIDevice", {}}).entries.size();
    const auto ignore = [](const std::vector<RegistryEntryPtr> &) {};
    EXPECT_EQ(registry.watch("IOPCIDevice", RegistryEvent::Published, ignore).entries.size(), there);
    EXPECT_TRUE(registry.watch("IOPCIDevice", RegistryEvent::Terminated, ignore).entries.empty());
}

TYPED_TEST(HostContract, ProgramThatCannotStartGivesNoOutputAndALogLine)
{
    const test::LogLines log;
    const auto result = this->host().launcher().run("/no/such/program", {"x"});
    EXPECT_EQ(result.status, std::nullopt);
    EXPECT_EQ(result.output, "");
    ASSERT_EQ(log.all().size(), 1U);
    EXPECT_TRUE(log.all()[0].starts_with("/no/such/program cannot be started"));
}

TYPED_TEST(HostContract, AccountHasANameAndAHomeThatIsThere)
{
    auto &account = this->host().account();
    EXPECT_FALSE(account.loginName().empty());
    const auto home = this->host().volumeFiles().workingFolder().attributes(account.homeFolder(),
                                                                            Links::Follow, Want::Basics);
    ASSERT_TRUE(home) << account.homeFolder();
    EXPECT_EQ(home->type, FileType::Folder);
}

TYPED_TEST(HostContract, PlacesOfNobodyAreNowhere)
{
    EXPECT_EQ(this->host().places().volumePath("no such volume here"), std::nullopt);
    EXPECT_EQ(this->host().places().userPath("no such user here"), std::nullopt);
}

TYPED_TEST(HostContract, SubscribingToVolumesAndHoldingOffSleepAreAlwaysPossible)
{
    this->host().volumeEvents().subscribe([](VolumeChange) {});
    const auto awake = this->host().workspace().holdOffSleep("a run is on");
    this->host().workspace().notify("title", "text");
}

TEST(RealPrograms, OutputIsTakenUpHoweverLongAndTheStatusKept)
{
    const auto host = makeMachineHost();
    const auto result = host->launcher().run("/bin/sh", {"-c", "head -c 1000000 /dev/zero; exit 3"});
    EXPECT_EQ(result.output.size(), 1'000'000U);
    EXPECT_EQ(result.status, 3);
    EXPECT_EQ(host->launcher().run("/bin/cat", {}).output, "") << "its input ends at once";
    EXPECT_EQ(host->launcher().run("/bin/echo", {"a b", "$HOME"}).output, "a b $HOME\n")
        << "no shell in between";
}

} // namespace orvana::platform
