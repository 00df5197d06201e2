// The binary: arguments in; output, exit code and files out. Commands that need no lock.

#include "RunBinary.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <sys/stat.h>
#include <unistd.h>

namespace qvm {
namespace {

using namespace test;
using namespace std::string_literals;
using testing::ElementsAre;
using testing::HasSubstr;
using Json = nlohmann::json;

class Binary : public testing::Test {
protected:
    RunResult Run(std::vector<std::string> arguments, const std::string& input = {}) {
        arguments.insert(arguments.begin(), {"--dir", Directory.Path()});
        return Qvmctl(arguments, input);
    }

    TempDirectory Directory;
};

const std::string Users = "DAT/BX10X52WUJ9.UBW", Emi = "DAT/LSOEMIPART.LMT";

/// One user with a code: name at 0, code at 35, flag at 195, mask at 218.
std::string OneUser() {
    std::string user(419, ' ');
    user.replace(0, 16, "Zo\xEB\0\0\0\0\0\0\0\0\0\0\0\0\0"s);
    user.replace(35, 6, "918273");
    user.replace(195, 2, "--");
    user.replace(218, 200, std::string(200, '-'));
    return user;
}

// Wrong use.

TEST_F(Binary, without_a_command_is_wrong_use) {
    const RunResult result = Run({});
    EXPECT_EQ(result.Code, 1);
    EXPECT_EQ(result.Out, "");
    EXPECT_THAT(result.Err, HasSubstr("subcommand"));
}

TEST_F(Binary, an_unknown_command_or_option_is_wrong_use) {
    EXPECT_EQ(Run({"erase"}).Code, 1);
    EXPECT_EQ(Run({"check", "--fast"}).Code, 1);
}

TEST_F(Binary, lock_numbers_go_from_1_to_200) {
    EXPECT_EQ(Run({"program", "0"}).Code, 1);
    EXPECT_EQ(Run({"program", "201"}).Code, 1);
    EXPECT_EQ(Run({"program", "one"}).Code, 1);
    EXPECT_EQ(Run({"program"}).Code, 1);
    EXPECT_EQ(Run({"dataset", "1", "2"}).Code, 1);
}

TEST_F(Binary, a_lock_named_twice_is_wrong_use) {
    const RunResult result = Run({"program", "3", "4", "3"});
    EXPECT_EQ(result.Code, 1);
    EXPECT_THAT(result.Err, HasSubstr("lock 3 is named twice"));
}

TEST_F(Binary, a_cut_off_is_a_date_that_is_not_to_come_and_needs_a_history) {
    EXPECT_THAT(Run({"history", "1", "--since", "2026-01-01"}).Err, HasSubstr("is not a date DD.MM.YYYY"));
    EXPECT_THAT(Run({"history", "1", "--since", "30.02.2020"}).Err, HasSubstr("is not a date DD.MM.YYYY"));
    EXPECT_THAT(Run({"history", "1", "--since", "01.01.2999"}).Err, HasSubstr("lies in the future"));
    EXPECT_THAT(Run({"program", "1", "--since", "01.01.2020"}).Err, HasSubstr("--since needs --history"));
    EXPECT_EQ(Run({"program", "1", "--since", "01.01.2020"}).Code, 1);
}

TEST_F(Binary, erase_is_keep_or_wipe) {
    EXPECT_EQ(Run({"program", "1", "--erase", "all"}).Code, 1);
}

TEST_F(Binary, help_goes_to_standard_output_and_is_no_fault) {
    const RunResult result = Qvmctl({"--help"});
    EXPECT_EQ(result.Code, 0);
    EXPECT_THAT(result.Out, HasSubstr("program locks from the data files"));
    EXPECT_EQ(result.Err, "");
}

// Export and import.

TEST_F(Binary, exports_to_standard_output_and_imports_into_an_empty_directory_with_the_same_bytes) {
    Directory.Write(Users, OneUser());
    const RunResult exported = Run({"export"});
    ASSERT_EQ(exported.Code, 0) << exported.Err;
    EXPECT_EQ(exported.Err, "");
    EXPECT_EQ(Json::parse(exported.Out)["tables"]["UserRecord"][0]["UserName"], "Zoë");
    TempDirectory other;
    const RunResult imported = Qvmctl({"--dir", other.Path(), "import", "-"}, exported.Out);
    EXPECT_EQ(imported.Code, 0) << imported.Err;
    EXPECT_EQ(other.Read(Users), OneUser());
    EXPECT_THAT(other.List("DAT"), ElementsAre("BX10X52WUJ9.UBW"));
}

TEST_F(Binary, an_export_to_a_file_is_for_its_owner_only) {
    Directory.Write(Users, OneUser());
    const std::string file = Directory.Path() + "all.json";
    const RunResult result = Run({"export", file});
    EXPECT_EQ(result.Code, 0) << result.Err;
    EXPECT_EQ(result.Out.find("918273"), std::string::npos);
    EXPECT_EQ(Json::parse(Directory.Read("all.json"))["counts"]["UserRecord"], 1);
    struct stat status {};
    ASSERT_EQ(stat(file.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777U, 0600U);
}

TEST_F(Binary, an_import_replaces_and_keeps_a_dated_copy) {
    Directory.Write(Emi, "YY");
    const std::string document = Directory.Write("new.json", R"({"format":"qvm7702-export","version":1,
        "tables":{"LockEmiRecord":[{"record":1,"Emi":"X"}]}})");
    const RunResult result = Run({"--json", "import", document});
    ASSERT_EQ(result.Code, 0) << result.Err;
    const Json report = Json::parse(result.Out);
    EXPECT_EQ(report["ok"], true);
    EXPECT_EQ(report["replaced"], Json::parse(R"(["LSOEMIPART.LMT"])"));
    EXPECT_EQ(Directory.Read(Emi), "X" + std::string(199, ' ')); // as many records as every save leaves
    const std::string backup = report["backup"];
    ASSERT_THAT(backup, testing::MatchesRegex(".*/DAT/backup-[0-9]+-[0-9]+/"));
    EXPECT_EQ(Directory.Read(backup.substr(Directory.Path().size()) + "LSOEMIPART.LMT"), "YY");
}

TEST_F(Binary, an_import_with_faults_names_them_all_and_writes_nothing) {
    Directory.Write(Emi, "YY");
    const std::string document = Directory.Write("bad.json", R"({"format":"qvm7702-export","version":1,"tables":{
        "LockEmiRecord":[{"record":1,"Emi":"X"}],
        "UserRecord":[{"record":251},{"record":1,"UserCode":12345678}]}})");
    const RunResult result = Run({"import", document});
    EXPECT_EQ(result.Code, 1);
    EXPECT_EQ(result.Err, "UserRecord, record: 251 is not a number from 1 to 250\n"
                          "UserRecord, record 1, UserCode: must be a text, not a number\n"
                          "2 faults. Nothing was written.\n");
    EXPECT_EQ(Directory.Read(Emi), "YY");
    EXPECT_THAT(Directory.List("DAT"), ElementsAre("LSOEMIPART.LMT"));
}

