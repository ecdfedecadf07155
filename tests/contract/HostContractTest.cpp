// The hosts of this machine and of a simulated one.

#include "contract/HostContract.h"
#include "foundation/PlainMainQueue.h"
#include "platform/HostFactory.h"
#include "support/TemporaryTree.h"

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

using Backends = testing::Types<ThisMachine, SimulatedOne>;
INSTANTIATE_TYPED_TEST_SUITE_P(Hosts, HostContract, Backends);

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
