// The account of a run by itself: what it owes, what a telegram and a reply change, and what is missing at the end.

#include "RunAccount.h"

#include <algorithm>
#include <cstdint>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <optional>
#include <string>
#include <vector>

namespace qvm::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr std::uint32_t OldSerial = 0xA1001, PolledSerial = 0x1200001, TwoPassSerial = 0xE700001;

struct Konto_Test : ::testing::Test {
    RunState lauf;
    Dataset daten;
    RunAccount konto;

    Konto_Test() {
        lauf.Order.SerialValue = OldSerial;
        lauf.Values.TimerMode = Timer_ERROR; // no timer tables: as few telegrams as a lock can get
    }
    void User(const std::string& name) {
        ProgSlot slot;
        slot.Name = name;
        slot.Kind = SlotKind::Code;
        daten.Slots.push_back(slot);
    }
    void Unit(int n, char type) {
        ProgUnit& unit = daten.Units[static_cast<std::size_t>(n)];
        unit.UnitPresent = true;
        unit.Type = type;
        unit.Name = "Leser";
    }
    void Plan() { konto = Konto_Anlegen(lauf, daten); }

    /// A telegram with `code` and payload bytes from index 14 on; the length is that of a frame with so many.
    void Send(int code, const std::vector<int>& payload = {}) {
        std::vector<std::uint16_t> frame(64, 0);
        frame[0] = 2;
        frame[1] = static_cast<std::uint16_t>(13 + payload.size());
        frame[2] = static_cast<std::uint16_t>(code);
        std::copy(payload.begin(), payload.end(), frame.begin() + 14);
        Konto_Gesendet(konto, frame, lauf);
    }
    void Reply(int code, int slot = 0) {
        Konto_Antwort(konto, {.Code = static_cast<std::uint8_t>(code), .Slot = slot});
    }
    /// A reply at which the chain does nothing.
    void Idle(int code) { Konto_Antwort(konto, {.Code = static_cast<std::uint8_t>(code), .Leads = false}); }
    void Both(int code, const std::vector<int>& payload = {}) {
        Send(code, payload);
        Reply(code);
    }
    void Holidays() {
        for (const int code : {0x1F, 0x21}) {
            for (int part = 0; part < 3; ++part) {
                Both(code, {part});
            }
        }
    }
    void OneUser(int cursor, int slot) {
        lauf.Chain.SlotCursor = cursor;
        Send(0x0A);
        Reply(0x0A, slot);
        for (const int code : {0x0B, 0x0D, 0x0E}) {
            Both(code);
        }
    }
    void End() {
        for (const int code : {0x23, 0x15, 0x05}) {
            Both(code);
        }
    }
    std::vector<std::string> Missing() const {
        std::vector<std::string> names;
        for (const AccountGap& gap : Konto_Luecken(konto)) {
            names.push_back(Luecke_Kennung(gap));
        }
        return names;
    }
};

TEST_F(Konto_Test, of_a_bare_lock_owes_login_erase_switches_holidays_and_end) {
    Plan();
    // 0x04, 0x27, 0x25, three parts of each holiday table, 0x23, 0x15, 0x05.
    EXPECT_EQ(konto.Gesamt(), 12);
    EXPECT_EQ(konto.Erledigt(), 0);
    EXPECT_FALSE(konto.Vollstaendig());
}

TEST_F(Konto_Test, grows_with_clock_history_search_mode_and_users) {
    lauf.Values.FlagSetClock = 1;    // 0x07, 0x09, and 0x2F behind them
    lauf.Chain.ReadHistoryFirst = 1; // the history
    lauf.Chain.KanalSuche = 1;       // 0x28, 0x66, 0x29
    lauf.Values.LockMode = 0x0A;     // 0x32
    lauf.Values.ListenWindow = true; // 0x33
    User("Anna");                    // 0x0A, 0x0B, 0x0D, 0x0E
    Plan();
    EXPECT_EQ(konto.Gesamt(), 12 + 3 + 1 + 3 + 1 + 1 + 4);
}

