#include "AntwortRahmen.h"
#include "DispatcherFixture.h"
#include "Historienkette.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <map>
#include <set>
#include <string_view>

namespace qvm::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr std::uint32_t SerialS = 0x000A1001, SerialZ = 0x01200000, SerialN = 0x01C00100, SerialT = 0x0A000001,
                        SerialTwoPass = 0x0E700000;

using Antwort_Verteilen_Reply = DispatcherFixture;

TEST(Antwort_Tabelle, no_row_stands_behind_an_unconditional_row_of_its_code) {
    std::set<int> closed;
    for (const ReplyRow& row : Antwort_Tabelle()) {
        EXPECT_FALSE(closed.contains(row.Code)) << std::hex << int{row.Code} << " " << row.When;
        if (row.Condition == &Immer) {
            closed.insert(row.Code);
        }
    }
    bool end = false;
    for (const ReplyRow& row : Ablehnung_Tabelle()) {
        EXPECT_FALSE(end) << row.When;
        end = row.Condition == &Immer;
    }
    EXPECT_TRUE(end);
}

TEST(Antwort_Tabelle, every_reply_code_of_the_chain_has_a_row) {
    const std::set<int> wanted{0x03, 0x04, 0x05, 0x06, 0x07, 0x08, 0x09, 0x0A, 0x0B, 0x0D, 0x0E, 0x12, 0x15, 0x17, 0x19,
                               0x1B, 0x1F, 0x21, 0x23, 0x25, 0x27, 0x28, 0x29, 0x2F, 0x32, 0x33, 0x37, 0x3B, 0x3D, 0x40,
                               0x43, 0x48, 0x49, 0x4A, 0x4B, 0x69, 0x6F, 0x72, 0x73, 0x81, 0xA1, 0xA2, 0xA3};
    std::set<int> present;
    for (const ReplyRow& row : Antwort_Tabelle()) {
        present.insert(row.Code);
    }
    for (const ReplyRow& row : Ablehnung_Tabelle()) {
        present.insert(row.Code);
    }
    EXPECT_EQ(present, wanted);
}

TEST_F(Antwort_Verteilen_Reply, an_unknown_code_does_nothing) {
    for (const int code : {0x00, 0x01, 0x02, 0x10, 0x7F, 0x90, 0xFF}) {
        Reply(static_cast<std::uint8_t>(code));
        EXPECT_THAT(Sent(), IsEmpty()) << code;
        EXPECT_EQ(Step, nullptr) << code;
    }
}

// Login.

TEST_F(Antwort_Verteilen_Reply, an_accepted_login_with_the_clock_switch_sends_the_date) {
    link.Lauf.Values.FlagSetClock = 1;
    link.Lauf.Chain.ReadHistoryFirst = 1;
    ReplyStatus(0x04, 4);
    EXPECT_THAT(Sent(), ElementsAre(0x07));
    EXPECT_EQ(link.Device.Serial, (Address{0x0A, 0x0B, 0x0C, 0x0D}));
}

TEST_F(Antwort_Verteilen_Reply, an_accepted_login_without_clock_begins_the_history_when_it_is_wanted) {
    link.Lauf.Chain.ReadHistoryFirst = 1;
    link.Lauf.Chain.HistoryStop = 0xFF;
    link.Lauf.Chain.HistoryFileOpen = 1;
    int shown = 0;
    run.Ansicht.Historie_Beschriften = [&shown] { ++shown; };
    ReplyStatus(0x04, 4);
    EXPECT_THAT(Sent(), ElementsAre(0x17));
    EXPECT_EQ(SentByte(14), 0);
    EXPECT_EQ(link.Lauf.Chain.HistoryStop, 0);
    EXPECT_EQ(link.Lauf.Chain.HistoryFileOpen, 0);
    EXPECT_EQ(shown, 1);
}

TEST_F(Antwort_Verteilen_Reply, an_accepted_login_without_clock_and_history_sends_the_erase_telegram_at_once) {
    link.Lauf.Order.SerialValue = SerialS;
    link.Lauf.Order.EraseOption = 1;
    ReplyStatus(0x04, 4);
    EXPECT_THAT(Sent(), ElementsAre(0x27));
    EXPECT_EQ(SentByte(14), 1);
    EXPECT_FALSE(run.Timer7.Running()) << "the polling";
}

TEST_F(Antwort_Verteilen_Reply, a_login_is_refused_by_any_other_status_and_by_a_reply_too_short_to_hold_one) {
    for (const int status : {0, 1, 2, 3, 5, 0xFF}) {
        ReplyStatus(0x04, static_cast<std::uint8_t>(status));
        EXPECT_THAT(Sent(), IsEmpty()) << status;
        EXPECT_EQ(Step, Schritt_Anmeldung_Abgelehnt) << status;
    }
    link.Rx.RxBuffer[14] = 4;
    Reply(0x04, {1, 1, 1, 1});
    EXPECT_EQ(Step, Schritt_Anmeldung_Abgelehnt);
}

TEST_F(Antwort_Verteilen_Reply, a_login_for_a_code_change_sends_nothing_and_ends_its_wait) {
    link.Lauf.Chain.CodeChangePending = 0xFF;
    link.Lauf.Chain.KanalSuche = 1;
    ReplyStatus(0x04, 4);
    EXPECT_THAT(Sent(), IsEmpty());
    EXPECT_EQ(Step, Schritt_Code_Verbunden);
    EXPECT_EQ(link.Lauf.Chain.CodeChangePending, 0);
    EXPECT_EQ(link.Lauf.Chain.KanalSuche, 0);
}

TEST_F(Antwort_Verteilen_Reply, a_login_found_by_the_channel_search_moves_the_lock_to_the_systems_channel) {
    link.Lauf.Chain.KanalSuche = 1;
    ReplyStatus(0x04, 4);
    EXPECT_THAT(Sent(), ElementsAre(0x28));
    EXPECT_EQ(SentByte(14), 6);
    EXPECT_EQ(link.Lauf.Chain.KanalSuche, 0);
}

TEST_F(Antwort_Verteilen_Reply, a_login_refused_during_the_channel_search_goes_to_the_search) {
    link.Lauf.Chain.KanalSuche = 1;
    ReplyStatus(0x04, 1);
    EXPECT_THAT(Sent(), IsEmpty());
    EXPECT_EQ(Step, Schritt_Suche_Abgelehnt);
}

