#pragma once

#include "ui_ProgressBarViewController.h"

#include <QWidget>

#include <string>

namespace orvana
{

/// A status line and two bars: one for the current file, from 0 to 100, and one for the whole run, from 0 to
/// 1. The value -1 hides a bar. The main window drives bars of its own in the same way. Main thread only.
class ProgressBarViewController : public QWidget, public Ui::ProgressBarViewController
{
    Q_OBJECT

public:
    explicit ProgressBarViewController(QWidget *parent = nullptr);

    /// The setters only drive the bars. The getters always return 0.
    float FileStep() const { return 0.0F; }
    float TotalStep() const { return 0.0F; }
    void setFileStep(float step);
    void setTotalStep(float step);

    const std::string &MsgText() const { return m_msgText; }

    /// Shows the text. Writes the text to the system log before and after showing it.
    void setMsgText(const std::string &text);

    /// An erase shows an indeterminate bar, because nobody knows how long it takes.
    void setViewForErase();
    void setViewForCopy();

private:
    void awakeFromNib();

    std::string m_msgText;
};

} // namespace orvana
