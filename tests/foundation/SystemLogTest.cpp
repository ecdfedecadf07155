#include "foundation/SystemLog.h"

#include <gtest/gtest.h>
#include <vector>

namespace orvana
{

TEST(SystemLog, CaptureReadsTheLinesUntilItEnds)
{
    std::vector<std::string> outer;
    std::vector<std::string> inner;
    const SystemLogCapture first([&](const std::string &line) { outer.push_back(line); });
    {
        const SystemLogCapture second([&](const std::string &line) { inner.push_back(line); });
        systemLog("one");
    }
    systemLog("two");
    EXPECT_EQ(inner, std::vector<std::string>{"one"});
    EXPECT_EQ(outer, std::vector<std::string>{"two"});
}

} // namespace orvana