TEST_F(Antwort_Verteilen_Reply, a_unit_of_type_1_gets_the_locks_serial_after_its_login_only_when_it_accepts) {
    link.Lauf.Chain.LaufZiel = "UNIT";
    link.Lauf.Order.LockAddress = {0x0A, 0x0B, 0x0C, 0x0D};
    ReplyStatus(0x04, 4);
    EXPECT_THAT(Sent(), ElementsAre(0x3D));
    EXPECT_EQ(SentByte(14), 0x0A);
    EXPECT_EQ(SentByte(17), 0x0D);
    ReplyStatus(0x04, 1);
    EXPECT_THAT(Sent(), IsEmpty());
    EXPECT_EQ(Step, Schritt_Unit_Abgelehnt);
}

TEST_F(Antwort_Verteilen_Reply, a_unit_in_block_transfer_is_erased_with_option_0_after_its_login_whatever_the_status) {
    link.Lauf.Chain.UnitModus = 0xFD;
    link.Lauf.Order.EraseOption = 1;
    link.Lauf.Order.SerialValue = SerialZ;
    link.Lauf.Chain.UnitRow = 3;
    ReplyStatus(0x04, 0);
    EXPECT_THAT(Sent(), ElementsAre(0x27));
    EXPECT_EQ(SentByte(14), 0);
    EXPECT_EQ(link.Lauf.Chain.UnitRow, 0);
    EXPECT_FALSE(run.Timer7.Running()) << "no polling in a unit session";
}

TEST_F(Antwort_Verteilen_Reply, a_login_of_a_unit_search_goes_to_the_search) {
    link.Lauf.Chain.SuchLauf = 1;
    ReplyStatus(0x04, 4);
    EXPECT_EQ(Step, Zum_Fenster<&WindowHooks::Suchlauf_Schritt>);
}

// Clock, history, erase.

TEST_F(Antwort_Verteilen_Reply, the_date_is_followed_by_the_time_and_that_by_history_or_priority) {
    Reply(0x07);
    EXPECT_THAT(Sent(), ElementsAre(0x09));
    Reply(0x09);
    EXPECT_THAT(Sent(), ElementsAre(0x2F));
    link.Lauf.Chain.HistoryOnly = 1;
    Reply(0x09);
    EXPECT_THAT(Sent(), ElementsAre(0x17));
}

std::vector<std::uint8_t> HistoryReply(std::uint8_t event) {
    std::vector<std::uint8_t> bytes(33, 0x20);
    std::fill_n(bytes.begin() + 4, 4, std::uint8_t{0}); // no serial
    bytes[32] = event;                                  // index 35
    return bytes;
}

TEST_F(Antwort_Verteilen_Reply, a_history_record_is_written_before_the_next_one_is_asked_for) {
    Reply(0x17, HistoryReply(0x13));
    EXPECT_EQ(Step, Historie_Weiter);
    EXPECT_EQ(world.Disk.Files.size(), 1U);
    EXPECT_THAT(Sent(), ElementsAre(0x17));
    EXPECT_EQ(SentByte(13), 0);
}

TEST_F(Antwort_Verteilen_Reply, the_end_of_a_history_run_disconnects_and_before_programming_it_leads_to_the_priority) {
    link.Lauf.Chain.HistoryOnly = 1;
    link.TxBuffer[2] = 0x17;
    Reply(0x17, HistoryReply(0xFF));
    EXPECT_EQ(Step, Historie_Beendet);
    EXPECT_THAT(Sent(), ElementsAre(0x05));
    link.Lauf.Chain.HistoryOnly = 0;
    link.Lauf.Chain.ReadHistoryFirst = 1;
    link.Lauf.Chain.HistoryRead = false;
    link.TxBuffer[2] = 0x17;
    Reply(0x17, HistoryReply(0xFF));
    EXPECT_EQ(Step, Historie_Vorbei);
    EXPECT_THAT(Sent(), ElementsAre(0x2F));
}

TEST_F(Antwort_Verteilen_Reply, a_record_too_short_is_no_end_of_a_history_that_is_wanted) {
    link.Lauf.Chain.ReadHistoryFirst = 1;
    link.TxBuffer[2] = 0x17;
    Reply(0x17, std::vector<std::uint8_t>(31, 0x20)); // one byte short of the event
    EXPECT_EQ(Step, Historie_Gebrochen);
    EXPECT_THAT(Sent(), ElementsAre(0x05));
    EXPECT_EQ(link.Lauf.Chain.HistoryLost, HistoryLoss::Broken);
    // And what comes behind it does not lead to the erase telegram any more.
    Reply(0x2F);
    EXPECT_THAT(Sent(), ElementsAre(0x05));
}

TEST_F(Antwort_Verteilen_Reply, an_end_that_nobody_asked_for_is_no_end_of_a_history) {
    link.Lauf.Chain.ReadHistoryFirst = 1;
    link.TxBuffer[2] = 0x09;
    Reply(0x17, HistoryReply(0xFF));
    EXPECT_THAT(Sent(), ElementsAre(0x05));
    EXPECT_EQ(link.Lauf.Chain.HistoryLost, HistoryLoss::Broken);
}

TEST_F(Antwort_Verteilen_Reply, a_history_without_end_is_given_up_behind_ten_thousand_records) {
    link.Lauf.Chain.ReadHistoryFirst = 1;
    link.TxBuffer[2] = 0x17;
    link.Lauf.Chain.HistoryRecords = 9999;
    Reply(0x17, HistoryReply(0x13));
    EXPECT_EQ(Step, Historie_Weiter);
    EXPECT_THAT(Sent(), ElementsAre(0x17));
    Reply(0x17, HistoryReply(0x13));
    EXPECT_EQ(Step, Historie_Endlos);
    EXPECT_THAT(Sent(), ElementsAre(0x05));
    EXPECT_EQ(link.Lauf.Chain.HistoryLost, HistoryLoss::Endless);
}

