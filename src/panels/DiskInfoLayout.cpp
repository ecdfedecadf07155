// This file is the part of the slot panel that places its rows and fits their fonts.

#include "panels/BayRunView.h"
#include "panels/DiskInfoViewController.h"
#include "ui/Contrast.h"
#include "ui/ElidedLabel.h"
#include "ui/FittingFont.h"
#include "ui/Mirrored.h"

#include <QPainter>

namespace orvana
{

namespace
{

constexpr int PanelHeight = 500;
constexpr int RowHeight = 94;

} // namespace

// The rows have fixed heights, whatever the desktop's font size is.
void DiskInfoViewController::fitFonts()
{
    constexpr double LongerInOtherLanguages = 1.2;
    for (auto &row : m_rows) {
        auto name = fontThatFits(font(), row.volume->height() - 6);
        name.setBold(true); // the volume's name and the bay's name head the row
        row.volume->setFont(name);
        for (auto *value : row.values)
            value->setFont(fontThatFits(font(), value->height()));
        for (auto *caption : row.captions)
            caption->setFont(fontThatFits(font(), caption->height(), Label_Capacity_Source->text(),
                                          caption->width() / LongerInOtherLanguages));
        for (auto *label : {row.raid, row.overSize}) {
            if (!label)
                continue;
            auto marker = fontThatFits(font(), label->height());
            marker.setBold(true);
            label->setFont(marker);
        }
        if (row.bay)
            row.bay->setFont(name);
    }
    auto heading = fontThatFits(font(), Label_Destinations->height() - 4);
    Label_Source->setFont(heading);
    SourcePopup->setFont(heading);
    constexpr int AroundTheText = 12;
    auto onButtons = heading; // the same on both
    for (auto *button : {EjectSourceDiskBtn, EjectTargetDiskBtn})
        onButtons = fontThatFits(onButtons, button->height(), QString(button->text()).remove(QChar(u'&')),
                                 button->width() - AroundTheText);
    for (auto *button : {EjectSourceDiskBtn, EjectTargetDiskBtn})
        button->setFont(onButtons);
    heading.setBold(true);
    Label_Destinations->setFont(heading);
}

void DiskInfoViewController::placeRow(const Row &row, int base)
{
    // y counts from the panel's bottom
    const auto place = [this](QWidget *widget, int x, int y, int width, int height) {
        widget->setGeometry(mirrored({x, PanelHeight - y - height, width, height}, *this));
    };
    constexpr std::array above{48, 32, 16, 0}; // model, serial number, available, capacity
    for (std::size_t i = 0; i < above.size(); ++i) {
        place(row.captions[i], 0, base + above[i], 60, 15);
        place(row.values[i], 72, base + above[i], 120, 15);
    }
    place(row.volume, 72, base + 70, 120, 22);
    place(row.bay, 0, base + 70, 66, 22);
    place(row.raid, 220, base, 60, 15);
    place(row.overSize, 200, base + 16, 100, 15);
    place(row.run, 200, base + 34, BayRunView::Size.width(), BayRunView::Size.height());
}

void DiskInfoViewController::changeLocation()
{
    const int bottom = m_slotAIsSource ? 96 : 2;
    placeRow(m_rows[SlotDRow], bottom);
    placeRow(m_rows[SlotCRow], bottom + RowHeight);
    placeRow(m_rows[SlotBRow], bottom + 2 * RowHeight);
    if (!m_slotAIsSource)
        placeRow(m_rows[SlotARow], bottom + 3 * RowHeight);
    hideBayA();
}

// The rows stand close together, so a line above each bay says where it begins.
void DiskInfoViewController::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setPen(edgeColor(palette()));
    for (const auto &row : m_rows) {
        if (row.bay && !row.bay->isHidden())
            painter.drawLine(0, row.bay->y() - 1, width(), row.bay->y() - 1);
    }
}

} // namespace orvana
