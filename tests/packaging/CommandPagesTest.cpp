// Manual pages and completions say what the command lines are, no less and no more.

#include "Befehlszeile.h"
#include "Completion.h"
#include "ManPage.h"
#include "ProgramLine.h"
#include "SimulatorLine.h"

#include <QCommandLineParser>
#include <QRegularExpression>

#include <CLI/CLI.hpp>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <set>

namespace qvm::pages {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

/// A name as the man page writes it.
std::string Escaped(const std::string& name) {
    std::string text;
    for (const char letter : name) {
        text += letter == '-' ? "\\-" : std::string(1, letter);
    }
    return text;
}

/// From `begin` to the next `end` behind it; empty when there is none.
std::string Part(const std::string& text, const std::string& begin, const std::string& end) {
    const auto from = text.find(begin);
    return from == std::string::npos ? "" : text.substr(from, text.find(end, from + begin.size()) - from);
}

/// The long names of an app, asked of CLI11 itself.
std::vector<std::string> LongNames(const CLI::App& app) {
    std::vector<std::string> names;
    for (const CLI::Option* option : app.get_options()) {
        for (const std::string& name : option->get_lnames()) {
            names.push_back("--" + name);
        }
    }
    return names;
}

std::vector<const CLI::App*> Children(const CLI::App& app) {
    return app.get_subcommands([](const CLI::App* /*any*/) { return true; });
}

struct Pages {
    std::string Man, Bash, Zsh;

