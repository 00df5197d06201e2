#include "Export.h"

#include "ConsoleFiles.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace qvm {
namespace {

using namespace test;
using Json = nlohmann::ordered_json;
using namespace std::string_literals;

class Export : public testing::Test {
protected:
    Json Make() { return Export_Erstellen(Disk.Store(), Dat, Faults); }

    MemoryFiles Disk;
    std::vector<Finding> Faults;
};

/// User 2: name at 0, group at 16, right at 31, code at 35, label at 45, key at 61, flag at 195, finger at 197, mask at
/// 218. User 1 is empty.
std::string TwoUsers() {
    const std::string blank(419, ' ');
    std::string second = blank;
    second = Put(second, 0, "J\xFCrgen\0\0\0\0\0\0\0\0\0\0"s);
    second = Put(second, 16, "PB_2008TimA");
    second = Put(second, 31, "1/2");
    second = Put(second, 35, "123456");
    second = Put(second, 195, "--");
    second = Put(second, 218, "-X--F");
    return blank + second;
}

TEST_F(Export, a_user_stands_with_the_fields_of_the_record_and_an_empty_one_is_left_out) {
    Disk.Files[Dat + "BX10X52WUJ9.UBW"] = TwoUsers();
    EXPECT_EQ(Make(), Json::parse(R"({
        "format": "qvm7702-export", "version": 1,
        "counts": {"UserRecord": 2},
        "tables": {"UserRecord": [{"record": 2, "UserName": "Jürgen", "UserGroupId": "PB_2008TimA",
            "UserRight": "1/2", "UserCode": "123456", "FingerFlag": "--", "LockMask": "-X--F"}]},
        "lines": {}})"));
    EXPECT_TRUE(Faults.empty());
}

TEST_F(Export, a_missing_file_is_left_out_and_an_empty_one_is_an_empty_list) {
    Disk.Files[Dat + "KL10X49WTTI.CBW"] = "";
    const Json document = Make();
    EXPECT_EQ(document["tables"], Json::parse(R"({"CalendarEntry": []})"));
    EXPECT_EQ(document["counts"], Json::parse(R"({"CalendarEntry": 0})"));
}

TEST_F(Export, a_day_selector_is_a_number) {
    Disk.Files[Dat + "TX33Y98BSG9.TBW"] = "\x08"
                                          "07:0017:30";
    EXPECT_EQ(Make()["tables"]["TimeSlot"],
              Json::parse(R"([{"record": 1, "DayIndex": 8, "From": "07:00", "To": "17:30"}])"));
}

TEST_F(Export, a_text_ends_at_its_first_zero_byte_and_keeps_blanks_on_its_left) {
    std::string user(419, ' ');
    user = Put(user, 0, "Anna\0garbage"s);
    user = Put(user, 45, "  Ring 7 ");
    Disk.Files[Dat + "BX10X52WUJ9.UBW"] = user;
    EXPECT_EQ(Make()["tables"]["UserRecord"],
              Json::parse(R"([{"record": 1, "UserName": "Anna", "KeyLabel": "  Ring 7"}])"));
}

TEST_F(Export, a_lock_mask_is_taken_whole_even_behind_a_zero_byte) {
    std::string user(419, ' ');
    user = Put(user, 0, "Anna");
    user = Put(user, 218, "X\0-F"s);
    Disk.Files[Dat + "BX10X52WUJ9.UBW"] = user;
    EXPECT_EQ(Make()["tables"]["UserRecord"][0]["LockMask"].get<std::string>(), "X\0-F"s);
}

TEST_F(Export, a_partial_last_record_counts_as_far_as_it_goes) {
    Disk.Files[Dat + "T4OFFSETGST.FST"] = "Late                10:0";
    EXPECT_EQ(Make()["tables"]["GuestOffset"], Json::parse(R"([{"record": 1, "Name": "Late", "Time": "10:0"}])"));
}

TEST_F(Export, records_that_no_reader_looks_at_are_not_exported) {
    const std::string blank(38, ' ');
    Disk.Files[Dat + "T4OFFSETGST.FST"] = blank + blank + blank + blank + Put(blank, 0, "Fifth");
    const Json document = Make();
    EXPECT_EQ(document["tables"]["GuestOffset"], Json::array());
    EXPECT_EQ(document["counts"]["GuestOffset"], 4);
}

TEST_F(Export, the_old_forms_of_the_user_table_are_not_exported) {
    Disk.Files[Dat + "BX08HAZJNT9.UBW"] = std::string(276, 'a');
    EXPECT_EQ(Make()["tables"], Json::object());
}

TEST_F(Export, a_file_of_lines_is_a_list_without_its_line_ends) {
    Disk.Files[Dat + "EST7CSB29A.I_1"] = "Deutsch\r\n1\r\nUSB-Port3\r\n12\r\n";
    Disk.Files[Dat + "CHEUSB25C.I_2"] = "RESET     \r\nab   ";
    EXPECT_EQ(Make()["lines"], Json::parse(R"({"EST7CSB29A.I_1": ["Deutsch", "1", "USB-Port3", "12"],
                                               "CHEUSB25C.I_2": ["RESET     ", "ab   "]})"));
}

TEST_F(Export, lines_behind_the_last_one_that_is_read_are_left_out) {
    Disk.Files[Dat + "ObJNR09DAT.OBN"] = "05.03.2026\r\n7\r\n8\r\nmore\r\n";
    EXPECT_EQ(Make()["lines"]["ObJNR09DAT.OBN"], Json::parse(R"(["05.03.2026", "7", "8"])"));
}

TEST_F(Export, a_file_that_cannot_be_read_is_named) {
    Disk.Files[Dat + "BX10X52WUJ9.UBW"] = TwoUsers();
    Disk.FailAt = 1;
    Make();
    ASSERT_EQ(Faults.size(), 1U);
    EXPECT_EQ(Befund_Text(Faults[0]), "UserRecord: the file BX10X52WUJ9.UBW cannot be read");
}

} // namespace
} // namespace qvm
