#include "CommandTree.h"

#include <QCommandLineOption>

#include <CLI/CLI.hpp>

namespace qvm::pages {

namespace {

/// CLI11 tells of a set of values by "TEXT:{keep,wipe}".
std::vector<std::string> Choices_Of(const std::string& type) {
    std::vector<std::string> choices;
    const auto begin = type.find(":{");
    const auto end = type.find('}', begin == std::string::npos ? 0 : begin);
    if (begin == std::string::npos || end == std::string::npos) {
        return choices;
    }
    std::string rest = type.substr(begin + 2, end - begin - 2) + ",";
    for (auto comma = rest.find(','); comma != std::string::npos; comma = rest.find(',')) {
        choices.push_back(rest.substr(0, comma));
        rest.erase(0, comma + 1);
    }
    return choices;
}

/// The word for a value, without what is checked of it: "INT" of "INT:INT in [1 - 200]".
std::string Word_Of(const std::string& type) {
    return type.substr(0, type.find_first_of(": "));
}

Option Option_Of(const CLI::Option& declared) {
    Option option;
    for (const std::string& name : declared.get_snames()) {
        option.Names.push_back("-" + name);
    }
    for (const std::string& name : declared.get_lnames()) {
        option.Names.push_back("--" + name);
    }
    const bool flag = declared.get_items_expected_max() == 0;
    option.Value = flag ? std::string() : Word_Of(declared.get_type_name());
    if (option.Names.empty()) {
        option.Value = declared.get_name();
    }
    option.Choices = Choices_Of(declared.get_type_name());
    option.Text = declared.get_description();
    option.Required = declared.get_required();
    option.Several = declared.get_items_expected_max() > 1;
    return option;
}

} // namespace

Command Command_Of(const CLI::App& app) {
    Command command{.Name = app.get_name(), .Text = app.get_description(), .Footer = app.get_footer()};
    for (const CLI::Option* option : app.get_options()) {
        command.Options.push_back(Option_Of(*option));
    }
    // Without a filter these would be the ones that a parsed command line named.
    for (const CLI::App* child : app.get_subcommands([](const CLI::App* /*any*/) { return true; })) {
        command.Commands.push_back(Command_Of(*child));
    }
    return command;
}

Command Command_Of(const std::string& name, const std::string& text, const QList<QCommandLineOption>& options) {
    Command command{.Name = name, .Text = text};
    for (const QCommandLineOption& declared : options) {
        const QString said = declared.description();
        Option option{.Text = (said.endsWith(QLatin1Char('.')) ? said.chopped(1) : said).toStdString()};
        for (const QString& given : declared.names()) {
            option.Names.push_back((given.size() == 1 ? "-" : "--") + given.toStdString());
        }
        command.Options.push_back(option);
    }
    return command;
}

bool Takes_File(const Option& option) {
    return option.Value == "FILE" || option.Value == "DEVICE" || Takes_Directory(option);
}

bool Takes_Directory(const Option& option) {
    return option.Value == "DIR" || option.Value.starts_with("DIR/");
}

} // namespace qvm::pages
