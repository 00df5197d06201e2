// The look at the PC: ten faults planted one by one, and none where all is well.

#include "Doctor.h"

#include "CheckFixture.h"

#include <gmock/gmock.h>

namespace qvm::test {
namespace {

using testing::HasSubstr;

class Doctor : public Daten_Pruefen_ {
protected:
    void SetUp() override {
        Daten_Pruefen_::SetUp();
        std::string words;
        for (int n = 0; n < 300; ++n) {
            words += "x\r\n";
        }
        for (const std::string language : {"Deutsch", "English", "Francais", "Nederlands"}) {
            Disk.Files["app/QVM_" + language + ".DAT"] = words;
        }
        Facts.User = "anna";
        Facts.Groups = {"anna", "dialout"};
        Facts.Ports = {{.Number = 1,
                        .Device = "/dev/ttyUSB0",
                        .There = true,
                        .Serial = true,
                        .Right = true,
                        .Owner = "root",
                        .Group = "dialout",
                        .GroupMay = true,
                        .GroupListed = true,
                        .TimerTold = true,
                        .LatencyMs = 1,
                        .LatencyFile = "/sys/t",
                        .Asked = true,
                        .Version = 14,
                        .AdapterName = "PROGSTATION-1"}};
        Facts.ServicesTold = true;
        Facts.Now = {.Year = 2026, .Month = 3, .Day = 5, .Hour = 10, .Minute = 30};
        Facts.Newest = {.Year = 2026, .Month = 3, .Day = 4};
        Facts.Zone = "Europe/Berlin";
        Facts.ZoneThere = true;
        Facts.FreeBytes = std::uint64_t{5} << 30U;
        const PathFacts folder{.There = true,
                               .Directory = true,
                               .Readable = true,
                               .Writable = true,
                               .Own = true,
                               .Mode = 0755,
                               .Owner = "anna"};
        Facts.Paths["DAT"] = Facts.Paths["HIST"] = folder;
        for (const auto& [path, bytes] : Disk.Files) {
            if (path.starts_with("app/DAT/")) {
                Facts.Paths[path.substr(4)] = {
                    .There = true, .Readable = true, .Writable = true, .Own = true, .Mode = 0600, .Owner = "anna"};
            }
        }
    }

    std::vector<DoctorLine> Look() {
        const FileStore store = Disk.Store();
        return Doctor_Pruefen(Facts, {.Files = store, .AppPath = "app/", .ProgramFiles = {}}, DoctorWords(Language));
    }
    /// All that is not good: "verdict check about: proof > what to do", one a line.
    std::string Bad() {
        std::string text;
        const std::vector<DoctorLine> lines = Look();
        for (const DoctorLine& line : lines) {
            if (line.Result != Verdict::Good) {
                text += std::string(Verdict_Name(line.Result)) + " " + std::string(line.Check) + " " + line.About +
                        ": " + line.Proof + " > " + line.ToDo + "\n";
            }
        }
        return text;
    }
    DoctorFix FixOf(std::string_view about) {
        const std::vector<DoctorLine> lines = Look();
        for (const DoctorLine& line : lines) {
            if (line.About == about && line.Fix.What != DoctorFix::Kind::None) {
                return line.Fix;
            }
        }
        return {};
    }
    PortFacts& Port() { return Facts.Ports.front(); }

