#pragma once

#include <QProgressBar>

namespace orvana
{

/// A progress bar whose range and value are fractions.
class ProgressIndicator : public QProgressBar
{
    Q_OBJECT

public:
    /// As a value: the bar is hidden.
    static constexpr float Hidden = -1.0F;

    explicit ProgressIndicator(QWidget *parent = nullptr);

    /// From 0 to `maximum`.
    void setMaxValue(double maximum);
    double maxValue() const { return m_maximum; }

    /// Exactly `Hidden` hides the bar; any other value shows it, within the range.
    void showValue(float value);
    double doubleValue() const { return m_value; }

    enum class Kind { Determinate, Indeterminate };

    /// An indeterminate bar moves by itself and keeps its value for later.
    void setKind(Kind kind);
    Kind kind() const { return m_kind; }

private:
    void apply();

    double m_maximum = 1.0;
    double m_value = 0.0;
    Kind m_kind = Kind::Determinate;
};

} // namespace orvana
