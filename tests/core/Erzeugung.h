#pragma once

#include "Inhalt.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

namespace qvm::test {

/// One of the programs that make sources and files from a table of texts, run on a small table.
struct Erzeugung {
    std::filesystem::path directory =
        std::filesystem::path(testing::TempDir()) / ("qvm-lang-" + std::to_string(getpid()));
    int exitCode = -1;
    std::string errors;

    Erzeugung(const std::string& program, const std::string& table) {
        std::filesystem::create_directories(directory);
        std::ofstream(directory / "t.tsv", std::ios::binary) << table;
        const std::string command = std::string("\"") + QVM_BINARY_DIR + "/lang/" + program + "\" \"" +
                                    (directory / "t.tsv").string() + "\" \"" + directory.string() + "\" 2>\"" +
                                    (directory / "errors").string() + "\"";
        const int status = std::system(command.c_str());
        exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
        errors = Inhalt(directory / "errors");
    }
    ~Erzeugung() { std::filesystem::remove_all(directory); }
    Erzeugung(const Erzeugung&) = delete;
    Erzeugung& operator=(const Erzeugung&) = delete;

    std::string Datei(const std::string& name) const { return Inhalt(directory / name); }
};

} // namespace qvm::test
