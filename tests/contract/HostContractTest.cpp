// The hosts of this machine and of a simulated one.

#include "contract/HostContract.h"
#include "contract/DiskUtilityContract.h"
#include "discovery/ORVScanDevice.h"
#include "foundation/PlainMainQueue.h"
#include "platform/hosts/HostFactory.h"
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

/// The disk in bay B of a simulated machine.
struct SimulatedBay
{
    static const char *missing() { return nullptr; }

    SimulatedBay()
    {
        ORVScanDevice scanner(host->registry(), host->launcher());
        scanner.scanTBDevice();
        const auto &disk = *scanner.tbArray().at(0)->hddArray().at(0);
        marks = {disk.devPath().value(), disk.hddSN(), disk.wwn(), disk.arrival(), disk.diskSize()};
    }

    std::string device() const { return marks.device; }
    static std::string noDevice() { return "/dev/disk99"; }

    test::Said run(const std::vector<std::string> &words) const
    {
        auto [output, status] = host->launcher().run("/usr/sbin/diskutil", words);
        return {std::move(output), status.value_or(-1)};
    }

    void spare() const { host->launcher().setSparedDisks({marks}); }
    void takeInUse() { lock = host->volumeFiles().lockFolder(volumes + "/OLD", Sharing::Shared).value(); }

    std::vector<std::string> mountedVolumes() const { return test::namesIn(volumes); }
    std::vector<std::string> filesOn(const std::string &volume) const
    {
        return test::treeOf(volumes + "/" + volume);
    }

    test::TemporaryTree tree;
    std::string volumes = tree.path("machine.json.volumes/Volumes");
    std::unique_ptr<Host> host = makeSimulatorHost(tree.file("machine.json", R"({"login":"anna",
        "enclosures":[{"uid":1,"bays":[{"bay":"B","serial":"SB","size":9000,"volumes":[
            {"name":"OLD","capacity":9000,"content":[{"path":"file","bytes":1}]}]}]}]})"),
                                                   nullptr)
                                     .value();
    DiskFingerprint marks;
    std::unique_ptr<FolderLock> lock;
};

} // namespace

using Backends = testing::Types<ThisMachine, SimulatedOne>;
INSTANTIATE_TYPED_TEST_SUITE_P(Hosts, HostContract, Backends);
INSTANTIATE_TYPED_TEST_SUITE_P(Simulated, DiskUtilityContract, SimulatedBay);

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
