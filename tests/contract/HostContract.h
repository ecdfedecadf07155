#pragma once

// The promises that every host keeps, apart from its files. A back end takes part with a type that has a
// `host`.

#include "platform/Account.h"
#include "platform/CommandLauncher.h"
#include "platform/HardwareRegistry.h"
#include "platform/Host.h"
#include "platform/Places.h"
#include "platform/VolumeEvents.h"
#include "platform/VolumeFiles.h"
#include "platform/Workspace.h"
#include "support/Recorder.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace orvana::platform
{

template <class Backend>
class HostContract : public testing::Test
{
protected:
    Host &host() { return *m_backend.host; }

    Backend m_backend;
};

TYPED_TEST_SUITE_P(HostContract);

TYPED_TEST_P(HostContract, QueryWithoutADictionaryIsRejected)
{
    EXPECT_NE(this->host().registry().match(std::nullopt).status, RegistrySuccess);
}

TYPED_TEST_P(HostContract, QueryForAnUnknownClassFindsNothing)
{
    const auto answer = this->host().registry().match(RegistryMatching{"NoSuchClass", {}});
    EXPECT_EQ(answer.status, RegistrySuccess);
    EXPECT_TRUE(answer.entries.empty());
}

TYPED_TEST_P(HostContract, EntriesKnowTheirWayUpAndDown)
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

TYPED_TEST_P(HostContract, WatchesAnswerWithWhatIsThere)
{
    auto &registry = this->host().registry();
    const auto there = registry.match(RegistryMatching{"IOPCIDevice", {}}).entries.size();
    const auto ignore = [](const std::vector<RegistryEntryPtr> &) {};
    EXPECT_EQ(registry.watch("IOPCIDevice", RegistryEvent::Published, ignore).entries.size(), there);
    EXPECT_TRUE(registry.watch("IOPCIDevice", RegistryEvent::Terminated, ignore).entries.empty());
}

TYPED_TEST_P(HostContract, ProgramThatCannotStartGivesNoOutputAndALogLine)
{
    const test::LogLines log;
    const auto result = this->host().launcher().run("/no/such/program", {"x"});
    EXPECT_EQ(result.status, std::nullopt);
    EXPECT_EQ(result.output, "");
    ASSERT_EQ(log.all().size(), 1U);
    EXPECT_TRUE(log.all()[0].starts_with("/no/such/program cannot be started"));
}

TYPED_TEST_P(HostContract, AccountHasANameAndAHomeThatIsThere)
{
    auto &account = this->host().account();
    EXPECT_FALSE(account.loginName().empty());
    const auto home = this->host().volumeFiles().workingFolder().attributes(account.homeFolder(),
                                                                            Links::Follow, Want::Basics);
    if (!home && home.error().problem == FileProblem::NotFound)
        GTEST_SKIP() << "this user has no home folder: " << account.homeFolder();
    ASSERT_TRUE(home) << account.homeFolder();
    EXPECT_EQ(home->type, FileType::Folder);
}

TYPED_TEST_P(HostContract, PlacesOfNobodyAreNowhere)
{
    EXPECT_EQ(this->host().places().userPath("no such user here"), std::nullopt);
}

TYPED_TEST_P(HostContract, SubscribingToVolumesAndAskingTheDesktopAreAlwaysPossible)
{
    this->host().volumeEvents().subscribe([](VolumeChange) {});
#ifndef __SANITIZE_THREAD__ // Qt's threads ask the desktop; the thread checks do not know them
    const auto awake = this->host().workspace().holdOffSleep("a run is on");
    this->host().workspace().notify({"title", "text", "button", [] {}});
    this->host().workspace().showProgress(0.5);
    this->host().workspace().showProgress(std::nullopt);
#endif
}

REGISTER_TYPED_TEST_SUITE_P(HostContract, QueryWithoutADictionaryIsRejected,
                            QueryForAnUnknownClassFindsNothing, EntriesKnowTheirWayUpAndDown,
                            WatchesAnswerWithWhatIsThere, ProgramThatCannotStartGivesNoOutputAndALogLine,
                            AccountHasANameAndAHomeThatIsThere, PlacesOfNobodyAreNowhere,
                            SubscribingToVolumesAndAskingTheDesktopAreAlwaysPossible);

} // namespace orvana::platform
