#pragma once

#include <QLabel>

namespace orvana
{

/// A label with one line of text. If the text is longer than the label, the middle of the text is left out.
///
/// `text()` is always the whole text. While the shown text is cut, the whole text is also the tool tip.
class ElidedLabel : public QLabel
{
    Q_OBJECT

public:
    explicit ElidedLabel(QWidget *parent = nullptr);

    QSize minimumSizeHint() const override;

    /// The text as it is painted at the label's present width.
    QString shownText() const;

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
};

} // namespace orvana