    PcFacts Facts;
    std::string Language = "English";
};

TEST_F(Doctor, finds_nothing_on_a_healthy_pc) {
    EXPECT_EQ(Bad(), "");
    const std::vector<DoctorLine> lines = Look();
    EXPECT_EQ(Doctor_Urteil(lines), Verdict::Good);
    // Port 5, services, clock, zone, disk, 2 folders, 22 data files, 4 languages.
    EXPECT_EQ(lines.size(), 5U + 4U + 2U + 22U + 4U);
    for (const DoctorLine& line : lines) {
        EXPECT_NE(line.Proof, "") << line.Check << " " << line.About;
    }
}

TEST_F(Doctor, takes_files_that_are_not_there_yet_for_good) {
    for (auto at = Disk.Files.begin(); at != Disk.Files.end();) {
        at = at->first.starts_with(Dat) ? Disk.Files.erase(at) : std::next(at);
    }
    std::erase_if(Facts.Paths, [](const auto& path) { return path.first.starts_with("DAT/"); });
    EXPECT_EQ(Bad(), "");
}

TEST_F(Doctor, names_an_adapter_that_is_not_there_and_says_that_the_rest_cannot_be_told) {
    Facts.Ports.clear();
    Facts.OtherDevices = {"ttyUSB3 (1a86:7523)"};
    EXPECT_EQ(Bad(), "fault adapter : nothing is there; other serial devices: ttyUSB3 (1a86:7523) > Plug the adapter "
                     "in, or choose its port in the settings\n"
                     "untold right : there is no port to look at > \n"
                     "untold holder : there is no port to look at > \n"
                     "untold latency : there is no port to look at > \n"
                     "untold answer : there is no port to look at > \n");
}

TEST_F(Doctor, names_what_is_no_serial_port) {
    Port().Serial = false;
    EXPECT_THAT(Bad(), HasSubstr("fault adapter /dev/ttyUSB0: what is there is no serial port > "));
}

TEST_F(Doctor, tells_of_its_own_port_and_of_one_that_is_being_asked) {
    Port().Own = true;
    EXPECT_EQ(Bad(), "") << "in use by this program is as it should be";
    Port().Asked = false;
    Port().Asking = true;
    EXPECT_EQ(Bad(), "untold answer /dev/ttyUSB0: the adapter is being asked > \n");
    Port().Asking = false;
    Port().Busy = true;
    EXPECT_EQ(Bad(), "untold answer /dev/ttyUSB0: not asked, as a run or a search is working with it > \n");
}

TEST_F(Doctor, speaks_the_four_languages_whole) {
    Port().Right = Port().Asked = false;
    Facts.Groups = {"anna"};
    Language = "Deutsch";
    EXPECT_THAT(Bad(), HasSubstr("fault right /dev/ttyUSB0: Eigent\u00FCmer root, Gruppe dialout; anna ist in anna; "
                                 "diese Sitzung begann, bevor der Benutzer in dialout kam > Abmelden und wieder "));
    Language = "Francais";
    EXPECT_THAT(Bad(), HasSubstr("fault right /dev/ttyUSB0: propri\u00E9taire root, groupe dialout ; anna est dans"));
    Language = "Nederlands";
    EXPECT_THAT(Bad(), HasSubstr("> Afmelden en opnieuw aanmelden\n"));
    for (const std::string language : {"Deutsch", "English", "Francais", "Nederlands"}) {
        Language = language;
        const std::vector<DoctorLine> lines = Look();
        for (const DoctorLine& line : lines) {
            EXPECT_NE(Pruefung_Text(DoctorWords(language), line.Check), "") << line.Check;
            EXPECT_EQ((line.Proof + line.ToDo).find('%'), std::string::npos) << line.Proof;
        }
    }
    const DoctorWords german("Deutsch");
    EXPECT_EQ(Urteil_Text(german, Verdict::Good), "gut");
    EXPECT_EQ(Urteil_Text(german, Verdict::Note), "beachtenswert");
    EXPECT_EQ(Urteil_Text(german, Verdict::Fault), "Fehler");
    EXPECT_EQ(Urteil_Text(german, Verdict::Untold), "nicht feststellbar");
    EXPECT_EQ(Pruefung_Text(german, "none"), "");
}

TEST_F(Doctor, names_a_missing_right_with_the_groups_and_the_command) {
    Facts.Groups = {"anna", "audio"};
    Port().Right = Port().GroupListed = Port().Asked = false;
    EXPECT_THAT(Bad(), HasSubstr("fault right /dev/ttyUSB0: owner root, group dialout; anna is in anna, audio > "
                                 "Run: sudo usermod -aG dialout anna, then log out and in again\n"));
    EXPECT_THAT(Bad(), HasSubstr("untold answer /dev/ttyUSB0: the adapter could not be asked > \n"));
    Port().GroupListed = true;
    EXPECT_THAT(Bad(), HasSubstr("this session began before that user joined dialout > Log out and in again\n"));
    Port().GroupMay = false;
    EXPECT_THAT(Bad(), HasSubstr("the group has no right to read and write it > Run: sudo chmod g+rw /dev/ttyUSB0\n"));
}

TEST_F(Doctor, names_who_has_the_port) {
    Port().Holder = "minicom (4711)";
    Port().Asked = false;
    EXPECT_EQ(Bad(), "fault holder /dev/ttyUSB0: open by minicom (4711) > Close that program\n"
                     "untold answer /dev/ttyUSB0: not asked, as the port is in use > \n");
    Port().Holder = "ModemManager (812)";
    EXPECT_THAT(Bad(), HasSubstr("fault holder /dev/ttyUSB0: open by ModemManager (812) > Wait some seconds"));
    Port().Holder = "qvm7702 (99)";
    EXPECT_THAT(Bad(), HasSubstr("note holder /dev/ttyUSB0: open by qvm7702 (99) > "));
    EXPECT_EQ(Doctor_Urteil(Look()), Verdict::Note) << "the program itself is no fault";
}

TEST_F(Doctor, does_not_call_a_port_free_that_an_unseen_program_has) {
    Port().Asked = false;
    Port().Refusal = "com1 is in use by another program.";
    EXPECT_EQ(Bad(), "untold answer /dev/ttyUSB0: the adapter could not be asked: com1 is in use by another program. "
                     "> \n");
    Port().Held = true;
    EXPECT_THAT(Bad(), HasSubstr("fault holder /dev/ttyUSB0: com1 is in use by another program. > Close the program"));
    EXPECT_THAT(Bad(), HasSubstr("untold answer /dev/ttyUSB0: not asked, as the port is in use > \n"));
}

TEST_F(Doctor, names_services_that_take_new_ports) {
    Facts.Services = {"ModemManager (812)"};
    EXPECT_EQ(Bad(), "note services : ModemManager (812) runs and tries out each new serial port > If no modem is "
                     "used, run: sudo systemctl disable --now ModemManager\n");
    Port().LeftAlone = true;
    EXPECT_EQ(Bad(), "") << "told to leave the port alone";
    Facts.Services = {"ModemManager (812)", "brltty (90)"};
    EXPECT_THAT(Bad(), HasSubstr("note services : ModemManager (812), brltty (90) run and try out each new serial "
                                 "port > If no braille display is used, run: sudo systemctl disable --now brltty\n"));
    Facts.Services.clear();
    Facts.ServicesTold = false;
    EXPECT_EQ(Bad(), "untold services : the system hides the programs of other users > \n");
}

TEST_F(Doctor, names_a_long_latency_timer_and_can_shorten_it) {
    Port().LatencyMs = 16;
    EXPECT_EQ(Bad(), "") << "each converter has that before the program opens the port and shortens it";
    Port().Opened = true;
    Port().LatencyMs = 4;
    EXPECT_EQ(Bad(), "");
    Port().LatencyMs = 16;
    EXPECT_EQ(Bad(), "note latency /dev/ttyUSB0: 16 ms: each reply can come so much later > Run: echo 1 | sudo tee "
                     "/sys/t\n");
    EXPECT_EQ(FixOf("/dev/ttyUSB0"), (DoctorFix{.What = DoctorFix::Kind::ShortLatency, .Path = "/sys/t"}));
    Port().LatencyMs.reset();
    EXPECT_EQ(Bad(), "") << "a converter without such a timer";
    Port().TimerTold = false;
    EXPECT_THAT(Bad(), HasSubstr("untold latency "));
}

TEST_F(Doctor, names_an_adapter_that_is_silent_or_old) {
    Port().Version = 11;
    EXPECT_EQ(Bad(), "note answer /dev/ttyUSB0: PROGSTATION-1 answered, version 11; units are read by radio from "
                     "version 12 on > Ask the supplier for a newer adapter if that is needed\n");
    Port().Version = 12;
    EXPECT_EQ(Bad(), "");
    Port().Version = 0;
    EXPECT_THAT(Bad(), HasSubstr("untold answer /dev/ttyUSB0: PROGSTATION-1 answered, its version is not known"));
    Port().Version.reset();
    EXPECT_THAT(Bad(), HasSubstr("fault answer /dev/ttyUSB0: no adapter answered > Unplug the adapter"));
    Facts.Ports.push_back(Port());
    Facts.Ports.back().Version = 12;
    EXPECT_THAT(Bad(), HasSubstr("note answer /dev/ttyUSB0: no adapter answered")) << "another one did";
}

TEST_F(Doctor, names_a_clock_that_cannot_be_right) {
    Facts.Now.Year = 1970;
    Facts.Newest.reset();
    EXPECT_THAT(Bad(), HasSubstr("fault clock : 05.03.1970 10:30: the year cannot be right > Set the date"));
    Facts.Now.Year = 2100;
    EXPECT_THAT(Bad(), HasSubstr("fault clock : 05.03.2100 10:30: the year cannot be right > "));
    Facts.Now.Year = 2026;
    Facts.Newest = {.Year = 2026, .Month = 3, .Day = 6, .Hour = 10, .Minute = 31};
    Facts.NewestFile = "HIST/Tor.HST";
    EXPECT_THAT(Bad(), HasSubstr("HIST/Tor.HST was changed later than that, 06.03.2026 10:31 > "));
    Facts.Newest->Minute = 30;
    EXPECT_EQ(Bad(), "") << "a day may be another zone";
}

TEST_F(Doctor, names_a_zone_that_is_none) {
    Facts.Zone = "Europe/Nowhere";
    Facts.ZoneThere = false;
    EXPECT_THAT(Bad(), HasSubstr("fault zone : Europe/Nowhere: the PC does not know this zone > Choose the time zone"));
    Facts.Zone = "Etc/UTC";
    Facts.ZoneThere = true;
    EXPECT_THAT(Bad(), HasSubstr("note zone : Etc/UTC: a zone of no place, without summer time > "));
    Facts.Zone.clear();
    EXPECT_THAT(Bad(), HasSubstr("untold zone : the system names no time zone > "));
}

TEST_F(Doctor, names_a_disk_that_is_full_or_takes_no_change) {
    Facts.FreeBytes = 10U << 20U;
    EXPECT_THAT(Bad(), HasSubstr("note disk : 10 MB free > Remove what is not needed"));
    --*Facts.FreeBytes;
    EXPECT_THAT(Bad(), HasSubstr("fault disk : 9 MB free > "));
    Facts.FreeBytes = std::uint64_t{1} << 40U;
    Facts.ReadOnly = true;
    EXPECT_THAT(Bad(), HasSubstr("fault disk : 1048576 MB free, but the file system takes no change > "));
    Facts.FreeBytes.reset();
    EXPECT_THAT(Bad(), HasSubstr("untold disk : "));
}

TEST_F(Doctor, names_a_directory_that_is_not_there_or_not_to_be_written) {
    Facts.Paths["HIST"] = {};
    EXPECT_THAT(Bad(), HasSubstr("fault folder HIST: is not in app/ > Make it: mkdir HIST\n"));
    EXPECT_EQ(FixOf("HIST"), (DoctorFix{.What = DoctorFix::Kind::MakeDirectory, .Path = "HIST"}));
    Facts.Paths["DAT"] = {};
    EXPECT_THAT(Bad(), HasSubstr("fault folder DAT: is not in app/ > Start the program once, or name its directory"));
    EXPECT_THAT(Bad(), HasSubstr("untold file : there is no directory to look into"));
    EXPECT_EQ(FixOf("DAT"), DoctorFix{}) << "the directory may be mistyped";
    EXPECT_EQ(FixOf("HIST"), DoctorFix{});
}

TEST_F(Doctor, mends_the_rights_of_the_owner_only) {
    PathFacts& folder = Facts.Paths["DAT"];
    folder.Mode = 0500;
    folder.Writable = false;
    EXPECT_THAT(Bad(), HasSubstr("fault folder DAT: cannot be written: mode 0500, owner anna > Run: chmod u+rwx DAT"));
    EXPECT_EQ(FixOf("DAT"), (DoctorFix{.What = DoctorFix::Kind::Permissions, .Path = "DAT", .More = 0700}));
    folder.Own = false;
    folder.Owner = "root";
    EXPECT_THAT(Bad(), HasSubstr("cannot be written: mode 0500, owner root > Run: sudo chown anna DAT\n"));
    EXPECT_EQ(FixOf("DAT"), DoctorFix{});
}

TEST_F(Doctor, takes_a_right_through_the_group_for_a_right) {
    for (auto& [path, facts] : Facts.Paths) {
        facts.Own = false;
        facts.Owner = "berta";
        facts.Mode = facts.Directory ? 0770 : 0660;
    }
    EXPECT_EQ(Bad(), "");
}

TEST_F(Doctor, names_data_files_without_right_and_those_that_all_may_read) {
    PathFacts& users = Facts.Paths["DAT/BX10X52WUJ9.UBW"];
    users.Readable = users.Writable = false;
    users.Mode = 0;
    EXPECT_EQ(Bad(), "fault file DAT/BX10X52WUJ9.UBW: cannot be read: mode 0000, owner anna > Run: chmod u+rw "
                     "DAT/BX10X52WUJ9.UBW\n");
    EXPECT_EQ(FixOf("DAT/BX10X52WUJ9.UBW").More, 0600U);
    users.Readable = users.Writable = true;
    users.Mode = 0644;
    EXPECT_THAT(Bad(), HasSubstr("note file DAT/BX10X52WUJ9.UBW: in order, but every user of the PC may read it: mode "
                                 "0644, owner anna > Run: chmod o-rwx "));
    EXPECT_EQ(FixOf("DAT/BX10X52WUJ9.UBW").Less, 0007U);
    users.Mode = 0640;
    EXPECT_EQ(Bad(), "") << "a group may be meant";
}

TEST_F(Doctor, says_of_a_damaged_file_what_check_says_in_one_line) {
    Disk.Files[Dat + "C64UX12H3D.EBW"].pop_back();
    EXPECT_EQ(Bad(),
              "fault file DAT/C64UX12H3D.EBW: damaged: LockRecord: the length of 8999 bytes is not a multiple of 45 > "
              "Put the file of the last backup back; qvmctl check names every finding\n");
    EXPECT_EQ(FixOf("DAT/C64UX12H3D.EBW"), DoctorFix{}) << "what a file holds is never changed";
}

TEST_F(Doctor, quotes_no_code) {
    Write("BX10X52WUJ9.UBW", 35, "12x4565   ");
    EXPECT_THAT(Bad(), HasSubstr("note file DAT/BX10X52WUJ9.UBW: to be looked at: UserRecord, record 1, UserCode: "));
    EXPECT_EQ(Bad().find("12x4"), std::string::npos);
    EXPECT_EQ(Doctor_Urteil(Look()), Verdict::Note);
    Write("BX10X52WUJ9.UBW", 419 + 35, "12y4565   ");
    EXPECT_THAT(Bad(), HasSubstr(" (and 1 more) > Mend it in its window; qvmctl check names every finding\n"));
}

TEST_F(Doctor, names_a_configuration_that_is_cut) {
    Lines("EST7CSB29A.I_1", "Deutsch\r\n1\r\n");
    EXPECT_THAT(Bad(), HasSubstr("fault configuration DAT/EST7CSB29A.I_1: damaged: EST7CSB29A.I_1: is cut off"));
}

TEST_F(Doctor, names_language_files_that_are_missing_or_not_whole) {
    Disk.Files.erase("app/QVM_Deutsch.DAT");
    EXPECT_EQ(Bad(), "fault language QVM_Deutsch.DAT: is missing; it is the language in use > Copy the language file "
                     "of the program's package anew\n");
    Disk.Files["app/QVM_Deutsch.DAT"] = "x\r\nx\r\n";
    EXPECT_THAT(Bad(), HasSubstr("fault language QVM_Deutsch.DAT: has 2 lines instead of 300; it is the language in"));
    Disk.Files["app/QVM_Deutsch.DAT"] = Disk.Files["app/QVM_English.DAT"];
    Disk.Files.erase("app/QVM_Francais.DAT");
    EXPECT_THAT(Bad(), HasSubstr("note language QVM_Francais.DAT: is missing > "));
}

} // namespace
} // namespace qvm::test
