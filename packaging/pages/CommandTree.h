#pragma once

#include <QList>

#include <string>
#include <vector>

namespace CLI {
class App;
}
class QCommandLineOption;

namespace qvm::pages {

/// An option, or an argument that is told by its place.
struct Option {
    std::vector<std::string> Names{};   ///< "-h", "--help"; empty: told by its place
    std::string Value{};                ///< what stands behind the name, "DIR"; empty: nothing. Of an argument its name
    std::vector<std::string> Choices{}; ///< all values there are; empty: any
    std::string Text{};                 ///< what it does
    bool Required = false;
    bool Several = false; ///< more than one value may follow
};

/// A program, or one of its commands, as its command line declares it.
struct Command {
    std::string Name{};
    std::string Text{};
    std::string Footer{}; ///< behind all else in its help
    std::vector<Option> Options{};
    std::vector<Command> Commands{};
};

/// What the command line declares, in its order.
Command Command_Of(const CLI::App& app);

/// A program without commands, of these options. None of them takes a value.
Command Command_Of(const std::string& name, const std::string& text, const QList<QCommandLineOption>& options);

/// True for one whose value is the name of a file, by the word that stands for it: FILE, DEVICE, DIR or DIR/com1.
bool Takes_File(const Option& option);
bool Takes_Directory(const Option& option);

} // namespace qvm::pages
