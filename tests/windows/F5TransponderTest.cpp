// Transponders of the user window.

#include "LeserFixture.h"
#include "Text.h"

namespace qvm::test {
namespace {

constexpr std::string_view Silent =
    u8"Das Lesegerät hat nicht geantwortet. Bitte prüfen Sie, ob es angeschlossen ist, und "
    u8"wiederholen Sie den Vorgang."_w;
struct F5_Transponders : F5_Keys {
    void Learn(int row) {
        Window().MenuRow = row;
        Keys().Save_RFID_Click();
    }
};

const LineBytes ReadTransponder{0x02, 0x0D, 0xA3, 0x00, 0x00, 0x00, 0x00, 0x11,
                                0x00, 0x33, 0x88, 0x01, 0x00, 0x00, 0xED};

TEST_F(F5_Transponders, are_asked_of_the_enrolment_unit_with_the_window_disabled) {
    OpenDesk();
    Learn(2);
    EXPECT_EQ(world.Written, ReadTransponder);
    EXPECT_EQ(world.PortNumber, EnrolmentPort);
    EXPECT_FALSE(Window().Fenster.Enabled);
}

TEST_F(F5_Transponders, that_are_learned_go_to_the_row_with_their_data) {
    files.Channel(1, "1", "7", "1");
    OpenDesk();
    Learn(2);
    SayTransponder(3);
    EXPECT_EQ(KeyOf(2), "#3-ID#21:22:23:24:25:26:27:28:29:30|7:7:7:7:7:7:7:7:7:7:7:7:7:7:7:7");
    EXPECT_TRUE(Window().Fenster.Enabled);
    EXPECT_EQ(Channel(1), "1  7  7  1  0  ");
    SayUserWindow();
    EXPECT_TRUE(Window().Fenster.Enabled);
}

TEST_F(F5_Transponders, that_come_when_nobody_waits_any_more_are_told_in_the_status_line) {
    OpenDesk();
    Learn(2);
    ExpectText(Silent);
    world.RunFor(60000);
    SayTransponder(3);
    EXPECT_EQ(KeyOf(2), "|");
    EXPECT_EQ(Window().Hinweis.Text(),
              u8"Es wurde ein Schlüssel gelesen, auf den nicht mehr gewartet wird. Er wurde nicht eingetragen."_w);
}

TEST_F(F5_Transponders, with_slot_128_ask_to_free_the_slot_and_store_nothing) {
    OpenDesk();
    Learn(2);
    world.Written.clear();
    Expect(241, Answer::Yes);
    SayTransponder(128);
    EXPECT_EQ(Last().Title, "L105");
    EXPECT_EQ(Last().Choice, Buttons::YesNo);
    EXPECT_EQ(world.Written, (LineBytes{0x02, 0x0E, 0x70, 0x00, 0x00, 0x00, 0x00, 0x11, 0x00, 0x33, 0x88, 0x01, 0x00,
                                        0x00, 0x80, 0x49}));
    EXPECT_EQ(KeyOf(2), "|");
    EXPECT_TRUE(Window().Fenster.Enabled);
    Learn(2);
    world.Written.clear();
    Expect(241, Answer::No);
    SayTransponder(255);
    EXPECT_TRUE(world.Written.empty());
    EXPECT_EQ(KeyOf(2), "|");
}

TEST_F(F5_Transponders, whose_unit_gave_way_while_the_question_stood_are_not_freed) {
    OpenDesk();
    Learn(2);
    world.Written.clear();
    world.World.ShowMessage = [this](const Message& message) {
        world.Shown.push_back(message);
        if (message.Choice == Buttons::YesNo) {
            ++programm->Adapter.Stand;
        }
        return Answer::Yes;
    };
    SayTransponder(128);
    EXPECT_TRUE(world.Written.empty());
    EXPECT_EQ(Last().Text, ReaderPulled);
}

TEST_F(F5_Transponders, that_stand_in_a_row_already_are_refused_with_line_200) {
    files.User(3, {.Name = "Carl", .KeyId = "#3-ID#21:22:23:24:25:26:27:28:29:30"});
    OpenDesk();
    Learn(2);
    Expect(200);
    SayTransponder(3);
    EXPECT_EQ(Last().Sign, Icon::Information);
    EXPECT_EQ(KeyOf(2), "|");
}

TEST_F(F5_Transponders, are_told_by_as_much_of_their_identification_as_the_file_keeps) {
    // 44 characters, of which the file has the first 41.
    const std::string whole = "#99-ID#221:222:223:224:225:226:227:228:229:230";
    files.User(3, {.Name = "Carl", .KeyId = whole.substr(0, 41)});
    OpenDesk();
    Learn(2);
    LineBytes payload{99, 221, 222, 223, 224, 225, 226, 227, 228, 229, 230};
    payload.insert(payload.end(), 16, 7);
    Expect(200);
    Say(0xA3, 0x1D, payload);
    EXPECT_EQ(KeyOf(2), "|");
}

TEST_F(F5_Transponders, are_searched_and_the_user_is_told) {
    files.User(3, {.Name = "Carl", .KeyId = "#3-ID#21:22:23:24:25:26:27:28:29:30"});
    OpenDesk();
    Keys().Search_RFID_Click();
    EXPECT_EQ(world.Written, ReadTransponder);
    EXPECT_FALSE(Window().Fenster.Enabled);
    ExpectText("L37 3\r\nL38: Carl");
    SayTransponder(3);
    EXPECT_EQ(Cells().At(4, UserColumn::KeyId).BackColor, 0x80FFFFU);
    EXPECT_EQ(Cells().At(4, UserColumn::KeyId).ForeColor, 0xFF0000U);
    EXPECT_TRUE(Window().Fenster.Enabled);
    Keys().Search_RFID_Click();
    Expect(144);
    SayTransponder(4);
    EXPECT_TRUE(Window().Fenster.Enabled);
}

TEST_F(F5_Transponders, the_unit_that_is_done_frees_the_window_whatever_happened) {
    OpenDesk();
    Learn(2);
    SayUserWindow();
    EXPECT_TRUE(Window().Fenster.Enabled);
    SayTransponder(3); // too late
    EXPECT_EQ(KeyOf(2), "|");
}

TEST_F(F5_Transponders, a_unit_that_refuses_frees_the_window) {
    const std::vector<std::pair<int, int>> lines{{0x64, 67}, {0x65, 68}, {0x67, 68}, {0x66, 69}};
    OpenDesk();
    for (const auto& [reason, line] : lines) {
        Learn(2);
        Expect(line);
        Refuse(static_cast<std::uint8_t>(reason));
        EXPECT_TRUE(Window().Fenster.Enabled) << reason;
    }
    Learn(2);
    Refuse(0x68);
    EXPECT_TRUE(Window().Fenster.Enabled);
}

TEST_F(F5_Transponders, a_unit_that_is_pulled_out_frees_the_window) {
    OpenDesk();
    Learn(2);
    world.PortOpen = false;
    ExpectText(ReaderPulled);
    world.RunFor(1000);
    EXPECT_TRUE(Window().Fenster.Enabled);
}

TEST_F(F5_Transponders, a_unit_in_whose_place_another_port_was_opened_frees_the_window) {
    Start();
    F2& main = programm->Main->F2;
    main.F2_Laden();
    main.Timer2.Stop();
    main.Fenster.Enabled = false; // F5 stands over it
    OpenDesk();
    Learn(2);
    world.RunFor(5000);
    EXPECT_FALSE(Window().Fenster.Enabled);
    world.PortChanged(PortChange::Removed); // the other adapter is still there
    EXPECT_TRUE(world.PortOpen);
    ExpectText(ReaderPulled);
    world.RunFor(1000);
    EXPECT_TRUE(Window().Fenster.Enabled);
}

TEST_F(F5_Transponders, a_unit_that_says_nothing_frees_the_window_after_a_minute) {
    OpenDesk();
    Learn(2);
    world.RunFor(59999);
    EXPECT_FALSE(Window().Fenster.Enabled);
    ExpectText(Silent);
    world.RunFor(1);
    EXPECT_TRUE(Window().Fenster.Enabled);
    SayTransponder(3);
    EXPECT_EQ(KeyOf(2), "|");
}

TEST_F(F5_Transponders, a_reply_that_is_too_short_stores_nothing) {
    OpenDesk();
    Learn(2);
    Expect(69);
    Say(0xA3, 0x0D, {3, 21, 22});
    EXPECT_EQ(KeyOf(2), "|");
    EXPECT_TRUE(Window().Fenster.Enabled);
}

TEST_F(F5_Transponders, that_come_twice_are_taken_once) {
    OpenDesk();
    Learn(2);
    SayTransponder(3);
    SayTransponder(4);
    EXPECT_EQ(KeyOf(2).substr(0, 6), "#3-ID#");
}

} // namespace
} // namespace qvm::test
