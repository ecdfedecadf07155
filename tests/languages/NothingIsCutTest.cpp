// In each language, and in a made-up language whose texts are 30 % longer than the English ones, every text
// of the window fits into its place.

#include "app/BaySetupSheet.h"
#include "app/RunOptionsSheet.h"
#include "app/VerifyWindow.h"
#include "app/WindowFixture.h"
#include "languages/Languages.h"
#include "log/view/LogDataWindows.h"
#include "ui/CoreWords.h"
#include "ui/ElidedLabel.h"
#include "ui/ShownText.h"
#include "version/view/VersionWindow.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QStyle>
#include <QTranslator>

#include <algorithm>
#include <cmath>

namespace orvana
{

namespace
{

/// "Verify" becomes "[Verify]", and longer texts grow by almost a third as well.
class LongerTexts : public QTranslator
{
public:
    bool isEmpty() const override { return false; }

    QString translate(const char *context, const char *text, const char * /*meaning*/,
                      int /*n*/) const override
    {
        const auto english = QString::fromUtf8(text);
        if (english.size() < 2 || QByteArrayView(context).startsWith('Q'))
            return {};
        const auto more = static_cast<int>(std::ceil(0.3 * static_cast<double>(english.size())));
        return QChar(u'[') + english + QString(std::max(0, more - 2), QChar(u'~')) + QChar(u']');
    }
};

class NothingIsCut : public WindowTest, public testing::WithParamInterface<const char *>
{
protected:
    NothingIsCut() : m_language(isMadeUp() ? QString() : QString::fromLatin1(GetParam()))
    {
        if (isMadeUp())
            QCoreApplication::installTranslator(&m_longer);
        bay(2)["size"] = 4096; // does not fit
    }

    static bool isMadeUp() { return std::string_view(GetParam()) == "longer"; }

    /// Checks every visible text of the widget.
    static void look(QWidget &at)
    {
        for (auto *label : at.findChildren<QLabel *>()) {
            if (label->isVisible() && label->objectName() != QLatin1String("messageText"))
                lookAtLabel(*label);
        }
        for (auto *button : at.findChildren<QAbstractButton *>()) {
            if (button->isVisible() && !button->text().isEmpty()) {
                EXPECT_LE(neededBy(*button), button->width()) << button->text().toStdString();
            }
        }
    }

private:
    static void lookAtLabel(const QLabel &label)
    {
        // A text that was cut before it became the label's own is whole in the tool tip.
        if (!label.toolTip().isEmpty() && !label.text().isEmpty()) {
            EXPECT_EQ(label.toolTip().toStdString(), plainToolTip(label.text()).toStdString());
        }
        const auto name = label.objectName().toStdString() + ": " + label.text().toStdString();
        if (const auto *elided = qobject_cast<const ElidedLabel *>(&label)) {
            EXPECT_EQ(elided->shownText().toStdString(), elided->text().toStdString()) << name;
        } else if (label.wordWrap()) {
            EXPECT_LE(label.heightForWidth(label.width()), label.height()) << name;
        } else if (!label.text().isEmpty()) {
            EXPECT_LE(label.fontMetrics().horizontalAdvance(QString(label.text()).remove(u'&')),
                      label.width())
                << name;
        }
    }

    // The text and the room that a button needs around it. A style gives more than the least room if it can.
    static int neededBy(const QAbstractButton &button)
    {
        const auto text = button.fontMetrics().size(Qt::TextShowMnemonic, button.text()).width();
        if (qobject_cast<const QCheckBox *>(&button))
            return text + button.style()->pixelMetric(QStyle::PM_IndicatorWidth) +
                   button.style()->pixelMetric(QStyle::PM_CheckBoxLabelSpacing);
        return text + 6;
    }

    const WindowLanguage m_language;
    LongerTexts m_longer;
};

TEST_P(NothingIsCut, WithoutAnEnclosure)
{
    m_machine["enclosures"] = Json::array();
    start();
    look(window());
}

TEST_P(NothingIsCut, WithAnEnclosure)
{
    startWithEnclosure();
    look(window());
    for (auto *field : window().findChildren<VolumeNameField *>()) {
        const auto painted = paintedText(field->text());
        if (field->isVisible()) {
            EXPECT_LE(field->fontMetrics().horizontalAdvance(painted), field->width())
                << painted.toStdString();
        }
    }
}

TEST_P(NothingIsCut, InARunAndAfterIt)
{
    bay(1)["volumes"][0]["faults"] = {{"delayMilliseconds", 100}};
    startWithEnclosure();
    setErase(false);
    setVerify(true);
    pressStart();
    if (window().sheets().current())
        window().sheets().current()->buttons().constFirst()->click();
    until([&] { return window().isBusy(); });
    pass(std::chrono::milliseconds(1000));
    look(window());
    until([&] { return !window().isBusy(); });
    pass(std::chrono::milliseconds(1000));
    look(window());
    window().showLastReport();
    for (auto *shown : QApplication::topLevelWidgets()) {
        if (shown->isVisible())
            look(*shown);
    }
}

TEST_P(NothingIsCut, InTheQuestionBeforeAnErase)
{
    bay(2)["size"] = 40'000'000;
    startWithEnclosure();
    setErase(true);
    pressStart();
    until([&] { return window().sheets().current() != nullptr; });
    look(*window().sheets().current());
}

TEST_P(NothingIsCut, InTheOtherWindows)
{
    startWithEnclosure();
    RunOptionsSheet options({}, [](const auto &) {}, &window());
    LogDataWindows logs(context().host, m_tree.path("logs"));
    VersionWindow version(context().host, "0.1.0");
    VerifyWindow verify(context().host.volumeFiles(), m_tree.path("logs"), {});
    window().setUpBays();
    ASSERT_TRUE(window().baySetup());
    for (QWidget *other :
         {static_cast<QWidget *>(&options), static_cast<QWidget *>(&logs), static_cast<QWidget *>(&version),
          static_cast<QWidget *>(&verify), static_cast<QWidget *>(window().baySetup())}) {
        other->show();
        pass(std::chrono::milliseconds(10));
        look(*other);
    }
}

INSTANTIATE_TEST_SUITE_P(Languages, NothingIsCut, testing::Values("de", "es", "fr", "ja", "zh_CN", "longer"),
                         [](const auto &language) { return std::string(language.param); });

} // namespace

} // namespace orvana
