#pragma once

#include "duplicate/report/ReportTable.h"
#include "ui_RunReportWindow.h"

#include <QWidget>

namespace orvana
{

/// The report of one run as a table, with the first problems below. A window of its own, so that a sheet on
/// the main window does not cover it; it deletes itself when it is closed.
class RunReportWindow : public QWidget, public Ui::RunReportWindow
{
    Q_OBJECT

public:
    RunReportWindow(const ReportTable &report, const std::vector<std::string> &problemLines);

    /// All that it shows, as "Copy" and "Save" give it.
    QString text() const { return m_text; }

    /// Writes the text into a file; false when that fails.
    bool saveTo(const QString &path) const;

Q_SIGNALS:
    void logWanted();

private:
    void fillTable(const ReportTable &report);
    void copyText() const;
    void askWhereToSave();

    QString m_text;
};

} // namespace orvana
