#pragma once

#include "duplicate/report/ReportTable.h"
#include "ui_RunReportWindow.h"

#include <QWidget>

namespace orvana
{

/// Shows the report of one run as a table, with the first problems below it. It is a window of its own, so
/// that a sheet on the main window does not cover it. It deletes itself when it is closed.
class RunReportWindow : public QWidget, public Ui::RunReportWindow
{
    Q_OBJECT

public:
    RunReportWindow(const ReportTable &report, const std::vector<std::string> &problemLines);

    /// Everything that the window shows, as text. "Copy" and "Save" use this text.
    QString text() const { return m_text; }

    /// Writes the text into a file. Returns false on failure.
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
