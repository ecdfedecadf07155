// The steps of a script that set up the bays of an enclosure.

#include "app/BaySetupSheet.h"
#include "app/MainWindow.h"
#include "app/ScriptRunner.h"

#include <algorithm>

namespace orvana
{

void ScriptRunner::addBaySetup()
{
    // show-bays [NAME]
    addStep(QStringLiteral("show-bays"), 0, [this](const auto &words) {
        window().setUpBays();
        if (window().baySetup())
            window().baySetup()->nameField->setText(words.value(0));
        return when(window().baySetup(), QStringLiteral("bays cannot be set up now"));
    });
    addStep(QStringLiteral("press-bays"), 1, [this](const auto &words) { return pressBays(words); });
    addStep(QStringLiteral("wait-bays"), 1, [this](const auto &words) {
        const auto labels =
            window().baySetup() ? window().baySetup()->template findChildren<QLabel *>() : QList<QLabel *>();
        return when(std::any_of(labels.begin(), labels.end(),
                                [&](const QLabel *label) { return label->text().contains(words.first()); }),
                    QStringLiteral("the setup of bays does not say so"));
    });
    addStep(QStringLiteral("wait-no-bays"), 0, [this](const auto &) {
        return when(!window().baySetup(), QStringLiteral("bays are being set up"));
    });
}

ScriptRunner::Result ScriptRunner::pressBays(const QStringList &words)
{
    if (!window().baySetup())
        return when(false, QStringLiteral("no bays are being set up"));
    for (auto *button : window().baySetup()->findChildren<QAbstractButton *>()) {
        if (button->text().remove(QLatin1Char('&')) != words.first())
            continue;
        if (!button->isEnabled())
            return when(false, QStringLiteral("the button cannot be pressed"));
        button->click();
        return done();
    }
    return failed(QStringLiteral("the setup of bays has no such button"));
}

} // namespace orvana
