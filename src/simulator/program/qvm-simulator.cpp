#include "FileText.h"
#include "SimulatorLine.h"
#include "Text.h"
#include "WorldFile.h"

#include <CLI/CLI.hpp>
#include <csignal>
#include <cstdio>
#include <string>
#include <sys/signalfd.h>
#include <unistd.h>
#include <vector>

namespace {

constexpr int LocalFault = 1, Findings = 2;

/// A handle that can be read from once the program was asked to end. The signals do nothing else from here on.
int StopHandle() {
    sigset_t signals;
    sigemptyset(&signals);
    for (const int number : {SIGINT, SIGTERM, SIGHUP}) {
        sigaddset(&signals, number);
    }
    sigprocmask(SIG_BLOCK, &signals, nullptr);
    return signalfd(-1, &signals, SFD_CLOEXEC);
}

int Fail(const std::string& fault) {
    std::fprintf(stderr, "qvm-simulator: %s\n", fault.c_str());
    return LocalFault;
}

bool LoadWorld(const std::string& path, qvm::VirtualWorld& world, std::string& fault) {
    if (path.empty()) {
        return true;
    }
    const auto text = qvm::FileText_Read(path, fault);
    if (!text) {
        return false;
    }
    if (!qvm::World_FromJson(*text, world, fault)) {
        fault = path + ": " + fault;
        return false;
    }
    return true;
}

bool NameAdapter(const std::string& name, qvm::VirtualWorld& world, std::string& fault) {
    constexpr std::size_t widest = 20;
    const std::string text = qvm::AusUtf8(name);
    if (text.size() > widest || !qvm::PasstInCp1252(name)) {
        fault = "--adapter " + name + ": must be at most 20 characters of code page 1252";
        return false;
    }
    if (!text.empty()) {
        world.Adapter.Name = text;
    }
    return true;
}

int Simulate(qvm::SimulatorOptions options) {
    qvm::VirtualWorld world;
    std::string fault;
    if (!LoadWorld(options.World, world, fault) || !NameAdapter(options.Adapter, world, fault)) {
        return Fail(fault);
    }
    const int stop = StopHandle();
    qvm::SimulatorLoop loop(std::move(options), std::move(world));
    if (!loop.Start(fault)) {
        return Fail(fault);
    }
    if (std::printf("%s\n", loop.DeviceName().c_str()) < 0 || std::fflush(stdout) != 0) {
        return Fail("standard output cannot be written");
    }
    loop.Run(stop);
    close(stop);
    if (!loop.WriteState(fault)) {
        return Fail(fault);
    }
    const std::string findings = loop.System().JudgementLines();
    std::fputs(findings.c_str(), stderr);
    return findings.empty() ? 0 : Findings;
}

} // namespace

int main(int argc, char** argv) {
    // A limit to the size of files, and a reader that goes away, are an error of the write and not a signal.
    std::signal(SIGXFSZ, SIG_IGN);
    std::signal(SIGPIPE, SIG_IGN);
    // What is typed at the shell that this was started from, in the background, is not for this program.
    std::signal(SIGTTIN, SIG_IGN);
    CLI::App app;
    qvm::SimulatorOptions options;
    std::vector<std::string> faults;
    qvm::SimulatorLine_Declare(app, options, faults);
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? 0 : LocalFault;
    }
    for (const std::string& text : faults) {
        const auto fault = qvm::FaultFromText(text);
        if (!fault) {
            return Fail("--fault " + text + ": must be KIND@N, see --help");
        }
        options.Faults.push_back(*fault);
    }
    return Simulate(std::move(options));
}
