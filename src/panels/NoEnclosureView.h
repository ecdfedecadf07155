#pragma once

#include "ui_NoEnclosureView.h"

#include <QWidget>

namespace orvana
{

/// The panel beside the picker while there is no enclosure. It says what to do next. Main thread only.
class NoEnclosureView : public QWidget, public Ui::NoEnclosureView
{
    Q_OBJECT

public:
    explicit NoEnclosureView(QWidget *parent = nullptr);

Q_SIGNALS:
    void setUpWanted();
    void demoWanted();
};

} // namespace orvana