TEST_F(Antwort_Verteilen_Reply, an_end_or_a_record_of_another_lock_is_no_part_of_a_history) {
    link.Lauf.Order.LockAddress = {0x00, 0x0A, 0x10, 0x01};
    for (const std::uint8_t event : {std::uint8_t{0xFF}, std::uint8_t{0x13}}) {
        for (const std::uint8_t last : {std::uint8_t{0x01}, std::uint8_t{0x02}}) {
            link.Lauf.Chain.ReadHistoryFirst = 1;
            link.Lauf.Chain.HistoryLost = HistoryLoss::None;
            link.Lauf.Chain.HistoryRead = false;
            link.TxBuffer[2] = 0x17;
            std::vector<std::uint8_t> bytes = HistoryReply(event);
            bytes[5] = 0x0A; // the serial stands at 7 to 10
            bytes[6] = 0x10;
            bytes[7] = last;
            Reply(0x17, bytes);
            const bool own = last == 0x01;
            EXPECT_EQ(link.Lauf.Chain.HistoryLost, own ? HistoryLoss::None : HistoryLoss::Broken);
            EXPECT_THAT(Sent(), ElementsAre(!own ? 0x05 : event == 0xFF ? 0x2F : 0x17));
        }
    }
}

TEST_F(Antwort_Verteilen_Reply, a_device_that_answers_all_with_records_is_given_up_at_the_40th_disconnect) {
    link.Lauf.Chain.ReadHistoryFirst = 1;
    link.TxBuffer[2] = 0x09;
    int ends = 0;
    run.Ansicht.Fertig = [&ends](int) { ++ends; };
    for (int n = 1; n < 40; ++n) {
        Reply(0x17, HistoryReply(0x13));
        EXPECT_THAT(Sent(), ElementsAre(0x05)) << n;
    }
    Reply(0x17, HistoryReply(0x13));
    EXPECT_THAT(Sent(), IsEmpty());
    EXPECT_EQ(Step, Historie_Gebrochen);
    EXPECT_EQ(ends, 1);
}

TEST_F(Antwort_Verteilen_Reply, a_device_that_answers_all_with_the_end_of_a_history_is_given_up_too) {
    link.Lauf.Chain.HistoryOnly = 1;
    link.TxBuffer[2] = 0x17;
    for (int n = 1; n < 40; ++n) {
        Reply(0x17, HistoryReply(0xFF));
        EXPECT_THAT(Sent(), ElementsAre(0x05)) << n;
    }
    Reply(0x17, HistoryReply(0xFF));
    EXPECT_THAT(Sent(), IsEmpty());
    EXPECT_EQ(link.Lauf.Chain.HistoryLost, HistoryLoss::None);
}

TEST_F(Antwort_Verteilen_Reply, behind_the_end_of_a_reading_a_wrong_reply_costs_no_event) {
    link.Lauf.Chain.HistoryOnly = 1;
    link.TxBuffer[2] = 0x17;
    Reply(0x17, HistoryReply(0xFF));
    Reply(0x2F);
    EXPECT_THAT(Sent(), ElementsAre(0x05));
    EXPECT_EQ(link.Lauf.Chain.HistoryLost, HistoryLoss::None);
}

TEST_F(Antwort_Verteilen_Reply, an_end_whose_events_did_not_reach_the_disk_leads_to_no_erase) {
    link.Lauf.Chain.ReadHistoryFirst = 1;
    link.TxBuffer[2] = 0x17;
    Reply(0x17, HistoryReply(0x13));
    EXPECT_THAT(Sent(), ElementsAre(0x17));
    world.Disk.FlushFails = true;
    Reply(0x17, HistoryReply(0xFF));
    EXPECT_EQ(link.Lauf.Chain.HistoryLost, HistoryLoss::Unwritten);
    EXPECT_THAT(Sent(), ElementsAre(0x05));
}

TEST_F(Antwort_Verteilen_Reply, no_reply_leads_a_run_that_reads_to_an_erase_or_a_write) {
    for (int code = 0; code < 0x60; ++code) {
        SCOPED_TRACE(code);
        link.Lauf.Chain.HistoryOnly = 1;
        link.Lauf.Chain.HistoryLost = HistoryLoss::None;
        link.TxBuffer[2] = 0x17;
        Reply(static_cast<std::uint8_t>(code));
        const std::vector<int> sent = Sent();
        const bool reads = sent.empty() || sent == std::vector<int>{0x05} || sent == std::vector<int>{0x09} ||
                           sent == std::vector<int>{0x17} || sent == std::vector<int>{0x66};
        EXPECT_TRUE(reads) << ::testing::PrintToString(sent);
    }
}

TEST_F(Antwort_Verteilen_Reply, the_record_behind_the_cut_off_and_a_record_too_short_end_the_reading) {
    link.Lauf.Chain.HistoryStop = 0xFF;
    Reply(0x17, HistoryReply(0x13));
    EXPECT_THAT(Sent(), ElementsAre(0x2F));
    link.Lauf.Chain.HistoryStop = 0;
    Reply(0x17, {1, 2, 3});
    EXPECT_THAT(Sent(), ElementsAre(0x2F));
    EXPECT_EQ(Step, Historie_Vorbei);
}

TEST_F(Antwort_Verteilen_Reply, the_priority_is_followed_by_the_erase_telegram_and_polling_only_in_range_z) {
    for (const std::uint32_t serial : {SerialS, SerialT, 0x01000000U, 0x02000001U}) {
        link.Lauf.Order.SerialValue = serial;
        Reply(0x2F);
        EXPECT_THAT(Sent(), ElementsAre(0x27)) << serial;
        EXPECT_FALSE(run.Timer7.Running()) << serial;
    }
    for (const std::uint32_t serial : {0x01000001U, SerialZ, 0x02000000U}) {
        link.Lauf.Order.SerialValue = serial;
        link.Lauf.Chain.AnswerSeen = true;
        link.Lauf.Chain.AnswerTicks = 7;
        Reply(0x2F);
        EXPECT_THAT(Sent(), ElementsAre(0x27)) << serial;
        EXPECT_EQ(run.Timer7.Interval(), 2000) << serial;
        EXPECT_TRUE(run.Timer7.Running()) << serial;
        run.Timer7.Stop();
        EXPECT_FALSE(link.Lauf.Chain.AnswerSeen);
        EXPECT_EQ(link.Lauf.Chain.AnswerTicks, 0);
    }
}

