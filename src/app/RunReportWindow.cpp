#include "app/RunReportWindow.h"

#include <QClipboard>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QGuiApplication>
#include <QHeaderView>
#include <QSaveFile>
#include <QShortcut>

#include <utility>

namespace orvana
{

namespace
{

bool isNumber(int column)
{
    const std::string_view title = ReportTable::Titles[static_cast<std::size_t>(column)];
    return title == "Files" || title == "Bytes" || title == "Rate";
}

} // namespace

RunReportWindow::RunReportWindow(const RunSummary &summary, const std::vector<ProblemGroup> &groups,
                                 std::function<std::string()> reportFile)
    : m_certificate(summary, groups), m_reportFile(std::move(reportFile))
{
    const auto report = reportTable(summary, groups);
    m_text = QString::fromStdString(textOf(report));
    setupUi(this);
    for (auto *shown :
         {static_cast<QWidget *>(headline), static_cast<QWidget *>(table), static_cast<QWidget *>(problems)})
        shown->setLayoutDirection(Qt::LeftToRight); // the report is in English in every language
    setAttribute(Qt::WA_DeleteOnClose);
    headline->setText(QString::fromStdString(report.headline));
    fillTable(report);
    QStringList lines;
    for (const auto &line : report.lines)
        lines += QString::fromStdString(line);
    problems->setPlainText(lines.join(QChar(u'\n')));
    problems->setHidden(lines.isEmpty());
    connect(copyButton, &QPushButton::clicked, this, &RunReportWindow::copyText);
    connect(saveButton, &QPushButton::clicked, this, [this] {
        askWhereToSave(tr("Save Report"), QStringLiteral("Report.json"),
                       [this](const QString &path) { return saveTo(path); });
    });
    connect(pdfButton, &QPushButton::clicked, this, [this] {
        askWhereToSave(tr("Save Certificates as PDF"), QStringLiteral("Certificate.pdf"),
                       [this](const QString &path) { return m_certificate.savePdf(path); });
    });
    connect(htmlButton, &QPushButton::clicked, this, [this] {
        askWhereToSave(tr("Save Certificates as HTML"), QStringLiteral("Certificate.html"),
                       [this](const QString &path) { return m_certificate.saveHtml(path); });
    });
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
            item->setTextAlignment(Qt::AlignVCenter | (isNumber(column) ? Qt::AlignRight : Qt::AlignLeft));
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
    const auto written = m_reportFile();
    if (written.empty())
        return false;
    QFile report(QFile::decodeName(written.c_str()));
    QSaveFile file(path);
    return report.open(QIODevice::ReadOnly) && file.open(QIODevice::WriteOnly) &&
           file.write(report.readAll()) >= 0 && file.commit();
}

void RunReportWindow::askWhereToSave(const QString &title, const QString &name, const Save &save)
{
    auto *dialog = new QFileDialog(this, title);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setDirectory(QDir::homePath());
    dialog->setDefaultSuffix(name.section(QChar(u'.'), -1));
    dialog->selectFile(name);
    connect(dialog, &QFileDialog::fileSelected, this, [this, save](const QString &path) {
        const bool isSaved = save(path);
        saved->setText(isSaved ? tr("Saved to %1.").arg(path)
                               : tr("The report could not be written to %1.").arg(path));
    });
    dialog->open();
}

} // namespace orvana
