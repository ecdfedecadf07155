#include "panels/DiskInfoViewController.h"

#include "foundation/NotificationCenter.h"
#include "foundation/NotificationNames.h"
#include "panels/BayRunView.h"
#include "ui/Mirrored.h"
#include "ui/ShownText.h"
#include "ui/SystemColor.h"

#include <QEvent>

#include <algorithm>

namespace orvana
{

namespace
{

constexpr std::array<std::string_view, 5> RowNames{"Source", "Slot-A", "Slot-B", "Slot-C", "Slot-D"};

} // namespace

DiskInfoViewController::DiskInfoViewController(NotificationCenter &center, QWidget *parent)
    : QWidget(parent), m_center(center)
{
    setupUi(this);
    mirrorChildren(*this);
    collectRows();
    fitFonts();
    connect(EjectSourceDiskBtn, &QPushButton::clicked, this, &DiskInfoViewController::ejectSoureDisk);
    connect(EjectTargetDiskBtn, &QPushButton::clicked, this, &DiskInfoViewController::ejectTargetDisks);
    connect(SourcePopup, &QComboBox::activated, this, &DiskInfoViewController::selectSourceDiksPopup);
    awakeFromNib();
}

void DiskInfoViewController::collectRows()
{
    m_rows = {{
        {SourceVolume,
         {ModelOfSource, SNOfSource, AvailableOfSource, CapacityOfSource},
         {Label_Model_Source, Label_SN_Source, Label_Available_Source, Label_Capacity_Source}},
        {SlotAVolume,
         {ModelOfSlotA, SNOfSlotA, AvailableOfSlotA, CapacityOfSlotA},
         {Label_Model_SlotA, Label_SN_SlotA, Label_Available_SlotA, Label_Capacity_SlotA},
         Label_Bay_SlotA,
         Label_RaidDisk_SlotA,
         Label_OverSize_SlotA},
        {SlotBVolume,
         {ModelOfSlotB, SNOfSlotB, AvailableOfSlotB, CapacityOfSlotB},
         {Label_Model_SlotB, Label_SN_SlotB, Label_Available_SlotB, Label_Capacity_SlotB},
         Label_Bay_SlotB,
         Label_RaidDisk_SlotB,
         Label_OverSize_SlotB},
        {SlotCVolume,
         {ModelOfSlotC, SNOfSlotC, AvailableOfSlotC, CapacityOfSlotC},
         {Label_Model_SlotC, Label_SN_SlotC, Label_Available_SlotC, Label_Capacity_SlotC},
         Label_Bay_SlotC,
         Label_RaidDisk_SlotC,
         Label_OverSize_SlotC},
        {SlotDVolume,
         {ModelOfSlotD, SNOfSlotD, AvailableOfSlotD, CapacityOfSlotD},
         {Label_Model_SlotD, Label_SN_SlotD, Label_Available_SlotD, Label_Capacity_SlotD},
         Label_Bay_SlotD,
         Label_RaidDisk_SlotD,
         Label_OverSize_SlotD},
    }};
    for (auto &row : m_rows) {
        row.color = &SystemColor::black();
        if (row.bay)
            row.run = new BayRunView(tr("bay %1").arg(row.bay->text().back()), this);
    }
}

void DiskInfoViewController::awakeFromNib()
{
    for (auto &row : m_rows) {
        paintRow(row);
        if (row.raid)
            row.raid->setVisible(false);
    }
    showOverSizeMarkers();
    initDiskVolume();
    initDiskInfo(std::string());
    hiddenDiskInfo(false);
    SlotAVolume->setHidden(m_slotAIsSource);
    hiddenSlotBInfo(m_slotAIsSource);
    changeLocation();
}

DiskInfoViewController::Row *DiskInfoViewController::rowNamed(std::string_view name)
{
    const auto *found = std::find(RowNames.begin(), RowNames.end(), name);
    return found == RowNames.end() ? nullptr : &m_rows[static_cast<std::size_t>(found - RowNames.begin())];
}

BayRunView *DiskInfoViewController::runOf(std::string_view row)
{
    auto *found = rowNamed(row);
    return found ? found->run : nullptr;
}

std::string DiskInfoViewController::nameOf(RowNumber row) const
{
    return m_rows[row].volume->bytes();
}

void DiskInfoViewController::setName(RowNumber row, const std::string &name)
{
    m_rows[row].volume->setBytes(name);
}

void DiskInfoViewController::initDiskVolume()
{
    SourcePopup->clear();
    SourcePopup->addTitle("Source Disk (Slot-A)");
    setSource("Source Disk (Slot-A)");
    setSlotA("Destination Disk (Slot-A)");
    setSlotB("Destination Disk (Slot-B)");
    setSlotC("Destination Disk (Slot-C)");
    setSlotD("Destination Disk (Slot-D)");
    SourceVolume->setHidden(true);
    for (const auto &row : m_rows)
        row.volume->setEditing(VolumeNameField::Editing::Forbidden);
}

void DiskInfoViewController::initDiskInfo(const std::string &text)
{
    for (const auto &row : m_rows) {
        for (auto *value : row.values)
            value->setText(shownText(text));
    }
}

void DiskInfoViewController::setDiskInfo(std::string_view row, const std::string &diskVolume,
                                         const std::string &diskmodel, const std::string &diskSN,
                                         const std::string &available, const std::string &capacity,
                                         bool labelHidden, bool isRaidDisk)
{
    auto *to = rowNamed(row);
    if (!to)
        return;
    const auto number = static_cast<RowNumber>(to - m_rows.data());
    const bool hidden = number == SlotARow ? m_slotAIsSource : labelHidden;
    setName(number, diskVolume);
    const std::array texts{diskmodel, diskSN, available, capacity};
    for (std::size_t i = 0; i < texts.size(); ++i)
        to->values[i]->setText(shownText(texts[i]));
    if (number == SlotARow)
        hideBayA();
    hideInfo(number, hidden);
    if (number == SourceRow)
        return;
    to->raid->setHidden(hidden || !isRaidDisk);
    to->isRaidDisk = isRaidDisk;
    to->volume->setPlaceholderText(hidden ? QString() : tr("(no name)"));
    showOverSizeMarkers();
}

void DiskInfoViewController::setTextColor(std::string_view row, const SystemColor &Color)
{
    auto *to = rowNamed(row);
    if (!to)
        return;
    to->color = &Color;
    to->isOverSize = to->overSize && Color == SystemColor::red();
    paintRow(*to);
    showOverSizeMarkers();
}

void DiskInfoViewController::paintRow(const Row &row)
{
    const auto shade = row.color->shadeFor(palette());
    // A name that cannot be changed at the moment still says which disk is which, and which is too small.
    const auto paint = [&](QWidget *widget, QPalette::ColorRole role) {
        auto colors = widget->palette();
        for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled})
            colors.setColor(group, role, shade);
        widget->setPalette(colors);
    };
    paint(row.volume, QPalette::Text);
    for (std::size_t i = 0; i < row.values.size(); ++i) {
        paint(row.values[i], QPalette::WindowText);
        paint(row.captions[i], QPalette::WindowText);
    }
    if (row.overSize)
        paint(row.overSize, QPalette::WindowText);
}