TEST_F(Antwort_Verteilen_Reply, the_erase_reply_leads_on_except_for_a_polled_lock) {
    for (const std::uint32_t serial : {SerialS, 0x01000000U, 0x02000000U, 0x02000001U, SerialT}) {
        link.Lauf.Order.SerialValue = serial;
        run.Timer7.Start(2000);
        run.Timer8.Start(10);
        Reply(0x27);
        EXPECT_THAT(Sent(), ElementsAre(0x25)) << serial;
        EXPECT_FALSE(run.Timer7.Running() || run.Timer8.Running()) << serial;
    }
    for (const std::uint32_t serial : {0x01000001U, SerialZ, 0x01FFFFFFU}) {
        link.Lauf.Order.SerialValue = serial;
        Reply(0x27);
        EXPECT_THAT(Sent(), IsEmpty()) << serial;
        EXPECT_EQ(Step, Ohne_Wirkung) << serial;
    }
}

TEST_F(Antwort_Verteilen_Reply, a_sign_of_life_is_remembered_and_answers_nothing) {
    for (const int code : {0x06, 0x08}) {
        link.Lauf.Chain.AnswerSeen = false;
        Reply(static_cast<std::uint8_t>(code));
        EXPECT_TRUE(link.Lauf.Chain.AnswerSeen);
        EXPECT_THAT(Sent(), IsEmpty());
    }
}

// Settings and tables.

TEST_F(Antwort_Verteilen_Reply, the_calendar_flag_leads_to_listen_window_reader_setting_or_tables_in_this_order) {
    link.Lauf.Order.SerialValue = SerialN;
    link.Lauf.Values.ListenWindow = true;
    Reply(0x25);
    EXPECT_EQ(Step, Schritt_Zeitfenster);
    link.Lauf.Values.ListenWindow = false;
    Reply(0x25);
    EXPECT_EQ(Step, Schritt_ReaderEinstellung);
    link.Lauf.Order.SerialValue = SerialZ;
    Reply(0x25);
    EXPECT_EQ(Step, Zeit_Tabellen_Start);
}

/// Index of the part in a telegram of a timer table, and of a calendar.
constexpr std::size_t TimerPartAt = 54, HolidayPartAt = 14;

TEST_F(Antwort_Verteilen_Reply, the_tables_begin_by_the_timer_mode_with_both_step_marks_cleared) {
    for (const int code : {0x33, 0x3B}) {
        const auto begin = [&](const char* mode) {
            link.Lauf.Values.TimerMode = mode;
            link.Lauf.Chain.TimerPart = link.Lauf.Chain.HolidayPart = 0xFF;
            Reply(static_cast<std::uint8_t>(code));
        };
        begin(TimerPB_UT);
        EXPECT_THAT(Sent(), ElementsAre(0x19));
        EXPECT_EQ(SentByte(1), 0x36);
        EXPECT_EQ(SentByte(TimerPartAt), 0);
        EXPECT_EQ(link.Lauf.Chain.HolidayPart, 0);
        begin(Timer_A_B);
        EXPECT_THAT(Sent(), ElementsAre(0x19));
        EXPECT_EQ(SentByte(1), 0x35) << "the short one";
        EXPECT_EQ(link.Lauf.Chain.TimerPart, 0);
        EXPECT_EQ(link.Lauf.Chain.HolidayPart, 0);
        begin(Timer_ERROR);
        EXPECT_THAT(Sent(), ElementsAre(0x1F));
        EXPECT_EQ(SentByte(HolidayPartAt), 0);
        EXPECT_EQ(link.Lauf.Chain.TimerPart, 0);
    }
}

TEST_F(Antwort_Verteilen_Reply, table_parts_follow_one_another_until_their_mark) {
    link.Lauf.Chain.TimerPart = 1;
    Reply(0x19);
    EXPECT_THAT(Sent(), ElementsAre(0x19));
    EXPECT_EQ(SentByte(TimerPartAt), 1);
    link.Lauf.Chain.TimerPart = 0xFF;
    Reply(0x19);
    EXPECT_THAT(Sent(), ElementsAre(0x1B));
    EXPECT_EQ(SentByte(TimerPartAt), 0);
    link.Lauf.Chain.TimerPart = 1;
    Reply(0x1B);
    EXPECT_THAT(Sent(), ElementsAre(0x1B));
    EXPECT_EQ(SentByte(TimerPartAt), 1);
    link.Lauf.Chain.TimerPart = 0xFF;
    link.Lauf.Chain.HolidayPart = 1;
    Reply(0x1B);
    EXPECT_THAT(Sent(), ElementsAre(0x1F));
    EXPECT_EQ(SentByte(HolidayPartAt), 0);
    EXPECT_EQ(link.Lauf.Chain.TimerPart, 0);
    link.Lauf.Chain.HolidayPart = 1;
    Reply(0x1F);
    EXPECT_THAT(Sent(), ElementsAre(0x1F));
    EXPECT_EQ(SentByte(HolidayPartAt), 1);
    link.Lauf.Chain.HolidayPart = 0xFF;
    Reply(0x1F);
    EXPECT_THAT(Sent(), ElementsAre(0x21));
    EXPECT_EQ(SentByte(HolidayPartAt), 0);
    link.Lauf.Chain.HolidayPart = 1;
    Reply(0x21);
    EXPECT_THAT(Sent(), ElementsAre(0x21));
    EXPECT_EQ(SentByte(HolidayPartAt), 1);
    link.Lauf.Chain.HolidayPart = 0xFF;
    link.Lauf.Chain.SlotCursor = 9;
    Reply(0x21);
    EXPECT_EQ(Step, Schritt_Erster_Benutzer);
    EXPECT_EQ(link.Lauf.Chain.HolidayPart, 0);
    EXPECT_EQ(link.Lauf.Chain.SlotCursor, 0);
}

TEST_F(Antwort_Verteilen_Reply, short_tables_go_out_once_each) {
    link.Lauf.Values.TimerMode = Timer_A_B;
    Reply(0x19);
    EXPECT_THAT(Sent(), ElementsAre(0x1B));
    EXPECT_EQ(SentByte(1), 0x35);
    Reply(0x1B);
    EXPECT_THAT(Sent(), ElementsAre(0x1F));
}

// Users.

TEST_F(Antwort_Verteilen_Reply, a_user_is_led_from_slot_to_data) {
    Reply(0x0A, std::vector<std::uint8_t>(12));
    EXPECT_EQ(Step, Schritt_Benutzer_Slot);
    Reply(0x0B);
    EXPECT_EQ(Step, Schritt_Benutzer_Name2);
    Reply(0x0D);
    EXPECT_EQ(Step, Schritt_Benutzer_Daten);
    Reply(0x40);
    EXPECT_EQ(Step, Schritt_Benutzer_Zeitgruppen);
}