TEST_F(Binary, faults_of_an_import_are_one_document_on_request) {
    const RunResult result = Run({"import", "-", "--json"}, "{}");
    EXPECT_EQ(result.Code, 1);
    const Json report = Json::parse(result.Out);
    EXPECT_EQ(report["ok"], false);
    EXPECT_EQ(report["faults"].size(), 2U);
    EXPECT_EQ(report["faults"][0]["field"], "format");
}

TEST_F(Binary, text_that_is_no_json_is_refused) {
    const RunResult result = Run({"import", "-"}, "UserName;UserCode\nAnna;123456\n");
    EXPECT_EQ(result.Code, 1);
    EXPECT_THAT(result.Err, HasSubstr("not a JSON document"));
    EXPECT_FALSE(Directory.Has("DAT"));
}

TEST_F(Binary, a_document_that_is_not_there_is_a_fault) {
    const RunResult result = Run({"import", Directory.Path() + "missing.json"});
    EXPECT_EQ(result.Code, 1);
    EXPECT_THAT(result.Err, HasSubstr("is not there"));
}

TEST_F(Binary, an_export_to_a_directory_that_is_not_there_is_a_fault) {
    Directory.Write(Users, OneUser());
    const RunResult result = Run({"--json", "export", Directory.Path() + "no/such/file.json"});
    EXPECT_EQ(result.Code, 1);
    EXPECT_THAT(result.Err, HasSubstr("cannot be written"));
    EXPECT_EQ(Json::parse(result.Out)["command"], "export");
    EXPECT_EQ(Json::parse(result.Out)["ok"], false);
}

