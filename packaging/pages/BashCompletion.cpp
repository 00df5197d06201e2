#include "Completion.h"

namespace qvm::pages {

namespace {

std::string Joined(const std::vector<std::string>& words, const std::string& between) {
    std::string text;
    for (const std::string& word : words) {
        text += (text.empty() ? "" : between) + word;
    }
    return text;
}

/// The name of the shell's function: what is no letter or digit becomes a low line.
std::string Function_Of(const std::string& program) {
    std::string name = "_";
    for (const char letter : program) {
        name += letter == '-' ? '_' : letter;
    }
    return name;
}

/// What completes the value of an option, or an argument.
std::string Action_Of(const Option& option) {
    if (!option.Choices.empty()) {
        return "mapfile -t COMPREPLY < <(compgen -W '" + Joined(option.Choices, " ") + "' -- \"$cur\")";
    }
    if (!Takes_File(option)) {
        return ":";
    }
    return std::string("compopt -o filenames; mapfile -t COMPREPLY < <(compgen -") +
           (option.Value == "DIR" ? "d" : "f") + " -- \"$cur\")";
}

/// Names of the options that take a value.
std::vector<std::string> WithValue(const Command& command) {
    std::vector<std::string> names;
    for (const Option& option : command.Options) {
        if (!option.Value.empty()) {
            names.insert(names.end(), option.Names.begin(), option.Names.end());
        }
    }
    return names;
}

std::vector<std::string> All_Names(const Command& command) {
    std::vector<std::string> names;
    for (const Option& option : command.Options) {
        names.insert(names.end(), option.Names.begin(), option.Names.end());
    }
    return names;
}

/// The cases of the word before the one that is completed, behind a command. `command` is a pattern, "'program'".
std::string Value_Cases(const std::string& command, const Command& declared) {
    std::string text;
    for (const Option& option : declared.Options) {
        for (const std::string& name : option.Names) {
            if (!option.Value.empty()) {
                text += "        " + command + "' " + name + "') " + Action_Of(option) + "; return ;;\n";
            }
        }
    }
    return text;
}

std::string Argument_Action(const Command& command) {
    for (const Option& option : command.Options) {
        if (option.Names.empty() && Action_Of(option) != ":") {
            return Action_Of(option);
        }
    }
    return ":";
}

std::string Word_Cases(const Command& program) {
    const std::string globals = Joined(All_Names(program), " ");
    std::string text;
    for (const Command& command : program.Commands) {
        text += "        " + command.Name + ") options='" + Joined(All_Names(command), " ") + " " + globals + "' ;;\n";
    }
    return text + "        *) options='" + globals + "' ;;\n";
}

} // namespace

std::string BashCompletion_Of(const Command& program) {
    std::vector<std::string> commands, skipped = WithValue(program);
    std::string values, arguments;
    for (const Command& command : program.Commands) {
        commands.push_back(command.Name);
        const auto more = WithValue(command);
        skipped.insert(skipped.end(), more.begin(), more.end());
        values += Value_Cases("'" + command.Name + "'", command);
        arguments += "        " + command.Name + ") " + Argument_Action(command) + " ;;\n";
    }
    values += Value_Cases("*", program);
    const std::string function = Function_Of(program.Name);
    std::string text = "# Completion of " + program.Name + " for bash.\n" + function + "()\n{\n" +
                       "    local cur=${COMP_WORDS[COMP_CWORD]} prev=${COMP_WORDS[COMP_CWORD-1]}\n"
                       "    local command='' options='' i\n    COMPREPLY=()\n";
    if (!commands.empty()) {
        text += "    for ((i = 1; i < COMP_CWORD; i++)); do\n        case ${COMP_WORDS[i]} in\n            " +
                Joined(skipped, "|") + ") ((i++)) ;;\n            " + Joined(commands, "|") +
                ") command=${COMP_WORDS[i]}; break ;;\n        esac\n    done\n";
    }
    text +=
        "    case \"$command $prev\" in\n" + values +
        "    esac\n    if [[ $cur == -* ]]; then\n        case $command in\n" + Word_Cases(program) +
        "        esac\n        mapfile -t COMPREPLY < <(compgen -W \"$options\" -- \"$cur\")\n        return\n    fi\n"
        "    case $command in\n" +
        arguments +
        (commands.empty()
             ? std::string()
             : "        '') mapfile -t COMPREPLY < <(compgen -W '" + Joined(commands, " ") + "' -- \"$cur\") ;;\n") +
        "    esac\n}\ncomplete -F " + function + " " + program.Name + "\n";
    return text;
}

} // namespace qvm::pages