TEST_F(Antwort_Verteilen_Reply, user_data_are_followed_by_group_masks_or_by_the_next_user) {
    Reply(0x0E);
    EXPECT_EQ(Step, Schritt_Benutzer_Zeitgruppen);
    link.Lauf.Values.TimerMode = Timer_A_B;
    link.Lauf.Chain.SlotCursor = 4;
    Reply(0x0E);
    EXPECT_EQ(Step, Schritt_Naechster_Benutzer);
    EXPECT_EQ(link.Lauf.Chain.SlotCursor, 5);
    Reply(0x37);
    EXPECT_EQ(link.Lauf.Chain.SlotCursor, 6);
}

TEST_F(Antwort_Verteilen_Reply, a_long_identification_takes_two_telegrams_the_second_under_another_class) {
    link.Lauf.Order.SerialValue = SerialN;
    link.Lauf.Chain.IdMarke = "P";
    link.Lauf.Chain.IdSecondPart = true;
    Reply(0x0E);
    EXPECT_EQ(Step, Schritt_Id_Daten1);
    EXPECT_EQ(link.DeviceClassByte, 0x11);
    Reply(0x43);
    EXPECT_EQ(Step, Schritt_Id_Daten2);
    EXPECT_EQ(link.DeviceClassByte, 0xC3);
    Reply(0x43);
    EXPECT_EQ(Step, Schritt_Id_Zeitgruppen);
    EXPECT_EQ(link.DeviceClassByte, 0x11);
    EXPECT_EQ(link.Lauf.Chain.IdMarke, "");
}

TEST_F(Antwort_Verteilen_Reply, an_identification_reply_outside_range_n_goes_on_as_user_data_do) {
    link.Lauf.Order.SerialValue = SerialT;
    link.Lauf.Values.TimerMode = Timer_A_B;
    link.DeviceClassByte = 0xC3;
    link.Lauf.Chain.SlotCursor = 0;
    Reply(0x43);
    EXPECT_EQ(Step, Schritt_Id_Naechster_Benutzer);
    EXPECT_EQ(link.DeviceClassByte, 0x11);
    EXPECT_EQ(link.Lauf.Chain.SlotCursor, 1);
}

// Closing.

TEST_F(Antwort_Verteilen_Reply, the_lock_mode_goes_out_unless_there_is_none) {
    link.Lauf.Values.LockMode = 0x14;
    Reply(0x23);
    EXPECT_THAT(Sent(), ElementsAre(0x32));
    EXPECT_EQ(SentByte(14), 0x14);
    link.Lauf.Values.LockMode = 0xFF;
    Reply(0x23);
    EXPECT_EQ(Step, Schritt_Daten_Schluss);
    Reply(0x32);
    EXPECT_EQ(Step, Schritt_Daten_Schluss);
}

TEST_F(Antwort_Verteilen_Reply, the_end_of_data_disconnects_and_clears_the_repeat_count) {
    link.Lauf.Chain.WiederholZaehler = 12;
    Reply(0x15);
    EXPECT_THAT(Sent(), ElementsAre(0x05));
    EXPECT_EQ(link.Lauf.Chain.WiederholZaehler, 0);
}

TEST_F(Antwort_Verteilen_Reply, a_disconnect_ends_the_lock_or_what_was_under_way) {
    run.Timer7.Start(2000);
    run.Timer8.Start(10);
    Reply(0x05);
    EXPECT_EQ(Step, Schritt_Schloss_Ende);
    EXPECT_FALSE(run.Timer7.Running() || run.Timer8.Running());
    link.Lauf.Chain.LaufZiel = "UNIT";
    Reply(0x05);
    EXPECT_EQ(Step, Schritt_Unit_Fertig);
    link.Lauf.Chain.LaufZiel = "F22";
    Reply(0x05);
    EXPECT_EQ(Step, Schritt_Kanalwechsel_Ende);
    EXPECT_EQ(link.Lauf.Chain.LaufZiel, "");
    EXPECT_EQ(Told.size(), 1U);
    link.Lauf.Chain.UnitModus = 0xFD;
    Reply(0x05);
    EXPECT_THAT(Sent(), ElementsAre(0x03));
}

TEST_F(Antwort_Verteilen_Reply, a_two_pass_lock_logs_in_again_only_inside_its_range) {
    link.Lauf.Chain.TwoPassFlag = 1;
    link.Lauf.Order.SerialValue = SerialTwoPass;
    Reply(0x05);
    EXPECT_EQ(Step, Schritt_Zweiter_Durchgang);
    for (const std::uint32_t serial : {0x0E6E9000U, 0x0FDFF59CU}) {
        link.Lauf.Chain.TwoPassFlag = 1;
        link.Lauf.Order.SerialValue = serial;
        Reply(0x05);
        EXPECT_EQ(Step, Schritt_Schloss_Ende) << serial;
    }
}

// Channel and units.

TEST_F(Antwort_Verteilen_Reply, reading_the_channel_is_answered_with_the_key_action_and_plans_the_setting) {
    Reply(0x28);
    EXPECT_THAT(Sent(), ElementsAre(0x66));
    EXPECT_EQ(SentByte(14), 6);
    EXPECT_TRUE(run.Timer8.Running());
    EXPECT_EQ(run.Timer8.Interval(), 10);
}

TEST_F(Antwort_Verteilen_Reply, a_channel_set_goes_on_as_after_a_login_and_later_logins_use_the_systems_channel) {
    link.TargetChannel = 3;
    link.Lauf.Chain.KanalSuche = 1;
    Reply(0x29);
    EXPECT_EQ(Step, Schritt_Kanal_Gesetzt);
    EXPECT_THAT(Sent(), ElementsAre(0x27));
    EXPECT_EQ(link.TargetChannel, 7);
    EXPECT_EQ(link.Lauf.Chain.KanalSuche, 0);
    link.Lauf.Chain.LaufZiel = "F22";
    Reply(0x29);
    EXPECT_THAT(Sent(), ElementsAre(0x05));
}

