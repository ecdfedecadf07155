#pragma once

#include "ui_TBDeviceViewController.h"

#include <QWidget>

#include <memory>
#include <vector>

namespace orvana
{

class NotificationCenter;
class ORVThunderboltInfo;

/// The panel in which the user picks an enclosure. Item 0 is a placeholder, item k is the k-th enclosure of
/// the last refill. Main thread only.
class TBDeviceViewController : public QWidget, public Ui::TBDeviceViewController
{
    Q_OBJECT

public:
    static constexpr const char *Placeholder = "Select an Orvana Storage Device";

    /// `center` must outlive the panel.
    explicit TBDeviceViewController(NotificationCenter &center, QWidget *parent = nullptr);

    /// Lists these enclosures and selects the placeholder. Posts nothing.
    void updateTBDevPopUp(const std::vector<std::shared_ptr<ORVThunderboltInfo>> &enclosures);

    /// Offers these sentences beside the picker. They say why attached devices cannot be used.
    void setRemarks(const std::vector<std::string> &remarks);

    /// Answers the user's choice of an item. Posts "SelectTBDeviceFormTBDevView" for an enclosure, even if it
    /// was chosen already.
    void selectTBDevicePopup(int index);

Q_SIGNALS:
    /// The user asks for the remarks.
    void remarksWanted(const QString &text);

    /// The picker lists other enclosures, or the same ones again.
    void listed();

private:
    void awakeFromNib();

    NotificationCenter &m_center;
    QString m_remarks;
};

} // namespace orvana
