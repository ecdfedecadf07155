#include "app/Certificate.h"

#include "duplicate/report/CertificatePage.h"

#include <QPageLayout>
#include <QPdfWriter>
#include <QSaveFile>
#include <QTextDocument>

#include <utility>

namespace orvana
{

Certificate::Certificate(RunSummary summary, std::vector<ProblemGroup> problems)
    : m_summary(std::move(summary)), m_problems(std::move(problems))
{
}

QString Certificate::html() const
{
    return QString::fromStdString(certificateHtml(m_summary, m_problems));
}

bool Certificate::saveHtml(const QString &path) const
{
    QSaveFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(html().toUtf8()) >= 0 && file.commit();
}

bool Certificate::savePdf(const QString &path) const
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return false;
    {
        constexpr int Resolution = 300; // dots per inch
        QPdfWriter writer(&file);
        writer.setTitle(QStringLiteral("Certificate of duplication"));
        writer.setCreator(QStringLiteral("Orvana Plurimo " PLURIMO_VERSION));
        writer.setResolution(Resolution);
        // The document itself leaves two centimetres free on all sides.
        writer.setPageLayout(QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Portrait, QMarginsF()));
        QTextDocument document;
        document.setHtml(html());
        document.print(&writer);
    }
    return file.commit();
}

} // namespace orvana