TEST_F(Antwort_Verteilen_Reply, a_unit_of_type_2_is_opened_keyed_joined_and_filled) {
    link.Lauf.Chain.UnitModus = 0xFA;
    link.Lauf.Chain.UnitTry = 0x38;
    Reply(0x29);
    EXPECT_THAT(Sent(), ElementsAre(0x49));
    EXPECT_EQ(link.Lauf.Chain.UnitModus, 0xFD);
    EXPECT_EQ(link.Lauf.Chain.UnitTry, 0);
    world.RandomValues = {0.0, 1.0 - 1e-9};
    Reply(0x49);
    EXPECT_THAT(Sent(), ElementsAre(0x48));
    EXPECT_EQ(link.Lauf.SitzungsSchluessel[0], 1);
    EXPECT_EQ(link.Lauf.SitzungsSchluessel[1], 255);
    Reply(0x48);
    EXPECT_THAT(Sent(), ElementsAre(0xFE));
    Reply(0x27);
    EXPECT_EQ(Step, Schritt_Unit_Bloecke_Start);
    Reply(0x4A);
    EXPECT_EQ(Step, Schritt_Unit_Block_Quittung);
    Reply(0x03);
    EXPECT_EQ(Step, Schritt_Unit_Getrennt);
    link.Lauf.Chain.UnitModus = 0;
    Reply(0x03);
    EXPECT_EQ(Step, Schritt_Puffer_Leeren);
    Reply(0x3D);
    EXPECT_THAT(Sent(), ElementsAre(0x05));
    Reply(0x4B);
    EXPECT_EQ(Step, Zum_Fenster<&WindowHooks::Unit_Gefunden>);
}

TEST_F(Antwort_Verteilen_Reply, a_code_change_goes_to_its_window_or_on_to_the_channel_of_a_unit) {
    TelCodeAendern_Senden(link, {}, {});
    ReplyStatus(0x12, 4);
    EXPECT_EQ(Step, Schritt_Code_Ergebnis);
    link.Lauf.Chain.LaufZiel = "F22";
    TelCodeAendern_Senden(link, {}, {});
    ReplyStatus(0x12, 4);
    EXPECT_THAT(Sent(), ElementsAre(0x28));
    TelCodeAendern_Senden(link, {}, {});
    ReplyStatus(0x12, 2);
    EXPECT_EQ(Step, Schritt_Code_Ergebnis);
}

TEST_F(Antwort_Verteilen_Reply, the_result_of_a_code_change_acts_once_and_only_while_its_telegram_was_the_last) {
    for (const RunPhase phase : {RunPhase::None, RunPhase::Open}) {
        link.Lauf.Chain.Phase = phase;
        ReplyStatus(0x12, 4);
        EXPECT_EQ(Step, nullptr);
        TelCodeAendern_Senden(link, {}, {});
        Reply(0x6D);
        ReplyStatus(0x12, 1);
        EXPECT_EQ(Step, Schritt_Code_Ergebnis);
        ReplyStatus(0x12, 1);
        EXPECT_EQ(Step, nullptr);
        TelCodeAendern_Senden(link, {}, {});
        TelAdapterDaten_Senden(link);
        ReplyStatus(0x12, 4);
        EXPECT_EQ(Step, nullptr);
    }
    EXPECT_THAT(Sent(), IsEmpty());
}

// Cards and credentials.

struct AskedHook {
    int Reply, Asked; ///< codes: what comes, and what it answers
    Hook<void()> WindowHooks::*Called;
};
constexpr std::array AskedHooks{
    AskedHook{0x6F, 0x6F, &WindowHooks::Karte_Quittung}, AskedHook{0x72, 0x72, &WindowHooks::Karte_Start},
    AskedHook{0x73, 0x73, &WindowHooks::Karte_Block},    AskedHook{0x81, 0x67, &WindowHooks::EKey_Ergebnis},
    AskedHook{0xA1, 0xA1, &WindowHooks::Finger_Schritt}, AskedHook{0xA2, 0xA1, &WindowHooks::Finger_Daten},
    AskedHook{0xA3, 0xA3, &WindowHooks::Finger_Kennung}};

TEST_F(Antwort_Verteilen_Reply, each_reply_that_a_window_asked_for_calls_its_hook_and_no_other_does) {
    for (const AskedHook& wanted : AskedHooks) {
        run.Fenster = {};
        int calls = 0;
        run.Fenster.*wanted.Called = [&calls] { ++calls; };
        for (const AskedHook& other : AskedHooks) {
            link.AnswerDue = static_cast<std::uint8_t>(wanted.Asked);
            Reply(static_cast<std::uint8_t>(other.Reply), std::vector<std::uint8_t>(20));
            EXPECT_EQ(calls, other.Reply < wanted.Reply ? 0 : 1) << wanted.Reply << " " << other.Reply;
            EXPECT_THAT(Sent(), IsEmpty()) << other.Reply;
        }
    }
}

TEST_F(Antwort_Verteilen_Reply, what_no_window_asked_for_or_not_any_more_calls_none) {
    int calls = 0;
    for (const AskedHook& hook : AskedHooks) {
        run.Fenster.*hook.Called = [&calls] { ++calls; };
    }
    for (const int due : {0x00, 0x04, 0x12, 0x66}) {
        link.AnswerDue = static_cast<std::uint8_t>(due);
        for (const AskedHook& hook : AskedHooks) {
            Reply(static_cast<std::uint8_t>(hook.Reply), std::vector<std::uint8_t>(20));
            EXPECT_EQ(calls, 0) << due << " " << hook.Reply;
        }
    }
    // A second one is late.
    link.AnswerDue = 0x67;
    Reply(0x81, std::vector<std::uint8_t>(32));
    Reply(0x81, std::vector<std::uint8_t>(32));
    EXPECT_EQ(calls, 1);
}

TEST_F(Antwort_Verteilen_Reply, what_a_window_has_withdrawn_is_told_to_be_late) {
    int late = 0;
    run.Fenster.Leser_Verspaetet = [&late] { ++late; };
    for (const int code : {0x81, 0xA3}) {
        Reply(static_cast<std::uint8_t>(code), std::vector<std::uint8_t>(32));
    }
    EXPECT_EQ(late, 0);
    link.AnswerWithdrawn = 0x67;
    Reply(0xA3, std::vector<std::uint8_t>(32));
    EXPECT_EQ(late, 0);
    Reply(0x81, std::vector<std::uint8_t>(32));
    EXPECT_EQ(late, 1);
    link.AnswerWithdrawn = 0xA3;
    Reply(0xA3, std::vector<std::uint8_t>(32));
    EXPECT_EQ(late, 2);
}

