#include "cli/Completion.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <sstream>

namespace orvana::cli
{

const std::vector<std::string> CompletedShells{"bash", "zsh", "fish"};

namespace
{

using Words = std::vector<std::string>;

enum class Values { None, Choices, Files, Folders, AnyText };

/// An option or an operand, as the shells have to know it.
struct Entry
{
    std::string name;
    std::string help;
    Values values = Values::None;
    Words words; // only of Values::Choices
    bool isRepeated = false;
};

struct Command
{
    std::string name;
    std::string help;
    std::vector<Entry> options;
    std::vector<Entry> operands;
};

std::string joined(const Words &words, const char *between = " ")
{
    std::string all;
    for (const auto &word : words)
        all.append(all.empty() ? "" : between).append(word);
    return all;
}

// The choices of "KIND:{mhl,sums}", the way in which the parser names the type of an option that has choices.
Words choicesIn(const std::string &type)
{
    const auto open = type.find('{');
    const auto close = type.find('}');
    if (open == std::string::npos || close == std::string::npos)
        return {};
    return CLI::detail::split(type.substr(open + 1, close - open - 1), ',');
}

Entry entryOf(const CLI::Option &option)
{
    Entry entry{.name = option.get_name(), .help = option.get_description(), .words = {}};
    entry.isRepeated = option.get_items_expected_max() > 1;
    if (option.get_items_expected_max() == 0)
        return entry;
    const auto type = option.get_type_name();
    entry.words = type == "BAY" ? Words{"A", "B", "C", "D"} : choicesIn(type);
    entry.values = !entry.words.empty()         ? Values::Choices
                   : type.starts_with("FILE")   ? Values::Files
                   : type.starts_with("FOLDER") ? Values::Folders
                                                : Values::AnyText;
    return entry;
}

std::vector<Command> commandsOf(const CLI::App &app)
{
    std::vector<Command> commands;
    for (const auto *subcommand : app.get_subcommands([](const CLI::App *) { return true; })) {
        Command command{subcommand->get_name(), subcommand->get_description(), {}, {}};
        for (const auto *option : subcommand->get_options()) {
            auto entry = entryOf(*option);
            if (option->get_positional()) {
                command.operands.push_back(std::move(entry));
            } else {
                entry.name = "--" + option->get_lnames().front();
                command.options.push_back(std::move(entry));
            }
        }
        commands.push_back(std::move(command));
    }
    return commands;
}

std::string replaced(std::string text, const std::string &marks, const std::string &before)
{
    for (std::size_t at = 0; (at = text.find_first_of(marks, at)) != std::string::npos;
         at += before.size() + 1)
        text.insert(at, before);
    return text;
}

// A text between the single quotes of bash and zsh.
std::string quoted(const std::string &text)
{
    std::string result = "'";
    for (const char character : text)
        result += character == '\'' ? std::string("'\\''") : std::string(1, character);
    return result + "'";
}

Words namesOf(const std::vector<Command> &commands)
{
    Words names;
    for (const auto &command : commands)
        names.push_back(command.name);
    return names;
}

// For a value, bash sets the words or the kind of file names to choose from.
std::string bashValues(const Entry &entry)
{
    switch (entry.values) {
    case Values::Choices:
        return "words=" + quoted(joined(entry.words));
    case Values::Files:
        return "files=-f";
    case Values::Folders:
        return "files=-d";
    case Values::None:
    case Values::AnyText:
        break;
    }
    return "return";
}

// The choices of a command's first operand are offered for the first word only.
void writeBashCommand(std::ostream &out, const Command &command)
{
    out << "        " << command.name << ")\n";
    Words names;
    for (const auto &option : command.options)
        names.push_back(option.name);
    out << "            words=" << quoted(joined(names)) << "\n";
    if (!command.operands.empty()) {
        out << "            if [[ $word != -* ]]; then\n                words=\n";
        const auto &first = command.operands.front();
        const auto &last = command.operands.back();
        if (&first != &last)
            out << "                if [ \"$COMP_CWORD\" = 2 ]; then " << bashValues(first) << "; else "
                << bashValues(last) << "; fi\n";
        else
            out << "                " << bashValues(first) << "\n";
        out << "            fi\n";
    }
    out << "            ;;\n";
}

std::string forBash(const std::vector<Command> &commands)
{
    std::ostringstream out;
    out << R"(# Completion of plurimoctl for bash, made by "plurimoctl completion bash".

_plurimoctl() {
    local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]} command=${COMP_WORDS[1]} words= files=
    COMPREPLY=()
    [ "$COMP_CWORD" -gt 1 ] || command=
    case $command:$before in
)";
    for (const auto &command : commands) {
        for (const auto &option : command.options) {
            if (option.values != Values::None)
                out << "    " << command.name << ":" << option.name << ") " << bashValues(option) << " ;;\n";
        }
    }
    out << "    *)\n        case $command in\n        '') words="
        << quoted(joined(namesOf(commands)) + " --help --version") << " ;;\n";
    for (const auto &command : commands)
        writeBashCommand(out, command);
    out << R"(        esac
        ;;
    esac
    if [ -n "$files" ]; then
        compopt -o filenames 2>/dev/null
        mapfile -t COMPREPLY < <(compgen "$files" -- "$word")
    else
        mapfile -t COMPREPLY < <(compgen -W "$words" -- "$word")
    fi
}
complete -F _plurimoctl plurimoctl
)";
    return out.str();
}

