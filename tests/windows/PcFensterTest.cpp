// The check of the PC: what stands in its lines, when the adapter is asked, and what is mended.

#include "F2Fixture.h"
#include "Pictures.h"
#include "Text.h"

#include <algorithm>

namespace qvm::test {
namespace {

using ::testing::HasSubstr;

struct Pc_Fenster : F2Fixture {
    PcFacts Facts;
    std::vector<DoctorFix> Mended;
    std::string WhyNot; ///< why nothing can be mended

    Pc_Fenster() {
        std::string words;
        for (int line = 1; line <= 300; ++line) {
            words += "L" + std::to_string(line) + "\r\n";
        }
        for (const std::string language : {"English", "Francais", "Nederlands"}) {
            world.Disk.Files["/q/QVM_" + language + ".DAT"] = words;
        }
        world.Disk.Files["/q/DAT/CHEUSB25C.I_2"] = "SET       \r\n     \r\n     \r\n     \r\n     \r\n     \r\n";
        Facts.User = "anna";
        Facts.Groups = {"anna", "dialout"};
        Facts.Ports = {{.Number = 5,
                        .Device = "/dev/ttyUSB4",
                        .There = true,
                        .Serial = true,
                        .Right = true,
                        .Owner = "root",
                        .Group = "dialout",
                        .TimerTold = true,
                        .LatencyMs = 1,
                        .LatencyFile = "/sys/t"}};
        Facts.Ports.front().Holder = "qvm7702 (99)"; // as the system sees this program itself
        Facts.ServicesTold = true;
        Facts.Now = {.Year = 2026, .Month = 3, .Day = 5, .Hour = 10, .Minute = 30};
        Facts.Zone = "Europe/Berlin";
        Facts.ZoneThere = true;
        Facts.FreeBytes = std::uint64_t{5} << 30U;
        const PathFacts folder{
            .There = true, .Directory = true, .Readable = true, .Writable = true, .Own = true, .Mode = 0700};
        Facts.Paths["DAT"] = Facts.Paths["HIST"] = folder;
    }

