#pragma once

#include "duplicate/plan/RunPlan.h"
#include "support/MadeUpDevices.h"

#include <gtest/gtest.h>

namespace orvana
{

using namespace test;
using Names = std::vector<std::string>;

/// One enclosure with a disk in each bay, bay A the source, and the start-up disk beside it.
class RunPlan : public testing::Test
{
protected:
    static DiskPtr bay(const char *slot, int number, const std::string &name)
    {
        return inBay(slot, disk(number, {volume("/Volumes/" + name)}));
    }

    RunPlan()
    {
        m_choice.enclosure = {1, 77};
        m_choice.source = "Master";
        m_choice.sourceItem = "Master";
        m_choice.sourceRoot = "/Volumes/Master";
        showNames();
    }

    ORVThunderboltInfo &box() const { return *m_devices.tbArray.front(); }
    DiskPtr &diskAt(std::size_t index) const { return box().hddArray()[index]; }

    void showNames()
    {
        for (const auto slot : AllBays)
            m_choice.names[slot] = NoVolume;
        for (const auto &row : bayRowsOf(box(), Anna).rows) {
            if (const auto slot = bayNamed(row.slot))
                m_choice.names[*slot] = row.content.volume;
        }
    }

    /// The home folder becomes the source, and bay A a destination.
    void chooseHome()
    {
        m_choice.source = m_choice.sourceItem = "anna";
        m_choice.sourceRoot = "/Users/anna";
        m_choice.slotAisSource = false;
    }

    template <class Plan>
    static std::optional<RefusalReason> firstReason(const Plan &plan)
    {
        return plan.refusals.empty() ? std::nullopt : std::optional(plan.refusals.front().reason);
    }

    ErasePlan erase() const { return planErase(m_devices, m_choice, Anna, EraseFormat::Ext4).value(); }
    DestinationPlan destinations() const { return planDestinations(m_devices, m_choice, Anna).value(); }

    static Names erased(const ErasePlan &plan)
    {
        Names names;
        for (const auto &entry : plan.disks)
            names.push_back(slotNameOf(entry.bay) + " " + entry.info.diskPath + " " + entry.info.diskVolume);
        return names;
    }

    static Names ejected(const EjectPlan &plan)
    {
        Names names;
        for (const auto &entry : plan.disks)
            names.push_back(entry.diskPath + " " + entry.diskVolume);
        return names;
    }

    ScannedDevices m_devices{{enclosure(77, {bay("Slot-A", 1, "Master"), bay("Slot-B", 2, "COPY1"),
                                             bay("Slot-C", 3, "COPY2"), inBay("Slot-D", blank(disk(4)))})},
                             {startupDisk()},
                             {}};
    RunChoice m_choice;
};

} // namespace orvana
