#include "discovery/ORVScanDevice.h"
#include "discovery/ThunderBoltMonitor.h"
#include "foundation/NotificationCenter.h"
#include "platform/hosts/HostFactory.h"
#include "platform/simulator/MachineReader.h"
#include "platform/simulator/SimulatorHost.h"
#include "support/ManualMainQueue.h"
#include "support/Recorder.h"
#include "support/TemporaryTree.h"
#include <chrono>
#include <csignal>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <sys/resource.h>
#include <unistd.h>

namespace orvana::platform::simulator
{

TEST(DemoMachine, IsMadeAndScanned)
{
    const test::TemporaryTree tree;
    const auto file = prepareDemo(tree.path("demo"));
    ASSERT_TRUE(file);
    const auto host = makeSimulatorHost(*file, nullptr);
    ASSERT_TRUE(host) << host.error();
    ORVScanDevice scanner((*host)->registry(), (*host)->launcher());
    scanner.scanTBDevice();
    scanner.scanOtherDevice();
    ASSERT_EQ(scanner.tbArray().size(), 1U);
    EXPECT_EQ(scanner.tbArray()[0]->hddArray().size(), 4U);
    EXPECT_EQ(scanner.otherDiskArray().size(), 3U);
    EXPECT_FALSE(makeSimulatorHost(tree.path("nothing.json"), nullptr));
}

} // namespace orvana::platform::simulator