TEST_F(Konto_Test, of_timers_by_user_owes_their_parts_and_the_groups_of_each_user) {
    lauf.Values.TimerMode = TimerPB_UT; // three parts of 0x19, two of 0x1B, and 0x37 of the user
    User("Anna");
    Plan();
    EXPECT_EQ(konto.Gesamt(), 12 + 5 + 5);
}

TEST_F(Konto_Test, of_a_reading_owes_login_events_and_disconnect_alone) {
    lauf.Chain.HistoryOnly = 1;
    User("Anna");
    Unit(0, '1');
    Plan();
    EXPECT_EQ(konto.Gesamt(), 3);
    EXPECT_FALSE(Konto_Unit_Geplant(konto, 0));
    EXPECT_EQ(Konto_Loeschen_Bestaetigt(konto), std::nullopt);
}

TEST_F(Konto_Test, is_whole_when_each_telegram_had_its_own_reply) {
    User("Anna");
    Plan();
    for (const int code : {0x04, 0x27, 0x25}) {
        Both(code);
    }
    Holidays();
    OneUser(0, 7);
    End();
    EXPECT_EQ(konto.Gesamt(), 16);
    EXPECT_EQ(konto.Erledigt(), 16);
    EXPECT_TRUE(konto.Vollstaendig());
    EXPECT_THAT(Missing(), IsEmpty());
    EXPECT_EQ(Konto_Loeschen_Bestaetigt(konto), true);
}

TEST_F(Konto_Test, a_reply_of_another_code_leaves_the_telegram_open) {
    Plan();
    Send(0x04);
    Reply(0x05);
    Reply(0x04); // nobody awaits it any more
    EXPECT_EQ(konto.Erledigt(), 0);
}

TEST_F(Konto_Test, a_frame_that_leads_nowhere_is_no_answer) {
    Plan();
    Send(0x04);
    for (const int code : {0x03, 0x06, 0x08, 0x69, 0x99}) {
        Idle(code);
    }
    Reply(0x04);
    EXPECT_EQ(konto.Erledigt(), 1);
}

TEST_F(Konto_Test, a_refused_login_is_no_login) {
    Plan();
    Send(0x04);
    Konto_Antwort(konto, {.Code = 0x04, .Accepted = false});
    EXPECT_EQ(konto.Erledigt(), 0);
}

TEST_F(Konto_Test, parts_of_a_table_are_told_apart) {
    Plan();
    Both(0x1F, {0});
    Both(0x1F, {0});
    Both(0x1F, {2});
    EXPECT_EQ(konto.Erledigt(), 2);
    EXPECT_THAT(Missing(), ElementsAre("login", "erase", "calendar switch", "holidays", "timer switch", "end of data",
                                       "disconnect"));
}

TEST_F(Konto_Test, a_user_who_is_sent_twice_is_not_good) {
    User("Anna");
    Plan();
    OneUser(0, 7);
    EXPECT_EQ(konto.Erledigt(), 4);
    lauf.Chain.SlotCursor = 0;
    Both(0x0B);
    EXPECT_EQ(konto.Erledigt(), 3);
}

TEST_F(Konto_Test, two_users_in_one_place_are_not_good) {
    User("Anna");
    User("Bert");
    Plan();
    OneUser(0, 7);
    OneUser(1, 7);
    EXPECT_EQ(konto.Erledigt(), 7);
    EXPECT_THAT(Missing(), ::testing::Contains("user 2"));
}

TEST_F(Konto_Test, an_erase_opens_what_stands_behind_it_and_frees_the_places) {
    User("Anna");
    Plan();
    for (const int code : {0x04, 0x27, 0x25}) {
        Both(code);
    }
    OneUser(0, 7);
    EXPECT_EQ(konto.Erledigt(), 7);
    Both(0x27);
    EXPECT_EQ(konto.Erledigt(), 2);
    OneUser(0, 7);
    EXPECT_EQ(konto.Erledigt(), 6);
}

