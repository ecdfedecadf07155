#pragma once

#include "ui_TBDeviceViewController.h"

#include <QWidget>

#include <memory>
#include <vector>

namespace orvana
{

class NotificationCenter;
class ORVThunderboltInfo;

/// The panel in which the user picks an enclosure. Item 0 is a placeholder, item k the k-th enclosure of the
/// last refill. Main thread only.
class TBDeviceViewController : public QWidget, public Ui::TBDeviceViewController
{
    Q_OBJECT

public:
    static constexpr const char *Placeholder = "Select an Orvana Storage Device";

    /// `center` must outlive the panel.
    explicit TBDeviceViewController(NotificationCenter &center, QWidget *parent = nullptr);

    /// Lists these enclosures and selects the placeholder. Posts nothing.
    void updateTBDevPopUp(const std::vector<std::shared_ptr<ORVThunderboltInfo>> &enclosures);

    /// Offers these sentences, which say why attached devices cannot be used, beside the picker.
    void setRemarks(const std::vector<std::string> &remarks);

    /// The user chose an item: posts "SelectTBDeviceFormTBDevView" for an enclosure, chosen already or not.
    void selectTBDevicePopup(int index);

Q_SIGNALS:
    /// The user asks for the remarks.
    void remarksWanted(const QString &text);

private:
    void awakeFromNib();

    NotificationCenter &m_center;
    QString m_remarks;
};

} // namespace orvana
