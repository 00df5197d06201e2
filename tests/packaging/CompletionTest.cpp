// The completion for bash, in bash.

#include "Completion.h"

#include "Befehlszeile.h"

#include <CLI/CLI.hpp>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace qvm::pages {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::IsSupersetOf;
using testing::Not;

struct Bash_completion : testing::Test {
    std::string Folder = (std::filesystem::temp_directory_path() / "qvm-completion-XXXXXX").string();

    Bash_completion() {
        ::mkdtemp(Folder.data());
        Befehlszeile_Zeigen(
            [this](const CLI::App& app) { std::ofstream(Folder + "/qvmctl") << BashCompletion_Of(Command_Of(app)); });
    }
    ~Bash_completion() override { std::filesystem::remove_all(Folder); }

    /// What bash offers for the last of these words, in its order.
    std::vector<std::string> Offered(const std::string& words) const {
        const std::string script = "cd " + Folder + "; . ./qvmctl; compopt() { :; }; COMP_WORDS=(" + words +
                                   "); COMP_CWORD=$((${#COMP_WORDS[@]} - 1)); _qvmctl; "
                                   "[ ${#COMPREPLY[@]} -eq 0 ] || printf '%s\\n' \"${COMPREPLY[@]}\"";
        std::ofstream(Folder + "/script") << script;
        FILE* pipe = ::popen(("bash " + Folder + "/script 2>&1").c_str(), "r");
        std::string text;
        std::array<char, 4096> bytes{};
        for (std::size_t count = 1; pipe != nullptr && count > 0;) {
            count = std::fread(bytes.data(), 1, bytes.size(), pipe);
            text.append(bytes.data(), count);
        }
        EXPECT_EQ(pipe == nullptr ? -1 : ::pclose(pipe), 0) << text;
        std::vector<std::string> lines;
        for (auto end = text.find('\n'); end != std::string::npos; end = text.find('\n')) {
            lines.push_back(text.substr(0, end));
            text.erase(0, end + 1);
        }
        return lines;
    }
};

TEST_F(Bash_completion, offers_the_commands) {
    EXPECT_THAT(Offered("qvmctl ''"), IsSupersetOf({"program", "history", "check", "card", "when"}));
    EXPECT_THAT(Offered("qvmctl pro"), ElementsAre("program"));
    EXPECT_THAT(Offered("qvmctl --json --port /dev/x ev"), ElementsAre("events"));
}

TEST_F(Bash_completion, offers_the_options_of_the_command_and_those_of_all) {
    EXPECT_THAT(Offered("qvmctl program --"), IsSupersetOf({"--history", "--since", "--erase", "--dir", "--json"}));
    EXPECT_THAT(Offered("qvmctl check --"), Not(Contains("--history")));
    EXPECT_THAT(Offered("qvmctl --dir program run --his"), ElementsAre("--history", "--history-only"));
}

TEST_F(Bash_completion, offers_the_values_that_there_are) {
    EXPECT_THAT(Offered("qvmctl program 3 --erase ''"), ElementsAre("keep", "wipe"));
    EXPECT_THAT(Offered("qvmctl learn e"), ElementsAre("ekey"));
}

TEST_F(Bash_completion, offers_files_and_folders_where_they_are_wanted) {
    std::filesystem::create_directory(Folder + "/house");
    std::ofstream(Folder + "/house.json") << "{}";
    EXPECT_THAT(Offered("qvmctl --dir ho"), ElementsAre("house"));
    EXPECT_THAT(Offered("qvmctl import ho"), testing::UnorderedElementsAre("house", "house.json"));
    EXPECT_THAT(Offered("qvmctl check ho"), IsEmpty());
}

} // namespace
} // namespace qvm::pages
