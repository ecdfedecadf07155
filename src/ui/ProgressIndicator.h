#pragma once

#include <QProgressBar>

namespace orvana
{

/// A progress bar whose range and value are floating-point numbers.
class ProgressIndicator : public QProgressBar
{
    Q_OBJECT

public:
    /// The value that hides the bar.
    static constexpr float Hidden = -1.0F;

    explicit ProgressIndicator(QWidget *parent = nullptr);

    /// Sets the range: from 0 to `maximum`.
    void setMaxValue(double maximum);
    double maxValue() const { return m_maximum; }

    /// Only `Hidden` hides the bar. Any other value is limited to the range and shown.
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
