#include "panels/TBDeviceViewController.h"

#include "discovery/DeviceRecords.h"
#include "foundation/NotificationCenter.h"
#include "foundation/NotificationNames.h"
#include "ui/ShownText.h"

namespace orvana
{

TBDeviceViewController::TBDeviceViewController(NotificationCenter &center, QWidget *parent)
    : QWidget(parent), m_center(center)
{
    setupUi(this);
    connect(tbDevicePopup, &QComboBox::activated, this, &TBDeviceViewController::selectTBDevicePopup);
    connect(remarksBtn, &QPushButton::clicked, this, [this] { Q_EMIT remarksWanted(m_remarks); });
    remarksBtn->setHidden(true);
    awakeFromNib();
}

void TBDeviceViewController::awakeFromNib()
{
    tbDeviceLabel->setText(tr("&Orvana Storage Device :"));
    tbDevicePopup->clear();
    tbDevicePopup->addTitle(Placeholder);
}

void TBDeviceViewController::updateTBDevPopUp(
    const std::vector<std::shared_ptr<ORVThunderboltInfo>> &enclosures)
{
    awakeFromNib();
    for (const auto &enclosure : enclosures)
        tbDevicePopup->addTitle(enclosure->moduleName().value_or(std::string()),
                                QIcon(QStringLiteral(":/thunderbolt.png")));
    if (!enclosures.empty())
        tbDeviceLabel->setText(tr("&Orvana Storage Device (%1) :").arg(enclosures.size()));
    Q_EMIT listed();
}

void TBDeviceViewController::setRemarks(const std::vector<std::string> &remarks)
{
    QStringList lines;
    for (const auto &remark : remarks)
        lines << shownText(remark);
    m_remarks = lines.join(QStringLiteral("\n\n"));
    remarksBtn->setToolTip(plainToolTip(m_remarks));
    remarksBtn->setHidden(lines.isEmpty());
}

void TBDeviceViewController::selectTBDevicePopup(int index)
{
    if (index > 0)
        m_center.post(notification::SelectTBDevice);
}

} // namespace orvana