TEST_F(Antwort_Verteilen_Reply, a_refused_login_leaves_the_code_change_to_its_window) {
    RunOutcome told = RunOutcome::Open;
    run.Fenster.Code_Abgelehnt = [&told](RunOutcome why) { told = why; };
    link.Lauf.Chain.CodeChangePending = 0xFF;
    Reply(0x69, {0x65});
    EXPECT_EQ(told, RunOutcome::Refused);
    EXPECT_EQ(link.Lauf.Chain.CodeChangePending, 0xFF);
    Reply(0x69, {0x64});
    EXPECT_EQ(told, RunOutcome::NotReached);
    EXPECT_EQ(link.Lauf.Chain.CodeChangePending, 0xFF);
}

TEST_F(Antwort_Verteilen_Reply, an_enrolment_is_answered_by_many_steps_until_it_is_done) {
    int steps = 0;
    int pieces = 0;
    run.Fenster.Finger_Schritt = [&steps] { ++steps; };
    run.Fenster.Finger_Daten = [&pieces] { ++pieces; };
    link.AnswerDue = 0xA1;
    std::vector<std::uint8_t> step(11);
    for (const int code : {0x0C, 0x1C, 0x0D}) {
        step[10] = static_cast<std::uint8_t>(code);
        Reply(0xA1, step);
    }
    Reply(0xA2, {1, 1, 7});
    EXPECT_EQ(steps, 3);
    EXPECT_EQ(pieces, 1);
    step[10] = 0x0A;
    Reply(0xA1, step);
    EXPECT_EQ(link.AnswerDue, 0);
    Reply(0xA1, step);
    Reply(0xA2, {1, 1, 7});
    EXPECT_EQ(steps, 4);
    EXPECT_EQ(pieces, 1);
}

TEST_F(Antwort_Verteilen_Reply, the_user_window_goes_on_at_0xDC_only_while_a_transponder_is_awaited) {
    int ends = 0;
    int cards = 0;
    run.Fenster.Leser_Fertig = [&ends] { ++ends; };
    run.Fenster.Karte_Quittung = [&cards] { ++cards; };
    Reply(0x6F, {0xDC});
    link.AnswerDue = 0x6F;
    Reply(0x6F, {0xDC});
    EXPECT_EQ(cards, 1);
    EXPECT_EQ(ends, 0);
    link.AnswerDue = 0xA3;
    Reply(0x6F, {0xD1});
    EXPECT_EQ(ends, 0);
    Reply(0x6F, {0xDC});
    Reply(0x6F, {0xDC});
    EXPECT_EQ(ends, 1);
}

// Phases.

TEST_F(Antwort_Verteilen_Reply, behind_a_cancel_only_replies_that_close_the_session_act) {
    link.Lauf.Chain.Phase = RunPhase::Closing;
    for (const int code : {0x04, 0x07, 0x09, 0x0A, 0x0E, 0x15, 0x17, 0x19, 0x25, 0x27, 0x28, 0x29, 0x2F, 0x4A}) {
        ReplyStatus(static_cast<std::uint8_t>(code), 4);
        EXPECT_THAT(Sent(), IsEmpty()) << code;
        EXPECT_EQ(Step, nullptr) << code;
    }
    Reply(0x05);
    EXPECT_EQ(Step, Schritt_Schloss_Ende);
    link.Lauf.Chain.UnitModus = 0xFD;
    Reply(0x05);
    EXPECT_THAT(Sent(), ElementsAre(0x03));
    Reply(0x03);
    EXPECT_EQ(Step, Schritt_Unit_Getrennt);
}

TEST_F(Antwort_Verteilen_Reply, without_a_run_a_late_reply_of_the_chain_does_nothing) {
    link.Lauf.Chain.Phase = RunPhase::None;
    for (const int code : {0x03, 0x04, 0x05, 0x07, 0x17, 0x27, 0x29}) {
        ReplyStatus(static_cast<std::uint8_t>(code), 4);
        EXPECT_THAT(Sent(), IsEmpty()) << code;
        EXPECT_EQ(Step, nullptr) << code;
    }
    Reply(0x4B);
    EXPECT_EQ(Step, nullptr);
    link.Lauf.Chain.CodeChangePending = 0xFF;
    ReplyStatus(0x04, 4);
    EXPECT_EQ(link.Lauf.Chain.CodeChangePending, 0);
}

TEST_F(Antwort_Verteilen_Reply, in_a_scan_only_what_was_asked_for_counts_and_only_once) {
    link.Lauf.Chain.Phase = RunPhase::None;
    link.Lauf.Chain.LaufZiel = "F20";
    for (const int asked : {0x4B, 0x04}) {
        link.Lauf.Chain.SuchMarke = asked == 0x4B ? 0xAD : 0;
        link.Lauf.Chain.SuchLauf = asked == 0x04 ? 1 : 0;
        for (const int code : {0x03, 0x04, 0x05, 0x07, 0x12, 0x17, 0x27, 0x28, 0x29, 0x48, 0x4B}) {
            link.AnswerDue = static_cast<std::uint8_t>(asked);
            ReplyStatus(static_cast<std::uint8_t>(code), 4);
            EXPECT_EQ(Step != nullptr, code == asked) << asked << " " << code;
            EXPECT_THAT(Sent(), IsEmpty()) << code;
        }
        link.AnswerDue = static_cast<std::uint8_t>(asked);
        Reply(0x69, {0x64});
        EXPECT_NE(Step, nullptr);
        Reply(0x69, {0x64});
        EXPECT_EQ(Step, nullptr);
        ReplyStatus(static_cast<std::uint8_t>(asked), 4);
        EXPECT_EQ(Step, nullptr);
    }
}

TEST_F(Antwort_Verteilen_Reply, a_lock_whose_events_could_not_be_kept_is_not_erased) {
    link.Lauf.Chain.ReadHistoryFirst = 1;
    link.Lauf.Chain.HistoryLost = HistoryLoss::Unwritten;
    Reply(0x17, HistoryReply(0xFF));
    EXPECT_THAT(Sent(), ElementsAre(0x05));
}

// Cancel.

