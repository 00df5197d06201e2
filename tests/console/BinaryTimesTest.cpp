// What the built program tells of times: the tables, and who comes in when.

#include "VirtualLocks.h"

#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>

namespace qvm::test {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;
using Document = nlohmann::json;

// The 23.11.2026 is a Monday, the 25.12.2026 a Friday.
constexpr const char* Tables = R"({
"TimeSlot":[
 {"record":1,"DayIndex":0,"From":"00:00","To":"00:00"},{"record":2,"DayIndex":8,"From":"07:00","To":"18:00"},
 {"record":3,"DayIndex":0,"From":"00:00","To":"00:00"},{"record":4,"DayIndex":7,"From":"22:30","To":"23:59"},
 {"record":5,"DayIndex":6,"From":"08:00","To":"12:15"},
 {"record":11,"DayIndex":10,"From":"00:00","To":"05:00"},{"record":12,"DayIndex":9,"From":"10:00","To":"11:00"}],
"TimeGroup":[
 {"record":3,"Num":"3","Name":"Putzdienst","Days":"-X-X------","Count":"2","PbId":"PB_800000003"},
 {"record":4,"Num":"4","Name":"Leer","Days":"----------","Count":"0","PbId":"PB_800000004"}],
"LockTimeGroup":[{"record":1,"Num":"1","Name":"Nacht","Days":"XX---","Count":"2","PbId":"PB_700000001"}],
"LockGroupRecord":[{"record":1,"GroupId":"PB_700000001","GroupName":"Nacht"}],
"CalendarEntry":[{"record":1,"DateFrom":"24.12.2026","DateTo":"26.12.2026","Kind":"0"},
 {"record":22,"DateFrom":"31.12. - -","DateTo":"02.01. - -","Kind":" "}],
"GuestOffset":[{"record":1,"Name":"Brunch","Time":"01:00","Base":"09:30","OffsetId":"OFST0x01"}],
"UserRecord":[
 {"record":1,"UserName":"Zoë","UserGroupId":"PB_800000003","LockMask":"XX"},
 {"record":2,"UserName":"Bert","UserGroupId":"-","LockMask":"XX"},
 {"record":3,"UserName":"Kim","UserGroupId":"PB_811111111","LockMask":"X"},
 {"record":4,"UserName":"Lea","UserGroupId":"PB_800000004","LockMask":"X"},
 {"record":5,"UserName":"Max","UserGroupId":"PB_2008TimA","LockMask":"XX"},
 {"record":6,"UserName":"Nora","UserGroupId":"PB_2008TimB"}],
"LockRecord":[
 {"record":1,"Name":"Tor","Sn1":"01","Sn2":"20","Sn3":"00","Sn4":"01","Switch1":"X","Switch2":"X","Switch3":"X",
  "Switch4":"X","Switch5":"X"},
 {"record":2,"Name":"Alt","Sn1":"00","Sn2":"0A","Sn3":"10","Sn4":"02","Switch1":"X"},
 {"record":3,"Name":"Ohne Serie"}]})";

struct Binary_Times : ::testing::Test {
    VirtualLocks Locks;

    Binary_Times() { Locks.Import(Document::parse(Tables), Document::object()); }
    RunResult Run(const std::vector<std::string>& arguments) { return Locks.RunHere(arguments); }
};

TEST_F(Binary_Times, are_listed) {
    const RunResult times = Run({"times"});
    EXPECT_EQ(times.Code, 0) << times.Err;
    EXPECT_THAT(times.Out, HasSubstr("Slots\n"
                                     "Clock   Slot  Day      From   To\n"
                                     "person  1     off      00:00  00:00\n"
                                     "person  2     Mon-Fri  07:00  18:00\n"));
    EXPECT_THAT(times.Out, HasSubstr("lock    2     Sat-Sun  10:00  11:00\n"));
    EXPECT_THAT(times.Out, HasSubstr("\n\nGroups\n"
                                     "Clock   Group  Name        Slots       Id\n"
                                     "person  1      Timer-A     XXXXX-----  PB_2008TimA\n"
                                     "person  2      Timer-B     -----XXXXX  PB_2008TimB\n"
                                     "person  3      Putzdienst  -X-X------  PB_800000003\n"
                                     "person  4      Leer        ----------  PB_800000004\n"
                                     "lock    1      Nacht       XX---       PB_700000001\n"
                                     "\n"
                                     "Holidays\n"
                                     "Calendar   Row  From        To          Kind\n"
                                     "single     1    24.12.2026  26.12.2026  single\n"
                                     "permanent  1    31.12. - -  02.01. - -  permanent\n"
                                     "\n"
                                     "Offsets\n"
                                     "Offset  Name    Time   Base   Id\n"
                                     "1       Brunch  01:00  09:30  OFST0x01\n"));
    const Document found = Document::parse(Run({"--json", "times"}).Out);
    EXPECT_EQ(found["slots"][1],
              (Document{{"clock", "person"}, {"slot", "2"}, {"day", "Mon-Fri"}, {"from", "07:00"}, {"to", "18:00"}}));
    EXPECT_EQ(found["holidays"].size(), 2U);
    EXPECT_EQ(found["holidays"][0]["kind"], "single");
    EXPECT_EQ(found["offsets"][0]["name"], "Brunch");
}

