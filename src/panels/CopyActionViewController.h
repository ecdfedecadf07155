#pragma once

#include "ui_CopyActionViewController.h"

#include <QWidget>

namespace orvana
{

class NotificationCenter;

/// The panel with the Start button and the two options of a run. It posts the user's actions; run control
/// sets the flags. Main thread only.
class CopyActionViewController : public QWidget, public Ui::CopyActionViewController
{
    Q_OBJECT

public:
    /// `center` must outlive the panel.
    explicit CopyActionViewController(NotificationCenter &center, QWidget *parent = nullptr);

    enum class Title { Start, Cancel };
    void setTitle(Title title);

    /// The Verify option, as last clicked.
    bool verifyFiles() const { return m_verifyFiles; }

    /// True while a run, or an erase, is in progress.
    bool isDuplicating() const { return m_isDuplicating; }
    void setIsDuplicating(bool isDuplicating) { m_isDuplicating = isDuplicating; }
    bool isErasing() const { return m_isErasing; }
    void setIsErasing(bool isErasing) { m_isErasing = isErasing; }

    // The user's actions.
    void Duplicate();
    void ClickVerifyFiles();
    void ClickEraseDisks();

private:
    void awakeFromNib();

    NotificationCenter &m_center;
    bool m_verifyFiles = false;
    bool m_isDuplicating = false;
    bool m_isErasing = false;
};

} // namespace orvana
