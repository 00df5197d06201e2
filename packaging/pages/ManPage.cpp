#include "ManPage.h"

#include <algorithm>

namespace qvm::pages {

namespace {

/// Text that the formatter takes as it is: hyphens that can be copied, no line that looks like a request.
std::string Plain(const std::string& text) {
    std::string plain;
    bool lineBegins = true;
    for (const char letter : text) {
        if (lineBegins && (letter == '.' || letter == '\'')) {
            plain += "\\&";
        }
        lineBegins = letter == '\n';
        plain += letter == '\\' ? "\\e" : letter == '-' ? "\\-" : std::string(1, letter);
    }
    return plain;
}

std::string Upper(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(), [](char letter) {
        return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 32) : letter;
    });
    return text;
}

std::string Value_Text(const Option& option) {
    if (option.Choices.empty()) {
        return "\\fI" + Plain(option.Value) + "\\fR";
    }
    std::string text;
    for (const std::string& choice : option.Choices) {
        text += (text.empty() ? "\\fB" : "\\fR|\\fB") + Plain(choice);
    }
    return text + "\\fR";
}

/// "--dir DIR", with the names that mean the same behind commas.
std::string Name_Text(const Option& option) {
    if (option.Names.empty()) {
        return "\\fI" + Plain(option.Value) + "\\fR";
    }
    std::string text;
    for (const std::string& name : option.Names) {
        text += (text.empty() ? "\\fB" : ", \\fB") + Plain(name) + "\\fR";
    }
    return option.Value.empty() ? text : text + " " + Value_Text(option);
}

/// How it stands in a line of usage.
std::string Usage_Text(const Option& option) {
    const std::string core = option.Names.empty() ? Name_Text(option)
                             : option.Value.empty()
                                 ? "\\fB" + Plain(option.Names.back()) + "\\fR"
                                 : "\\fB" + Plain(option.Names.back()) + "\\fR " + Value_Text(option);
    return (option.Required ? core : "[" + core + "]") + (option.Several ? "..." : "");
}

std::string Usage_Line(const std::string& name, const Command& command) {
    std::string line = "\\fB" + Plain(name) + "\\fR";
    for (const Option& option : command.Options) {
        line += " " + Usage_Text(option);
    }
    return line + (command.Commands.empty() ? "\n" : " \\fICOMMAND\\fR ...\n");
}

std::string Option_Entries(const Command& command) {
    std::string text;
    for (const Option& option : command.Options) {
        text += ".TP\n" + Name_Text(option) + "\n" + Plain(option.Text) + ".\n";
        if (option.Names.empty() && !option.Choices.empty()) {
            text += "One of " + Value_Text(option) + ".\n";
        }
    }
    return text;
}

std::string Command_Entry(const std::string& program, const Command& command) {
    return ".SS " + Plain(command.Name) + "\n" + Usage_Line(program + " " + command.Name, command) + ".PP\n" +
           Plain(command.Text) + ".\n" + Option_Entries(command);
}

} // namespace

std::string ManPage_Of(const Command& program, const PageFrame& frame) {
    std::string page = ".TH " + Upper(Plain(program.Name)) + " 1 \"\" \"QVM 7702 " + frame.Version +
                       "\" \"User Commands\"\n.SH NAME\n" + Plain(program.Name) + " \\- " + Plain(frame.Summary) +
                       "\n.SH SYNOPSIS\n" + Usage_Line(program.Name, program) + ".SH DESCRIPTION\n" +
                       Plain(program.Text) + "\n";
    if (!program.Options.empty()) {
        page += ".SH OPTIONS\n" + Option_Entries(program);
    }
    if (!program.Commands.empty()) {
        page += ".SH COMMANDS\n";
        for (const Command& command : program.Commands) {
            page += Command_Entry(program.Name, command);
        }
    }
    if (!program.Footer.empty()) {
        page += ".SH EXIT STATUS\n" + Plain(program.Footer) + "\n";
    }
    return page + frame.More;
}

} // namespace qvm::pages
