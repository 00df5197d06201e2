#include "Completion.h"

namespace qvm::pages {

namespace {

/// Inside single quotes, and inside the brackets and between the colons of _arguments.
std::string Quoted(const std::string& text) {
    std::string quoted;
    for (const char letter : text) {
        if (letter == '\'') {
            quoted += "'\\''";
        } else if (letter == '[' || letter == ']' || letter == ':' || letter == '\\') {
            quoted += std::string("\\") + letter;
        } else {
            quoted += letter == '\n' ? ' ' : letter;
        }
    }
    return quoted;
}

std::string Action(const Option& option) {
    if (!option.Choices.empty()) {
        std::string words;
        for (const std::string& choice : option.Choices) {
            words += (words.empty() ? "" : " ") + choice;
        }
        return "(" + words + ")";
    }
    return option.Value == "DIR" ? "_files -/" : Takes_File(option) ? "_files" : " ";
}

/// A line for each name, so that each is told on its own.
std::string Specs(const Command& command) {
    std::string text;
    for (const Option& option : command.Options) {
        const std::string value =
            option.Value.empty() ? std::string() : ":" + Quoted(option.Value) + ":" + Action(option);
        for (const std::string& name : option.Names) {
            text += "                '*" + name + "[" + Quoted(option.Text) + "]" + value + "' \\\n";
        }
        if (option.Names.empty()) {
            text += std::string("                '") + (option.Several ? "*" : "") + value + "' \\\n";
        }
    }
    return text;
}

std::string Command_Names(const Command& program) {
    std::string text;
    for (const Command& command : program.Commands) {
        text += "            '" + command.Name + ":" + Quoted(command.Text) + "'\n";
    }
    return text;
}

} // namespace

std::string ZshCompletion_Of(const Command& program) {
    std::string text = "#compdef " + program.Name + "\n# Completion of " + program.Name + " for zsh.\n";
    if (program.Commands.empty()) {
        return text + "_arguments \\\n" + Specs(program) + "    && return 0\n";
    }
    text += "local context state state_descr line\ntypeset -A opt_args\n_arguments -C \\\n" + Specs(program) +
            "    '1:command:->command' '*::argument:->argument' && return 0\ncase $state in\n"
            "    command)\n        local -a commands=(\n" +
            Command_Names(program) + "        )\n        _describe command commands ;;\n    argument)\n" +
            "        case $words[1] in\n";
    for (const Command& command : program.Commands) {
        text += "            " + command.Name + ") _arguments \\\n" + Specs(command) + Specs(program) +
                "                ;;\n";
    }
    return text + "        esac ;;\nesac\n";
}

} // namespace qvm::pages
