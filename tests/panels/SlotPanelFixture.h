#pragma once

#include "foundation/NotificationCenter.h"
#include "foundation/NotificationNames.h"
#include "panels/DiskInfoViewController.h"
#include "ui/SystemColor.h"

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

    // Returns y of the widget's bottom, counted from the panel's bottom.
    static int base(const QWidget *widget) { return 500 - widget->geometry().bottom() - 1; }

    struct ShownRow
    {
        const char *name;
        VolumeNameField *volume;
        std::array<ElidedLabel *, 4> values; // model, serial number, available, capacity
        std::array<QLabel *, 4> captions;
    };

    ShownRow rowNamed(const char *name, const QString &outlets) const
    {
        const auto label = [&](const char *start) {
            return panel.findChild<QLabel *>(QString::fromLatin1(start) + outlets);
        };
        const auto value = [&](const char *start) {
            return panel.findChild<ElidedLabel *>(QString::fromLatin1(start) + outlets);
        };
        return {
            name,
            panel.findChild<VolumeNameField *>(outlets + QStringLiteral("Volume")),
            {value("ModelOf"), value("SNOf"), value("AvailableOf"), value("CapacityOf")},
            {label("Label_Model_"), label("Label_SN_"), label("Label_Available_"), label("Label_Capacity_")}};
    }

    std::array<ShownRow, 5> rows() const
    {
        return {rowNamed("Source", QStringLiteral("Source")), rowNamed("Slot-A", QStringLiteral("SlotA")),
                rowNamed("Slot-B", QStringLiteral("SlotB")), rowNamed("Slot-C", QStringLiteral("SlotC")),
                rowNamed("Slot-D", QStringLiteral("SlotD"))};
    }

    const SystemColor &Red = SystemColor::red();
    const SystemColor &Black = SystemColor::black();
    NotificationCenter center;
    QWidget window;
    DiskInfoViewController panel{center, &window};
};

} // namespace orvana
