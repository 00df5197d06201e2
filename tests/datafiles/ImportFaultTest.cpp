#include "ConsoleFiles.h"

#include <gtest/gtest.h>

namespace qvm {
namespace {

using namespace test;

struct FaultCase {
    const char* Name;
    std::string Json;
    std::string Expected;
};

void PrintTo(const FaultCase& fault, std::ostream* out) {
    *out << fault.Json;
}

class Import_Pruefen_Fault : public testing::TestWithParam<FaultCase> {};

TEST_P(Import_Pruefen_Fault, is_named_by_table_record_and_field_and_nothing_is_planned) {
    EXPECT_EQ(Faults(GetParam().Json), GetParam().Expected + "\n");
    EXPECT_TRUE(Import_Pruefen(GetParam().Json).Files.empty());
}

const std::string Seventeen = "12345678901234567";

INSTANTIATE_TEST_SUITE_P(
    Documents, Import_Pruefen_Fault,
    testing::Values(
        FaultCase{"no_object", "[]", "the document is not an object"},
        FaultCase{"no_format", R"({"version":1})", R"(format: must be "qvm7702-export")"},
        FaultCase{"other_format", R"({"format":"csv","version":1})", R"(format: must be "qvm7702-export")"},
        FaultCase{"other_version", R"({"format":"qvm7702-export","version":2})", "version: must be 1"},
        FaultCase{"version_as_text", R"({"format":"qvm7702-export","version":"1"})", "version: must be 1"},
        FaultCase{"unknown_part", R"({"format":"qvm7702-export","version":1,"table":{}})",
                  "table: is not part of such a document"},
        FaultCase{"tables_as_list", R"({"format":"qvm7702-export","version":1,"tables":[]})",
                  "tables: must be an object"},
        FaultCase{"unknown_table", Document("Users", "[]"), "Users: there is no such table"},
        FaultCase{"old_table", Document("UserRecordV1", "[]"), "UserRecordV1: there is no such table"},
        FaultCase{"count_without_records", R"({"format":"qvm7702-export","version":1,"counts":{"TimeSlot":15}})",
                  "TimeSlot: has a count but no records; an empty table is []"},
        FaultCase{"count_too_high",
                  R"({"format":"qvm7702-export","version":1,"tables":{"TimeSlot":[]},"counts":{"TimeSlot":16}})",
                  "TimeSlot: the count 16 is not a number from 0 to 15"},
        FaultCase{"key_twice", R"({"format":"qvm7702-export","version":1,"version":1})",
                  "version: stands twice in one object"}),
    [](const auto& fault) { return std::string(fault.param.Name); });

INSTANTIATE_TEST_SUITE_P(
    Records, Import_Pruefen_Fault,
    testing::Values(FaultCase{"table_as_object", Document("UserRecord", "{}"), "UserRecord: must be a list of records"},
                    FaultCase{"record_as_number", Document("UserRecord", "[5]"),
                              "UserRecord: a record must be an object, not a number"},
                    FaultCase{"no_number", Document("UserRecord", R"([{"UserName":"A"}])"),
                              "UserRecord, record: is missing from 1 to 250"},
                    FaultCase{"number_zero", Document("UserRecord", R"([{"record":0}])"),
                              "UserRecord, record: 0 is not a number from 1 to 250"},
                    FaultCase{"number_too_high", Document("UserRecord", R"([{"record":251}])"),
                              "UserRecord, record: 251 is not a number from 1 to 250"},
                    FaultCase{"number_huge", Document("UserRecord", R"([{"record":18446744073709551615}])"),
                              "UserRecord, record: 18446744073709551615 is not a number from 1 to 250"},
                    FaultCase{"number_fraction", Document("UserRecord", R"([{"record":1.5}])"),
                              "UserRecord, record: 1.5 is not a number from 1 to 250"},
                    FaultCase{"record_twice", Document("LockRecord", R"([{"record":7},{"record":7}])"),
                              "LockRecord, record 7: the record stands twice"},
                    FaultCase{"unknown_field", Document("LockRecord", R"([{"record":7,"Serial":"x"}])"),
                              "LockRecord, record 7, Serial: there is no such field"}),
    [](const auto& fault) { return std::string(fault.param.Name); });

INSTANTIATE_TEST_SUITE_P(
    Fields, Import_Pruefen_Fault,
    testing::Values(FaultCase{"too_wide", Document("UserRecord", R"([{"record":3,"UserName":")" + Seventeen + R"("}])"),
                              "UserRecord, record 3, UserName: has 17 characters, the field holds 16"},
                    FaultCase{"identifier_of_21",
                              Document("UserRecord", R"([{"record":3,"FingerId":"123456789012345678901"}])"),
                              "UserRecord, record 3, FingerId: does not fit into the field"},
                    FaultCase{"outside_the_code_page", Document("UserRecord", R"([{"record":3,"UserName":"Łukasz"}])"),
                              "UserRecord, record 3, UserName: holds a character that code page 1252 does not have"},
                    FaultCase{"zero_character", Document("UserRecord", R"([{"record":3,"UserName":"A\u0000B"}])"),
                              "UserRecord, record 3, UserName: holds a zero character, behind which nobody reads"},
                    FaultCase{"code_as_number", Document("UserRecord", R"([{"record":3,"UserCode":123456}])"),
                              "UserRecord, record 3, UserCode: must be a text, not a number"},
                    FaultCase{"byte_too_high", Document("TimeSlot", R"([{"record":1,"DayIndex":256}])"),
                              "TimeSlot, record 1, DayIndex: 256 is not a number from 0 to 255"},
                    FaultCase{"byte_negative", Document("TimeSlot", R"([{"record":1,"DayIndex":-1}])"),
                              "TimeSlot, record 1, DayIndex: -1 is not a number from 0 to 255"},
                    FaultCase{"byte_as_text", Document("TimeSlot", R"([{"record":1,"DayIndex":"1"}])"),
                              R"(TimeSlot, record 1, DayIndex: "1" is not a number from 0 to 255)"}),
    [](const auto& fault) { return std::string(fault.param.Name); });

std::string Lines(std::string_view lines) {
    return R"({"format":"qvm7702-export","version":1,"lines":)" + std::string(lines) + "}";
}

INSTANTIATE_TEST_SUITE_P(
    LineFiles, Import_Pruefen_Fault,
    testing::Values(
        FaultCase{"unknown_file", Lines(R"({"passwd":[]})"), "passwd: there is no such file of lines"},
        FaultCase{"path_as_file", Lines(R"({"../EST7CSB29A.I_1":[]})"),
                  "../EST7CSB29A.I_1: there is no such file of lines"},
        FaultCase{"file_as_text", Lines(R"({"ObJNR09DAT.OBN":"x"})"), "ObJNR09DAT.OBN: must be a list of lines"},
        FaultCase{"too_many", Lines(R"({"ObJNR09DAT.OBN":["a","1","2","x"]})"),
                  "ObJNR09DAT.OBN: has 4 lines, 3 are read"},
        FaultCase{"line_as_number", Lines(R"({"ObJNR09DAT.OBN":["a",1,"2"]})"),
                  "ObJNR09DAT.OBN, line 2: must be a text, not a number"},
        FaultCase{"settings_cut", Lines(R"({"EST7CSB29A.I_1":["Deutsch"]})"), "EST7CSB29A.I_1: lines are missing"},
        FaultCase{"settings_none", Lines(R"({"EST7CSB29A.I_1":[]})"), "EST7CSB29A.I_1: lines are missing"},
        FaultCase{"settings_too_long",
                  Lines(R"({"EST7CSB29A.I_1":["Deutsch","1",")" + std::string(81, 'x') + R"(","5"]})"),
                  "EST7CSB29A.I_1, line 3: holds what the program takes for damage"},
        FaultCase{"adapter_none", Lines(R"({"CHEUSB25C.I_2":[]})"), "CHEUSB25C.I_2: lines are missing"},
        FaultCase{"adapter_blank", Lines(R"({"CHEUSB25C.I_2":[""]})"),
                  "CHEUSB25C.I_2, line 1: holds what the program takes for damage"},
        FaultCase{"line_end", Lines(R"({"ObJNR09DAT.OBN":["a\nb","1","2"]})"),
                  "ObJNR09DAT.OBN, line 1: holds a line end"},
        FaultCase{"carriage_return", Lines(R"({"ObJNR09DAT.OBN":["a","1\r","2"]})"),
                  "ObJNR09DAT.OBN, line 2: holds a line end"},
        FaultCase{"zero_character", Lines(R"({"ObJNR09DAT.OBN":["a\u0000b","1","2"]})"),
                  "ObJNR09DAT.OBN, line 1: holds a zero character, behind which nobody reads"},
        FaultCase{"outside_the_code_page", Lines(R"({"ObJNR09DAT.OBN":["\u4e2d","1","2"]})"),
                  "ObJNR09DAT.OBN, line 1: holds a character that code page 1252 does not have"}),
    [](const auto& fault) { return std::string(fault.param.Name); });

TEST(Import_Pruefen, text_that_is_no_json_is_refused_without_quoting_it) {
    const std::string text = Faults(R"({"tables":{"UserRecord":[{"UserCode":"654321" oops)");
    EXPECT_TRUE(text.starts_with("not a JSON document: ")) << text;
    EXPECT_EQ(text.find("654321"), std::string::npos);
    EXPECT_EQ(text.find("oops"), std::string::npos);
}

TEST(Import_Pruefen, broken_utf8_is_refused) {
    EXPECT_TRUE(Faults("{\"format\":\"\xFF\"}").starts_with("not a JSON document: "));
}

TEST(Import_Pruefen, very_deep_nesting_is_refused_without_a_crash) {
    EXPECT_NE(Faults(std::string(200000, '[')), "");
}

TEST(Import_Pruefen, all_faults_are_named_not_only_the_first) {
    EXPECT_EQ(
        Faults(Document("UserRecord", R"([{"record":1,"UserName":5,"Colour":"red"},{"record":1},{"record":900}])")),
        "UserRecord, record 1, UserName: must be a text, not a number\n"
        "UserRecord, record 1, Colour: there is no such field\n"
        "UserRecord, record 1: the record stands twice\n"
        "UserRecord, record: 900 is not a number from 1 to 250\n");
}

std::string Often(std::string_view text, int times) {
    std::string all;
    for (int n = 0; n < times; ++n) {
        all += (n > 0 ? "," : "") + std::string(text);
    }
    return all;
}

TEST(Import_Pruefen, a_hundred_faults_are_told_and_the_others_counted) {
    const ImportPlan plan = Import_Pruefen(Document("UserRecord", "[" + Often("{}", 1000000) + "]"));
    ASSERT_EQ(plan.Faults.size(), 100U);
    EXPECT_EQ(Befund_Text(plan.Faults[99]), "UserRecord, record: is missing from 1 to 250");
    EXPECT_EQ(plan.MoreFaults, 999900U);
    EXPECT_TRUE(plan.Files.empty());
}

TEST(Import_Pruefen, the_faults_of_one_record_are_counted_likewise) {
    const ImportPlan plan = Import_Pruefen(
        Document("LockRecord", R"([{"Name":"A",)" + Often(R"("Name":"B")", 200000) + R"(,"record":7}])"));
    ASSERT_EQ(plan.Faults.size(), 100U);
    EXPECT_EQ(Befund_Text(plan.Faults[0]), "LockRecord, record 7, Name: stands twice in one object");
    EXPECT_EQ(plan.MoreFaults, 199900U);
}

TEST(Import_Pruefen, the_faults_of_a_record_without_a_good_number_count_too) {
    EXPECT_EQ(Faults(Document("LockRecord", R"([{"Serial":"x"},{"record":201,"Serial":"x"},
                                                {"record":7},{"record":7,"Name":5}])")),
              "LockRecord, record: is missing from 1 to 200\n"
              "LockRecord, Serial: there is no such field\n"
              "LockRecord, record: 201 is not a number from 1 to 200\n"
              "LockRecord, Serial: there is no such field\n"
              "LockRecord, record 7: the record stands twice\n"
              "LockRecord, record 7, Name: must be a text, not a number\n");
}

TEST(Import_Pruefen, a_table_or_a_count_that_stands_twice_is_a_fault) {
    EXPECT_EQ(Faults(R"({"format":"qvm7702-export","version":1,"counts":{"TimeSlot":1,"TimeSlot":2},
                     "tables":{"TimeSlot":[],"TimeSlot":[{"record":1}]},
                     "lines":{"ObJNR09DAT.OBN":[],"ObJNR09DAT.OBN":["a"]}})"),
              "TimeSlot: stands twice in one object\n"
              "TimeSlot: stands twice in one object\n"
              "ObJNR09DAT.OBN: stands twice in one object\n");
}

TEST(Import_Pruefen, what_is_nested_where_a_value_belongs_is_one_fault) {
    const std::string deep = std::string(100000, '[') + std::string(100000, ']');
    EXPECT_EQ(Faults(Document("UserRecord", R"([{"record":1,"UserName":)" + deep + R"(,"UserCode":{"a":{"a":1}}}])")),
              "UserRecord, record 1, UserName: must be a text, not a array\n"
              "UserRecord, record 1, UserCode: must be a text, not a object\n");
}

TEST(Import_Pruefen, the_parts_may_come_in_any_order) {
    const ImportPlan plan = Import_Pruefen(
        R"({"tables":{"LockEmiRecord":[{"Emi":"X","record":3}]},"version":1,"counts":{"LockEmiRecord":5},"format":"qvm7702-export"})");
    ASSERT_EQ(plan.Files.size(), 1U);
    EXPECT_EQ(plan.Files[0].Bytes, "  X  ");
}

TEST(Import_Pruefen, a_piece_that_no_data_file_holds_is_refused_before_it_is_read) {
    const std::string longest(32766, 'A'); // two quotes besides
    EXPECT_EQ(Faults(Document("UserRecord", R"([{"record":1,"UserName":")" + longest + R"("}])")),
              "UserRecord, record 1, UserName: has 32766 characters, the field holds 16\n");
    for (const std::string& piece :
         {"\"" + longest + "A\"", "\"" + longest + "AA", std::string(32769, '1'), std::string(32769, ' ') + "1"}) {
        EXPECT_EQ(Faults("[" + piece + "]"), "the text, number or run of blanks at byte 2 is longer than 32768 bytes; "
                                             "nothing in the data files is\n");
    }
}

TEST(Import_Pruefen, an_escaped_quote_does_not_end_a_text) {
    const ImportPlan plan = Import_Pruefen(Document("UserRecord", R"([{"record":1,"UserName":"a\"b\\"}])"));
    ASSERT_EQ(plan.Files.size(), 1U);
    EXPECT_EQ(plan.Files[0].Bytes.substr(0, 4), "a\"b\\");
}

