// The binary: a spreadsheet of users or locks into the data files, all of it or nothing.

#include "VirtualLocks.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <map>
#include <nlohmann/json.hpp>
#include <unistd.h>

namespace qvm {
namespace {

using namespace test;
using testing::HasSubstr;
using Json = nlohmann::json;

class Binary_Table : public testing::Test {
protected:
    VirtualLocks Locks;

    RunResult Take(const std::string& sheet, std::vector<std::string> more = {}) {
        std::vector<std::string> arguments{"import", "--csv", Locks.Directory.Write("sheet.csv", sheet)};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return Run(arguments);
    }
    RunResult Run(std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), {"--dir", Locks.Directory.Path()});
        return Qvmctl(arguments);
    }
    /// All data files with their bytes.
    std::map<std::string, std::string> Data() const {
        std::map<std::string, std::string> files;
        for (const std::string& name : Locks.Directory.List("DAT")) {
            files[name] = Locks.Directory.Read("DAT/" + name);
        }
        return files;
    }
    Json Table(const std::string& name) { return Json::parse(Run({"export"}).Out)["tables"][name]; }
};

TEST_F(Binary_Table, of_users_is_shown_and_written) {
    const RunResult result = Take("Right,Name,1,2\r\n0,Zo\xC3\xAB,,X\r\n,\"Cora\",x,\r\n");
    EXPECT_EQ(result.Code, 0) << result.Err;
    EXPECT_EQ(result.Out, "New: 1, changed: 1, refused: 0, removed: 0\n"
                          "Not in the file, stays as it is: 1 (Bert)\n"
                          "line 2, Zo\xC3\xAB: Right: 1 > 0\n"
                          "line 2, Zo\xC3\xAB: 1: X > (empty)\n"
                          "line 2, Zo\xC3\xAB: 2: (empty) > X\n"
                          "line 3, Cora: new\n"
                          "line 3, Cora: Name: (empty) > Cora\n"
                          "line 3, Cora: 1: (empty) > X\n");
    EXPECT_EQ(result.Err, "Written.\n");
    const Json users = Table("UserRecord");
    ASSERT_EQ(users.size(), 250U);
    EXPECT_EQ(users[0]["UserRight"], "0");
    EXPECT_EQ(users[0]["UserCode"], "918273");
    EXPECT_THAT(users[0]["LockMask"].get<std::string>(), testing::StartsWith("-XX-"));
    EXPECT_EQ(users[2]["UserName"], "Cora");
    EXPECT_FALSE(users[2].contains("UserCode"));
    EXPECT_EQ(Take("Right,Name,1,2\r\n0,Zo\xC3\xAB,,X\r\n,Cora,x,\r\n").Err,
              "The file changes nothing. Nothing was written.\n");
}

TEST_F(Binary_Table, of_locks_is_told_by_its_headings) {
    const RunResult result = Take("Name;Serial no.;Priority\nTor;00.0A.10.01;2\nFern;00.0A.10.0F;\n");
    EXPECT_EQ(result.Code, 0) << result.Err;
    EXPECT_THAT(result.Out, HasSubstr("line 3, Fern: Serial no.: 00.0A.10.03 > 00.0A.10.0F\n"));
    EXPECT_EQ(Table("LockPrioRecord")[0]["Prio"], "2");
    EXPECT_EQ(Table("LockRecord")[2]["Sn4"], "0F");
    EXPECT_EQ(Table("ChannelRecord")[2]["LockChange"], "1");
    EXPECT_EQ(Table("ChannelRecord")[0]["LockChange"], "0");
}

TEST_F(Binary_Table, that_is_only_to_be_shown_is_not_written) {
    const auto before = Data();
    const RunResult result = Take("Name;Right\nBert;1\n", {"--dry-run"});
    EXPECT_EQ(result.Code, 0);
    EXPECT_THAT(result.Out, HasSubstr("line 2, Bert: Right: ADMI > 1\n"));
    EXPECT_EQ(result.Err, "Only shown. Nothing was written.\n");
    EXPECT_EQ(Data(), before);
}

TEST_F(Binary_Table, with_a_refusal_is_not_written_at_all) {
    const auto before = Data();
    const RunResult result = Take("Name;Right\nBert;1\nCora;9\n");
    EXPECT_EQ(result.Code, 1);
    EXPECT_THAT(result.Out, HasSubstr("line 3, Cora: Right: 9: none of the possible values\n"));
    EXPECT_EQ(result.Err, "Something is refused. Nothing was written.\n");
    EXPECT_EQ(Data(), before);
}

TEST_F(Binary_Table, that_is_none_changes_nothing) {
    const auto before = Data();
    EXPECT_EQ(Take("Anna;1\n").Err, "The line with the headings of the export is missing in the file. Nothing was "
                                    "written.\n");
    EXPECT_EQ(Take("Name;Name\nBert;1\n").Err, "The heading \"Name\" stands twice in the file. Nothing was written.\n");
    EXPECT_EQ(Take("Name;Size\nBert;1\n").Err, "The heading \"Size\" is not known. Nothing was written.\n");
    EXPECT_EQ(Take("Name\n\"Bert\n").Err, "The quote in line 2 is not closed. Nothing was written.\n");
    EXPECT_EQ(Take(std::string("Name\n\0", 6)).Err, "The file is not a text table (CSV). Nothing was written.\n");
    EXPECT_EQ(Take("Name\n" + std::string(9U << 20U, 'x')).Err, "The file is too large for a table. Nothing was "
                                                                "written.\n");
    const std::string big = Locks.Directory.Write("big.csv", "");
    ASSERT_EQ(truncate(big.c_str(), off_t{100} << 20), 0);
    EXPECT_EQ(Run({"import", "--csv", big}).Err, "The file " + big + " is larger than 64 MB, the most that is read.\n");
    EXPECT_EQ(Run({"import", "--csv", big}).Code, 1);
    EXPECT_EQ(Data(), before);
}

TEST_F(Binary_Table, is_a_document_when_documents_are_wanted) {
    const RunResult result = Take("Name;Right\nBert;1\n", {"--json", "--dry-run"});
    EXPECT_EQ(Json::parse(result.Out),
              Json::parse(R"({"command":"import","ok":true,"table":"users","written":false,"added":0,"changed":1,
"refused":0,"removed":0,"missing":["Zoë"],"left":[],"steps":[{"kind":"changed","line":2,"name":"Bert","number":2,
"column":"Right","old":"ADMI","new":"1"}]})"));
    EXPECT_EQ(Run({"import", "--dry-run", "-"}).Code, 1); // a document is always taken
}

} // namespace
} // namespace qvm
