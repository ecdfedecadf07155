#pragma once

#include <QLabel>

namespace orvana
{

/// A label on one line whose text, where it is longer than the label, is painted with its middle left out.
///
/// `text()` is always the whole text; while it is cut it is also the tool tip.
class ElidedLabel : public QLabel
{
    Q_OBJECT

public:
    explicit ElidedLabel(QWidget *parent = nullptr);

    QSize minimumSizeHint() const override;

    /// What is painted at the label's present width.
    QString shownText() const;

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
};

} // namespace orvana
