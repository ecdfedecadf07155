#pragma once

#include <QWidget>

class QLabel;

namespace orvana
{

class ElidedLabel;
class ProgressIndicator;

/// The run of one bay, beside the rows of the bay: while it goes on a bar, the rate and the time left; at its
/// end a verdict. It shows nothing before. Texts are already in the user's language. Main thread only.
class BayRunView : public QWidget
{
    Q_OBJECT

public:
    /// `bay` is how a screen reader calls the bay: "bay B".
    explicit BayRunView(const QString &bay, QWidget *parent);

    /// The size of the view in points.
    static constexpr QSize Size{100, 58};

    /// Shows a run that goes on. `fraction` is 0 to 1.
    void showProgress(double fraction, const QString &word, const QString &rate, const QString &timeLeft);

    /// Shows a word with its sign, "✓ Verified", and below it what it goes by.
    void showVerdict(const QString &word, const QString &detail);

    void clear();

private:
    void setWord(const QString &word);

    ElidedLabel *m_word;
    ProgressIndicator *m_bar;
    ElidedLabel *m_rate;
    ElidedLabel *m_timeLeft;
    QLabel *m_detail;
};

} // namespace orvana