    explicit Pages(const CLI::App& app)
        : Man(ManPage_Of(Command_Of(app), {.Version = "1.2.3", .Summary = "a program", .More = ""})),
          Bash(BashCompletion_Of(Command_Of(app))), Zsh(ZshCompletion_Of(Command_Of(app))) {}
};

TEST(Command_pages, name_every_command_and_option_of_qvmctl) {
    Befehlszeile_Zeigen([](const CLI::App& app) {
        const Pages pages(app);
        ASSERT_GE(Children(app).size(), 21U);
        for (const CLI::App* command : Children(app)) {
            const std::string name = command->get_name();
            const std::string man = Part(pages.Man, "\n.SS " + Escaped(name) + "\n", "\n.S");
            const std::string bash = Part(pages.Bash, " " + name + ") options='", "'\x20;;");
            const std::string zsh = Part(pages.Zsh, "\n            " + name + ") _arguments", ";;");
            EXPECT_THAT(pages.Zsh, HasSubstr("'" + name + ":"));
            for (const std::string& option : LongNames(*command)) {
                EXPECT_THAT(man, HasSubstr("\n.TP\n")) << name;
                EXPECT_THAT(man, HasSubstr("\\fB" + Escaped(option) + "\\fR")) << name;
                EXPECT_THAT(bash + " ", HasSubstr(option + " ")) << name;
                EXPECT_THAT(zsh, HasSubstr("'*" + option + "[")) << name;
            }
        }
        for (const std::string& option : LongNames(app)) {
            EXPECT_THAT(Part(pages.Man, ".SH OPTIONS", ".SH COMMANDS"), HasSubstr("\\fB" + Escaped(option) + "\\fR"));
        }
    });
}

TEST(Command_pages, name_every_option_of_the_virtual_system) {
    SimulatorOptions options;
    std::vector<std::string> faults;
    CLI::App app;
    SimulatorLine_Declare(app, options, faults);
    const Pages pages(app);
    ASSERT_GE(LongNames(app).size(), 9U);
    for (const std::string& option : LongNames(app)) {
        EXPECT_THAT(Part(pages.Man, ".SH OPTIONS", "\n.SH"), HasSubstr("\\fB" + Escaped(option) + "\\fR"));
        EXPECT_THAT(pages.Bash, HasSubstr(option));
        EXPECT_THAT(pages.Zsh, HasSubstr("'*" + option + "["));
    }
}

TEST(Command_pages, name_every_option_of_the_program) {
    QCommandLineParser line;
    const Command program = Command_Of("qvm7702", "Does things.", ui::declareProgramLine(line));
    const std::string man = ManPage_Of(program, {.Version = "1.2.3", .Summary = "a program", .More = ""});
    const QString help = line.helpText();
    auto names = QRegularExpression(QStringLiteral("--[a-z-]+")).globalMatch(help);
    int seen = 0;
    for (; names.hasNext(); ++seen) {
        const std::string name = names.next().captured().toStdString();
        EXPECT_THAT(Part(man, ".SH OPTIONS", "\n.SH"), HasSubstr("\\fB" + Escaped(name) + "\\fR"));
        EXPECT_THAT(BashCompletion_Of(program), HasSubstr(name));
        EXPECT_THAT(ZshCompletion_Of(program), HasSubstr("'*" + name + "["));
    }
    EXPECT_EQ(seen, 4);
    EXPECT_THAT(help.toStdString(), HasSubstr("--building"));
}

/// A program of one command and one option, or of neither.
Pages Small(bool whole) {
    CLI::App app("Does things.", "prog");
    std::string value;
    CLI::App* stays = app.add_subcommand("stays", "is there");
    stays->add_option("--kept", value, "kept");
    if (whole) {
        stays->add_option("--dropped", value, "dropped")->check(CLI::IsMember({"one", "two"}));
        app.add_subcommand("leaves", "goes");
    }
    return Pages(app);
}

TEST(Command_pages, no_longer_name_an_option_or_a_command_that_was_taken_away) {
    const Pages with = Small(true), without = Small(false);
    for (const auto text : {&Pages::Man, &Pages::Bash, &Pages::Zsh}) {
        EXPECT_THAT(with.*text, HasSubstr("dropped"));
        EXPECT_THAT(with.*text, HasSubstr("leaves"));
        EXPECT_THAT(without.*text, Not(HasSubstr("dropped")));
        EXPECT_THAT(without.*text, Not(HasSubstr("leaves")));
        EXPECT_THAT(without.*text, HasSubstr("kept"));
    }
}

TEST(Command_pages, tell_values_choices_and_arguments_as_they_were_declared) {
    CLI::App app("Does things.", "prog");
    std::string value;
    std::vector<int> numbers;
    bool flag = false;
    app.add_option("--dir", value, "a folder")->type_name("DIR");
    app.add_option("--way", value, "a way")->check(CLI::IsMember({"up", "down"}));
    app.add_flag("-q,--quiet", flag, "say nothing");
    app.add_option("NUMBER", numbers, "numbers")->required()->check(CLI::Range(1, 200));
    const Command tree = Command_Of(app);
    ASSERT_EQ(tree.Options.size(), 5U);
    EXPECT_THAT(tree.Options[0].Names, ElementsAre("-h", "--help"));
    EXPECT_EQ(tree.Options[0].Value, "");
    EXPECT_EQ(tree.Options[1].Value, "DIR");
    EXPECT_THAT(tree.Options[2].Choices, ElementsAre("up", "down"));
    EXPECT_THAT(tree.Options[3].Names, ElementsAre("-q", "--quiet"));
    EXPECT_EQ(tree.Options[4].Value, "NUMBER");
    EXPECT_TRUE(tree.Options[4].Names.empty());
    EXPECT_TRUE(tree.Options[4].Required && tree.Options[4].Several);
    EXPECT_THAT(Pages(app).Man,
                HasSubstr("\\fBprog\\fR [\\fB\\-\\-help\\fR] [\\fB\\-\\-dir\\fR \\fIDIR\\fR] "
                          "[\\fB\\-\\-way\\fR \\fBup\\fR|\\fBdown\\fR] [\\fB\\-\\-quiet\\fR] \\fINUMBER\\fR..."));
}

TEST(Command_pages, keep_a_text_from_being_taken_for_a_request) {
    Command program{.Name = "prog", .Text = "First.\n.so /etc/passwd\n'br \\n"};
    EXPECT_THAT(ManPage_Of(program, {.Version = "1", .Summary = "s", .More = ""}),
                HasSubstr("First.\n\\&.so /etc/passwd\n\\&'br \\en"));
}

} // namespace
} // namespace qvm::pages
