// The menus of the main window, the manual, and the words.

#include "Datendateien.h"
#include "F2Fixture.h"
#include "Handbuch.h"
#include "Inhalt.h"
#include "Text.h"
#include "TextSlots.h"

namespace qvm::test {
namespace {

struct MenuRow {
    const char* Opens;
    void (F2::*Click)();
    MenuEntry F2::*Entry;
    bool StopsTimer;
    bool StaysVisible, StaysEnabled;
};

void PrintTo(const MenuRow& row, std::ostream* out) {
    *out << row.Opens;
}

constexpr MenuRow Rows[] = {
    {"F6", &F2::F2_Schnittstelle_Click, &F2::F2_Schnittstelle, true, true, false},
    {"F15", &F2::F2_Sprache_Click, &F2::F2_Sprache, false, true, true},
    {"F1", &F2::F2_Version_Click, &F2::F2_Version, false, true, true},
    {"F3", &F2::F2_Einzel_Click, &F2::F2_Einzel, false, false, true},
    {"F10", &F2::F2_Perm_Click, &F2::F2_Perm, false, false, true},
    {"F4", &F2::F2_PersonB_Click, &F2::F2_PersonB, false, false, true},
    {"F41", &F2::F2_SchlossB_Click, &F2::F2_SchlossB, true, false, true},
    {"F42", &F2::F2_Gasttimer_Click, &F2::F2_Gasttimer, true, false, true},
};

struct F2_Menue : F2Fixture, ::testing::WithParamInterface<MenuRow> {};

TEST_P(F2_Menue, opens_its_window_with_an_adapter_and_without) {
    for (const bool connected : {true, false}) {
        programm.reset();
        Opened.clear();
        AdapterAnswers = connected;
        Open();
        NoteWindows();
        ASSERT_TRUE(ScanEnds());
        (Main().*GetParam().Click)();
        EXPECT_THAT(Opened, ElementsAre(GetParam().Opens));
        EXPECT_EQ(Main().Timer2.Running(), !GetParam().StopsTimer);
        EXPECT_EQ(Main().Fenster.Visible, GetParam().StaysVisible);
        EXPECT_EQ(Main().Fenster.Enabled, GetParam().StaysEnabled);
        Main().F2_Zeigen();
        EXPECT_TRUE(Main().Fenster.Visible);
        EXPECT_TRUE(Main().Fenster.Enabled);
        EXPECT_TRUE(Main().Timer2.Running());
        EXPECT_EQ(Main().Timer2.Interval(), 40000);
    }
}

TEST_P(F2_Menue, stands_disabled_and_does_nothing_while_its_window_does_not_exist) {
    Connect();
    NoteWindows();
    programm->kern.Windows.Open.erase(GetParam().Opens);
    Main().Tasten_Freigeben();
    EXPECT_FALSE((Main().*GetParam().Entry).Enabled);
    (Main().*GetParam().Click)();
    EXPECT_THAT(Opened, IsEmpty());
    EXPECT_TRUE(Main().Timer2.Running());
    EXPECT_TRUE(Main().Fenster.Visible);
    EXPECT_TRUE(Main().Fenster.Enabled);
    NoteWindows();
    Main().Tasten_Freigeben();
    EXPECT_TRUE((Main().*GetParam().Entry).Enabled);
}

INSTANTIATE_TEST_SUITE_P(Entries, F2_Menue, ::testing::ValuesIn(Rows),
                         [](const auto& test) { return std::string(test.param.Opens); });

struct F2_Menues : F2Fixture {};

TEST_F(F2_Menues, ende_shuts_down) {
    Connect();
    NoteWindows();
    Main().F2_Ende_Click();
    EXPECT_THAT(Opened, ElementsAre("end"));
    EXPECT_TRUE(Main().F2_Ende.Enabled);
    EXPECT_TRUE(Main().F2_Help.Enabled);
    EXPECT_TRUE(Main().F2_Datei.Enabled);
}

TEST_F(F2_Menues, schnittstelle_opens_behind_a_scan_as_both_need_the_port) {
    AdapterAnswers = false;
    Open();
    NoteWindows();
    InNextScan([this] {
        Main().F2_Schnittstelle_Click();
        EXPECT_THAT(Opened, IsEmpty());
        EXPECT_TRUE(Main().Fenster.Enabled);
    });
    ASSERT_TRUE(ScanEnds());
    EXPECT_THAT(Opened, ElementsAre("F6"));
    EXPECT_FALSE(Main().Fenster.Enabled);
    EXPECT_FALSE(Main().Timer2.Running());
    Main().F2_Zeigen();
    ASSERT_TRUE(ScanEnds());
    EXPECT_EQ(Opened.size(), 1U);
}

// ---- virtual building

struct F2_Gebaeude : F2Fixture {
    std::vector<bool> Ways; ///< whether the demonstration was asked for, each time

