#include "app/SetupWriter.h"

#include "support/ManualMainQueue.h"

#include <atomic>
#include <gtest/gtest.h>
#include <optional>
#include <thread>

namespace orvana
{

namespace
{

using std::chrono::milliseconds;

/// Writes nothing, and answers when the test says so.
class SlowSetup final : public enclosures::EnclosureSetup
{
public:
    enclosures::PortSnapshot look() override { return {}; }
    enclosures::DefinitionSet definitions() override { return {}; }
    SetupWriter::Outcome add(const enclosures::Definition &definition) override
    {
        thread = std::this_thread::get_id();
        while (!mayAnswer)
            std::this_thread::yield();
        added = definition.id;
        return tl::unexpected(std::string("no room"));
    }
    SetupWriter::Outcome remove(const std::string &) override { return {}; }

    std::atomic<bool> mayAnswer{false};
    std::thread::id thread;
    std::string added;
};

} // namespace

TEST(SetupWriter, WritesOnAnotherThreadAndAnswersOnTheQueue)
{
    SlowSetup setup;
    test::ManualMainQueue queue;
    std::optional<SetupWriter::Outcome> answer;
    {
        SetupWriter writer(setup, queue);
        writer.add({"dock", "Dock", {}}, [&](const auto &outcome) { answer = outcome; });
        queue.runDue();
        setup.mayAnswer = true;
    }
    EXPECT_EQ(setup.added, "dock") << "the writer waits for its end";
    EXPECT_NE(setup.thread, std::this_thread::get_id());
    EXPECT_FALSE(answer) << "not before the main thread comes to it";
    queue.runDue();
    ASSERT_TRUE(answer);
    EXPECT_EQ(answer->error(), "no room");
}

TEST(SetupWriterDeathTest, PermissionThatIsNeverGivenDoesNotHoldUpTheProgramForEver)
{
    const auto leave = [] {
        SlowSetup setup;
        test::ManualMainQueue queue;
        SetupWriter writer(setup, queue, milliseconds(1));
        writer.add({"dock", "Dock", {}}, [](const auto &) {});
    };
    EXPECT_EXIT(leave(), testing::ExitedWithCode(0), "is not answered");
}

} // namespace orvana