TEST_F(Binary, a_directory_without_data_is_a_fault_and_stays_as_it_is) {
    for (const std::vector<std::string>& command : std::vector<std::vector<std::string>>{
             {"check"}, {"export"}, {"dataset", "1"}, {"program", "1"}, {"history", "1"}}) {
        std::vector<std::string> arguments = command;
        arguments.push_back("--json");
        const RunResult result = Run(arguments);
        EXPECT_EQ(result.Code, 1);
        EXPECT_EQ(result.Err, "There is no directory " + Directory.Path() + "DAT.\n");
        EXPECT_EQ(Json::parse(result.Out),
                  Json({{"command", command[0]},
                        {"ok", false},
                        {"exit", 1},
                        {"messages", {"There is no directory " + Directory.Path() + "DAT."}}}));
        EXPECT_THAT(Directory.List(""), ElementsAre());
    }
}

TEST_F(Binary, input_that_is_not_there_is_one_document_on_request) {
    const std::string missing = Directory.Path() + "missing";
    for (const std::string command : {"import", "decode"}) {
        const RunResult result = Run({"--json", command, missing});
        EXPECT_EQ(result.Code, 1);
        EXPECT_EQ(Json::parse(result.Out), Json({{"command", command},
                                                 {"ok", false},
                                                 {"exit", 1},
                                                 {"messages", {"The file " + missing + " is not there."}}}));
    }
}

TEST_F(Binary, an_export_of_a_file_that_cannot_be_read_is_one_document_on_request) {
    Directory.Write(Emi + "/inside", "x");
    const RunResult result = Run({"--json", "export"});
    EXPECT_EQ(result.Code, 1);
    EXPECT_EQ(Json::parse(result.Out)["messages"],
              Json({"LockEmiRecord: the file LSOEMIPART.LMT cannot be read: it is a directory and not a file",
                    "Nothing was exported."}));
}

TEST_F(Binary, an_import_into_a_directory_that_cannot_be_made_is_a_fault) {
    // A plain file stands where the data directory should be, which holds for the administrator as well.
    Directory.Write("DAT", "in the way");
    const RunResult result =
        Run({"import", "-"}, R"({"format":"qvm7702-export","version":1,"tables":{"LockEmiRecord":[]}})");
    EXPECT_EQ(result.Code, 1);
    EXPECT_THAT(result.Err, HasSubstr("cannot be made"));
    EXPECT_EQ(Directory.Read("DAT"), "in the way");
}

TEST_F(Binary, an_import_that_cannot_be_finished_puts_back_what_it_replaced) {
    Directory.Write(Emi, "YY");
    // The second file cannot be replaced: a directory of its name stands there.
    Directory.Write("DAT/ObJNR09DAT.OBN/inside", "x");
    const RunResult result = Run({"import", "-"}, R"({"format":"qvm7702-export","version":1,
        "tables":{"LockEmiRecord":[{"record":1,"Emi":"X"}]},"lines":{"ObJNR09DAT.OBN":["a","1","2"]}})");
    EXPECT_EQ(result.Code, 1);
    EXPECT_THAT(result.Err, HasSubstr("ObJNR09DAT.OBN"));
    EXPECT_EQ(Directory.Read(Emi), "YY");
    EXPECT_EQ(Directory.Read("DAT/ObJNR09DAT.OBN/inside"), "x");
}

// Check.

/// As many users as every save of the program leaves, the first ones given.
std::string All_Users(const std::string& first) {
    return first + std::string(std::size_t{250} * 419 - first.size(), ' ');
}

