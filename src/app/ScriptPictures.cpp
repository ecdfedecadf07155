// The steps of a script that make pictures.

#include "app/BaySetupSheet.h"
#include "app/MainWindow.h"
#include "app/OrvanaAppDelegate.h"
#include "app/RunReportWindow.h"
#include "app/ScriptRunner.h"
#include "app/VerifyWindow.h"
#include "log/view/LogDataWindows.h"
#include "ui/Palettes.h"

#include <QApplication>
#include <QPainter>

namespace orvana
{

namespace
{

QPixmap grabAt(QWidget &widget, int scale)
{
    QPixmap picture(widget.size() * scale);
    picture.setDevicePixelRatio(scale);
    picture.fill(widget.palette().color(QPalette::Window));
    widget.render(&picture);
    return picture;
}

// Draws the window with its sheet on it, as the desktop shows the two together.
QPixmap grabWithSheet(QWidget &window, QWidget *sheet, int scale)
{
    auto picture = grabAt(window, scale);
    if (!sheet)
        return picture;
    const auto above = grabAt(*sheet, scale);
    QPainter painter(&picture);
    painter.fillRect(window.rect(), QColor(0, 0, 0, 90));
    const QPoint place((window.width() - sheet->width()) / 2, (window.height() - sheet->height()) / 3);
    painter.drawPixmap(place, above);
    return picture;
}

RunReportWindow *reportWindow()
{
    for (auto *widget : QApplication::topLevelWidgets()) {
        if (auto *report = qobject_cast<RunReportWindow *>(widget); report && report->isVisible())
            return report;
    }
    return nullptr;
}

} // namespace

void ScriptRunner::addPictures()
{
    addStep(QStringLiteral("palette"), 1, [](const auto &words) {
        QApplication::setPalette(words.first() == QStringLiteral("dark") ? darkPalette() : lightPalette());
        return done();
    });
    addStep(QStringLiteral("grab"), 1, [this](const auto &words) { return grab(words); });
    addStep(QStringLiteral("show-report"), 0, [this](const auto &) {
        window().showLastReport();
        return when(reportWindow() != nullptr, QStringLiteral("there is no report"));
    });
    addStep(QStringLiteral("wait-report"), 0, [](const auto &) {
        return when(reportWindow() != nullptr, QStringLiteral("there is no report"));
    });
    addStep(QStringLiteral("save-report"), 1, [](const auto &words) { return saveReport(words.first()); });
    addStep(QStringLiteral("show-logs"), 0, [this](const auto &) {
        m_delegate.showLogDataWindows();
        return done();
    });
    addStep(QStringLiteral("verify-disks"), 0, [this](const auto &) {
        m_delegate.showVerifyWindow();
        m_delegate.verifyWindow()->start();
        return done();
    });
    addStep(QStringLiteral("wait-verified"), 0, [this](const auto &) {
        const auto *verify = m_delegate.verifyWindow();
        return when(verify && !verify->isUnderWay(), QStringLiteral("the disks are not verified yet"));
    });
    addStep(QStringLiteral("expect-verified"), 1, [this](const auto &words) {
        const auto *verify = m_delegate.verifyWindow();
        return verify && verify->findings().contains(words.first())
                   ? done()
                   : failed(verify ? verify->findings() : QStringLiteral("nothing was verified"));
    });
    addStep(QStringLiteral("show-about"), 0, [this](const auto &) {
        m_delegate.showAbout();
        return done();
    });
}

// save-report FILE
ScriptRunner::Result ScriptRunner::saveReport(const QString &file)
{
    const auto *report = reportWindow();
    if (!report)
        return when(false, QStringLiteral("there is no report"));
    const bool isSaved = file.endsWith(QStringLiteral(".pdf"))    ? report->certificate().savePdf(file)
                         : file.endsWith(QStringLiteral(".html")) ? report->certificate().saveHtml(file)
                                                                  : report->saveTo(file);
    return isSaved ? done() : failed(QStringLiteral("cannot write the report"));
}

// grab FILE [SCALE [report|logs|verify|bays]]
ScriptRunner::Result ScriptRunner::grab(const QStringList &words)
{
    const int scale = words.size() > 1 ? words[1].toInt() / 100 : 1;
    if (scale < 1 || scale > 4)
        return failed(QStringLiteral("the scale is 100, 200, 300 or 400"));
    QPixmap picture;
    const auto what = words.value(2);
    if (what == QStringLiteral("report") && reportWindow())
        picture = grabAt(*reportWindow(), scale);
    else if (what == QStringLiteral("logs"))
        picture = grabAt(m_delegate.logDataWindow(), scale);
    else if (what == QStringLiteral("verify") && m_delegate.verifyWindow())
        picture = grabAt(*m_delegate.verifyWindow(), scale);
    else if (what == QStringLiteral("bays") && window().baySetup())
        picture = grabAt(*window().baySetup(), scale);
    else if (what.isEmpty())
        picture = grabWithSheet(window(), window().sheets().current(), scale);
    return picture.save(words.first()) ? done() : failed(QStringLiteral("cannot write the picture"));
}

} // namespace orvana