TEST_F(Konto_Test, a_polled_lock_is_whole_without_the_echo_of_its_erase_but_not_confirmed) {
    lauf.Order.SerialValue = PolledSerial;
    Plan();
    Both(0x04);
    Send(0x27);
    Send(0x08);
    Idle(0x06);
    Both(0x25);
    Holidays();
    End();
    EXPECT_TRUE(konto.Vollstaendig());
    EXPECT_EQ(Konto_Loeschen_Bestaetigt(konto), false);
}

TEST_F(Konto_Test, a_late_echo_of_a_polled_lock_confirms_the_erase_and_disturbs_nothing) {
    lauf.Order.SerialValue = PolledSerial;
    Plan();
    Both(0x04);
    Send(0x27);
    Send(0x25);
    Idle(0x27);
    Reply(0x25);
    EXPECT_EQ(konto.Erledigt(), 3);
    EXPECT_EQ(Konto_Loeschen_Bestaetigt(konto), true);
}

TEST_F(Konto_Test, an_echo_before_the_erase_confirms_nothing) {
    lauf.Order.SerialValue = PolledSerial;
    Plan();
    Send(0x04);
    Idle(0x27);
    Reply(0x04);
    EXPECT_EQ(Konto_Loeschen_Bestaetigt(konto), false);
}

TEST_F(Konto_Test, a_refusal_behind_a_sign_of_life_counts_against_an_erase_without_echo) {
    lauf.Order.SerialValue = PolledSerial;
    for (const bool echo : {false, true}) {
        Plan();
        Both(0x04);
        Send(0x27);
        if (echo) {
            Idle(0x27);
        }
        Send(0x08);
        Idle(0x69);
        Send(0x08);
        Idle(0x06);
        Both(0x25);
        EXPECT_EQ(konto.Erledigt(), echo ? 3 : 2);
    }
}

TEST_F(Konto_Test, a_refusal_at_once_counts_against_the_erase_whatever_came_before) {
    lauf.Order.SerialValue = PolledSerial;
    Plan();
    Both(0x04);
    Send(0x27);
    Idle(0x27);
    Idle(0x69);
    Both(0x25);
    EXPECT_EQ(konto.Erledigt(), 2);
}

TEST_F(Konto_Test, nobody_waits_for_the_reply_to_0x66) {
    lauf.Chain.KanalSuche = 1;
    Plan();
    Both(0x04);
    Both(0x28);
    Send(0x66);
    Reply(0x05);
    EXPECT_FALSE(Konto_Kanal_Gesetzt(konto));
    Both(0x29);
    EXPECT_EQ(konto.Erledigt(), 4);
    EXPECT_TRUE(Konto_Kanal_Gesetzt(konto));
}

TEST_F(Konto_Test, a_0x29_that_was_not_asked_for_moves_no_lock) {
    lauf.Chain.KanalSuche = 1;
    Plan();
    Both(0x04);
    Send(0x28);
    Reply(0x29);
    EXPECT_FALSE(Konto_Kanal_Gesetzt(konto));
}

TEST_F(Konto_Test, a_telegram_that_is_not_owed_counts_against_the_lock_but_not_as_one_that_it_had_to_get) {
    Plan();
    for (const int code : {0x04, 0x27, 0x25}) {
        Both(code);
    }
    Holidays();
    End();
    EXPECT_TRUE(konto.Vollstaendig());
    Both(0x32);
    EXPECT_FALSE(konto.Vollstaendig());
    EXPECT_EQ(konto.Gesamt(), 12);
    EXPECT_EQ(konto.Erledigt(), 12);
    EXPECT_THAT(Missing(), ElementsAre("lock mode"));
}

TEST_F(Konto_Test, of_two_passes_owes_both) {
    lauf.Order.SerialValue = TwoPassSerial;
    lauf.Chain.TwoPassFlag = 1;
    Plan();
    EXPECT_EQ(konto.Gesamt(), 24);
    Both(0x04);
    EXPECT_EQ(konto.Erledigt(), 1);
    Konto_Zweiter_Durchgang(konto);
    Both(0x04);
    EXPECT_EQ(konto.Erledigt(), 2);
}

