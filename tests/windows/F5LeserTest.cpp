// What the readers of the desk must not do to what is there already: to other templates, other requests, secrets.

#include "LeserFixture.h"
#include "Text.h"

namespace qvm::test {
namespace {

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
