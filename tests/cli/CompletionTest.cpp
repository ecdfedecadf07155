#include "cli/Completion.h"

#include "cli/CommandLine.h"

#include <CLI/CLI.hpp>
#include <gtest/gtest.h>

#include <map>

namespace orvana::cli
{

namespace
{

class CompletionTest : public testing::TestWithParam<std::string>
{
protected:
    CompletionTest() { describe(m_app, m_options); }

    std::string script() const { return completionFor(GetParam(), m_app); }

    // The way in which this shell's script has an option.
    static std::string written(const std::string &option)
    {
        return GetParam() == "fish" ? "-l " + option.substr(2) + " " : option;
    }

    CLI::App m_app{"", "plurimoctl"};
    CommandLineOptions m_options;
};

} // namespace

INSTANTIATE_TEST_SUITE_P(Shells, CompletionTest, testing::ValuesIn(CompletedShells));

TEST_P(CompletionTest, EveryCommandAndOptionOfTheHelpIsThere)
{
    const auto all = script();
    int options = 0;
    for (const auto *command : m_app.get_subcommands([](const CLI::App *) { return true; })) {
        EXPECT_NE(all.find(command->get_name()), std::string::npos) << command->get_name();
        for (const auto *option : command->get_options()) {
            if (option->get_positional())
                continue;
            EXPECT_NE(all.find(written("--" + option->get_lnames().front())), std::string::npos)
                << command->get_name() << " " << option->get_name();
            ++options;
        }
    }
    EXPECT_GT(options, 80);
}

TEST_P(CompletionTest, ChoicesAreThoseOfTheParser)
{
    for (const char *choices :
         {"mhl sums", "xxh128 xxh64 xxh3 md5 sha1 c4 sha256", "dates all", "stop leave-out go-on", "A B C D",
          "start resume status pause end collect", "bash zsh fish"})
        EXPECT_NE(script().find(choices), std::string::npos) << choices;
}

TEST_P(CompletionTest, MarksOfAShellInAHelpDoNoHarm)
{
    CLI::App app("", "plurimoctl");
    auto *command = app.add_subcommand("do", "a: b's [c]");
    std::string value;
    command->add_option("--o", value, "it's [or] \\");
    const std::map<std::string, std::vector<std::string>> written{
        {"bash", {"do:--o) return ;;"}}, // it shows no help
        {"zsh", {R"('do:a\: b'\''s [c]')", R"('--o[it'\''s \[or\] \\]:value: ')"}},
        {"fish", {R"(-d 'a: b\'s [c]')", R"(-d 'it\'s [or] \\' -x)"}}};
    const auto all = completionFor(GetParam(), app);
    for (const auto &text : written.at(GetParam()))
        EXPECT_NE(all.find(text), std::string::npos) << text << "\n" << all;
}

} // namespace orvana::cli