TEST_F(Konto_Test, the_second_pass_reads_no_history_and_searches_no_channel) {
    lauf.Order.SerialValue = TwoPassSerial;
    lauf.Chain.TwoPassFlag = 1;
    lauf.Chain.ReadHistoryFirst = 1;
    lauf.Chain.KanalSuche = 1;
    Plan();
    EXPECT_EQ(konto.Gesamt(), 24 + 1 + 1 + 3); // the priority goes out behind the history
}

TEST_F(Konto_Test, a_history_is_good_with_its_end) {
    lauf.Chain.HistoryOnly = 1;
    Plan();
    Both(0x04);
    Both(0x17);
    EXPECT_EQ(konto.Erledigt(), 1);
    Send(0x17);
    Reply(0x17);
    Konto_Historie_Fertig(konto);
    EXPECT_EQ(konto.Erledigt(), 2);
}

TEST_F(Konto_Test, gaps_name_each_kind_once_and_users_that_follow_one_another_together) {
    User("Anna");
    User("Bert");
    User("Carl");
    User("Dora");
    Plan();
    for (const int code : {0x04, 0x27, 0x25}) {
        Both(code);
    }
    Holidays();
    OneUser(2, 9);
    EXPECT_THAT(Missing(), ElementsAre("users 1 to 2", "user 4", "timer switch", "end of data", "disconnect"));
}

TEST_F(Konto_Test, of_a_unit_of_type_1_is_no_part_of_the_locks_telegrams) {
    Unit(1, '1');
    Plan();
    EXPECT_EQ(konto.Gesamt(), 12);
    EXPECT_TRUE(Konto_Unit_Geplant(konto, 1));
    EXPECT_FALSE(Konto_Unit_Begonnen(konto, 1));
    lauf.Chain.LaufZiel = "UNIT";
    lauf.Chain.UnitIndex = 1;
    Both(0x04);
    EXPECT_EQ(Konto_Unit_Stand(konto, 1).Stage, UnitStage::LoggedIn);
    Send(0x3D);
    EXPECT_EQ(Konto_Unit_Stand(konto, 1).Stage, UnitStage::ChangeSent);
    Reply(0x3D);
    EXPECT_EQ(Konto_Unit_Stand(konto, 1).Stage, UnitStage::Changed);
    EXPECT_FALSE(Konto_Unit_Fertig(konto, 1));
    Both(0x05);
    EXPECT_TRUE(Konto_Unit_Fertig(konto, 1));
    EXPECT_EQ(konto.Erledigt(), 0);
}

TEST_F(Konto_Test, a_block_that_a_unit_does_not_accept_is_open) {
    Unit(0, '2');
    User("Bert");
    daten.Slots[0].Template = {3, 0, 1};
    Plan();
    lauf.Chain.UnitModus = 0xFD;
    lauf.Chain.UnitIndex = 0;
    for (const bool accepted : {false, true}) {
        Both(0x27);
        // 14: 1; 15, 16: rows; 17, 18: the row; 19: the piece.
        Send(0x4A, {1, 0, 1, 0, 1, 0});
        Konto_Antwort(konto, {.Code = 0x4A, .Accepted = accepted});
        EXPECT_EQ(Konto_Unit_Stand(konto, 0).Templates, accepted ? 1 : 0);
        EXPECT_EQ(Konto_Unit_Stand(konto, 0).TemplatesWanted, 1);
    }
    EXPECT_EQ(Konto_Loeschen_Bestaetigt(konto), false) << "the unit was erased, not the lock";
}

TEST_F(Konto_Test, a_unit_of_a_type_that_nobody_knows_is_never_done) {
    Unit(0, '3');
    Plan();
    EXPECT_TRUE(Konto_Unit_Geplant(konto, 0));
    EXPECT_FALSE(Konto_Unit_Fertig(konto, 0));
    EXPECT_FALSE(Konto_Unit_Begonnen(konto, 0));
}

} // namespace
} // namespace qvm::test
