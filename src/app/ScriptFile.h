#pragma once

#include <QString>
#include <QStringList>

#include <tl/expected.hpp>
#include <vector>

namespace orvana
{

/// One line of a script: the name of a step and the words after it.
struct ScriptStep
{
    int line = 0; ///< line number in the file, from 1
    QString name;
    QStringList words;
};

/// Returns the steps of a script's text, one for each line. Skips empty lines and lines that begin with "#".
/// Words with blanks stand in double quotes.
std::vector<ScriptStep> scriptSteps(const QString &text);

/// Reads a script file; the error names the file and the reason.
tl::expected<std::vector<ScriptStep>, QString> readScript(const QString &path);

} // namespace orvana
