// This file is the part of the window that helps where there is no enclosure: it sets one up, or starts the
// demo.

#include "app/BaySetupSheet.h"
#include "app/MainWindow.h"
#include "panels/NoEnclosureView.h"
#include "platform/Host.h"

namespace orvana
{

// In the other states, the bays are at the place of this panel.
void MainWindow::showWhatToDoNext()
{
    m_noEnclosure->setHidden(m_layoutState != 0 || !m_ScanDevice.tbArray().empty());
}

void MainWindow::startDemo()
{
    if (m_context.startDemo && !m_context.startDemo())
        warn("The demo cannot be started.");
}

void MainWindow::setUpBays()
{
    if (isBusy()) {
        warn("Disks are at work. Bays can be set up when that has ended.");
        return;
    }
    if (!m_baySetup) {
        m_baySetup = new BaySetupSheet(m_context.host.enclosureSetup(), m_setupWriter, m_context.queue, this);
        m_baySetup->open();
    }
}

BaySetupSheet *MainWindow::baySetup() const
{
    return m_baySetup;
}

} // namespace orvana