TEST(Import_Pruefen, a_text_of_exactly_the_fields_width_is_good) {
    const ImportPlan plan = Import_Pruefen(Document("UserRecord", R"([{"record":1,"UserName":"ÄÖÜ4567890123456"}])"));
    ASSERT_TRUE(plan.Faults.empty());
    EXPECT_EQ(plan.Files[0].Bytes.substr(0, 16), "\xC4\xD6\xDC"
                                                 "4567890123456");
}

TEST(Import_Pruefen, records_between_are_blank_and_the_count_gives_the_length) {
    const ImportPlan plan = Import_Pruefen(
        R"({"format":"qvm7702-export","version":1,"counts":{"LockEmiRecord":5},"tables":{"LockEmiRecord":[{"record":3,"Emi":"X"}]}})");
    ASSERT_EQ(plan.Files.size(), 1U);
    EXPECT_EQ(plan.Files[0].Name, "LSOEMIPART.LMT");
    EXPECT_EQ(plan.Files[0].Bytes, "  X  ");
}

TEST(Import_Pruefen, records_may_come_in_any_order) {
    const ImportPlan plan =
        Import_Pruefen(Document("LockEmiRecord", R"([{"record":3,"Emi":"X"},{"record":1,"Emi":"Y"}])"));
    ASSERT_EQ(plan.Files.size(), 1U);
    EXPECT_EQ(plan.Files[0].Bytes, "Y X" + std::string(197, ' '));
}

} // namespace
} // namespace qvm