TEST_F(Binary_Times, say_at_the_last_minute_of_a_slot_who_comes_in_and_why) {
    const RunResult result = Run({"when", "1", "--at", "25.12.2026 18:00"});
    EXPECT_EQ(result.Code, 0) << result.Err;
    EXPECT_EQ(result.Out, "Lock 1 \"Tor\" 01.20.00.01, Fri 25.12.2026 18:00\n"
                          "User  Name  Group         In   Why\n"
                          "1     Zoë   Putzdienst    yes  slot 2 Mon-Fri 07:00-18:00\n"
                          "2     Bert                yes  no group: at any time\n"
                          "3     Kim   PB_811111111  yes  its group is not there any more: the lock is sent no limit\n"
                          "4     Lea   Leer          yes  its group has no slot: the lock is sent no limit\n"
                          "5     Max   Timer-A       yes  slot 2 Mon-Fri 07:00-18:00\n"
                          "Lock timers: on, sent are 1 Mon-Sun 00:00-05:00, 2 Sat-Sun 10:00-11:00; none holds\n"
                          "Holidays: on, holiday 24.12.2026 to 26.12.2026 (single)\n");
}

TEST_F(Binary_Times, say_a_minute_later_that_the_slot_is_over) {
    const RunResult result = Run({"when", "1", "1", "--at", "25.12.2026 18:01"});
    EXPECT_THAT(result.Out, HasSubstr("no  outside of slot 2 Mon-Fri 07:00-18:00, 4 Sun 22:30-23:59\n"));
    EXPECT_THAT(result.Out, Not(HasSubstr("Bert")));
}

TEST_F(Binary_Times, tell_a_permanent_holiday_over_the_turn_of_the_year_and_the_lock_timer_that_holds) {
    const RunResult result = Run({"when", "1", "1", "--at", "02.01.2028 10:30"}); // a Sunday
    EXPECT_THAT(result.Out, HasSubstr("; holding: 2 Sat-Sun 10:00-11:00\n"));
    EXPECT_THAT(result.Out, HasSubstr("Holidays: on, holiday 31.12. to 02.01. (permanent)\n"));
    EXPECT_THAT(Run({"when", "1", "1", "--at", "03.01.2028 10:30"}).Out, HasSubstr("Holidays: on, no holiday\n"));
}

TEST_F(Binary_Times, tell_of_an_old_lock_that_it_knows_two_timers_only) {
    const RunResult result = Run({"when", "2", "--at", "29.11.2026 12:00"}); // a Sunday
    EXPECT_THAT(
        result.Out,
        HasSubstr("1     Zoë   Putzdienst  yes  the lock knows Timer-A and Timer-B only: it is sent no limit\n"));
    EXPECT_THAT(result.Out, HasSubstr("5     Max   Timer-A     no   outside of slot 1 off, 2 Mon-Fri 07:00-18:00, "
                                      "3 off, 4 Sun 22:30-23:59, 5 Sat 08:00-12:15\n"));
    EXPECT_THAT(result.Out, HasSubstr("Lock timers: off, none is sent\nHolidays: off, no holiday\n"));
}