    int Shown = 0; ///< how often its window was asked for

    void In(bool building) {
        Open();
        Main().Hooks.Gebaeude_Zeigen = [this] { ++Shown; };
        Main().Hooks.Gebaeude = [this](bool demonstration) { Ways.push_back(demonstration); };
        programm->kern.ImGebaeude = building;
        Main().Texte_Setzen();
    }
    std::string Question(Word what) const {
        return Wort(programm->kern, what) + "\r\n\r\n" + Wort(programm->kern, Word::BuildingQuestion);
    }
};

TEST_F(F2_Gebaeude, is_entered_behind_a_question_alone) {
    world.Disk.Files["/q/DAT/C64UX12H3D.EBW"] = "";
    Datendateien(world.Disk).Lock(1, "Tor", "00.0A.10.01");
    In(false);
    EXPECT_TRUE(Main().F2_Gebaeude.Enabled());
    EXPECT_EQ(Main().F2_Gebaeude_Ende.Text(), "");
    EXPECT_EQ(Main().Gebaeudezeile.Text(), "");
    EXPECT_EQ(Main().Fenster.Title(), "QVM 7702 SOFTWARE SYSTEM");
    for (const Answer answer : {Answer::No, Answer::Cancel, Answer::Yes}) {
        world.Answers.push_back({.Text = Question(Word::BuildingAskStart), .Reply = answer});
        Main().F2_Gebaeude_Click();
    }
    EXPECT_THAT(Ways, ElementsAre(false));
    Main().F2_Gebaeude_Ende_Click();
    EXPECT_EQ(Ways.size(), 1U);
}

TEST_F(F2_Gebaeude, of_an_installation_without_people_and_locks_is_the_demonstration) {
    In(false);
    world.Answers.push_back({.Text = Question(Word::BuildingAskEmpty), .Reply = Answer::Yes});
    Main().F2_Gebaeude_Click();
    EXPECT_THAT(Ways, ElementsAre(true));
}

TEST_F(F2_Gebaeude, is_told_all_the_while_and_left_behind_a_question) {
    In(true);
    EXPECT_EQ(Main().Gebaeudezeile.Text(), Wort(programm->kern, Word::BuildingStrip));
    EXPECT_EQ(Main().Fenster.Title(), "QVM 7702 SOFTWARE SYSTEM - " + Wort(programm->kern, Word::BuildingEntry));
    EXPECT_TRUE(Main().F2_Gebaeude_Ende.Enabled());
    Main().F2_Gebaeude_Click();
    EXPECT_EQ(Shown, 1);
    EXPECT_THAT(Ways, IsEmpty());
    for (const Answer answer : {Answer::No, Answer::Cancel, Answer::Yes}) {
        world.Answers.push_back({.Text = Wort(programm->kern, Word::BuildingAskLeave), .Reply = answer});
        Main().F2_Gebaeude_Ende_Click();
    }
    EXPECT_THAT(Ways, ElementsAre(false));
}

TEST_F(F2_Gebaeude, is_not_there_where_nobody_provides_it) {
    Open();
    EXPECT_FALSE(Main().F2_Gebaeude.Enabled());
    Main().F2_Gebaeude_Click();
    EXPECT_THAT(world.Shown, IsEmpty());
}

// ---- manual

TEST_F(F2_Menues, hilfe_opens_the_manual_of_the_language_and_of_any_other_the_german_one) {
    Open();
    for (const char* code : {"de", "en", "fr", "nl"}) {
        world.Disk.Files["/q/QVM_System_" + std::string(code) + ".pdf"] = "%PDF";
    }
    std::string directory;
    world.World.OpenWithLinkedApp = [&](const std::string& target, const std::string& in) {
        world.OpenedInLinkedApp.push_back(target);
        directory = in;
        return true;
    };
    for (const char* language : {"Deutsch", "English", "Francais", "Nederlands", "Svenska", "English "}) {
        programm->kern.Config.Sprache = language;
        Main().F2_Help_Click();
    }
    EXPECT_THAT(world.OpenedInLinkedApp,
                ElementsAre("/q/QVM_System_de.pdf", "/q/QVM_System_en.pdf", "/q/QVM_System_fr.pdf",
                            "/q/QVM_System_nl.pdf", "/q/QVM_System_de.pdf", "/q/QVM_System_en.pdf"));
    EXPECT_EQ(directory, "/q/");
}

TEST_F(F2_Menues, hilfe_opens_the_manual_that_came_with_an_installed_program) {
    Open();
    world.World.ProgramFiles = "/usr/share/qvm7702/";
    world.Disk.Files["/usr/share/qvm7702/QVM_System_de.pdf"] = "%PDF";
    Main().F2_Help_Click();
    EXPECT_THAT(world.OpenedInLinkedApp, ElementsAre("/usr/share/qvm7702/QVM_System_de.pdf"));
}

TEST_F(F2_Menues, hilfe_names_a_manual_that_is_missing) {
    Open();
    world.World.ProgramFiles = "/usr/share/qvm7702/";
    world.Answers.push_back({.Text = "L288 QVM_System_de.pdf\r\n\r\nGesucht in:\r\n/q/\r\n/usr/share/qvm7702/"});
    Main().F2_Help_Click();
    EXPECT_THAT(world.OpenedInLinkedApp, IsEmpty());
    EXPECT_EQ(world.Shown[0].Sign, Icon::Exclamation);
    EXPECT_EQ(world.Shown[0].Title, "QVM 7702 SOFTWARE SYSTEM");
}

TEST_F(F2_Menues, hilfe_opens_the_first_page_and_f1_of_a_window_its_chapter) {
    Open();
    world.Disk.Files["/q/QVM_System_de.pdf"] = "%PDF";
    std::vector<std::string> told;
    bool able = true;
    world.World.OpenDocumentAt = [&](const std::string& path, const std::string& destination) {
        told.push_back(path + "#" + destination);
        return able;
    };
    Main().F2_Help_Click();
    EXPECT_THAT(told, IsEmpty());
    EXPECT_THAT(world.OpenedInLinkedApp, ElementsAre("/q/QVM_System_de.pdf"));
    Handbuch_Oeffnen(programm->kern, Handbuch_Kapitel("F5"));
    EXPECT_THAT(told, ElementsAre("/q/QVM_System_de.pdf#people"));
    EXPECT_EQ(world.OpenedInLinkedApp.size(), 1U);
    able = false; // a viewer that cannot be told: the first page is better than none
    Handbuch_Oeffnen(programm->kern, Handbuch_Kapitel("F12"));
    EXPECT_EQ(told.back(), "/q/QVM_System_de.pdf#locks");
    EXPECT_EQ(world.OpenedInLinkedApp.size(), 2U);
    EXPECT_EQ(Handbuch_Kapitel("F99"), "");
}

TEST_F(F2_Menues, hilfe_names_a_manual_that_the_system_does_not_open) {
    Open();
    world.Disk.Files["/q/QVM_System_de.pdf"] = "%PDF";
    world.World.OpenWithLinkedApp = [](const std::string&, const std::string&) { return false; };
    world.Answers.push_back({.Text = "L286 QVM_System_de.pdf"});
    Main().F2_Help_Click();
    EXPECT_EQ(world.Shown.size(), 1U);
}

// ---- words

TEST_F(F2_Menues, words_come_from_the_catalogue_by_their_numbers) {
    Open();
    EXPECT_EQ(Main().Fenster.Title(), "QVM 7702 SOFTWARE SYSTEM");
    EXPECT_EQ(Main().F2_Datei.Text(), "L116");
    EXPECT_EQ(Main().F2_Sprache.Text(), "L125");
    EXPECT_EQ(Main().F2_Schnittstelle.Text(), "L21");
    EXPECT_EQ(Main().F2_Ende.Text(), "L24");
    EXPECT_EQ(Main().F2_Einzel.Text(), "L3");
    EXPECT_EQ(Main().F2_Perm.Text(), "L4");
    EXPECT_EQ(Main().F2_Gasttimer.Text(), "L209");
    EXPECT_EQ(Main().F2_Help.Text(), "L135");
    EXPECT_EQ(Main().F2_Version.Text(), "L136");
    EXPECT_EQ(Main().F2_PersonB.Text(), "L177");
    EXPECT_EQ(Main().F2_SchlossB.Text(), "L178");
    EXPECT_EQ(Main().Label7.Text(), "L148");
    EXPECT_EQ(Key("Ende").Tip(), "L26");
    EXPECT_EQ(Key("EYE").Tip(), "L27");
    EXPECT_EQ(Key("636I259").Tip(), "L28");
    EXPECT_EQ(Key("Schaltuhr").Tip(), "L29");
    EXPECT_EQ(Key("x1504").Tip(), "L30");
    EXPECT_EQ(Key("Neu").Tip(), "L31");
    EXPECT_EQ(Key("GastCard").Tip(), "L213");
    EXPECT_EQ(Key("PROG").Tip(), "L32");
    EXPECT_EQ(Key("lock4").Tip(), "L33");
}

TEST_F(F2_Menues, without_a_language_file_the_words_of_the_design_stand) {
    world.Disk.Files.erase("/q/QVM_Deutsch.DAT");
    Open();
    EXPECT_EQ(Main().F2_Datei.Text(), "Datei");
    EXPECT_EQ(Main().F2_Schnittstelle.Text(), "Schnittstelle");
    EXPECT_EQ(Main().F2_PersonB.Text(), "Personenbezogene Schaltuhr");
    EXPECT_EQ(Main().F2_Help.Text(), "Hilfe");
    EXPECT_EQ(Main().Label7.Text(), "USB-Funkadapter");
    EXPECT_EQ(Key("lock4").Tip(), u8"Türschlösser einstellen"_w);
    EXPECT_EQ(Key("GastCard").Tip(), "Gastkarte");
}

TEST_F(F2_Menues, the_status_bar_speaks_the_new_language_at_once) {
    AdapterAnswers = false;
    Open();
    ASSERT_TRUE(ScanEnds());
    EXPECT_EQ(Line(), "L91");
    programm->kern.Sprache.LanguageText[91] = "No adapter.";
    Main().Texte_Setzen();
    EXPECT_EQ(Line(), "No adapter.");
}

TEST_F(F2_Menues, a_new_language_tells_the_same_fault_of_the_port_also_when_the_port_has_another_one_by_now) {
    Refuse(PortFault::Kind::NotSerial);
    Open();
    EXPECT_EQ(Line(), "L298");
    Refuse(PortFault::Kind::NotThere);
    programm->kern.Sprache.LanguageText[298] = "%1 is no port.";
    Main().Texte_Setzen();
    EXPECT_EQ(Line(), "ttyUSB4 is no port.");
}

/// The German words of the catalogue are those of the design.
TEST_F(F2_Menues, the_words_of_the_design_are_the_german_ones_of_the_catalogue) {
    world.Disk.Files.erase("/q/QVM_Deutsch.DAT");
    Open();
    const auto words = [this] {
        const struct F2& f = Main();
        std::vector<std::string> texts{f.F2_Datei.Text,   f.F2_Sprache.Text, f.F2_Schnittstelle.Text, f.F2_Ende.Text,
                                       f.F2_Einzel.Text,  f.F2_Perm.Text,    f.F2_Gasttimer.Text,     f.F2_Help.Text,
                                       f.F2_Version.Text, f.F2_PersonB.Text, f.F2_SchlossB.Text,      f.Label7.Text};
        for (const ToolButton& button : f.Toolbar1) {
            texts.push_back(button.Tip);
        }
        return texts;
    };
    const std::vector<std::string> before = words();
    const std::string bytes = Inhalt(std::string(QVM_BINARY_DIR) + "/lang/QVM_Deutsch.DAT");
    ASSERT_FALSE(bytes.empty());
    world.Disk.Files["/q/QVM_Deutsch.DAT"] = bytes;
    ASSERT_EQ(Sprachdatei_Laden(programm->kern), SprachdateiStatus::Geladen);
    Main().Texte_Setzen();
    EXPECT_EQ(words(), before);
}

} // namespace
} // namespace qvm::test
