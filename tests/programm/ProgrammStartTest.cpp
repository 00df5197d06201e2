// The start sequence, the shut-down, and what Programm wires together.

#include "MainWindows.h"
#include "Text.h"
#include "VirtualPlatform.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace qvm::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct Welt : ::testing::Test {
    VirtualPlatform world;

    /// Each catalogue line says its own number.
    void Words(const std::string& language) {
        std::string words;
        for (int line = 1; line <= 300; ++line) {
            words += "L" + std::to_string(line) + "\r\n";
        }
        world.Disk.Files["/q/QVM_" + language + ".DAT"] = words;
    }
    void Config(const std::string& settings) { world.Disk.Files["/q/DAT/EST7CSB29A.I_1"] = settings; }
    /// A file of an older version: one record of blanks.
    void Old(const std::string& name, std::size_t size) { world.Disk.Files["/q/DAT/" + name].assign(size, ' '); }
    bool Has(const std::string& path) const { return world.Disk.Files.contains(path); }
};

struct Programm_Start : Welt {
    /// Writes down what the program asks of the world, in order.
    std::vector<std::string> Log() {
        std::vector<std::string> log;
        Platform& platform = world.World;
        platform.ClaimInstance = [&log] {
            log.emplace_back("claim");
            return true;
        };
        FileStore store = world.Disk.Store();
        platform.Files.MakeDirectory = [&log, store](const std::string& path) {
            log.push_back("directory " + path);
            return store.MakeDirectory(path);
        };
        platform.Files.ReadAll = [&log, store](const std::string& path, std::string& bytes) {
            log.push_back("read " + path);
            return store.ReadAll(path, bytes);
        };
        platform.Files.Datei_Vorhanden = [&log, store](const std::string& path) {
            log.push_back("look for " + path);
            return store.Datei_Vorhanden(path);
        };
        Programm programm(platform, "/q");
        qvm::Programm_Start(programm, true);
        return log;
    }
};

TEST_F(Programm_Start, goes_from_the_instance_to_the_older_files_in_order) {
    EXPECT_THAT(Log(),
                ElementsAre("claim", "directory /q/DAT", "directory /q/HIST", "read /q/DAT/EST7CSB29A.I_1",
                            "read /q/DAT/CHEUSB25C.I_2", "read /q/QVM_Deutsch.DAT", "look for /q/DAT/BX10Y48WUI8.UBW",
                            "look for /q/DAT/BX08HAZJNT9.UBW", "look for /q/DAT/DEVRSSISN.TSD"));
}

TEST_F(Programm_Start, in_an_empty_directory_makes_both_data_directories_and_no_file) {
    Programm programm(world.World, "/q");
    EXPECT_EQ(qvm::Programm_Start(programm, true), StartResult::Started);
    EXPECT_THAT(world.Disk.Directories, ElementsAre("/q/DAT", "/q/HIST"));
    EXPECT_TRUE(world.Disk.Files.empty());
    EXPECT_THAT(world.Shown, IsEmpty());
}

TEST_F(Programm_Start, removes_the_record_of_a_telegram_that_a_killed_program_left) {
    world.Disk.Files["/q/HIST/H_20100701_192030_LOCK.txt"] = "18\r\n";
    world.Disk.Files["/q/HIST/H_20260305_101500_Tor.HST"] = "00.0A.10.01\r\n";
    Programm programm(world.World, "/q");
    EXPECT_EQ(qvm::Programm_Start(programm, true), StartResult::Started);
    EXPECT_FALSE(Has("/q/HIST/H_20100701_192030_LOCK.txt"));
    EXPECT_TRUE(Has("/q/HIST/H_20260305_101500_Tor.HST"));
}