// The markers help a user who does not see the colour. A row without a disk shows no marker, whatever colour
// it has kept.
void DiskInfoViewController::showOverSizeMarkers()
{
    for (const auto &row : m_rows) {
        if (row.overSize)
            row.overSize->setVisible(row.isOverSize && !row.isRaidDisk && !row.values.front()->isHidden());
    }
}

void DiskInfoViewController::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() != QEvent::PaletteChange)
        return;
    for (const auto &row : m_rows) {
        if (row.color)
            paintRow(row);
    }
}

void DiskInfoViewController::setSlotAisSource()
{
    m_slotAIsSource = SourcePopup->currentIndex() == 0 && Source() == SlotA();
}

void DiskInfoViewController::hideBayA()
{
    SlotAVolume->setHidden(m_slotAIsSource);
    Label_Bay_SlotA->setHidden(m_slotAIsSource);
    hiddenSlotAInfo(m_slotAIsSource);
}

void DiskInfoViewController::setTargetDiskVolumeEditable(bool editable)
{
    using Editing = VolumeNameField::Editing;
    for (const auto &row : m_rows) {
        if (row.bay)
            row.volume->setEditing(editable ? Editing::Allowed : Editing::Forbidden);
    }
}

void DiskInfoViewController::DisabledItem(bool disabled)
{
    EjectTargetDiskBtn->setDisabled(disabled);
    EjectSourceDiskBtn->setDisabled(disabled);
    SourcePopup->setDisabled(disabled);
    for (const auto &row : m_rows)
        row.volume->setDisabled(disabled);
}

void DiskInfoViewController::changeTargetDiskFocus()
{
    const std::array fields{SlotBVolume, SlotCVolume, SlotDVolume};
    fields[static_cast<std::size_t>(m_tabStep)]->setFocus(Qt::TabFocusReason);
    m_tabStep = (m_tabStep + 1) % 3;
}

void DiskInfoViewController::hiddenDiskInfo(bool hidden)
{
    for (std::size_t row = SourceRow; row < RowCount; ++row)
        hideInfo(static_cast<RowNumber>(row), hidden);
}

void DiskInfoViewController::hideInfo(RowNumber row, bool hidden)
{
    for (auto *value : m_rows[row].values)
        value->setHidden(hidden);
    for (auto *caption : m_rows[row].captions)
        caption->setHidden(hidden);
    showOverSizeMarkers();
}

bool DiskInfoViewController::isOverSize_SomeDisks() const
{
    return (!m_slotAIsSource && isOverSize_SlotA()) || isOverSize_SlotB() || isOverSize_SlotC() ||
           isOverSize_SlotD();
}

std::string DiskInfoViewController::OverSizeVolume() const
{
    std::string names;
    for (std::size_t row = m_slotAIsSource ? SlotBRow : SlotARow; row < RowCount; ++row) {
        if (m_rows[row].isOverSize)
            names += " " + nameOf(static_cast<RowNumber>(row));
    }
    return names + ".";
}

bool DiskInfoViewController::has_RAIDDisk() const
{
    return std::any_of(m_rows.begin(), m_rows.end(), [](const Row &row) { return row.isRaidDisk; });
}

void DiskInfoViewController::ejectSoureDisk()
{
    m_center.post(notification::EjectSourceDisk);
}

void DiskInfoViewController::ejectTargetDisks()
{
    m_center.post(notification::EjectTargetDisks);
}

void DiskInfoViewController::selectSourceDiksPopup()
{
    m_center.post(notification::SelectSourceDisk); // this call returns after the source's row is filled
    setSlotAisSource();
    Label_RaidDisk_SlotA->setHidden(m_slotAIsSource || !isRaidDisk_SlotA());
    changeLocation();
}

} // namespace orvana
