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
    Q_PROPERTY(QString caption READ caption WRITE setCaption)

public:
    explicit ElidedLabel(QWidget *parent = nullptr);

    /// Says what the text is: "Model of bay B". A screen reader hears it before the text; it is not shown.
    QString caption() const { return m_caption; }
    void setCaption(const QString &caption);

    /// Sets the text as `QLabel::setText` does, and tells it to a screen reader.
    void setText(const QString &text);
    void clear() { setText(QString()); }

    /// The place at which a text that is too long is cut; the middle at first.
    void setElideMode(Qt::TextElideMode mode) { m_elideMode = mode; }

    QSize minimumSizeHint() const override;

    /// The text as it is painted at the label's present width.
    QString shownText() const;

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void tellName();

    QString m_caption;
    Qt::TextElideMode m_elideMode = Qt::ElideMiddle;
};

} // namespace orvana