TEST_F(Programm_Start, sets_the_defaults) {
    Programm programm(world.World, "/q");
    programm.kern.Globals.UserRows = 7;
    programm.kern.Globals.LockRows = 8;
    qvm::Programm_Start(programm, true);
    const GlobaleVariablen& globals = programm.kern.Globals;
    EXPECT_EQ(globals.UserRows, 251);
    EXPECT_EQ(globals.LockRows, 201);
    EXPECT_EQ(programm.link.DeviceClassByte, 0x11);
    const RunState& lauf = programm.link.Lauf;
    EXPECT_EQ(lauf.Chain.HistoryOnly, 0);
    EXPECT_EQ(lauf.Chain.ReadHistoryFirst, 0);
    EXPECT_EQ(lauf.List.NetMode, 0);
    EXPECT_EQ(lauf.Chain.KanalSuche, 0);
    EXPECT_EQ(lauf.Chain.AbbruchWunsch, 0);
    EXPECT_EQ(lauf.Chain.TwoPassFlag, 0);
    EXPECT_EQ(lauf.Chain.UnitModus, 0);
    EXPECT_EQ(lauf.Chain.LaufZiel, "");
    EXPECT_EQ(lauf.Progress.TelegramCounter, 0);
    EXPECT_EQ(lauf.List.RunRows, 0);
    EXPECT_TRUE(programm.Run.Gesamtende);
}

TEST_F(Programm_Start, without_configuration_speaks_german_on_port_1_in_adapter_mode) {
    Programm programm(world.World, "/q");
    qvm::Programm_Start(programm, true);
    EXPECT_EQ(programm.kern.Config.Sprache, "Deutsch");
    EXPECT_EQ(programm.kern.Config.PortName, "USB-PORT");
    EXPECT_TRUE(programm.kern.Config.AdapterModus());
    EXPECT_EQ(programm.link.PortNummer, 1);
    EXPECT_EQ(programm.kern.Zeile(88), "");
}

TEST_F(Programm_Start, takes_port_and_language_from_the_configuration) {
    Config("Francais\r\n3\r\nUSB-Port12\r\n4\r\n");
    Words("Francais");
    Programm programm(world.World, "/q");
    qvm::Programm_Start(programm, true);
    EXPECT_EQ(programm.link.PortNummer, 12);
    EXPECT_EQ(programm.kern.Config.Funkkanal(), 4);
    EXPECT_EQ(programm.kern.Zeile(88), "L88");
    EXPECT_EQ(programm.kern.Sprache.TagTexte[1], "L95");
}

TEST_F(Programm_Start, forms_the_path_with_one_separator_at_its_end) {
    Programm without(world.World, "/q");
    EXPECT_EQ(without.kern.AppPath, "/q/");
    Programm with(world.World, "/q/");
    EXPECT_EQ(with.kern.AppPath, "/q/");
    EXPECT_EQ(with.kern.DatPfad(), "/q/DAT/");
    EXPECT_EQ(with.kern.HistPfad(), "/q/HIST/");
}

// ---- one instance

TEST_F(Programm_Start, of_a_second_instance_ends_without_a_message_and_touches_nothing) {
    Old("BX08HAZJNT9.UBW", 276);
    const auto before = world.Disk.Files;
    world.OnlyInstance = false;
    Programm programm(world.World, "/q");
    EXPECT_EQ(qvm::Programm_Start(programm, true), StartResult::AlreadyRunning);
    EXPECT_THAT(world.Shown, IsEmpty());
    EXPECT_THAT(world.Disk.Directories, IsEmpty());
    EXPECT_EQ(world.Disk.Operations, 0);
    EXPECT_EQ(world.Disk.Files, before);
}

TEST_F(Programm_Start, beside_a_program_that_may_write_changes_nothing_and_tells_which_that_is) {
    Old("BX08HAZJNT9.UBW", 276);
    world.Disk.Files["/q/DAT/EST7CSB29A.I_1"] = "English\r\n2\r\nUSB-Port3\r\n5\r\n";
    const auto before = world.Disk.Files;
    std::string claimed;
    world.World.ClaimData = [&claimed](const std::string& directory) {
        claimed = directory;
        return DataHolder{.Program = "qvm7702", .Process = 4711, .User = "anna"};
    };
    Programm programm(world.World, "/q");
    EXPECT_EQ(qvm::Programm_Start(programm, true), StartResult::DataHeld);
    EXPECT_EQ(claimed, "/q/DAT/");
    EXPECT_EQ(world.Disk.Files, before);
    EXPECT_EQ(Datenbesitzer_Text(programm),
              "Another program is working on the data files: qvm7702, 4711, anna. Close it, "
              "then start again.");
    programm.Datenbesitzer = {};
    EXPECT_EQ(Datenbesitzer_Text(programm),
              "Another program is working on the data files: unknown. Close it, then start again.");
}

