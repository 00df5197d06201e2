// What the readers of the desk must not do to what is there already: to other templates, other requests, secrets.

#include "LeserFixture.h"
#include "Text.h"

namespace qvm::test {
namespace {

constexpr std::string_view NotWhole =
    u8"Die Fingerprint-Daten sind nicht vollständig angekommen. Es wurde nichts gespeichert. "
    u8"Bitte lernen Sie den Finger noch einmal an."_w;
constexpr std::string_view NoSlot =
    u8"Für einen weiteren Finger ist kein Platz frei. Es wurde nichts gespeichert. Bitte löschen Sie einen Finger, "
    u8"der nicht mehr gebraucht wird, und lernen Sie den Finger noch einmal an."_w;

/// The slots 1 to 250 are those of the users 1 to 250, on the disk as well.
struct F5_FullSlots : F5_Fingers {
    F5_FullSlots() {
        std::string templates(249 * RecordSize, ' ');
        for (int user = 1; user <= 250; ++user) {
            const std::string digits = std::to_string(user), finger = std::to_string(1000 + user);
            files.User(user, {.Name = "U" + digits,
                              .Label = "Slot_Nr: " + std::string(3 - digits.size(), '0') + digits,
                              .FingerFlag = "FS",
                              .FingerId = finger});
            std::string record = "2    " + finger + std::string(17, ' ') + "1 : 2 : ";
            record.resize(RecordSize, ' ');
            // The last record of the users is the 499th, that of slot 250.
            templates += record;
        }
        world.Disk.Files[Templates] = templates;
        OpenDesk();
    }
    std::string Bytes(int slot) { return std::string(Trim(Template(slot).substr(26, 30))); }
};

TEST_F(F5_FullSlots, a_finger_learned_behind_another_one_does_not_take_its_slot) {
    Learn(2, 11);
    EXPECT_EQ(Text(2, UserColumn::KeyLabel), "Slot_Nr: 251");
    Learn(3, 12);
    EXPECT_EQ(Text(3, UserColumn::KeyLabel), "Slot_Nr: 001");
    EXPECT_EQ(Bytes(251), "11 :");
    EXPECT_EQ(Bytes(1), "12 :");
    EXPECT_EQ(Bytes(2), "1 : 2 :") << "the template that an undo brings back";
}

TEST_F(F5_FullSlots, a_finger_learned_twice_comes_back_with_its_first_template) {
    Learn(2, 11);
    Learn(2, 12);
    EXPECT_EQ(Text(2, UserColumn::KeyLabel), "Slot_Nr: 001");
    Window().F5_Undo_Click();
    EXPECT_EQ(Text(2, UserColumn::KeyLabel), "Slot_Nr: 251");
    EXPECT_EQ(Bytes(251), "11 :");
}

TEST_F(F5_FullSlots, a_finger_is_refused_when_each_template_is_that_of_a_row) {
    Cells().SetText(2, UserColumn::KeyLabel, "Slot_Nr: 251"); // while its finger has the template of slot 1
    const std::string before = world.Disk.Files[Templates];
    Enrol(3);
    SayPiece(1, {12});
    ExpectText(NoSlot);
    SayStep(0x0A);
    EXPECT_EQ(Text(3, UserColumn::KeyLabel), "Slot_Nr: 002");
    EXPECT_EQ(Text(3, UserColumn::FingerId), "1002");
    EXPECT_EQ(world.Disk.Files[Templates], before);
    EXPECT_TRUE(Window().Fenster.Enabled);
}

TEST_F(F5_Fingers, whose_unit_changes_during_a_piece_or_a_step_are_given_up) {
    for (const bool piece : {true, false}) {
        OpenDesk();
        Enrol(2);
        SayPiece(1, {1});
        ++programm->Adapter.Stand;
        if (piece) {
            SayPiece(2, {2});
        } else {
            SayStep(0x0A);
        }
        EXPECT_EQ(Enrolment().Fehler.Text(), std::string(ReaderPulled));
        EXPECT_TRUE(Enrolment().Fehler.Visible);
        EXPECT_EQ(programm->link.AnswerDue, 0);
        EXPECT_EQ(FingerOf(2), "||501");
        EXPECT_FALSE(world.Disk.Files.contains(Templates));
        Enrolment().Command1_Click();
        EXPECT_TRUE(Window().Fenster.Enabled);
    }
}

TEST_F(F5_Fingers, whose_first_piece_is_missing_are_not_stored) {
    OpenDesk();
    Enrol(2);
    SayPiece(2, {1, 2});
    ExpectText(NotWhole);
    SayStep(0x0A);
    EXPECT_EQ(FingerOf(2), "||501");
    EXPECT_FALSE(world.Disk.Files.contains(Templates));
}

TEST_F(F5_Fingers, of_a_template_no_byte_stays_in_the_receive_buffer) {
    OpenDesk();
    Enrol(2);
    SayPiece(1, {40, 41});
    EXPECT_EQ(programm->link.Rx.RxBuffer, (decltype(programm->link.Rx.RxBuffer){}));
    Enrolment().Command1_Click();
    SayPiece(2, {42, 43}); // nobody's
    Window().F5_Schliessen();
    EXPECT_EQ(programm->link.Rx.RxBuffer, (decltype(programm->link.Rx.RxBuffer){}));
}

TEST_F(F5_Keys, no_byte_of_them_stays_in_the_receive_buffer) {
    OpenDesk();
    Learn(2);
    SayKey({10, 20, 30, 40});
    EXPECT_EQ(programm->link.Rx.RxBuffer, (decltype(programm->link.Rx.RxBuffer){}));
    Keys().Search_RFID_Click();
    Expect(144);
    SayTransponder(5);
    EXPECT_EQ(programm->link.Rx.RxBuffer, (decltype(programm->link.Rx.RxBuffer){}));
    Learn(3);
    Expect(154, Answer::Cancel);
    Keys().Save_Ekey_Click();
    SayKey({11, 20, 30, 40}); // too late
    EXPECT_EQ(programm->link.Rx.RxBuffer, (decltype(programm->link.Rx.RxBuffer){}));
}

TEST_F(F5_Keys, go_to_nobody_once_a_finger_was_asked_for_in_vain) {
    OpenDesk();
    Learn(2);
    programm->Adapter.EnrollmentPort = KeinPort;
    Window().FsRow = 3;
    Expect(195);
    Fingers().FS_anerlen_Click();
    SayKey({10, 20, 30, 40});
    EXPECT_EQ(KeyOf(2), "|");
    EXPECT_EQ(KeyOf(3), "1 : 2 : 3 : 4|5 : 6");
}

TEST_F(F5_Keys, whose_channel_was_not_written_leave_none_behind_an_undo) {
    OpenDesk();
    Learn(2);
    Break(1, true);
    ExpectText(ChannelUnsaved);
    SayKey({10, 20, 30, 40});
    world.Disk.FailAt = 0;
    world.Disk.FailFromThere = false;
    Window().F5_Undo_Click();
    EXPECT_EQ(KeyOf(2), "|");
    EXPECT_EQ(Window().Hinweis.Text().find("Funkkanal"), std::string::npos) << Window().Hinweis.Text();
}

TEST_F(F5_Keys, whose_channel_was_not_written_when_pasted_leave_none_behind_an_undo) {
    OpenDesk();
    Window().MenuRow = 3;
    Keys().key_ausschneiden_Click();
    Window().MenuRow = 2;
    Break(1, true);
    ExpectText(ChannelUnsaved);
    Keys().key_einfuegen_Click();
    world.Disk.FailAt = 0;
    world.Disk.FailFromThere = false;
    Window().F5_Undo_Click();
    EXPECT_EQ(KeyOf(2), "|");
    EXPECT_EQ(Window().Hinweis.Text().find("Funkkanal"), std::string::npos) << Window().Hinweis.Text();
}

TEST_F(F5_Keys, a_transponder_refused_behind_a_search_for_a_key_was_not_learned) {
    OpenDesk();
    Search();
    Expect(144);
    Refuse(0x66);
    Window().MenuRow = 2;
    Keys().Save_RFID_Click();
    Expect(69);
    Refuse(0x66);
    Keys().Search_RFID_Click();
    Expect(144);
    Refuse(0x66);
}

} // namespace
} // namespace qvm::test
