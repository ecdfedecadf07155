#include "ui/ShownText.h"

#include "foundation/DisplayPath.h"

namespace orvana
{

QString shownText(const std::string &bytes)
{
    return QString::fromStdString(displayPath(bytes));
}

QString plainToolTip(const QString &text)
{
    return QStringLiteral("<span>%1</span>").arg(text.toHtmlEscaped());
}

} // namespace orvana