TEST_F(Programm_Start, asks_for_no_instance_when_told_so) {
    world.OnlyInstance = false;
    Programm programm(world.World, "/q");
    EXPECT_EQ(qvm::Programm_Start(programm, false), StartResult::Started);
}

TEST_F(Programm_Start, in_another_language_keeps_the_title_by_which_an_instance_is_found) {
    Config("English\r\n2\r\nUSB-Port1\r\n1\r\n");
    Words("English");
    Programm programm(world.World, "/q");
    qvm::Programm_Start(programm, true);
    programm.Main->F2.F2_Laden();
    EXPECT_EQ(programm.Main->F2.Fenster.Title(), "QVM 7702 SOFTWARE SYSTEM");
    EXPECT_EQ(SystemTitle, "QVM 7702 SOFTWARE SYSTEM");
}

// ---- older files

TEST_F(Programm_Start, converts_older_files_with_a_message_in_the_chosen_language) {
    Words("Deutsch");
    Old("DEVRSSISN.TSD", 12);
    Old("BX08HAZJNT9.UBW", 276);
    world.Answers.push_back({.Text = "L182 / Stp_02"});
    world.Answers.push_back({.Text = "L182 / Stp_03"});
    Programm programm(world.World, "/q");
    EXPECT_EQ(qvm::Programm_Start(programm, true), StartResult::Started);
    EXPECT_FALSE(Has("/q/DAT/BX08HAZJNT9.UBW"));
    EXPECT_FALSE(Has("/q/DAT/DEVRSSISN.TSD"));
    EXPECT_TRUE(Has("/q/DAT/BX10X52WUJ9.UBW"));
    EXPECT_TRUE(Has("/q/DAT/T6WRSSISN.TSD"));
    ASSERT_EQ(world.Shown.size(), 2U);
    EXPECT_EQ(world.Shown[0], (Message{.Text = "L182 / Stp_02",
                                       .Title = "QVM 7702 SOFTWARE SYSTEM",
                                       .Choice = Buttons::Ok,
                                       .Sign = Icon::Information,
                                       .DefaultButton = 1}));
}

TEST_F(Programm_Start, converts_the_oldest_user_file_in_two_steps) {
    Words("Deutsch");
    Old("BX10Y48WUI8.UBW", 262);
    world.Answers.push_back({.Text = "L182 / Stp_01"});
    world.Answers.push_back({.Text = "L182 / Stp_02"});
    Programm programm(world.World, "/q");
    EXPECT_EQ(qvm::Programm_Start(programm, true), StartResult::Started);
    EXPECT_FALSE(Has("/q/DAT/BX10Y48WUI8.UBW"));
    EXPECT_FALSE(Has("/q/DAT/BX08HAZJNT9.UBW"));
    EXPECT_TRUE(Has("/q/DAT/BX10X52WUJ9.UBW"));
}

// ---- file errors

TEST_F(Programm_Start, without_a_data_directory_reads_nothing_and_converts_nothing) {
    for (const int failing : {1, 2}) {
        Old("BX08HAZJNT9.UBW", 276);
        world.Disk.Operations = 0;
        world.Disk.FailAt = failing;
        Programm programm(world.World, "/q");
        EXPECT_EQ(qvm::Programm_Start(programm, true), StartResult::NoDirectory);
        EXPECT_EQ(world.Disk.Operations, failing);
        EXPECT_TRUE(Has("/q/DAT/BX08HAZJNT9.UBW"));
    }
    EXPECT_THAT(world.Shown, IsEmpty());
}

