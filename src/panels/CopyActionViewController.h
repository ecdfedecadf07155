#pragma once

#include "ui_CopyActionViewController.h"

#include <QWidget>

namespace orvana
{

class NotificationCenter;

/// The Start button and the two options of a run. What the user does is posted; the flags are set by run
/// control. Main thread only.
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

    /// A run is in progress, or an erase.
    bool isDuplicating() const { return m_isDuplicating; }
    void setIsDuplicating(bool isDuplicating) { m_isDuplicating = isDuplicating; }
    bool isErasing() const { return m_isErasing; }
    void setIsErasing(bool isErasing) { m_isErasing = isErasing; }

    // What the user's actions do.
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
