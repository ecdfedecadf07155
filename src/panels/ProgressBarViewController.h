#pragma once

#include "ui_ProgressBarViewController.h"

#include <QWidget>

#include <string>

namespace orvana
{

/// A status line and two bars: of the current file, 0 to 100, and of the whole run, 0 to 1. -1 hides a bar.
/// The main window drives bars of its own the same way. Main thread only.
class ProgressBarViewController : public QWidget, public Ui::ProgressBarViewController
{
    Q_OBJECT

public:
    explicit ProgressBarViewController(QWidget *parent = nullptr);

    /// Of these the setters drive the bars only; they stay at 0.
    float FileStep() const { return 0.0F; }
    float TotalStep() const { return 0.0F; }
    void setFileStep(float step);
    void setTotalStep(float step);

    const std::string &MsgText() const { return m_msgText; }

    /// Shows the text and writes it to the system log, before and after.
    void setMsgText(const std::string &text);

    /// While disks are erased nobody knows how long it takes.
    void setViewForErase();
    void setViewForCopy();

private:
    void awakeFromNib();

    std::string m_msgText;
};

} // namespace orvana
