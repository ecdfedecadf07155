#include "ui/ProgressIndicator.h"

#include <algorithm>
#include <cmath>

namespace orvana
{

namespace
{

constexpr int Steps = 10'000; // more than any screen has pixels across

} // namespace

ProgressIndicator::ProgressIndicator(QWidget *parent) : QProgressBar(parent)
{
    setTextVisible(false);
    apply();
}

void ProgressIndicator::setMaxValue(double maximum)
{
    m_maximum = maximum;
    apply();
}

void ProgressIndicator::showValue(float value)
{
    if (value == Hidden) {
        setVisible(false);
        return;
    }
    // 0 divided by 0 arrives here as NaN and counts as 0.
    m_value = std::isfinite(value) ? std::clamp(static_cast<double>(value), 0.0, m_maximum) : 0.0;
    apply();
    setVisible(true);
}

void ProgressIndicator::setKind(Kind kind)
{
    m_kind = kind;
    apply();
}

void ProgressIndicator::apply()
{
    setRange(0, m_kind == Kind::Indeterminate ? 0 : Steps);
    setValue(static_cast<int>(std::lround(m_value / m_maximum * Steps)));
}

} // namespace orvana
