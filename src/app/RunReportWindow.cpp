#include "app/RunReportWindow.h"

#include <QClipboard>
#include <QDir>
#include <QFileDialog>
#include <QGuiApplication>
#include <QHeaderView>
#include <QSaveFile>
#include <QShortcut>

namespace orvana
{

RunReportWindow::RunReportWindow(const ReportTable &report, const std::vector<std::string> &problemLines)
    : m_text(QString::fromStdString(textOf(report, problemLines)))
{
    setupUi(this);
    setAttribute(Qt::WA_DeleteOnClose);
    headline->setText(QString::fromStdString(report.headline));
    fillTable(report);
    for (const auto &line : problemLines)
        problems->appendPlainText(QString::fromStdString(line));
    problems->moveCursor(QTextCursor::Start);
    problems->setHidden(problemLines.empty());
    connect(copyButton, &QPushButton::clicked, this, &RunReportWindow::copyText);
    connect(saveButton, &QPushButton::clicked, this, &RunReportWindow::askWhereToSave);
    connect(logButton, &QPushButton::clicked, this, &RunReportWindow::logWanted);
    connect(closeButton, &QPushButton::clicked, this, &QWidget::close);
    connect(new QShortcut(QKeySequence(Qt::Key_Escape), this), &QShortcut::activated, this, &QWidget::close);
}

void RunReportWindow::fillTable(const ReportTable &report)
{
    const auto columns = static_cast<int>(ReportTable::Titles.size());
    table->setColumnCount(columns);
    table->setRowCount(static_cast<int>(report.rows.size()));
    for (int column = 0; column < columns; ++column) {
        const auto at = static_cast<std::size_t>(column);
        table->setHorizontalHeaderItem(column,
                                       new QTableWidgetItem(QString::fromLatin1(ReportTable::Titles[at])));
        for (int row = 0; row < table->rowCount(); ++row) {
            auto *item =
                new QTableWidgetItem(QString::fromStdString(report.rows[static_cast<std::size_t>(row)][at]));
            const bool isText = column == 0 || column == columns - 1;
            item->setTextAlignment(Qt::AlignVCenter | (isText ? Qt::AlignLeft : Qt::AlignRight));
            table->setItem(row, column, item);
        }
    }
    table->verticalHeader()->hide();
    table->resizeColumnsToContents();
    table->horizontalHeader()->setStretchLastSection(true);
}

void RunReportWindow::copyText() const
{
    QGuiApplication::clipboard()->setText(m_text);
}

bool RunReportWindow::saveTo(const QString &path) const
{
    QSaveFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(m_text.toUtf8()) >= 0 && file.commit();
}

void RunReportWindow::askWhereToSave()
{
    auto *dialog = new QFileDialog(this, tr("Save Report"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setDirectory(QDir::homePath());
    dialog->setDefaultSuffix(QStringLiteral("txt"));
    dialog->selectFile(QStringLiteral("Report.txt"));
    connect(dialog, &QFileDialog::fileSelected, this, [this](const QString &path) {
        if (!saveTo(path))
            headline->setText(tr("The report could not be written to %1.").arg(path));
    });
    dialog->open();
}

} // namespace orvana
