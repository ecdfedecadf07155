#include "platform/hosts/HostChoice.h"

#include "platform/Account.h"
#include "platform/Host.h"
#include "support/SmallMachine.h"
#include "support/TemporaryTree.h"

#include <gtest/gtest.h>

namespace orvana::platform
{

TEST(HostChoice, SimulatedMachineIsTheOneOfTheFile)
{
    const test::TemporaryTree tree;
    HostChoice choice;
    choice.simulatorFile = tree.file("machine.json", test::SmallMachine);
    EXPECT_EQ(simulatorFileOf(choice).value(), tree.path("machine.json"));
    const auto host = makeHost(choice, nullptr);
    ASSERT_TRUE(host) << host.error().reason;
    EXPECT_EQ((*host)->account().loginName(), "anna");
}

TEST(HostChoice, MissingOrBrokenFileIsNamedWithItsReason)
{
    const test::TemporaryTree tree;
    HostChoice choice;
    choice.simulatorFile = tree.path("missing.json");
    const auto missing = makeHost(choice, nullptr);
    ASSERT_FALSE(missing);
    EXPECT_EQ(missing.error().status, NotThere);
    EXPECT_NE(missing.error().reason.find("missing.json"), std::string::npos) << missing.error().reason;
    choice.simulatorFile = tree.file("broken.json", "{");
    EXPECT_FALSE(makeHost(choice, nullptr));
}

TEST(HostChoice, DemoIsMadeInTheFolderThatIsNamed)
{
    const test::TemporaryTree tree;
    HostChoice choice;
    choice.demoFolder = tree.path("demo");
    const auto file = simulatorFileOf(choice);
    ASSERT_TRUE(file) << file.error().reason;
    EXPECT_TRUE(file->starts_with(tree.path("demo")));
    EXPECT_TRUE(test::pathExists(*file));
}

TEST(HostChoice, WithoutAMachineThereIsNoSimulatorFile)
{
    const auto file = simulatorFileOf({});
    ASSERT_FALSE(file);
    EXPECT_EQ(file.error().status, WrongUsage);
}

} // namespace orvana::platform
