#include "ui/ShownText.h"

#include "foundation/DisplayPath.h"

namespace orvana
{

QString shownText(const std::string &bytes)
{
    return QString::fromStdString(displayPath(bytes));
}

QString wrappableText(const QString &text)
{
    constexpr int LongestWord = 32;
    QString wrappable;
    int length = 0;
    for (const auto letter : text) {
        length = letter.isSpace() ? 0 : length + 1;
        if (length > LongestWord && !letter.isLowSurrogate()) {
            wrappable += QChar(0x200B); // a space without width
            length = 1;
        }
        wrappable += letter;
    }
    return wrappable;
}

QString plainToolTip(const QString &text)
{
    return QStringLiteral("<span>%1</span>").arg(text.toHtmlEscaped());
}

} // namespace orvana
