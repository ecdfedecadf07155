// In each language, Alt with one letter means one thing.

#include "app/BaySetupSheet.h"
#include "app/MainMenu.h"
#include "app/OrvanaAppDelegate.h"
#include "app/RunOptionsSheet.h"
#include "app/RunReportWindow.h"
#include "app/VerifyWindow.h"
#include "app/WindowFixture.h"
#include "languages/Languages.h"

#include <QAbstractButton>
#include <QCoreApplication>
#include <QKeySequence>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>

#include <map>

namespace orvana
{

namespace
{

class Keys : public WindowTest, public testing::WithParamInterface<const char *>
{
protected:
    Keys() : m_language(QString::fromLatin1(GetParam())) {}

    static void expectUnique(const QStringList &texts)
    {
        std::map<std::string, std::string> taken;
        for (const auto &text : texts) {
            const auto key = QKeySequence::mnemonic(text).toString().toStdString();
            if (key.empty())
                continue;
            const auto [other, isNew] = taken.emplace(key, text.toStdString());
            EXPECT_TRUE(isNew || other->second == text.toStdString())
                << key << ": " << other->second << " and " << text.toStdString();
        }
        EXPECT_GT(taken.size(), 1U);
    }

    static QStringList textsOf(const QWidget &window)
    {
        QStringList texts;
        for (const auto *button : window.findChildren<QAbstractButton *>()) {
            if (button->window() == window.window())
                texts += button->text();
        }
        for (const auto *label : window.findChildren<QLabel *>()) {
            if (label->buddy())
                texts += label->text();
        }
        return texts;
    }

private:
    const WindowLanguage m_language;
};

TEST_P(Keys, OfTheWindowAndItsMenusMeanOneThing)
{
    startWithEnclosure();
    OrvanaAppDelegate delegate(context(), "Orvana");
    new MainMenu(window(), delegate);
    auto texts = textsOf(window());
    for (const auto *action : window().menuBar()->actions())
        texts += action->text();
    // In a run, Start is Cancel.
    texts += QCoreApplication::translate("orvana::CopyActionViewController", "&Cancel");
    expectUnique(texts);
    for (const auto *opened : window().menuBar()->findChildren<QMenu *>()) {
        QStringList entries;
        for (const auto *action : opened->actions())
            entries += action->text();
        expectUnique(entries);
    }
}

TEST_P(Keys, OfTheReportAndTheBaySetupMeanOneThing)
{
    const RunReportWindow report({}, {}, [] { return std::string(); });
    expectUnique(textsOf(report));
    m_machine["enclosures"] = Json::array();
    start();
    const VerifyWindow verify(context().host.volumeFiles(), m_tree.path("logs"), {});
    expectUnique(textsOf(verify));
    const RunOptionsSheet options({}, [](const auto &) {}, nullptr);
    expectUnique(textsOf(options));
    window().setUpBays();
    ASSERT_TRUE(window().baySetup());
    expectUnique(textsOf(*window().baySetup()));
}

INSTANTIATE_TEST_SUITE_P(Languages, Keys, testing::Values("", "de", "es", "fr", "ja", "zh_CN"),
                         [](const auto &language) {
                             return *language.param ? std::string(language.param) : std::string("en");
                         });

} // namespace

} // namespace orvana