TEST_F(Binary_Times, draw_the_week) {
    const std::string workday = std::string(14, '.') + std::string(22, '#') + "+" + std::string(11, '.');
    const std::string none(48, '.');
    EXPECT_EQ(
        Run({"when", "1", "1", "--at", "26.12.2026 00:00", "--week"}).Out,
        "Lock 1 \"Tor\" 01.20.00.01, Sat 26.12.2026 00:00\n"
        "User 1 \"Zoë\", Putzdienst\n"
        "                0     3     6     9     12    15    18    21    24\n"
        "Mon 21.12.2026 |" +
            workday + "| 07:00-18:00\n" + "Tue 22.12.2026 |" + workday + "| 07:00-18:00\n" + "Wed 23.12.2026 |" +
            workday + "| 07:00-18:00\n" + "Thu 24.12.2026 |" + workday + "| 07:00-18:00 holiday\n" +
            "Fri 25.12.2026 |" + workday + "| 07:00-18:00 holiday\n" + "Sat 26.12.2026 |" + none + "| holiday\n" +
            "Sun 27.12.2026 |" + std::string(45, '.') +
            "###| 22:30-23:59\n"
            "Lock timers: on, sent are 1 Mon-Sun 00:00-05:00, 2 Sat-Sun 10:00-11:00; holding: 1 Mon-Sun 00:00-05:00\n"
            "Holidays: on, holiday 24.12.2026 to 26.12.2026 (single)\n");
    EXPECT_THAT(Run({"when", "1", "6", "--week"}).Out, HasSubstr("User 6 \"Nora\", no access to this lock\n"));
}

TEST_F(Binary_Times, are_told_as_a_document) {
    const RunResult result = Run({"--json", "when", "1", "6", "--at", "23.11.2026 08:00", "--week"});
    const Document found = Document::parse(result.Out);
    EXPECT_EQ(found["ok"], true);
    EXPECT_EQ(found["at"], "23.11.2026 08:00");
    EXPECT_EQ(found["holiday"], nullptr);
    EXPECT_EQ(found["calendar"], true);
    EXPECT_EQ(found["lockTimers"]["slots"].size(), 2U);
    ASSERT_EQ(found["users"].size(), 1U);
    EXPECT_EQ(found["users"][0]["admitted"], false);
    EXPECT_EQ(found["users"][0]["why"], "no-mark");
    EXPECT_EQ(found["users"][0]["week"].size(), 7U);
    const Document zoe = Document::parse(Run({"--json", "when", "1", "1", "--at", "29.11.2026 23:00"}).Out)["users"][0];
    EXPECT_EQ(zoe["why"], "slot");
    EXPECT_EQ(zoe["holding"], Document::array({Document{{"slot", 4}, {"day", 7}, {"from", "22:30"}, {"to", "23:59"}}}));
}

TEST_F(Binary_Times, refuse_what_they_cannot_answer) {
    for (const std::vector<std::string>& arguments : {std::vector<std::string>{"when", "3"},
                                                      {"when", "4"},
                                                      {"when", "1", "7"},
                                                      {"when", "1", "251"},
                                                      {"when", "201"},
                                                      {"when", "1", "--at", "31.11.2026 10:00"},
                                                      {"when", "1", "--at", "30.11.1999 10:00"},
                                                      {"when"}}) {
        const RunResult result = Run(arguments);
        EXPECT_EQ(result.Code, 1) << ::testing::PrintToString(arguments);
        EXPECT_NE(result.Err, "") << ::testing::PrintToString(arguments);
        EXPECT_EQ(result.Out, "") << ::testing::PrintToString(arguments);
    }
}

TEST_F(Binary_Times, know_no_permanent_holiday_behind_the_twentieth) {
    const std::string unused(21, ' ');
    std::ofstream file(Locks.Directory.Path() + "DAT/KL10X49WTTI.CBW", std::ios::binary | std::ios::trunc);
    for (int record = 1; record <= 40; ++record) {
        file << unused;
    }
    file << "24.12. - -26.12. - - "
         << "01.05. - -02.05. - - ";
    file.close();
    const std::string told = Run({"times"}).Out;
    EXPECT_THAT(told, HasSubstr("permanent  20   24.12. - -  26.12. - -  permanent\n"));
    EXPECT_THAT(told, Not(HasSubstr("01.05.")));
}

TEST_F(Binary_Times, cannot_be_told_from_files_that_cannot_be_read) {
    const std::string file = Locks.Directory.Path() + "DAT/TX33Y98BSG9.TBW";
    std::filesystem::remove(file);
    std::filesystem::create_directory(file);
    for (const std::vector<std::string>& arguments : {std::vector<std::string>{"times"}, {"when", "1"}}) {
        const RunResult result = Run(arguments);
        EXPECT_EQ(result.Code, 1) << arguments.front();
        EXPECT_NE(result.Err, "") << arguments.front();
    }
}

} // namespace
} // namespace qvm::test
