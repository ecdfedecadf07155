#pragma once

#include "duplicate/run/ProductionLine.h"

#include <QElapsedTimer>
#include <QFrame>

class QLabel;
class QProgressBar;
class QPushButton;

namespace orvana
{

/// One bay of a production line, in letters that can be read from two metres away: its letter, its state with
/// a sign and a colour, its disk, and what it asks.
class LineTile : public QFrame
{
    Q_OBJECT

public:
    LineTile(Bay bay, QWidget *parent);

    void show(const LineBay &bay, bool isSource);

Q_SIGNALS:
    /// A person agrees to what the bay asks.
    void agreed();

private:
    QLabel *m_letter;
    QLabel *m_state;
    QLabel *m_disk;
    QLabel *m_text;
    QProgressBar *m_progress;
    QPushButton *m_yes;
    QElapsedTimer m_sinceAsked;
};

/// "Counting down 7", with the sign of the state before it.
QString stateText(const LineBay &bay);

} // namespace orvana
