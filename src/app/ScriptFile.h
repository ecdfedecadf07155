#pragma once

#include <QString>
#include <QStringList>

#include <tl/expected.hpp>
#include <vector>

namespace orvana
{

/// One line of a script: the name of a step and what it is about.
struct ScriptStep
{
    int line = 0; ///< in the file, from 1
    QString name;
    QStringList words;
};

/// The steps of a script's text, one a line; empty lines and those that begin with "#" are passed over. Words
/// with blanks stand in double quotes.
std::vector<ScriptStep> scriptSteps(const QString &text);

/// Reads a script file; the error names the file and the reason.
tl::expected<std::vector<ScriptStep>, QString> readScript(const QString &path);

} // namespace orvana
