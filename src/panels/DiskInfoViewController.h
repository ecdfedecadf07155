#pragma once

#include "ui_DiskInfoViewController.h"

#include <QWidget>

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace orvana
{

class BayRunView;
class NotificationCenter;
class SystemColor;

/// The slot panel: one row for the source and one for each bay of the enclosure. It knows no devices: its
/// owner sets every value, and it posts the user's actions. Names of volumes and models are bytes.
///
/// Rows are named "Source", "Slot-A", "Slot-B", "Slot-C" and "Slot-D". A function that gets any other name
/// does nothing. Main thread only.
class DiskInfoViewController : public QWidget, public Ui::DiskInfoViewController
{
    Q_OBJECT

public:
    /// `center` must outlive the panel.
    explicit DiskInfoViewController(NotificationCenter &center, QWidget *parent = nullptr);

    /// The volume names of the rows. A setter writes the field. A getter returns the present content of the
    /// field, so it also returns a name that the user typed.
    std::string Source() const { return nameOf(SourceRow); }
    std::string SlotA() const { return nameOf(SlotARow); }
    std::string SlotB() const { return nameOf(SlotBRow); }
    std::string SlotC() const { return nameOf(SlotCRow); }
    std::string SlotD() const { return nameOf(SlotDRow); }
    void setSource(const std::string &name) { setName(SourceRow, name); }
    void setSlotA(const std::string &name) { setName(SlotARow, name); }
    void setSlotB(const std::string &name) { setName(SlotBRow, name); }
    void setSlotC(const std::string &name) { setName(SlotCRow, name); }
    void setSlotD(const std::string &name) { setName(SlotDRow, name); }

    /// Resets the pop-up to its one placeholder, and all names to their placeholders. No name is editable
    /// then.
    void initDiskVolume();

    /// Writes the text into the model, serial number, free space and capacity of all rows.
    void initDiskInfo(const std::string &text);

    /// Fills one row. For bay A, `SlotAisSource` replaces `labelHidden`. The source has no RAID marker.
    void setDiskInfo(std::string_view row, const std::string &diskVolume, const std::string &diskmodel,
                     const std::string &diskSN, const std::string &available, const std::string &capacity,
                     bool labelHidden, bool isRaidDisk);

    /// Colours one row. A bay counts as too small exactly while its colour is the system's red.
    void setTextColor(std::string_view row, const SystemColor &Color);

    /// True while the disk in bay A is the source. It is no destination then.
    bool SlotAisSource() const { return m_slotAIsSource; }

    /// Sets `SlotAisSource` anew: true if the pop-up's first item is selected and `Source` equals `SlotA`.
    void setSlotAisSource();

    /// Places the bay rows. Without bay A, the other bays lie one row higher.
    void changeLocation();

    /// The name fields of bays A to D.
    std::array<VolumeNameField *, 4> bayNameFields() const
    {
        return {SlotAVolume, SlotBVolume, SlotCVolume, SlotDVolume};
    }

    /// The view of the bay's run; null for the source and for unknown names.
    BayRunView *runOf(std::string_view row);

    void setTargetDiskVolumeEditable(bool editable);
    void DisabledItem(bool disabled);

    /// Moves the keyboard focus to the next name field of bays B, C and D.
    void changeTargetDiskFocus();
    std::int32_t tabStep() const { return m_tabStep; }

    /// Hide or show values and captions, but not the volume names and the RAID markers.
    void hiddenDiskInfo(bool hidden);
    void hiddenSourceInfo(bool hidden) { hideInfo(SourceRow, hidden); }
    void hiddenSlotAInfo(bool hidden) { hideInfo(SlotARow, hidden); }
    void hiddenSlotBInfo(bool hidden) { hideInfo(SlotBRow, hidden); }
    void hiddenSlotCInfo(bool hidden) { hideInfo(SlotCRow, hidden); }
    void hiddenSlotDInfo(bool hidden) { hideInfo(SlotDRow, hidden); }

    bool isOverSize_SlotA() const { return m_rows[SlotARow].isOverSize; }
    bool isOverSize_SlotB() const { return m_rows[SlotBRow].isOverSize; }
    bool isOverSize_SlotC() const { return m_rows[SlotCRow].isOverSize; }
    bool isOverSize_SlotD() const { return m_rows[SlotDRow].isOverSize; }

    /// True if bays B, C and D are all too small. Bay A never counts.
    bool isOverSize_AllDisks() const
    {
        return isOverSize_SlotB() && isOverSize_SlotC() && isOverSize_SlotD();
    }

    /// True if at least one destination bay is too small.
    bool isOverSize_SomeDisks() const;

    /// The volume names of the bays that are too small, each with a blank before it, and a full stop at the
    /// end.
    std::string OverSizeVolume() const;

    bool isRaidDisk_SlotA() const { return m_rows[SlotARow].isRaidDisk; }
    bool isRaidDisk_SlotB() const { return m_rows[SlotBRow].isRaidDisk; }
    bool isRaidDisk_SlotC() const { return m_rows[SlotCRow].isRaidDisk; }
    bool isRaidDisk_SlotD() const { return m_rows[SlotDRow].isRaidDisk; }

    /// True if one of the four bays holds a RAID disk. Bay A counts even if it is the source.
    bool has_RAIDDisk() const;

    /// True if the enclosure holds the start-up disk, as found when the enclosure was selected.
    bool hasBootDisk() const { return m_hasBootDisk; }
    void setHasBootDisk(bool hasBootDisk) { m_hasBootDisk = hasBootDisk; }

    // The user's actions.
    void ejectSoureDisk();
    void ejectTargetDisks();
    void selectSourceDiksPopup();

protected:
    void changeEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    enum RowNumber : std::size_t { SourceRow, SlotARow, SlotBRow, SlotCRow, SlotDRow, RowCount };

    struct Row
    {
        VolumeNameField *volume = nullptr;
        std::array<ElidedLabel *, 4> values{}; ///< model, serial number, available, capacity
        std::array<QLabel *, 4> captions{};    ///< captions of these values
        QLabel *bay = nullptr;                 ///< null for the source, like `raid` and `overSize`
        QLabel *raid = nullptr;
        QLabel *overSize = nullptr;
        BayRunView *run = nullptr;
        const SystemColor *color = nullptr;
        bool isOverSize = false;
        bool isRaidDisk = false;
    };

    void collectRows();
    void awakeFromNib();
    void fitFonts();
    Row *rowNamed(std::string_view name);
    std::string nameOf(RowNumber row) const;
    void setName(RowNumber row, const std::string &name);
    void hideInfo(RowNumber row, bool hidden);
    void hideBayA();
    void placeRow(const Row &row, int base);
    void paintRow(const Row &row);
    void showOverSizeMarkers();

    NotificationCenter &m_center;
    std::array<Row, RowCount> m_rows;
    bool m_slotAIsSource = true;
    bool m_hasBootDisk = false;
    std::int32_t m_tabStep = 0;
};

} // namespace orvana