TEST_F(Binary, a_check_of_files_in_order_ends_with_0) {
    Directory.Write(Users, All_Users(OneUser()));
    Directory.Write("QVM_Deutsch.DAT", "x\r\n");
    const RunResult result = Run({"check"});
    EXPECT_EQ(result.Code, 0);
    EXPECT_EQ(result.Out, "All data files are in order.\n");
}

TEST_F(Binary, a_check_with_findings_ends_with_1_and_shows_no_code) {
    const std::string second = OneUser().replace(0, 3, "Max");
    Directory.Write(Users, All_Users(OneUser() + second));
    Directory.Write("QVM_Deutsch.DAT", "x\r\n");
    const RunResult result = Run({"check"});
    EXPECT_EQ(result.Code, 1);
    EXPECT_EQ(result.Out, "doubled  UserRecord, record 2, UserCode: is the same as that of user 1\n1 finding\n");
}

TEST_F(Binary, findings_are_one_document_on_request) {
    Directory.Write(Users, OneUser().substr(0, 400));
    Directory.Write("QVM_Deutsch.DAT", "x\r\n");
    const RunResult result = Run({"check", "--json"});
    EXPECT_EQ(result.Code, 1);
    EXPECT_EQ(Json::parse(result.Out), Json::parse(R"({"command":"check","clean":false,"findings":[
        {"table":"UserRecord","record":0,"field":"","kind":"damaged",
         "text":"the length of 400 bytes is not a multiple of 419"},
        {"table":"UserRecord","record":0,"field":"","kind":"damaged",
         "text":"ends with record 1, the program leaves at least 250"}]})"));
}

TEST_F(Binary, a_check_names_a_language_file_that_is_missing_or_too_long) {
    Directory.Write("DAT/EST7CSB29A.I_1", "English\r\n2\r\nUSB-Port3\r\n5\r\n");
    EXPECT_EQ(Run({"check"}).Out, "dangling  QVM_English.DAT: the language file is missing\n1 finding\n");
    std::string lines;
    for (int n = 0; n < 300; ++n) {
        lines += "x\r\n";
    }
    Directory.Write("QVM_English.DAT", lines);
    EXPECT_EQ(Run({"check"}).Code, 0);
    Directory.Write("QVM_English.DAT", lines + "x\r\n");
    EXPECT_EQ(Run({"check"}).Out, "damaged  QVM_English.DAT: has 301 lines, 300 are read\n1 finding\n");
}

// Decode.

TEST_F(Binary, decodes_bytes_typed_by_hand) {
    // 02 0D 05: TelTrennen to 00.0A.10.01, header 11 00 33 88 01 00 00; the sum of these 14 bytes is 0x9D.
    const RunResult result = Run({"decode"}, "02 0D 05 00 0A 10 01 11 00 33 88 01 00 00 9D\n");
    EXPECT_EQ(result.Code, 0) << result.Err;
    EXPECT_EQ(result.Out, "> TelTrennen: address 00 0A 10 01, device class 17, mode 0\n");
}

TEST_F(Binary, decodes_a_file_and_reports_what_makes_no_sense) {
    const std::string file = Directory.Write("bytes.txt", "# a remark\nhello\n");
    const RunResult result = Run({"decode", file, "--json"});
    EXPECT_EQ(result.Code, 1);
    const Json report = Json::parse(result.Out);
    EXPECT_EQ(report["frames"], Json::array());
    EXPECT_EQ(report["errors"][0]["line"], 2);
}

TEST_F(Binary, hides_the_administrator_code_of_a_login) {
    // TelVerbinden L 0x14: code 1A 42 12 at 14 to 16, EE, channel 5, AA, 55; the sum is wrong, which is remarked.
    const RunResult result = Run({"decode"}, "> 02 14 04 00 0A 10 01 11 00 33 88 01 00 00 1A 42 12 EE 05 AA 55 00\n");
    EXPECT_EQ(result.Code, 0);
    EXPECT_THAT(result.Out, HasSubstr("administrator code hidden"));
    EXPECT_EQ(result.Out.find("1A"), std::string::npos);
    EXPECT_EQ(result.Out.find("104212"), std::string::npos);
}

} // namespace
} // namespace qvm
