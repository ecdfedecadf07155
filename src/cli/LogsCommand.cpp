#include "cli/LogsCommand.h"

#include "cli/CopyPlan.h"
#include "cli/Terminal.h"
#include "foundation/DisplayPath.h"
#include "foundation/PathJson.h"
#include "log/LogData.h"
#include "log/LogFolder.h"
#include "platform/Account.h"
#include "platform/Host.h"

#include <algorithm>
#include <filesystem>
#include <nlohmann/json.hpp>

namespace orvana::cli
{

namespace
{

using Names = std::vector<std::string>;

/// Prints a text from a disk. Makes each line safe, so that the text cannot control the screen.
class ScreenLines
{
public:
    explicit ScreenLines(Terminal &terminal) : m_terminal(terminal) {}

    void add(std::string_view piece)
    {
        m_rest += piece;
        std::size_t start = 0;
        for (std::size_t end = 0; (end = m_rest.find('\n', start)) != std::string::npos; start = end + 1)
            endLine(std::string_view(m_rest).substr(start, end - start));
        m_rest.erase(0, start);
        if (m_rest.size() >= MostOfALine)
            writeStart();
    }

    void end()
    {
        if (!m_rest.empty() || m_isInLine)
            endLine(m_rest);
    }

private:
    // A line that is longer than this is printed in several parts.
    static constexpr std::size_t MostOfALine = 65536;

    void endLine(std::string_view line)
    {
        m_terminal.print(displayPath(line));
        m_isInLine = false;
    }

    // Writes the present start of a long line, without the bytes of a last character that may be incomplete.
    void writeStart()
    {
        std::size_t length = m_rest.size();
        while (length > m_rest.size() - 4 && (static_cast<unsigned char>(m_rest[length - 1]) & 0xC0U) == 0x80)
            --length;
        if (static_cast<unsigned char>(m_rest[length - 1]) >= 0xC0)
            --length;
        m_terminal.write(displayPath(std::string_view(m_rest).substr(0, length)));
        m_rest.erase(0, length);
        m_isInLine = true;
    }

    Terminal &m_terminal;
    std::string m_rest;
    bool m_isInLine = false;
};

/// One call of the command.
class LogsRun
{
public:
    LogsRun(Terminal &terminal, const LogsOptions &options, const std::string &folder)
        : m_terminal(terminal), m_options(options), m_logs(folder)
    {
    }

    ExitStatus run();

private:
    ExitStatus list(const Names &names);
    ExitStatus clear(const Names &names);
    ExitStatus forEachName(ExitStatus (LogsRun::*action)(const std::string &));
    ExitStatus show(const std::string &name);
    ExitStatus remove(const std::string &name);
    Json asJson(const std::string &name) const;
    ExitStatus refuse(ExitStatus status, const std::string &reason);
    ExitStatus refuse(const std::string &name, const platform::FileError &error);

    Terminal &m_terminal;
    const LogsOptions &m_options;
    LogFolder m_logs;
};

ExitStatus LogsRun::refuse(ExitStatus status, const std::string &reason)
{
    m_terminal.printError("plurimoctl: " + reason);
    return status;
}

ExitStatus LogsRun::refuse(const std::string &name, const platform::FileError &error)
{
    return refuse(error.problem == platform::FileProblem::NotFound ? NotThere : SomethingFailed,
                  displayPath(name) + ": " + error.reason());
}

ExitStatus LogsRun::run()
{
    const auto &action = m_options.action;
    const bool takesNames = action == "show" || action == "delete";
    if (takesNames == m_options.names.empty())
        return refuse(WrongUsage, takesNames ? "name the log" : "logs " + action + " takes no name");
    if (takesNames)
        return forEachName(action == "show" ? &LogsRun::show : &LogsRun::remove);
    const auto names = m_logs.names();
    if (!names)
        return refuse(NotThere, displayPath(m_logs.path()) + ": " + names.error().reason());
    return action == "clear" ? clear(*names) : list(*names);
}

Json LogsRun::asJson(const std::string &name) const
{
    Json log;
    putPath(log, "name", name);
    std::error_code error;
    const auto size = std::filesystem::file_size(m_logs.path() + "/" + name, error);
    log["bytes"] = error ? Json() : Json(size);
    log["reports"] = Json::array();
    for (const auto &path : m_logs.reports(name))
        log["reports"].push_back(std::filesystem::path(path).filename().native());
    return log;
}

ExitStatus LogsRun::list(const Names &names)
{
    if (!m_options.json) {
        for (const auto &name : names)
            m_terminal.print(displayPath(name));
        return AllDone;
    }
    Json object;
    putPath(object, "folder", m_logs.path());
    object["logs"] = Json::array();
    for (const auto &name : names)
        object["logs"].push_back(asJson(name));
    m_terminal.print(object.dump(2));
    return AllDone;
}

ExitStatus LogsRun::forEachName(ExitStatus (LogsRun::*action)(const std::string &))
{
    // Do nothing at all if one of the names is not the name of a log.
    for (const auto &name : m_options.names) {
        if (!LogFolder::isLog(name))
            return refuse(Refused,
                          displayPath(name) + ": not the name of a log; \"plurimoctl logs\" lists them");
    }
    ExitStatus worst = AllDone;
    for (const auto &name : m_options.names)
        worst = std::max(worst, (this->*action)(name));
    return worst;
}

ExitStatus LogsRun::show(const std::string &name)
{
    ScreenLines lines(m_terminal);
    const auto read = m_logs.read(name, [&](std::string_view piece) {
        if (m_terminal.isScreen())
            lines.add(piece);
        else
            m_terminal.write(piece);
    });
    lines.end();
    return read ? AllDone : refuse(name, read.error());
}

ExitStatus LogsRun::remove(const std::string &name)
{
    const auto removed = m_logs.remove(name);
    return removed ? AllDone : refuse(name, removed.error());
}

ExitStatus LogsRun::clear(const Names &names)
{
    if (!m_options.yes)
        return refuse(Refused, "this removes all logs of " + displayPath(m_logs.path()) + " (" +
                                   std::to_string(names.size()) + "); say --yes to do it");
    ExitStatus worst = AllDone;
    for (const auto &name : names)
        worst = std::max(worst, remove(name));
    return worst;
}

} // namespace

ExitStatus runLogs(platform::Host &host, Terminal &terminal, const LogsOptions &options)
{
    const auto folder = options.logFolder ? cleanPath(*options.logFolder)
                                          : LogData::documentsFolder(host.account().homeFolder());
    return LogsRun(terminal, options, folder).run();
}

} // namespace orvana::cli