TEST_F(Antwort_Verteilen_Reply, a_cancel_discards_the_frame_reopens_the_port_and_disconnects) {
    link.Lauf.Chain.AbbruchWunsch = 1;
    const int opens = world.Opens;
    Reply(0x0A, std::vector<std::uint8_t>(12, 0x55));
    EXPECT_EQ(Step, Abbruch_Ausfuehren);
    EXPECT_THAT(Sent(), ElementsAre(0x05));
    EXPECT_EQ(world.Opens, opens + 1);
    EXPECT_EQ(link.Lauf.Chain.AbbruchWunsch, 0);
    EXPECT_EQ(link.Rx.RxBuffer[14], 0);
}

TEST_F(Antwort_Verteilen_Reply, a_frame_that_a_cancel_took_ends_no_wait_for_the_adapter) {
    const std::vector<std::uint8_t> name = ReplyWire(0x6D, 0x1A, {});
    link.Lauf.Chain.AbbruchWunsch = 1;
    world.Deliver(name);
    world.RunFor(1);
    EXPECT_THAT(Sent(), ElementsAre(0x05));
    EXPECT_EQ(link.ReplySeen, 0);
    world.Deliver(name);
    world.RunFor(1);
    EXPECT_EQ(link.ReplySeen, 1);
}

TEST_F(Antwort_Verteilen_Reply, a_cancel_waits_while_a_lock_has_acknowledged_its_erasing_and_is_deaf) {
    link.Lauf.Order.SerialValue = SerialZ;
    link.Lauf.Chain.AbbruchWunsch = 1;
    link.TxBuffer[2] = 0x27;
    Reply(0x27);
    EXPECT_THAT(Sent(), IsEmpty());
    EXPECT_EQ(Step, Ohne_Wirkung);
    link.TxBuffer[2] = 0x08;
    Reply(0x06);
    EXPECT_EQ(Step, Abbruch_Ausfuehren);
    EXPECT_THAT(Sent(), ElementsAre(0x05));
}

TEST_F(Antwort_Verteilen_Reply, which_replies_lead_a_run_anywhere) {
    const auto leads = [this](int code, std::uint8_t reason = 0) {
        link.Rx.RxBuffer[2] = static_cast<std::uint8_t>(code);
        link.Rx.RxBuffer[3] = reason;
        link.Rx.RxLength = 15;
        link.Rx.FrameSize = 17;
        return Antwort_Fuehrt_Weiter(run);
    };
    link.TxBuffer[2] = 0x25;
    for (const int code : {0x04, 0x05, 0x0A, 0x17, 0x27, 0x2F, 0x4A}) {
        EXPECT_TRUE(leads(code)) << code;
    }
    for (const int code : {0x00, 0x03, 0x06, 0x08, 0x12, 0x4B, 0x55, 0x68, 0x6F, 0xA1, 0xFF}) {
        EXPECT_FALSE(leads(code)) << code;
    }
    for (const std::uint8_t reason : {std::uint8_t{0x64}, std::uint8_t{0x65}, std::uint8_t{0x67}}) {
        EXPECT_TRUE(leads(0x69, reason)) << int{reason};
    }
    EXPECT_FALSE(leads(0x69, 0x68));
    link.TxBuffer[2] = 0x08;
    EXPECT_FALSE(leads(0x69, 0x64));
    link.Lauf.Order.SerialValue = SerialZ;
    EXPECT_FALSE(leads(0x27)) << "the polling leads on, not the echo";
    link.Lauf.Chain.UnitModus = 0xFD;
    EXPECT_TRUE(leads(0x03));
}

// Silence.

TEST_F(Antwort_Verteilen_Reply, what_breaks_the_silence_of_a_lock) {
    const auto breaks = [this](std::uint8_t code, std::vector<std::uint8_t> bytes = {}) {
        world.RunFor(1000);
        const std::int64_t before = link.Lauf.Chain.LastAnswer;
        const std::int64_t now = world.World.Milliseconds();
        Reply(code, std::move(bytes));
        EXPECT_TRUE(link.Lauf.Chain.LastAnswer == before || link.Lauf.Chain.LastAnswer == now);
        return link.Lauf.Chain.LastAnswer == now;
    };
    TelVerbinden_Senden(link);
    for (const int code : {0x03, 0x06, 0x08, 0x12, 0x4B, 0x55, 0x68, 0x6A, 0x6C, 0x81, 0xA1, 0xFF}) {
        EXPECT_FALSE(breaks(static_cast<std::uint8_t>(code))) << code;
    }
    EXPECT_FALSE(breaks(0x69, {0x68})) << "a refusal that means nothing";
    EXPECT_TRUE(breaks(0x69, {0x67})) << "busy";
    TelVerbinden_Senden(link);
    EXPECT_TRUE(breaks(0x04, {1, 1, 1, 1, 0x0A, 0x0B, 0x0C, 0x0D, 0, 0, 0, 4}));
    EXPECT_TRUE(breaks(0x27));
    TelTrennen_Senden(link);
    link.Lauf.Chain.Phase = RunPhase::Closing;
    EXPECT_FALSE(breaks(0x0A)) << "behind a cancel only the end of the session counts";
    EXPECT_TRUE(breaks(0x05));
}

TEST_F(Antwort_Verteilen_Reply, a_polled_lock_breaks_its_silence_with_each_sign_of_life) {
    link.Lauf.Order.SerialValue = SerialZ;
    TelDatenStart_Senden(link, 0);
    const auto breaks = [this](std::uint8_t code) {
        world.RunFor(1000);
        Reply(code);
        return link.Lauf.Chain.LastAnswer == world.World.Milliseconds();
    };
    EXPECT_TRUE(breaks(0x27)) << "it acknowledges its erasing";
    for (const int code : {0x06, 0x08, 0x27}) {
        TelLebenszeichen_Senden(link);
        EXPECT_TRUE(breaks(static_cast<std::uint8_t>(code))) << code;
    }
    TelLebenszeichen_Senden(link);
    EXPECT_FALSE(breaks(0x12));
}

TEST_F(Antwort_Verteilen_Reply, a_frame_at_which_a_cancel_is_honoured_breaks_the_silence) {
    link.Lauf.Chain.AbbruchWunsch = 1;
    world.RunFor(1000);
    Reply(0x12);
    EXPECT_EQ(link.Lauf.Chain.LastAnswer, world.World.Milliseconds());
}

} // namespace
} // namespace qvm::test
