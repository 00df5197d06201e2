// Fingerprints of the user window, and the window that shows their enrolment.

#include "LeserFixture.h"
#include "Text.h"

#include <array>

namespace qvm::test {
namespace {

constexpr std::string_view Incomplete =
    u8"Die Fingerprint-Daten sind nicht vollständig angekommen. Es wurde nichts gespeichert. "
    u8"Bitte lernen Sie den Finger noch einmal an."_w;
constexpr std::string_view Unsaved =
    u8"Die Fingerprint-Daten konnten nicht gespeichert werden. Bitte prüfen Sie den Datenträger, "
    u8"und lernen Sie den Finger noch einmal an."_w;

const std::string Question = "L46 Fingerscan  ?\r\n\r\nL281\r\n\r\nL282";

struct SwipeError {
    int Code;
    std::string_view Text;
};
constexpr std::array SwipeErrors{SwipeError{0x1C, "Zu Schnell! Bitte vorgang wiederholen."},
                                 SwipeError{0x1D, u8"Finger zu schräg angeordnet ! Bitte vorgang wiederholen."_w},
                                 SwipeError{0x1E, "Zu Kurz! Bitte vorgang wiederholen."},
                                 SwipeError{0x24, "Bitte Finger mittig Positionieren! Bitte vorgang wiederholen."}};

// ---- enrolment

TEST_F(F5_Fingers, are_asked_of_the_enrolment_unit_with_the_window_disabled_and_F51_shown) {
    OpenDesk();
    Enrol(2);
    EXPECT_EQ(world.Written,
              (LineBytes{0x02, 0x0D, 0xA1, 0x00, 0x00, 0x00, 0x00, 0x11, 0x00, 0x33, 0x88, 0x01, 0x00, 0x00, 0xDD}));
    EXPECT_EQ(world.PortNumber, EnrolmentPort);
    EXPECT_FALSE(Window().Fenster.Enabled);
    EXPECT_TRUE(Enrolment().Fenster.Visible);
    EXPECT_EQ(Enrolment().Fenster.Title(), "Fingerscan Enrollment");
    EXPECT_EQ(Enrolment().Schritt.Text(), "Swipe finger - 1x");
    EXPECT_EQ(Enrolment().Fehler.Text(), "!!ERROR!!");
    EXPECT_FALSE(Enrolment().Fehler.Visible);
    EXPECT_EQ(Enrolment().Balken.Minimum, 0);
    EXPECT_EQ(Enrolment().Balken.Maximum, 1500);
    EXPECT_TRUE(Enrolment().Arbeit.Visible);
    EXPECT_FALSE(Enrolment().Fertig.Visible);
    EXPECT_FALSE(Enrolment().Fehlbild.Visible);
}

TEST_F(F5_Fingers, need_an_enrolment_unit) {
    OpenDesk();
    programm->Adapter.EnrollmentPort = KeinPort;
    Expect(195);
    Enrol(2);
    EXPECT_TRUE(Window().Fenster.Enabled);
    EXPECT_FALSE(Enrolment().Fenster.Visible);
    programm->Adapter.EnrollmentPort = EnrolmentPort;
    world.PortCanOpen = false;
    Expect(276);
    Enrol(2);
    EXPECT_TRUE(Window().Fenster.Enabled);
    EXPECT_FALSE(Enrolment().Fenster.Visible);
}

TEST_F(F5_Fingers, step_through_five_swipes) {
    OpenDesk();
    Enrol(2);
    const std::vector<std::tuple<int, int, std::string>> steps{
        {0x0C, 0, "Swipe finger - 1x"},   {0x0D, 300, "Swipe finger - 2x"},  {0x0E, 600, "Swipe finger - 3x"},
        {0x26, 900, "Swipe finger - 4x"}, {0x27, 1200, "Swipe finger - 5x"}, {0x55, 1200, "Swipe finger - 5x"}};
    for (const auto& [code, bar, text] : steps) {
        SayStep(static_cast<std::uint8_t>(code));
        EXPECT_EQ(Enrolment().Balken.Value, bar) << code;
        EXPECT_EQ(Enrolment().Schritt.Text(), text) << code;
        EXPECT_FALSE(Enrolment().Fehler.Visible) << code;
    }
    EXPECT_EQ(Enrolment().Anleitung.Text(), std::string(u8"Bitte ziehen Sie den Finger über den Sensor: 5 von 5."_w));
}

TEST_F(F5_Fingers, show_each_of_the_four_errors_for_two_seconds) {
    OpenDesk();
    Enrol(2);
    SayStep(0x0D);
    for (const auto& [code, text] : SwipeErrors) {
        SayStep(static_cast<std::uint8_t>(code));
        EXPECT_EQ(Enrolment().Fehler.Text(), std::string(text));
        EXPECT_TRUE(Enrolment().Fehler.Visible);
        EXPECT_TRUE(Enrolment().Fehlbild.Visible);
        EXPECT_FALSE(Enrolment().Arbeit.Visible);
        EXPECT_EQ(Enrolment().Balken.Value, 300);
        world.RunFor(1998);
        EXPECT_TRUE(Enrolment().Fehler.Visible);
        world.RunFor(1);
        EXPECT_FALSE(Enrolment().Fehler.Visible);
        EXPECT_FALSE(Enrolment().Fehlbild.Visible);
        EXPECT_TRUE(Enrolment().Arbeit.Visible);
    }
    EXPECT_EQ(Enrolment().Schritt.Text(), "Swipe finger - 2x");
}

TEST_F(F5_Fingers, that_are_enrolled_get_a_template_a_slot_and_the_standard_picture) {
    OpenDesk();
    Enrol(2);
    SayStep(0x0C);
    SayPiece(1, {40, 0, 255});
    SayPiece(2, {7});
    SayStep(0x0A);
    // 05.03.2026 10:30:00 is 826021800 seconds after 01.01.2000.
    EXPECT_EQ(FingerOf(2), "Slot_Nr: 001|826021800|502");
    EXPECT_EQ(Template(1), "2    " + std::string("826021800            ") +
                               "40 : 0 : 255 : 7 :" + std::string(3000 - 18, ' ') + "0 ");
    EXPECT_EQ(world.Disk.Files[Templates].size(), 250 * RecordSize);
    EXPECT_TRUE(Window().Tabelle.UserDirty);
    EXPECT_EQ(Enrolment().Balken.Value, 1500);
    EXPECT_EQ(Enrolment().Schritt.Text(), "Enroll Finger : OK");
    EXPECT_TRUE(Enrolment().Fertig.Visible);
    EXPECT_FALSE(Enrolment().Arbeit.Visible);
    world.RunFor(1998);
    EXPECT_TRUE(Enrolment().Fenster.Visible);
    EXPECT_FALSE(Window().Fenster.Enabled);
    world.RunFor(1);
    EXPECT_FALSE(Enrolment().Fenster.Visible);
    EXPECT_TRUE(Window().Fenster.Enabled);
}

TEST_F(F5_Fingers, a_first_piece_discards_what_came_before) {
    OpenDesk();
    Enrol(2);
    SayPiece(1, {1, 2, 3});
    SayPiece(2, {4});
    SayPiece(1, {9});
    SayPiece(2, {8, 7});
    SayStep(0x0A);
    EXPECT_EQ(Template(1).substr(26, 16), "9 : 8 : 7 :     ");
}

TEST_F(F5_Fingers, no_more_of_a_template_is_kept_than_its_field_holds) {
    OpenDesk();
    Enrol(2);
    for (std::uint8_t piece = 1; piece <= 20; ++piece) {
        SayPiece(piece, LineBytes(60, 200));
    }
    SayStep(0x0A);
    EXPECT_EQ(Template(1).substr(26, 3002).substr(2994), "200 : 0 ");
    EXPECT_EQ(world.Disk.Files[Templates].size(), 250 * RecordSize);
}

TEST_F(F5_Fingers, a_piece_whose_count_reaches_beyond_its_frame_spoils_the_template) {
    OpenDesk();
    Enrol(2);
    SayPiece(1, {1, 2, 3});
    Say(0xA2, 0x06, {2, 200, 4, 5});
    ExpectText(Incomplete);
    SayStep(0x0A);
    EXPECT_EQ(FingerOf(2), "||501");
    EXPECT_FALSE(world.Disk.Files.contains(Templates));
    EXPECT_TRUE(Window().Fenster.Enabled);
    // Another try that begins anew is good.
    Enrol(2);
    SayPiece(1, {1});
    SayStep(0x0A);
    EXPECT_EQ(Text(2, UserColumn::KeyLabel), "Slot_Nr: 001");
}

TEST_F(F5_Fingers, without_a_template_nothing_is_stored) {
    OpenDesk();
    Enrol(2);
    ExpectText(Incomplete);
    SayStep(0x0A);
    EXPECT_EQ(FingerOf(2), "||501");
    EXPECT_TRUE(Window().Fenster.Enabled);
    EXPECT_FALSE(Enrolment().Fenster.Visible);
}

TEST_F(F5_Fingers, of_no_row_are_not_stored_and_the_row_error_is_shown) {
    OpenDesk();
    Enrol(F5::NoRow);
    SayPiece(1, {1});
    ExpectText("ERROR ! WRONG ROW-NUMBER !! ");
    SayStep(0x0A);
    EXPECT_FALSE(world.Disk.Files.contains(Templates));
    EXPECT_FALSE(Window().Tabelle.UserDirty);
    EXPECT_TRUE(Window().Fenster.Enabled);
}

TEST_F(F5_Fingers, go_to_the_row_that_was_asked_for) {
    OpenDesk();
    Enrol(2);
    Window().FsRow = F5::NoRow; // as a release of the mouse elsewhere leaves it
    SayPiece(1, {1});
    SayStep(0x0A);
    EXPECT_EQ(FingerOf(2).substr(0, 12), "Slot_Nr: 001");
}

TEST_F(F5_Fingers, whose_enrolment_is_left_by_a_button_send_nothing_more_and_what_comes_is_ignored) {
    for (const auto button : {&F51::Command1_Click, &F51::Command2_Click}) {
        OpenDesk();
        Enrol(2);
        SayPiece(1, {1});
        world.Written.clear();
        (Enrolment().*button)();
        EXPECT_FALSE(Enrolment().Fenster.Visible);
        EXPECT_TRUE(Window().Fenster.Enabled);
        SayPiece(2, {1});
        SayStep(0x1C);
        SayStep(0x0A);
        Refuse(0x66);
        EXPECT_TRUE(world.Written.empty());
        EXPECT_EQ(FingerOf(2), "||501");
        EXPECT_FALSE(Enrolment().Timer2.Running());
    }
}

TEST_F(F5_Fingers, that_are_done_twice_are_stored_once) {
    OpenDesk();
    Enrol(2);
    SayPiece(1, {1});
    SayStep(0x0A);
    SayStep(0x0A);
    EXPECT_EQ(FingerOf(2), "Slot_Nr: 001|826021800|502");
    EXPECT_EQ(world.Disk.Files[Templates].size(), 250 * RecordSize);
}

TEST_F(F5_Fingers, that_the_unit_refuses_are_told_and_the_window_is_free) {
    OpenDesk();
    Enrol(2);
    Expect(68);
    Refuse(0x65);
    EXPECT_FALSE(Enrolment().Fenster.Visible);
    EXPECT_TRUE(Window().Fenster.Enabled);
}

TEST_F(F5_Fingers, whose_unit_is_pulled_out_can_be_left) {
    OpenDesk();
    Enrol(2);
    world.PortOpen = false;
    world.RunFor(1000);
    EXPECT_TRUE(Enrolment().Fehler.Visible);
    EXPECT_EQ(Enrolment().Fehler.Text(), std::string(u8"Der Funkadapter wurde getrennt. Bitte stecken Sie ihn wieder "
                                                     u8"an, und wiederholen Sie den Vorgang."_w));
    world.RunFor(10000);
    EXPECT_TRUE(Enrolment().Fehler.Visible);
    Enrolment().Command1_Click();
    EXPECT_TRUE(Window().Fenster.Enabled);
}

TEST_F(F5_Fingers, whose_unit_gives_way_to_another_port_are_told_of_it) {
    OpenDesk();
    Enrol(2);
    world.RunFor(5000);
    EXPECT_FALSE(Enrolment().Fehler.Visible);
    ++programm->Adapter.Stand; // as when the ports are determined anew
    world.RunFor(1000);
    EXPECT_TRUE(Enrolment().Fehler.Visible);
    EXPECT_EQ(programm->link.AnswerDue, 0);
    SayPiece(1, {1});
    SayStep(0x0A);
    EXPECT_EQ(FingerOf(2), "||501") << "another unit may say this";
    EXPECT_FALSE(Enrolment().Fertig.Visible);
}

TEST_F(F5_Fingers, of_a_silent_unit_can_be_left) {
    OpenDesk();
    Enrol(2);
    world.RunFor(3600000);
    EXPECT_TRUE(Enrolment().Fenster.Visible);
    Enrolment().Command2_Click();
    EXPECT_TRUE(Window().Fenster.Enabled);
}

TEST_F(F5_Fingers, whose_template_cannot_be_written_leave_row_and_file_as_they_were) {
    OpenDesk();
    Learn(3, 5);
    const std::string before = world.Disk.Files[Templates];
    int operation = 1;
    for (; operation < 10; ++operation) {
        Enrol(2);
        SayPiece(1, {1});
        Break(operation, true);
        const bool fails = operation <= 3;
        if (fails) {
            ExpectText(Unsaved);
        }
        SayStep(0x0A);
        world.Disk.FailAt = 0;
        world.Disk.FailFromThere = false;
        if (!fails) {
            break;
        }
        EXPECT_EQ(FingerOf(2), "||501");
        EXPECT_EQ(world.Disk.Files[Templates], before);
        EXPECT_TRUE(Window().Fenster.Enabled);
        EXPECT_FALSE(Enrolment().Fenster.Visible);
    }
    EXPECT_EQ(operation, 4) << "templates and users are read, then one write in place";
    EXPECT_EQ(Text(2, UserColumn::KeyLabel), "Slot_Nr: 002");
}

TEST_F(F5_Fingers, are_taken_back_by_one_undo_which_says_that_the_template_stays) {
    OpenDesk();
    Learn(2, 1);
    Window().F5_Undo_Click();
    EXPECT_EQ(FingerOf(2), "||501");
    EXPECT_NE(Window().Hinweis.Text().find("Fingerprint-Daten"), std::string::npos);
    EXPECT_EQ(world.Disk.Files[Templates].size(), 250 * RecordSize);
}

// ---- slots

TEST_F(F5_Fingers, get_the_lowest_slot_that_stands_in_no_label) {
    OpenDesk();
    EXPECT_EQ(Fingers().NextSlot(), 1);
    Cells().SetText(2, UserColumn::KeyLabel, "Slot_Nr: 001");
    Cells().SetText(3, UserColumn::KeyLabel, " Slot_Nr: 003 ");
    Cells().SetText(4, UserColumn::KeyLabel, "Slot_Nr: 999");
    for (const char* other : {"Slot_Nr: 000", "Slot_Nr:", "Slot_Nr: xyz", "slot_nr: 002", "Auto"}) {
        Cells().SetText(5, UserColumn::KeyLabel, other);
        EXPECT_EQ(Fingers().NextSlot(), 2) << other;
    }
    Cells().SetText(251, UserColumn::KeyLabel, "Slot_Nr: 002");
    EXPECT_EQ(Fingers().NextSlot(), 4) << "user 250 counts";
}

TEST_F(F5_Fingers, a_slot_in_two_rows_is_told_and_counts_once) {
    OpenDesk();
    Cells().SetText(2, UserColumn::KeyLabel, "Slot_Nr: 001");
    Cells().SetText(3, UserColumn::KeyLabel, "Slot_Nr: 001");
    ExpectText("ERROR ! Slotnummer Doppelt belegt ");
    EXPECT_EQ(Fingers().NextSlot(), 2);
}

TEST_F(F5_Fingers, with_250_users_holding_slots_the_251st_is_issued_without_complaint) {
    OpenDesk();
    for (int user = 1; user <= 250; ++user) {
        const std::string digits = std::to_string(user);
        Cells().SetText(user + 1, UserColumn::KeyLabel, "Slot_Nr: " + std::string(3 - digits.size(), '0') + digits);
    }
    EXPECT_EQ(Fingers().NextSlot(), 251);
    Enrol(2);
    SayPiece(1, {1});
    SayStep(0x0A);
    EXPECT_EQ(Text(2, UserColumn::KeyLabel), "Slot_Nr: 251");
    EXPECT_EQ(world.Disk.Files[Templates].size(), 500 * RecordSize);
}

TEST_F(F5_Fingers, whose_slot_has_two_digits_have_one_leading_zero) {
    OpenDesk();
    for (int user = 1; user <= 9; ++user) {
        Cells().SetText(user + 1, UserColumn::KeyLabel, "Slot_Nr: 00" + std::to_string(user));
    }
    Enrol(20);
    SayPiece(1, {1});
    SayStep(0x0A);
    EXPECT_EQ(Text(20, UserColumn::KeyLabel), "Slot_Nr: 010");
}

TEST_F(F5_Fingers, of_a_user_whose_deletion_is_not_saved_keep_their_template) {
    files.User(1, {.Name = "Anna", .Label = "Slot_Nr: 001", .FingerFlag = "FS", .FingerId = "PR77"});
    world.Disk.Files[Templates] = std::string(249 * RecordSize, '\0') + "2    77" + std::string(19, ' ') + "1 : 2 : ";
    world.Disk.Files[Templates].resize(250 * RecordSize, ' ');
    const std::string before = world.Disk.Files[Templates];
    OpenDesk();
    Window().FsRow = 2;
    ExpectText(Question, Answer::Yes);
    Fingers().FS_loeschen_Click();
    EXPECT_EQ(Fingers().NextSlot(), 1);
    Learn(3, 9);
    EXPECT_EQ(Text(3, UserColumn::KeyLabel), "Slot_Nr: 002");
    EXPECT_EQ(world.Disk.Files[Templates].substr(0, before.size()), before);
    world.RunFor(3000);
    Window().F5_Undo_Click();
    Window().F5_Undo_Click();
    EXPECT_EQ(FingerOf(2), "Slot_Nr: 001|PR77|503");
}

TEST_F(F5_Fingers, that_an_undo_can_bring_back_keep_their_template) {
    OpenDesk();
    Learn(2, 1);
    const std::string before = Template(1);
    Window().F5_Undo_Click(); // a redo brings it back
    Learn(3, 9);
    EXPECT_EQ(Text(3, UserColumn::KeyLabel), "Slot_Nr: 002");
    EXPECT_EQ(Template(1), before);
    world.RunFor(3000);
    // Behind the new step there is no redo, and nobody names the first template any more.
    Learn(4, 8);
    EXPECT_EQ(Text(4, UserColumn::KeyLabel), "Slot_Nr: 001");
}

TEST_F(F5_Fingers, whose_slot_is_cleared_in_the_table_keep_their_template) {
    OpenDesk();
    Learn(2, 1);
    const std::string before = Template(1);
    Go(2, UserColumn::KeyLabel);
    Key(qvm::Key::Delete);
    EXPECT_EQ(FingerOf(2), "|826021800|502");
    Learn(3, 9);
    EXPECT_EQ(Text(3, UserColumn::KeyLabel), "Slot_Nr: 002");
    EXPECT_EQ(Template(1), before);
}

TEST_F(F5_Fingers, that_are_deleted_for_good_give_their_slot_to_the_next) {
    OpenDesk();
    Learn(2, 1);
    Window().FsRow = 2;
    ExpectText(Question, Answer::Yes);
    Fingers().FS_loeschen_Click();
    Press("Speichern");
    Back();
    Window().F5_FormLaden();
    Learn(3, 9);
    EXPECT_EQ(Text(3, UserColumn::KeyLabel), "Slot_Nr: 001");
}

// ---- deletion and class

TEST_F(F5_Fingers, that_are_deleted_free_their_slot_and_the_marks_up_to_lock_194) {
    OpenDesk();
    Learn(2, 1);
    for (const int column : {8, 9, 201, 202, 207}) {
        Cells().SetText(2, column, column == 9 ? "X" : "F");
    }
    Window().FsRow = 2;
    ExpectText(Question, Answer::Yes);
    Fingers().FS_loeschen_Click();
    EXPECT_EQ(Last().Title, "L23");
    EXPECT_EQ(Last().Choice, Buttons::YesNo);
    EXPECT_EQ(FingerOf(2), "||501");
    EXPECT_EQ(Text(2, 8) + Text(2, 9) + Text(2, 201) + Text(2, 202) + Text(2, 207), " X FF");
    EXPECT_EQ(Fingers().NextSlot(), 1);
    EXPECT_EQ(world.Disk.Files[Templates].size(), 250 * RecordSize) << "the template stays";
}

TEST_F(F5_Fingers, are_not_deleted_without_a_yes_or_a_row) {
    OpenDesk();
    Cells().SetText(2, UserColumn::FingerId, "77");
    Window().FsRow = 2;
    ExpectText(Question, Answer::No);
    Fingers().FS_loeschen_Click();
    Window().FsRow = F5::NoRow;
    Fingers().FS_loeschen_Click();
    EXPECT_EQ(Text(2, UserColumn::FingerId), "77");
    EXPECT_FALSE(Window().Tabelle.UserDirty);
}

TEST_F(F5_Fingers, become_premium_and_standard_again_under_the_cursor) {
    files.User(1, {.Name = "Anna", .FingerFlag = "FS", .FingerId = "77"});
    OpenDesk();
    Window().Auswahl.Go(2, 7);
    for (int twice = 0; twice < 2; ++twice) {
        Fingers().F5_FSpremium_Click();
        EXPECT_EQ(FingerOf(2), "|PR77|503");
    }
    for (int twice = 0; twice < 2; ++twice) {
        Fingers().F5_FSstandard_Click();
        EXPECT_EQ(FingerOf(2), "|77|502");
    }
    Window().Auswahl.Go(3, 7);
    Fingers().F5_FSpremium_Click();
    Fingers().F5_FSstandard_Click();
    EXPECT_EQ(FingerOf(3), "||501") << "no finger, no class";
    EXPECT_EQ(Window().Verlauf.Steps(), 2U);
}

TEST_F(F5_Fingers, the_enrolment_speaks_the_language_that_is_chosen_meanwhile) {
    OpenDesk();
    Enrol(2);
    programm->kern.Sprache.LanguageText[83] = "Cancel";
    programm->kern.Windows.WordsChanged();
    EXPECT_EQ(Enrolment().Command1.Text(), "Cancel");
}

} // namespace
} // namespace qvm::test