// The tail of an entry in zsh: what its value is called, and what it can be.
std::string zshValues(const Entry &entry)
{
    switch (entry.values) {
    case Values::Choices:
        return ":value:(" + joined(entry.words) + ")";
    case Values::Files:
        return ":file:_files";
    case Values::Folders:
        return ":folder:_files -/";
    case Values::AnyText:
        return ":value: ";
    case Values::None:
        break;
    }
    return {};
}

void writeZshCommand(std::ostream &out, const Command &command)
{
    out << "    " << command.name << ")\n        _arguments";
    for (const auto &option : command.options)
        out << " \\\n            "
            << quoted((option.isRepeated ? "*" : "") + option.name + "[" +
                      replaced(option.help, "[]\\", "\\") + "]" + zshValues(option));
    for (std::size_t i = 0; i < command.operands.size(); ++i) {
        const auto &operand = command.operands[i];
        const auto place = operand.isRepeated ? std::string("*") : std::to_string(i + 1);
        out << " \\\n            " << quoted(place + zshValues(operand));
    }
    out << "\n        ;;\n";
}

std::string forZsh(const std::vector<Command> &commands)
{
    std::ostringstream out;
    out << "#compdef plurimoctl\n# Completion of plurimoctl for zsh, made by \"plurimoctl completion "
           "zsh\".\n\n"
           "_plurimoctl() {\n    local -a commands=(\n";
    for (const auto &command : commands)
        out << "        " << quoted(command.name + ":" + replaced(command.help, ":", "\\")) << "\n";
    out << R"(    )
    if (( CURRENT == 2 )); then
        _describe command commands
        compadd -- --help --version
        return
    fi
    shift words
    (( CURRENT-- ))
    case $words[1] in
)";
    for (const auto &command : commands)
        writeZshCommand(out, command);
    out << R"(    esac
}

# The file may be loaded by the shell's own loader, or read in.
if [ "$funcstack[1]" = _plurimoctl ]; then
    _plurimoctl "$@"
else
    compdef _plurimoctl plurimoctl
fi
)";
    return out.str();
}

std::string fishValues(const Entry &entry)
{
    switch (entry.values) {
    case Values::Choices:
        return " -x -a " + quoted(joined(entry.words));
    case Values::Files:
        return " -r -F";
    case Values::Folders:
        return " -x -a '(__fish_complete_directories (commandline -ct))'";
    case Values::AnyText:
        return " -x";
    case Values::None:
        break;
    }
    return {};
}

// A text between the single quotes of fish.
std::string fishQuoted(const std::string &text)
{
    return "'" + replaced(text, "\\'", "\\") + "'";
}

void writeFishOperands(std::ostream &out, const Command &command, const std::string &start)
{
    for (const auto &operand : command.operands) {
        const auto *place = command.operands.size() == 1 ? ""
                            : &operand == &command.operands.front()
                                ? "; and test (count (commandline -opc)) -eq 2"
                                : "; and test (count (commandline -opc)) -gt 2";
        if (operand.values == Values::Choices)
            out << start << place << "' -a " << quoted(joined(operand.words)) << "\n";
        else if (operand.values != Values::AnyText)
            out << start << place << "' -F\n";
    }
}

std::string forFish(const std::vector<Command> &commands)
{
    std::ostringstream out;
    out << "# Completion of plurimoctl for fish, made by \"plurimoctl completion fish\".\n\n"
           "complete -c plurimoctl -f\n"
           "complete -c plurimoctl -n __fish_use_subcommand -l help -d 'Print what there is'\n"
           "complete -c plurimoctl -n __fish_use_subcommand -l version -d 'Print the version'\n";
    for (const auto &command : commands) {
        const auto start = "complete -c plurimoctl -n '__fish_seen_subcommand_from " + command.name;
        out << "complete -c plurimoctl -n __fish_use_subcommand -a " << command.name << " -d "
            << fishQuoted(command.help) << "\n";
        for (const auto &option : command.options)
            out << start << "' -l " << option.name.substr(2) << " -d " << fishQuoted(option.help)
                << fishValues(option) << "\n";
        writeFishOperands(out, command, start);
    }
    return out.str();
}

} // namespace

std::string completionFor(const std::string &shell, const CLI::App &app)
{
    const auto commands = commandsOf(app);
    if (shell == "zsh")
        return forZsh(commands);
    return shell == "fish" ? forFish(commands) : forBash(commands);
}

} // namespace orvana::cli
