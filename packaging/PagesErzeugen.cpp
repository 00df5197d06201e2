// Writes manual pages and completions from the definitions of the command lines:
//
//   PagesErzeugen VERSION SOURCES FOLDER   SOURCES: with NAME.sections, what a page says beside its command line

#include "Befehlszeile.h"
#include "Completion.h"
#include "ManPage.h"
#include "ProgramLine.h"
#include "SimulatorLine.h"

#include <QCommandLineParser>

#include <CLI/CLI.hpp>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace {

namespace pages = qvm::pages;

struct Places {
    std::string Version, Sources, Folder;
};

bool Write(const std::string& path, const std::string& text) {
    std::filesystem::create_directories(std::filesystem::path(path).parent_path());
    std::ofstream file(path, std::ios::binary);
    file << text;
    file.flush();
    return file.good();
}

/// False when the sections of that page are missing.
bool Page(const pages::Command& program, const std::string& summary, const Places& places) {
    std::ifstream file(places.Sources + "/" + program.Name + ".sections", std::ios::binary);
    if (!file) {
        return false;
    }
    const pages::PageFrame frame{.Version = places.Version,
                                 .Summary = summary,
                                 .More = {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()}};
    return Write(places.Folder + "/man/" + program.Name + ".1", pages::ManPage_Of(program, frame));
}

bool Completions(const pages::Command& program, const Places& places) {
    return Write(places.Folder + "/bash/" + program.Name, pages::BashCompletion_Of(program)) &&
           Write(places.Folder + "/zsh/_" + program.Name, pages::ZshCompletion_Of(program));
}

pages::Command Console() {
    pages::Command program;
    qvm::Befehlszeile_Zeigen([&program](const CLI::App& app) { program = pages::Command_Of(app); });
    return program;
}

pages::Command Simulator() {
    qvm::SimulatorOptions options;
    std::vector<std::string> faults;
    CLI::App app;
    qvm::SimulatorLine_Declare(app, options, faults);
    return pages::Command_Of(app);
}

pages::Command Desktop() {
    QCommandLineParser line;
    return pages::Command_Of("qvm7702",
                             "Administers an electronic locking system: users and their codes, keys and fingerprints, "
                             "locks and wireless units, switch clocks, calendars and guest cards. It programs locks "
                             "from its data files through a serial radio adapter and reads their histories of events.",
                             qvm::ui::declareProgramLine(line));
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 4) {
        std::fputs("PagesErzeugen VERSION SOURCES FOLDER\n", stderr);
        return 2;
    }
    const Places places{.Version = argv[1], .Sources = argv[2], .Folder = argv[3]};
    const pages::Command console = Console(), simulator = Simulator();
    const pages::Command desktop = Desktop();
    const bool good = Page(console, "console companion of the locking system QVM 7702", places) &&
                      Page(simulator, "virtual adapter and locks of the locking system QVM 7702", places) &&
                      Page(desktop, "administration of the locking system QVM 7702", places) &&
                      Completions(desktop, places) && Completions(console, places) && Completions(simulator, places);
    if (!good) {
        std::fprintf(stderr, "the pages cannot be written to %s\n", argv[3]);
    }
    return good ? 0 : 1;
}
