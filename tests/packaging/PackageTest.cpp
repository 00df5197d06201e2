// What an installation consists of, and what it tells the desktop and the system.

#include "Inhalt.h"
#include "PortNumbers.h"
#include "Text.h"
#include "Zeilen.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cstdlib>
#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <map>
#include <set>

namespace qvm::test {
namespace {

namespace fs = std::filesystem;

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsSupersetOf;

std::string Data(const std::string& name) {
    return Inhalt(std::string(QVM_SOURCE_DIR "/packaging/data/") + name);
}

/// Puts a component below a folder of its own. Gives the paths of its files there, sorted.
std::set<std::string> Installed(const std::string& component) {
    std::string folder = (fs::temp_directory_path() / "qvm-install-XXXXXX").string();
    ::mkdtemp(folder.data());
    const std::string command = "cmake --install " QVM_BINARY_DIR " --component " + component + " --prefix " + folder +
                                " >" + folder + ".log 2>&1";
    EXPECT_EQ(std::system(command.c_str()), 0) << Inhalt(folder + ".log");
    std::set<std::string> files;
    for (const auto& entry : fs::recursive_directory_iterator(folder)) {
        if (!entry.is_directory()) {
            files.insert(fs::relative(entry.path(), folder).string());
        }
    }
    fs::remove_all(folder);
    fs::remove(folder + ".log");
    return files;
}

TEST(Installation, of_qvmctl_has_words_rights_page_and_completion) {
    EXPECT_THAT(Installed("qvmctl"),
                ElementsAre("bin/qvmctl", "lib/udev/rules.d/70-qvm7702.rules",
                            "lib/udev/rules.d/91-qvm7702-braille.rules", "share/bash-completion/completions/qvmctl",
                            "share/man/man1/qvmctl.1", "share/qvm7702/QVM_Deutsch.DAT", "share/qvm7702/QVM_English.DAT",
                            "share/qvm7702/QVM_Francais.DAT", "share/qvm7702/QVM_Nederlands.DAT",
                            "share/zsh/vendor-completions/_qvmctl"));
}

TEST(Installation, of_the_virtual_system_has_a_house_to_try) {
    EXPECT_THAT(Installed("qvm-simulator"),
                ElementsAre("bin/qvm-simulator", "share/bash-completion/completions/qvm-simulator",
                            "share/man/man1/qvm-simulator.1", "share/qvm7702/demonstration/installation.json",
                            "share/qvm7702/demonstration/world.json", "share/zsh/vendor-completions/_qvm-simulator"));
}

TEST(Installation, of_the_program_has_entries_for_the_desktop_and_icons_in_all_sizes) {
    const std::set<std::string> files = Installed("qvm7702");
    EXPECT_THAT(files, IsSupersetOf({"bin/qvm7702", "share/bash-completion/completions/qvm7702",
                                     "share/zsh/vendor-completions/_qvm7702", "share/applications/qvm7702.desktop",
                                     "share/man/man1/qvm7702.1", "share/metainfo/local.qvm7702.qvm7702.metainfo.xml",
                                     "share/icons/hicolor/scalable/apps/qvm7702.svg"}));
    for (const char* size : {"16", "22", "24", "32", "48", "64", "128", "256", "512"}) {
        EXPECT_TRUE(files.contains(std::string("share/icons/hicolor/") + size + "x" + size + "/apps/qvm7702.png"))
            << size;
    }
    EXPECT_EQ(files.size(), 16U);
}

TEST(Installation, of_the_documents_has_them) {
    EXPECT_THAT(Installed("qvm7702-doc"),
                IsSupersetOf({"share/doc/qvm7702-doc/console.md", "share/doc/qvm7702-doc/installation.md",
                              "share/doc/qvm7702-doc/licences.md"}));
}

/// The keys of the entry, each once.
std::map<std::string, std::string> Keys(const std::string& entry) {
    std::map<std::string, std::string> keys;
    for (const std::string& line : Zeilen_Lesen(entry)) {
        const auto equals = line.find('=');
        if (equals != std::string::npos) {
            EXPECT_TRUE(keys.emplace(line.substr(0, equals), line.substr(equals + 1)).second) << line;
        }
    }
    return keys;
}

TEST(Desktop_entry, starts_the_program_under_its_name_and_icon) {
    auto keys = Keys(Data("qvm7702.desktop"));
    EXPECT_EQ(keys["Type"], "Application");
    EXPECT_EQ(keys["Exec"], "qvm7702");
    EXPECT_EQ(keys["Icon"], "qvm7702");
    EXPECT_EQ(keys["Terminal"], "false");
    EXPECT_EQ(keys["Name"], "QVM 7702");
    // Windows are put to the entry by the name that the program gives them.
    EXPECT_EQ(keys["StartupWMClass"], "qvm7702");
    EXPECT_THAT(Inhalt(QVM_SOURCE_DIR "/src/ui/program/qvm7702.cpp"),
                HasSubstr("setDesktopFileName(QStringLiteral(\"qvm7702\"))"));
}

TEST(Desktop_entry, speaks_the_four_languages) {
    const auto keys = Keys(Data("qvm7702.desktop"));
    for (const char* key : {"GenericName", "Comment", "Keywords"}) {
        std::set<std::string> texts;
        for (const char* language : {"", "[de]", "[fr]", "[nl]"}) {
            const auto text = keys.find(std::string(key) + language);
            ASSERT_NE(text, keys.end()) << key << language;
            texts.insert(text->second);
        }
        EXPECT_EQ(texts.size(), 4U) << key;
    }
}

/// Four digits, as the rules write them.
std::string Identity(int number) {
    std::string text = HexText(static_cast<unsigned>(number), 4);
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char digit) { return static_cast<char>(std::tolower(digit)); });
    return text;
}

TEST(Adapter_rules, are_for_the_adapter_that_the_program_looks_for) {
    for (const char* file : {"70-qvm7702.rules", "91-qvm7702-braille.rules"}) {
        int rules = 0;
        for (const std::string& line : Zeilen_Lesen(Data(file))) {
            if (line.find("idVendor") == std::string::npos) {
                continue;
            }
            ++rules;
            EXPECT_THAT(line, HasSubstr("{idVendor}==\"" + Identity(AdapterVendor) + "\"")) << file;
            EXPECT_THAT(line, HasSubstr("{idProduct}==\"" + Identity(AdapterProduct) + "\"")) << file;
        }
        EXPECT_GE(rules, 1) << file;
    }
}

TEST(Adapter_rules, give_the_port_to_who_is_logged_in_and_to_the_group_and_keep_services_off) {
    const std::string rules = Data("70-qvm7702.rules");
    for (const char* part : {"SUBSYSTEM==\"tty\"", "TAG+=\"uaccess\"", "GROUP=\"dialout\"", "MODE=\"0660\"",
                             "ENV{ID_MM_DEVICE_IGNORE}=\"1\"", "ENV{ID_MM_PORT_IGNORE}=\"1\""}) {
        EXPECT_THAT(rules, HasSubstr(part));
    }
    EXPECT_THAT(Data("91-qvm7702-braille.rules"), HasSubstr("ENV{SYSTEMD_WANTS}=\"\""));
}

} // namespace
} // namespace qvm::test