TEST_F(Programm_Start, starts_whatever_file_cannot_be_read_or_written_and_loses_none) {
    // Operations: 1, 2 directories, 3 the log, 4, 5 configuration, 6 language, then the conversion.
    for (int failing = 3; failing <= 12; ++failing) {
        VirtualPlatform other;
        other.Disk.Files["/q/DAT/BX08HAZJNT9.UBW"] = std::string(276, 'B');
        other.Disk.Operations = 0;
        other.Disk.FailAt = failing;
        other.Disk.FailFromThere = true;
        if (failing <= 5) {
            other.Answers.push_back({.Text = "*"}); // that the settings cannot be relied on
        }
        if (failing > 10) {
            other.Answers.push_back({.Text = " / Stp_02"}); // read, read, written, removed
        }
        Programm programm(other.World, "/q");
        EXPECT_EQ(qvm::Programm_Start(programm, true), StartResult::Started) << failing;
        const bool old = other.Disk.Files.contains("/q/DAT/BX08HAZJNT9.UBW");
        EXPECT_EQ(old, failing <= 10) << failing;
        EXPECT_TRUE(old || other.Disk.Files.contains("/q/DAT/BX10X52WUJ9.UBW")) << failing;
    }
}

// ---- shut-down

struct Programm_Ende : Welt {
    Programm_Ende() {
        Config("English\r\n2\r\nUSB-Port5\r\n3\r\n");
        world.Disk.Files["/q/DAT/CHEUSB25C.I_2"] = "RESET     \r\nabc  \r\n     \r\n     \r\n     \r\n     \r\n";
        programm = std::make_unique<Programm>(world.World, "/q");
        EXPECT_EQ(qvm::Programm_Start(*programm, true), StartResult::Started);
    }
    std::string Settings() { return world.Disk.Files["/q/DAT/EST7CSB29A.I_1"]; }
    std::string Adapters() { return world.Disk.Files["/q/DAT/CHEUSB25C.I_2"]; }

    std::unique_ptr<Programm> programm;
};

TEST_F(Programm_Ende, saves_the_configuration) {
    programm->kern.Config.RadioChannel = "9";
    programm->kern.Config.PortAutomatik = "SET";
    EXPECT_TRUE(qvm::Programm_Ende(*programm));
    EXPECT_EQ(Settings(), "English\r\n2\r\nUSB-Port5\r\n9\r\n");
    EXPECT_EQ(Adapters(), "SET       \r\nabc  \r\n     \r\n     \r\n     \r\n     \r\n");
}

TEST_F(Programm_Ende, closes_an_open_port_and_switches_request_to_send_off) {
    Port_Oeffnen(programm->link, 5);
    world.World.Port.SetRts(true);
    EXPECT_TRUE(qvm::Programm_Ende(*programm));
    EXPECT_FALSE(world.PortOpen);
    EXPECT_FALSE(world.Rts);
    EXPECT_EQ(world.Closes, 1);
}

TEST_F(Programm_Ende, leaves_a_closed_port_alone) {
    EXPECT_TRUE(qvm::Programm_Ende(*programm));
    EXPECT_EQ(world.Closes, 0);
}

TEST_F(Programm_Ende, reports_each_file_that_was_not_saved_and_closes_the_port_all_the_same) {
    for (const int failing : {1, 2}) {
        Port_Oeffnen(programm->link, 5);
        programm->kern.Config.RadioChannel = "9";
        programm->kern.Config.PortAutomatik = "SET";
        world.Disk.Files["/q/DAT/EST7CSB29A.I_1"] = "old";
        world.Disk.Files["/q/DAT/CHEUSB25C.I_2"] = "old";
        world.Disk.Operations = 0;
        world.Disk.FailAt = failing;
        EXPECT_FALSE(qvm::Programm_Ende(*programm)) << failing;
        EXPECT_EQ(Settings() == "old", failing == 1);
        EXPECT_EQ(Adapters() == "old", failing == 2);
        EXPECT_FALSE(world.PortOpen);
    }
    EXPECT_THAT(world.Shown, IsEmpty());
}

} // namespace
} // namespace qvm::test
