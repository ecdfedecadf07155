#pragma once

#include "foundation/NotificationCenter.h"
#include "foundation/NotificationNames.h"
#include "panels/DiskInfoViewController.h"
#include "panels/SystemColor.h"

#include <QLabel>
#include <QtTest/QTest>
#include <array>
#include <gtest/gtest.h>

namespace orvana
{

/// The slot panel on a window of its own.
class SlotPanel : public testing::Test
{
protected:
    SlotPanel()
    {
        window.resize(300, 500);
        panel.setGeometry(0, 0, 300, 500);
        window.show();
    }

    // Bay A holds the source: the pop-up's first item is its volume.
    void makeBayATheSource()
    {
        panel.SourcePopup->clear();
        panel.SourcePopup->addTitle("Master");
        panel.SourcePopup->addTitle("STICK");
        panel.setDiskInfo("Source", "Master", "m", "s", "1", "2", false, false);
        panel.setDiskInfo("Slot-A", "Master", "m", "s", "1", "2", false, false);
        panel.setSlotAisSource();
        panel.changeLocation();
    }

    void makeStickTheSource()
    {
        panel.SourcePopup->setCurrentIndex(1);
        panel.selectSourceDiksPopup();
    }

    void color(const SystemColor &color, std::initializer_list<const char *> rows)
    {
        for (const char *row : rows)
            panel.setTextColor(row, color);
    }

    // y of the widget's bottom, counted from the panel's bottom.
    static int base(const QWidget *widget) { return 500 - widget->geometry().bottom() - 1; }

    struct ShownRow
    {
        const char *name;
        VolumeNameField *volume;
        std::array<ElidedLabel *, 4> values; // model, serial number, available, capacity
        std::array<QLabel *, 4> captions;
    };

    std::array<ShownRow, 5> rows() const
    {
        return {{{"Source",
                  panel.SourceVolume,
                  {panel.ModelOfSource, panel.SNOfSource, panel.AvailableOfSource, panel.CapacityOfSource},
                  {panel.Label_Model_Source, panel.Label_SN_Source, panel.Label_Available_Source,
                   panel.Label_Capacity_Source}},
                 {"Slot-A",
                  panel.SlotAVolume,
                  {panel.ModelOfSlotA, panel.SNOfSlotA, panel.AvailableOfSlotA, panel.CapacityOfSlotA},
                  {panel.Label_Model_SlotA, panel.Label_SN_SlotA, panel.Label_Available_SlotA,
                   panel.Label_Capacity_SlotA}},
                 {"Slot-B",
                  panel.SlotBVolume,
                  {panel.ModelOfSlotB, panel.SNOfSlotB, panel.AvailableOfSlotB, panel.CapacityOfSlotB},
                  {panel.Label_Model_SlotB, panel.Label_SN_SlotB, panel.Label_Available_SlotB,
                   panel.Label_Capacity_SlotB}},
                 {"Slot-C",
                  panel.SlotCVolume,
                  {panel.ModelOfSlotC, panel.SNOfSlotC, panel.AvailableOfSlotC, panel.CapacityOfSlotC},
                  {panel.Label_Model_SlotC, panel.Label_SN_SlotC, panel.Label_Available_SlotC,
                   panel.Label_Capacity_SlotC}},
                 {"Slot-D",
                  panel.SlotDVolume,
                  {panel.ModelOfSlotD, panel.SNOfSlotD, panel.AvailableOfSlotD, panel.CapacityOfSlotD},
                  {panel.Label_Model_SlotD, panel.Label_SN_SlotD, panel.Label_Available_SlotD,
                   panel.Label_Capacity_SlotD}}}};
    }

    const SystemColor &Red = SystemColor::red();
    const SystemColor &Black = SystemColor::black();
    NotificationCenter center;
    QWidget window;
    DiskInfoViewController panel{center, &window};
};

} // namespace orvana
