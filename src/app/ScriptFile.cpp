#include "app/ScriptFile.h"

#include <QFile>
#include <QProcess>

namespace orvana
{

std::vector<ScriptStep> scriptSteps(const QString &text)
{
    std::vector<ScriptStep> steps;
    int number = 0;
    for (const auto &line : text.split(QLatin1Char('\n'))) {
        ++number;
        auto words = QProcess::splitCommand(line.trimmed());
        if (words.isEmpty() || words.first().startsWith(QLatin1Char('#')))
            continue;
        const auto name = words.takeFirst();
        steps.push_back({number, name, words});
    }
    return steps;
}

tl::expected<std::vector<ScriptStep>, QString> readScript(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return tl::unexpected(QStringLiteral("%1: %2").arg(path, file.errorString()));
    return scriptSteps(QString::fromUtf8(file.readAll()));
}

} // namespace orvana
