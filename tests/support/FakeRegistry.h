#pragma once

#include "platform/CommandLauncher.h"
#include "platform/RegistryTree.h"

#include <functional>
#include <map>

namespace orvana::test
{

/// A registry whose tree and answers the test decides.
class FakeRegistry final : public platform::HardwareRegistry
{
public:
    std::optional<platform::RegistryMatching> serviceMatching(const std::string &className) override
    {
        if (hasNoDictionaries)
            return std::nullopt;
        return platform::RegistryMatching{className, {}};
    }

    Answer match(const std::optional<platform::RegistryMatching> &matching) override
    {
        if (!matching)
            return {platform::RegistryBadArgument, {}};
        ++queries;
        if (failingQuery == queries)
            return {5, {}};
        Answer answer;
        tree->collect(*matching, answer.entries);
        return answer;
    }

    Answer watch(const std::string &className, platform::RegistryEvent event, EventHandler handler) override
    {
        beforeWatch(event);
        if (watchStatus != platform::RegistrySuccess)
            return {watchStatus, {}};
        handlers[event] = std::move(handler);
        if (event == platform::RegistryEvent::Terminated)
            return {platform::RegistrySuccess, removedAtOnce};
        return match(platform::RegistryMatching{className, {}});
    }

    std::shared_ptr<platform::RegistryNode> tree = platform::RegistryNode::makeRoot();
    std::map<platform::RegistryEvent, EventHandler> handlers;
    std::vector<platform::RegistryEntryPtr> removedAtOnce; ///< the first batch of a watch for removals
    std::function<void(platform::RegistryEvent)> beforeWatch = [](platform::RegistryEvent) {};
    bool hasNoDictionaries = false;
    int watchStatus = platform::RegistrySuccess;
    int failingQuery = 0; ///< which query, counted from 1, fails
    int queries = 0;
};

/// Answers "/bin/df" with a text.
class FakeListing final : public platform::CommandLauncher
{
public:
    Result run(const std::string &path, const std::vector<std::string> &) override
    {
        ++runs;
        return {path == "/bin/df" ? text : "", 0};
    }

    void setSparedDisks(std::vector<platform::DiskFingerprint>) override {}

    std::string text;
    int runs = 0;
};

} // namespace orvana::test
