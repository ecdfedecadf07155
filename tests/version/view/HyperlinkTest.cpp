#include "version/view/Hyperlink.h"

#include "ui/SystemColor.h"

#include <QGuiApplication>
#include <QLabel>
#include <QPalette>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <gtest/gtest.h>

namespace orvana
{

namespace
{

const auto Address = QUrl(QStringLiteral("https://orvana.example/a b"));

/// Changes the application's palette; the destructor restores it.
class WindowColor
{
public:
    explicit WindowColor(const QColor &color) : m_before(QGuiApplication::palette())
    {
        auto palette = m_before;
        palette.setColor(QPalette::Window, color);
        QGuiApplication::setPalette(palette);
    }
    ~WindowColor() { QGuiApplication::setPalette(m_before); }

private:
    QPalette m_before;
};

// Returns the format of every fragment of the link's text.
std::vector<QTextCharFormat> formats(const QTextDocumentFragment &link)
{
    QTextDocument document;
    QTextCursor(&document).insertFragment(link);
    std::vector<QTextCharFormat> formats;
    const auto block = document.firstBlock();
    for (auto piece = block.begin(); !piece.atEnd(); ++piece)
        formats.push_back(piece.fragment().charFormat());
    return formats;
}

} // namespace

TEST(Hyperlink, HasAddressBlueAndSingleUnderlineOverItsWholeLength)
{
    const WindowColor light(Qt::white);
    const auto link = hyperlinkFromString(QStringLiteral("the page"), Address);
    EXPECT_EQ(link.toPlainText(), QStringLiteral("the page"));
    const auto all = formats(link);
    ASSERT_EQ(all.size(), 1U);
    EXPECT_EQ(all[0].anchorHref(), QStringLiteral("https://orvana.example/a%20b"));
    EXPECT_EQ(all[0].foreground().color(), SystemColor::blue().shadeFor(QGuiApplication::palette()));
    EXPECT_EQ(all[0].underlineStyle(), QTextCharFormat::SingleUnderline);
}

TEST(Hyperlink, BlueCanBeReadOnADarkWindow)
{
    const WindowColor dark(QColor(0x20, 0x20, 0x20));
    const auto blue = formats(hyperlinkFromString(QStringLiteral("x"), Address)).at(0).foreground().color();
    EXPECT_GT(blue.lightness(), 160);
    EXPECT_GT(blue.blue(), blue.red());
}

TEST(Hyperlink, TextThatLooksLikeMarkupIsShownAsItStands)
{
    EXPECT_EQ(hyperlinkFromString(QStringLiteral("<b>&x"), Address).toPlainText(), QStringLiteral("<b>&x"));
}

TEST(Hyperlink, FieldBecomesSelectableAndRichAndHoldsTheLinkAlone)
{
    QLabel field(QStringLiteral("before"));
    setHyperlinkWithTextField(&field, QStringLiteral("the page"), Address);
    EXPECT_EQ(field.textFormat(), Qt::RichText);
    EXPECT_TRUE(field.textInteractionFlags() & Qt::TextSelectableByMouse);
    EXPECT_TRUE(field.textInteractionFlags() & Qt::LinksAccessibleByMouse);
    EXPECT_FALSE(field.openExternalLinks());
    EXPECT_EQ(QTextDocumentFragment::fromHtml(field.text()).toPlainText(), QStringLiteral("the page"));
}

} // namespace orvana
