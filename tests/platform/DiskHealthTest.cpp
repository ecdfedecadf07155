#include "platform/DiskHealth.h"

#include <gtest/gtest.h>

namespace orvana::platform
{

TEST(DiskHealth, NotKnownIsNotGood)
{
    EXPECT_EQ(textOf(DiskHealth()), "not known");
    DiskHealth health;
    health.celsius = 31;
    EXPECT_EQ(verdictOf(health), HealthVerdict::NotKnown);
    EXPECT_EQ(textOf(health), "not known, 31 °C");
}

TEST(DiskHealth, DiskThatSaysSoIsGood)
{
    DiskHealth health;
    health.isFailing = false;
    health.badSectors = 0;
    health.celsius = 31.2;
    health.hours = 1200;
    EXPECT_EQ(verdictOf(health), HealthVerdict::Good);
    EXPECT_EQ(textOf(health), "good, 31 °C, 1200 hours");
}

TEST(DiskHealth, BadSectorsHeatAndASlowLinkAreWarnings)
{
    DiskHealth health;
    health.isFailing = false;
    health.badSectors = 1;
    health.celsius = 70;
    health.linkRate = "1.5 Gbps";
    EXPECT_EQ(verdictOf(health), HealthVerdict::Warning);
    EXPECT_EQ(textOf(health), "warning: 1 bad sector, hot, 70 °C, the link is down to 1.5 Gbps");
}

TEST(DiskHealth, DisksOwnLimitOfHeatCounts)
{
    DiskHealth health;
    health.isFailing = false;
    health.celsius = 70;
    health.criticalCelsius = 85;
    EXPECT_EQ(textOf(health), "good, 70 °C");
    health.celsius = 85;
    EXPECT_EQ(textOf(health), "warning: hot, 85 °C");
}

TEST(DiskHealth, AlarmOfTheDiskItselfIsAWarning)
{
    DiskHealth health;
    health.celsius = 50;
    health.hasHeatAlarm = true;
    EXPECT_EQ(textOf(health), "warning: its temperature is out of its own limits, 50 °C");
    health.celsius = 70;
    EXPECT_EQ(textOf(health), "warning: hot, 70 °C");
}

TEST(DiskHealth, FailingDiskNamesItsReasons)
{
    DiskHealth health;
    health.isFailing = true;
    health.failings = {"reliability degraded"};
    health.badSectors = 200;
    EXPECT_EQ(verdictOf(health), HealthVerdict::Failing);
    EXPECT_EQ(textOf(health), "calls itself failing: reliability degraded, 200 bad sectors");
}

TEST(DiskHealth, WhatIsNewSinceTheLastLookIsTold)
{
    DiskHealth before;
    before.isFailing = false;
    before.badSectors = 2;
    before.errors = 3;
    auto after = before;
    EXPECT_EQ(textOf(after, &before), "warning: 2 bad sectors");
    after.badSectors = 5;
    after.errors = 4;
    EXPECT_EQ(textOf(after, &before), "warning: 5 bad sectors, 3 of them new, 1 new error");
    before.errors.reset();
    EXPECT_EQ(textOf(after, &before), "warning: 5 bad sectors, 3 of them new");
}

} // namespace orvana::platform