    PcFenster& Pc() { return programm->Main->Pc; }
    void Hooks() {
        Pc().Haken.Ansehen = [this](const std::vector<int>& ports) {
            EXPECT_THAT(ports, ElementsAre(5));
            return Facts;
        };
        Pc().Haken.Beheben = [this](const DoctorFix& fix) {
            Mended.push_back(fix);
            Facts.Paths["HIST"].There = WhyNot.empty();
            return WhyNot;
        };
    }
    bool Done() { return Pc().Erneut.Enabled; }
    /// The adapter is there, the main window knows it, and the check is opened by its entry and over.
    void Check() {
        Connect();
        Hooks();
        Main().F2_Pc_Click();
        ASSERT_TRUE(Pc().Fenster.Visible);
        ASSERT_TRUE(world.RunUntil([this] { return Done(); }, 60000));
    }
    /// "verdict: finding > what to do" of the first line whose name begins so.
    std::string Line(std::string_view name) {
        const Grid& grid = Pc().FGK;
        for (int row = PcFenster::FirstRow; row < grid.Rows(); ++row) {
            if (grid.Text(row, PcColumn::Check).starts_with(name)) {
                return NachUtf8(grid.Text(row, PcColumn::Verdict) + ": " + grid.Text(row, PcColumn::Finding) +
                                (grid.Text(row, PcColumn::ToDo).empty() ? "" : " > " + grid.Text(row, PcColumn::ToDo)));
            }
        }
        return "none";
    }
    int Picture(std::string_view name) {
        const Grid& grid = Pc().FGK;
        int row = PcFenster::FirstRow;
        while (row < grid.Rows() && !grid.Text(row, PcColumn::Check).starts_with(name)) {
            ++row;
        }
        return grid.At(row, PcColumn::Verdict).Picture;
    }
};

TEST_F(Pc_Fenster, finds_all_well_on_a_healthy_pc_and_asks_through_the_one_port) {
    Check();
    EXPECT_EQ(Pc().Stand.Text(), "Alles in Ordnung.");
    EXPECT_EQ(Line("Funkadapter /dev/ttyUSB4"), "gut: ein serieller Anschluss ist da");
    EXPECT_EQ(Line("Benutzung des Anschlusses"), "gut: dieses Programm benutzt ihn");
    EXPECT_EQ(Line("Antwort des Adapters"), "gut: PROGSTATION hat geantwortet, Version 35");
    EXPECT_EQ(Line("Ordner DAT"), "gut: in /q/, lesbar und schreibbar");
    // Port 5, services, clock, zone, disk, 2 folders, 22 data files, 4 languages.
    EXPECT_EQ(Pc().FGK.Rows(), 1 + 5 + 4 + 2 + 22 + 4);
    EXPECT_EQ(world.PortNumber, 5);
    EXPECT_TRUE(world.PortOpen);
    EXPECT_FALSE(Pc().Beheben.Enabled) << "there is nothing to mend";
    Pc().Schliessen();
    EXPECT_FALSE(Pc().Fenster.Visible);
    EXPECT_TRUE(Main().Fenster.Enabled);
    EXPECT_EQ(Light(), Lampe::Gruen);
}

TEST_F(Pc_Fenster, tells_each_verdict_by_a_sign_and_a_word) {
    Facts.Paths["DAT"].Mode = 0702;
    Facts.FreeBytes.reset();
    Facts.Paths["HIST"] = {};
    Check();
    EXPECT_EQ(Line("Uhr"), "gut: 05.03.2026 10:30");
    EXPECT_EQ(Picture("Uhr"), VerdictPicture::Good);
    EXPECT_EQ(Line("Ordner DAT"), "beachtenswert: jeder Benutzer des PCs darf ihn ändern: Modus 0702, Eigentümer  > "
                                  "Ausführen: chmod o-w DAT");
    EXPECT_EQ(Picture("Ordner DAT"), VerdictPicture::Note);
    EXPECT_EQ(Line("Ordner HIST"), "Fehler: fehlt in /q/ > Anlegen: mkdir HIST");
    EXPECT_EQ(Picture("Ordner HIST"), VerdictPicture::Fault);
    EXPECT_EQ(Line("Speicherplatz"), "nicht feststellbar: das System sagt nicht, was frei ist");
    EXPECT_EQ(Picture("Speicherplatz"), VerdictPicture::Untold);
    EXPECT_EQ(Pc().Stand.Text(), "Fehler: 1, beachtenswert oder nicht feststellbar: 2");
}

TEST_F(Pc_Fenster, shows_the_chosen_line_whole) {
    Facts.FreeBytes.reset();
    Check();
    EXPECT_EQ(Pc().Einzelheit.Text(), "das System sagt nicht, was frei ist") << "what is not good first";
    Facts.Paths["HIST"] = {};
    Pc().Erneut_Click();
    ASSERT_TRUE(world.RunUntil([this] { return Done(); }));
    EXPECT_EQ(Pc().Einzelheit.Text(), "fehlt in /q/\nAnlegen: mkdir HIST") << "a fault before all";
    Pc().Auswahl.Go(PcFenster::FirstRow, PcColumn::Check);
    EXPECT_EQ(Pc().Einzelheit.Text(), "ein serieller Anschluss ist da");
}

TEST_F(Pc_Fenster, looks_in_steps_and_takes_no_key_meanwhile) {
    Connect();
    Hooks();
    Main().F2_Pc_Click();
    EXPECT_EQ(Pc().Stand.Text(), u8"Der PC wird geprüft."_w);
    EXPECT_FALSE(Pc().Erneut.Enabled || Pc().Kopieren.Enabled || Pc().Beheben.Enabled);
    EXPECT_FALSE(Main().Fenster.Enabled) << "nobody else uses the port";
    ASSERT_TRUE(world.RunUntil([this] { return Pc().FGK.Rows() > 1; }));
    EXPECT_EQ(Line("Antwort des Adapters"), "nicht feststellbar: der Adapter wird gefragt");
    EXPECT_EQ(Line("Uhr"), "none") << "the next step";
    ASSERT_TRUE(world.RunUntil([this] { return Done(); }));
    EXPECT_THAT(Line("Antwort des Adapters"), HasSubstr("Version 35"));
}

TEST_F(Pc_Fenster, checks_again) {
    Check();
    Facts.Zone.clear();
    const int probes = Probes();
    Pc().Erneut_Click();
    EXPECT_EQ(Pc().FGK.Rows(), 1);
    Pc().Erneut_Click(); // while it looks: nothing
    ASSERT_TRUE(world.RunUntil([this] { return Done(); }));
    EXPECT_THAT(Line("Zeitzone"), HasSubstr("das System nennt keine Zeitzone"));
    EXPECT_EQ(Probes(), probes + 1);
}

TEST_F(Pc_Fenster, tells_an_adapter_that_keeps_silent) {
    Connect();
    Hooks();
    AdapterAnswers = false;
    Main().F2_Pc_Click();
    ASSERT_TRUE(world.RunUntil([this] { return Done(); }, 60000));
    EXPECT_EQ(Line("Antwort des Adapters"), "Fehler: kein Adapter hat geantwortet > Den Adapter abziehen und wieder "
                                            "anstecken, dann erneut prüfen");
}

TEST_F(Pc_Fenster, never_disturbs_a_run) {
    Connect();
    Hooks();
    programm->link.Lauf.Chain.Phase = RunPhase::Open;
    const int opens = world.Opens;
    const std::size_t sent = world.Written.size();
    Main().F2_Pc_Click();
    ASSERT_TRUE(world.RunUntil([this] { return Done(); }, 60000));
    EXPECT_EQ(Line("Benutzung des Anschlusses"), "gut: dieses Programm benutzt ihn");
    EXPECT_EQ(Line("Antwort des Adapters"),
              "nicht feststellbar: nicht gefragt, da gerade ein Lauf oder eine Suche damit arbeitet");
    EXPECT_EQ(world.Opens, opens);
    EXPECT_EQ(world.Written.size(), sent);
    programm->link.Lauf.Chain.Phase = RunPhase::None;
}

TEST_F(Pc_Fenster, waits_for_a_search_of_the_main_window) {
    AdapterDelayMs = 3000;
    Open();
    Hooks();
    bool looked = false;
    InNextScan([this] { Main().F2_Pc_Click(); });
    world.At(2000, [this, &looked] { // in the middle of that search
        looked = programm->Adapter.SucheLaeuft;
        EXPECT_FALSE(Done());
        EXPECT_EQ(Line("Antwort des Adapters"), "nicht feststellbar: der Adapter wird gefragt");
        EXPECT_EQ(Probes(), 1);
    });
    ASSERT_TRUE(world.RunUntil([this] { return Pc().Fenster.Visible && Done(); }, 60000));
    EXPECT_TRUE(looked);
    EXPECT_EQ(Probes(), 2);
    EXPECT_THAT(Line("Antwort des Adapters"), HasSubstr("Version 35"));
}

TEST_F(Pc_Fenster, closes_in_the_middle_of_a_question_and_gives_the_main_window_back) {
    Connect();
    Hooks();
    AdapterAnswers = false;
    InNextScan([this] { Pc().Schliessen(); }, 500);
    Main().F2_Pc_Click();
    const std::int64_t before = world.Elapsed();
    ASSERT_TRUE(world.RunUntil([this] { return !Pc().Fenster.Visible(); }, 60000));
    EXPECT_LE(world.Elapsed() - before, 1000) << "not after the four tries";
    EXPECT_TRUE(Main().Fenster.Enabled);
    EXPECT_FALSE(programm->Adapter.SucheLaeuft);
    AdapterAnswers = true;
    Main().F2_Pc_Click();
    ASSERT_TRUE(world.RunUntil([this] { return Done(); }, 60000));
    EXPECT_THAT(Line("Antwort des Adapters"), HasSubstr("Version 35"));
}

TEST_F(Pc_Fenster, asks_nobody_where_no_port_can_be_had) {
    Facts.Ports.front().Right = false;
    Open();
    Hooks();
    world.PortCanOpen = false;
    world.World.Port.Close();
    const std::size_t sent = world.Written.size();
    Main().F2_Pc_Click();
    ASSERT_TRUE(world.RunUntil([this] { return Done(); }, 60000));
    EXPECT_THAT(Line("Recht am Anschluss"), HasSubstr("Fehler: Eigentümer root, Gruppe dialout; anna ist in anna, "
                                                      "dialout; die Gruppe darf ihn nicht lesen und schreiben > "));
    EXPECT_EQ(world.Written.size(), sent);
}

TEST_F(Pc_Fenster, mends_only_after_yes) {
    Facts.Paths["HIST"] = {};
    Check();
    ASSERT_TRUE(Pc().Beheben.Enabled);
    const std::string question = AusUtf8("Das wird behoben; was die Dateien enthalten, bleibt unberührt. Fortfahren?"
                                         "\r\n\r\nOrdner HIST: fehlt in /q/");
    world.Answers.push_back({.Text = question, .Reply = Answer::No});
    Pc().Beheben_Click();
    EXPECT_THAT(Mended, IsEmpty());
    EXPECT_TRUE(Done());

    world.Answers.push_back({.Text = question, .Reply = Answer::Yes});
    Pc().Beheben_Click();
    EXPECT_THAT(Mended, ElementsAre(DoctorFix{.What = DoctorFix::Kind::MakeDirectory, .Path = "HIST"}));
    Facts.Paths["HIST"] = Facts.Paths["DAT"];
    ASSERT_TRUE(world.RunUntil([this] { return Done(); }));
    EXPECT_EQ(Line("Ordner HIST"), "gut: in /q/, lesbar und schreibbar") << "it is checked again by itself";
    EXPECT_FALSE(Pc().Beheben.Enabled);
}

TEST_F(Pc_Fenster, tells_what_could_not_be_mended) {
    Facts.Paths["HIST"] = {};
    WhyNot = "Permission denied";
    Check();
    world.Answers.push_back({.Text = "*", .Reply = Answer::Yes});
    world.Answers.push_back(
        {.Text = "Das konnte nicht behoben werden:\r\n\r\nOrdner HIST: Permission denied", .Reply = Answer::Ok});
    Pc().Beheben_Click();
    ASSERT_TRUE(world.RunUntil([this] { return Done(); }));
    EXPECT_TRUE(Pc().Beheben.Enabled);
}

TEST_F(Pc_Fenster, gives_its_report_as_text) {
    Facts.Paths["HIST"] = {};
    Check();
    const std::string report = NachUtf8(Pc().Bericht());
    EXPECT_THAT(report, HasSubstr("QVM 7702 SOFTWARE SYSTEM - Diesen PC prüfen  05.03.2026  10:30\r\n\r\n"));
    EXPECT_THAT(report, HasSubstr("\r\ngut  Uhr des PCs: 05.03.2026 10:30\r\n"));
    EXPECT_THAT(report, HasSubstr("\r\nFehler  Ordner HIST: fehlt in /q/\r\n    > Anlegen: mkdir HIST\r\n"));
    Pc().Kopiert();
    EXPECT_EQ(Pc().Stand.Text(), "Der Bericht ist in der Zwischenablage.");
}

TEST_F(Pc_Fenster, takes_the_words_of_another_language_while_it_is_open) {
    Check();
    programm->kern.Config.Sprache = "English";
    programm->kern.Windows.WordsChanged();
    EXPECT_EQ(Line("Use of the port"), "good: this program is using it");
    EXPECT_EQ(Pc().Stand.Text(), "All is well.");
    EXPECT_EQ(Pc().Erneut.Text(), "Check again");
}

TEST_F(Pc_Fenster, is_not_to_be_had_in_the_virtual_building) {
    Connect();
    Hooks();
    EXPECT_EQ(Main().F2_Pc.Text(), u8"Diesen PC prüfen"_w);
    EXPECT_TRUE(Main().F2_Pc.Enabled);
    programm->kern.ImGebaeude = true;
    Main().Tasten_Freigeben();
    EXPECT_FALSE(Main().F2_Pc.Enabled);
    Main().F2_Pc_Click();
    EXPECT_FALSE(Pc().Fenster.Visible);
    EXPECT_TRUE(Main().Fenster.Enabled);
}

} // namespace
} // namespace qvm::test
