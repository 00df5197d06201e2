// What the reports say.

#include "ReportsFixture.h"

#include <gmock/gmock.h>
#include <vector>

namespace qvm::test {
namespace {

using testing::ElementsAre;
using Row = std::vector<std::string>;

struct Berichte : Reports {
    Berichte() {
        Lock(1, "Gate");
        Lock(2, "Server room");
        Lock(200, "Attic");
        User(1, "Anna", "Timer-A", "ADMI");
        Set(1, UserColumn::Code, "918273");
        Set(1, UserColumn::KeyId, "AA BB CC DD");
        Set(1, UserColumn::KeyLabel, "Ring 1");
        Mark(1, 1, 'X');
        Mark(1, 200, 'X');
        User(250, "Zo\xEB");
        Set(250, UserColumn::KeyId, "#1234");
        Mark(250, 2, 'F');
        Mark(250, 1, 'X');
        User(3, "Kim", "-", "0");
        Set(3, UserColumn::KeyLabel, "Slot_Nr:4711");
    }
};

TEST_F(Berichte, of_people_have_users_by_number_with_both_kinds_of_locks) {
    const Report report = Bericht_Benutzer(kern, table);
    EXPECT_EQ(report.Title, "Users and their locks");
    EXPECT_EQ(report.System, "QVM 7702 SOFTWARE SYSTEM");
    EXPECT_EQ(report.Moment, "05.03.2026 10:30");
    ASSERT_EQ(report.Parts.size(), 1U);
    EXPECT_THAT(report.Parts[0].Table.Headings,
                ElementsAre("No.", "Name", "Timer group", "Right", "E-Key / transponder", "Locks", "By fingerprint"));
    EXPECT_THAT(report.Parts[0].Table.Rows,
                ElementsAre(Row{"1", "Anna", "Timer-A", "ADMI", "E-Key: Ring 1",
                                "1\xA0Gate, 200\xA0"
                                "Attic",
                                ""},
                            Row{"3", "Kim", "-", "0", "", "", ""},
                            Row{"250", "Zo\xEB", "-", "1", "Transponder", "1\xA0Gate", "2\xA0Server room"}));
}

TEST_F(Berichte, a_letter_in_another_colour_than_that_of_a_mark_is_none) {
    table.FGK4.SetForeColor(UserGrid::RowOf(1), UserGrid::ColumnOf(1), UserLook::MarkNone);
    EXPECT_EQ(Bericht_Benutzer(kern, table).Parts[0].Table.Rows[0][5], "200\xA0"
                                                                       "Attic");
}

TEST_F(Berichte, of_doors_have_what_one_user_opens) {
    const Report report = Bericht_Tueren(kern, table, 250);
    EXPECT_EQ(report.Title, "Locks of the user");
    EXPECT_EQ(report.Subtitle, "User 250: Zo\xEB");
    ASSERT_EQ(report.Parts.size(), 1U);
    EXPECT_THAT(report.Parts[0].Table.Headings, ElementsAre("No.", "Door lock", "Access"));
    EXPECT_THAT(report.Parts[0].Table.Rows,
                ElementsAre(Row{"1", "Gate", "access"}, Row{"2", "Server room", "access by fingerprint"}));
    EXPECT_TRUE(Bericht_Tueren(kern, table, 3).Parts[0].Table.Rows.empty());
}

TEST_F(Berichte, of_persons_have_who_opens_one_lock) {
    const Report report = Bericht_Personen(kern, table, 1, "Gate");
    EXPECT_EQ(report.Title, "Users of the lock");
    EXPECT_EQ(report.Subtitle, "Lock 1: Gate");
    EXPECT_THAT(report.Parts[0].Table.Headings,
                ElementsAre("No.", "Name", "Timer group", "E-Key / transponder", "Access"));
    EXPECT_THAT(report.Parts[0].Table.Rows, ElementsAre(Row{"1", "Anna", "Timer-A", "E-Key: Ring 1", "access"},
                                                        Row{"250", "Zo\xEB", "-", "Transponder", "access"}));
    EXPECT_TRUE(Bericht_Personen(kern, table, 3, "").Parts[0].Table.Rows.empty());
}

/// Slots 1 to 10 of the persons: weekdays 07:00 to 18:00 in slot 1, off in slot 2, weekends in slot 3.
std::string Slots() {
    return std::string("\x08"
                       "07:0018:00") +
           std::string("\0"
                       "00:0000:00",
                       11) +
           "\x09"
           "09:3012:00" +
           std::string(11 * 12, '\0');
}

TEST_F(Berichte, a_receipt_says_what_where_and_when_and_has_room_to_sign) {
    Welt.Disk.Files["/qvm/DAT/TX33Y98BSG9.TBW"] = Slots();
    const auto report = Bericht_Empfang(kern, table, 1);
    ASSERT_TRUE(report);
    EXPECT_EQ(report->Title, "Receipt");
    EXPECT_EQ(report->Subtitle, "User 1: Anna");
    ASSERT_EQ(report->Parts.size(), 4U);
    EXPECT_THAT(report->Parts[0].Table.Rows, ElementsAre(Row{"E-Key", "Ring 1"}, Row{"Personal code", ""}));
    EXPECT_EQ(report->Parts[1].Heading, "Locks");
    EXPECT_THAT(report->Parts[1].Table.Rows, ElementsAre(Row{"1", "Gate"}, Row{"200", "Attic"}));
    EXPECT_EQ(report->Parts[2].Heading, "Times");
    EXPECT_EQ(report->Parts[2].Text, "Timer group: Timer-A");
    EXPECT_THAT(report->Parts[2].Table.Rows,
                ElementsAre(Row{"Monday - Friday", "07:00", "18:00"}, Row{"Saturday - Sunday", "09:30", "12:00"}));
    EXPECT_THAT(report->Parts[3].Text, testing::StartsWith("I have received the items listed."));
    EXPECT_THAT(report->Signatures, ElementsAre("Place, date", "Signature", "Handed out by"));
}

TEST_F(Berichte, a_receipt_says_any_time_for_who_is_held_to_no_slot) {
    const auto report = Bericht_Empfang(kern, table, 250);
    ASSERT_TRUE(report);
    EXPECT_THAT(report->Parts[0].Table.Rows, ElementsAre(Row{"Transponder", ""}));
    EXPECT_EQ(report->Parts[2].Text, "at any time");
    EXPECT_TRUE(report->Parts[2].Table.Headings.empty());
    table.GroupTablePerson[3].Name = "Night";
    table.GroupTablePerson[3].Days = "----------";
    Set(250, UserColumn::Group, "Night");
    EXPECT_EQ(Bericht_Empfang(kern, table, 250)->Parts[2].Text, "at any time") << "a group without a slot";
}

// A lock is sent the slots of the group, all of them switched off.
TEST_F(Berichte, a_receipt_says_at_no_time_for_a_group_whose_slots_are_all_off) {
    const auto when = [this] { return Bericht_Empfang(kern, table, 1)->Parts[2]; };
    EXPECT_EQ(when().Text, "Timer group: Timer-A, at no time for now") << "no file";
    Welt.Disk.Files["/qvm/DAT/TX33Y98BSG9.TBW"] = std::string(15 * 11, '\0');
    EXPECT_EQ(when().Text, "Timer group: Timer-A, at no time for now");
    EXPECT_TRUE(when().Table.Headings.empty());
    Welt.Disk.Files["/qvm/DAT/TX33Y98BSG9.TBW"] = Slots().substr(0, 22);
    EXPECT_THAT(when().Table.Rows, ElementsAre(Row{"Monday - Friday", "07:00", "18:00"}))
        << "slots that the file lacks";
}

TEST_F(Berichte, a_receipt_is_not_made_when_a_slot_of_the_group_has_a_day_that_is_none) {
    std::string slots = Slots();
    slots[0] = '\xFF';
    Welt.Disk.Files["/qvm/DAT/TX33Y98BSG9.TBW"] = slots;
    EXPECT_FALSE(Bericht_Empfang(kern, table, 1));
    EXPECT_TRUE(Bericht_Empfang(kern, table, 250)) << "who is held to no slot";
    // The day table has twelve places, of which the last means no day.
    slots[0] = '\x0B';
    Welt.Disk.Files["/qvm/DAT/TX33Y98BSG9.TBW"] = slots;
    EXPECT_THAT(Bericht_Empfang(kern, table, 1)->Parts[2].Table.Rows,
                ElementsAre(Row{"Saturday - Sunday", "09:30", "12:00"}));
}

TEST_F(Berichte, a_receipt_is_not_made_when_the_times_cannot_be_read) {
    Welt.Disk.Files["/qvm/DAT/TX33Y98BSG9.TBW"] = Slots();
    Welt.Disk.Operations = 0;
    Welt.Disk.FailAt = 1;
    EXPECT_FALSE(Bericht_Empfang(kern, table, 1));
}

TEST_F(Berichte, of_events_have_the_lines_given_and_say_when_the_file_has_more) {
    const std::vector<ReportEvent> events{{"Gate", "", "", ""}, {"Anna  ", "05.03.2026", "09:00", "E-Key"}};
    const Report report = Bericht_Ereignisse(kern, "H_1.HST", events);
    EXPECT_EQ(report.Title, "History");
    EXPECT_EQ(report.Subtitle, "H_1.HST");
    ASSERT_EQ(report.Parts.size(), 1U);
    EXPECT_THAT(report.Parts[0].Table.Headings, ElementsAre("Name", "Date", "Time", "Event"));
    EXPECT_THAT(report.Parts[0].Table.Rows,
                ElementsAre(Row{"Gate", "", "", ""}, Row{"Anna", "05.03.2026", "09:00", "E-Key"}));
}

TEST_F(Berichte, speak_the_language_in_use) {
    Speak("Nederlands");
    EXPECT_EQ(Bericht_Benutzer(kern, table).Title, "Gebruikers en hun sloten");
    EXPECT_EQ(Bericht_Personen(kern, table, 1, "Gate").Subtitle, "Slot 1: Gate");
    Speak("Francais");
    EXPECT_EQ(Bericht_Tueren(kern, table, 1).Title, "Serrures de l'utilisateur");
    Speak("Deutsch");
    EXPECT_EQ(Bericht_Ereignisse(kern, "", {}).Title, "Historie");
}

} // namespace
} // namespace qvm::test
