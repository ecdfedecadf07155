#pragma once

#include "app/Certificate.h"
#include "duplicate/report/ReportTable.h"
#include "ui_RunReportWindow.h"

#include <QWidget>

#include <functional>

namespace orvana
{

/// Shows the report of one run: a sentence, a row for each disk, and below the rows what went wrong. It is a
/// window of its own, so that a sheet on the main window does not cover it. It deletes itself when it is
/// closed.
class RunReportWindow : public QWidget, public Ui::RunReportWindow
{
    Q_OBJECT

public:
    /// `reportFile` returns the path of the report file; an empty path if there is none, or none yet.
    RunReportWindow(const RunSummary &summary, const std::vector<ProblemGroup> &problems,
                    std::function<std::string()> reportFile);

    /// Everything that the window shows, as text. "Copy" uses this text.
    QString text() const { return m_text; }

    /// Writes a copy of the report file, which is JSON. Returns false on failure.
    bool saveTo(const QString &path) const;

    const Certificate &certificate() const { return m_certificate; }

Q_SIGNALS:
    void logWanted();

private:
    using Save = std::function<bool(const QString &)>;

    void fillTable(const ReportTable &report);
    void copyText() const;
    void askWhereToSave(const QString &title, const QString &name, const Save &save);

    QString m_text;
    Certificate m_certificate;
    std::function<std::string()> m_reportFile;
};

} // namespace orvana
