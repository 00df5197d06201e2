// qvmctl events: arguments in; output and exit code out.

#include "RunBinary.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <sys/stat.h>

namespace qvm {
namespace {

using namespace test;
using testing::HasSubstr;
using Json = nlohmann::json;

class Binary_Events : public testing::Test {
protected:
    RunResult Events(std::vector<std::string> arguments, const std::string& input = {}) {
        arguments.insert(arguments.begin(), {"--dir", directory.Path(), "events"});
        return Qvmctl(arguments, input);
    }
    /// Two history files of two locks, the later one first in the making.
    void SetUp() override {
        directory.Write("DAT/LSOEMIPART.LMT", "YY");
        directory.Write("HIST/H_20260306_070000_Tor.HST", "Tor  /  SNA : 01.02.03.04\r\n"
                                                          "Anna            \t06.03.2026\t06:59\tCode\r\n");
        directory.Write("HIST/H_20260305_103000_Büro.HST", "00.0A.10.01\r\n"
                                                           "J\xFCrgen          \t04.03.2026\t08:15\tCode\r\n"
                                                           "\t\t\tZustand: Stufe 2\r\n"
                                                           "Anna            \t05.03.2026\t09:00\tE-Key\r\n");
        directory.Write("HIST/notes.txt", "no history\n");
    }

    TempDirectory directory;
};

TEST_F(Binary_Events, prints_every_file_of_hist_in_the_order_of_time) {
    const RunResult result = Events({});
    EXPECT_EQ(result.Code, 0);
    EXPECT_EQ(result.Err, "");
    const std::string hist = directory.Path() + "HIST/";
    EXPECT_EQ(result.Out, hist +
                              "H_20260305_103000_Büro.HST: 00.0A.10.01\n"
                              "Jürgen  04.03.2026  08:15  Code   Zustand: Stufe 2\n"
                              "Anna    05.03.2026  09:00  E-Key\n" +
                              hist +
                              "H_20260306_070000_Tor.HST: Tor  /  SNA : 01.02.03.04\n"
                              "Anna  06.03.2026  06:59  Code\n");
}

TEST_F(Binary_Events, prints_only_the_named_files_and_needs_no_data_directory_for_it) {
    TempDirectory other;
    const std::string file = directory.Path() + "HIST/H_20260306_070000_Tor.HST";
    const RunResult result = Qvmctl({"--dir", other.Path(), "events", file});
    EXPECT_EQ(result.Code, 0) << result.Err;
    EXPECT_EQ(result.Out, file + ": Tor  /  SNA : 01.02.03.04\nAnna  06.03.2026  06:59  Code\n");
}

TEST_F(Binary_Events, reads_standard_input) {
    const RunResult result = Events({"-"}, "00.0A.10.01\nAnna\t06.03.2026\t06:59\tCode");
    EXPECT_EQ(result.Code, 0);
    EXPECT_EQ(result.Out, "-: 00.0A.10.01\nAnna  06.03.2026  06:59  Code\n");
}

TEST_F(Binary_Events, finds_a_name_as_the_search_window_does) {
    const std::string found = "Jürgen  04.03.2026  08:15  Code  Zustand: Stufe 2\n";
    const RunResult upper = Events({"--name", "JÜRGEN"});
    EXPECT_EQ(upper.Code, 0);
    EXPECT_THAT(upper.Out, testing::EndsWith(found));
    EXPECT_EQ(upper.Out.find("Tor"), std::string::npos);
    EXPECT_EQ(Events({"--name", "Jür"}).Out, "");
    EXPECT_EQ(Events({"--name", "Jürgen Ω"}).Out, "");
}

TEST_F(Binary_Events, finds_a_day) {
    EXPECT_THAT(Events({"--date", "05.03.2026"}).Out, testing::EndsWith("\nAnna  05.03.2026  09:00  E-Key\n"));
    EXPECT_EQ(Events({"--date", "07.03.2026"}).Out, "");
    EXPECT_EQ(Events({"--date", "07.03.2026"}).Code, 0);
}

TEST_F(Binary_Events, finds_an_event_or_a_state) {
    EXPECT_THAT(Events({"--event", "e-key"}).Out, testing::EndsWith("\nAnna  05.03.2026  09:00  E-Key\n"));
    EXPECT_THAT(Events({"--event", "zustand: stufe 2"}).Out, HasSubstr("Jürgen"));
}

TEST_F(Binary_Events, wants_all_filters_to_hold) {
    EXPECT_EQ(Events({"--name", "Anna", "--event", "Code", "--date", "05.03.2026"}).Out, "");
    EXPECT_THAT(Events({"--name", "Anna", "--event", "Code", "--date", "06.03.2026"}).Out, HasSubstr("06:59"));
}

TEST_F(Binary_Events, writes_a_semicolon_table_with_quotes_where_they_are_needed) {
    const std::string file = directory.Write("a.hst", "00.0A.10.01\r\nA;B \"C\"\t04.03.2026\t08:15\tCode\r\n");
    const RunResult result = Events({"--csv", file});
    EXPECT_EQ(result.Code, 0);
    EXPECT_EQ(result.Out, "file;lock;name;date;time;event;state\n" + file +
                              ";00.0A.10.01;\"A;B \"\"C\"\"\";04.03.2026;08:15;Code;\n");
}

TEST_F(Binary_Events, writes_one_document) {
    const RunResult result = Events({"--json", "--name", "Jürgen"});
    EXPECT_EQ(result.Code, 0);
    const Json document = Json::parse(result.Out);
    EXPECT_EQ(document, Json({{"command", "events"},
                              {"ok", true},
                              {"exit", 0},
                              {"messages", Json::array()},
                              {"files",
                               {{{"file", directory.Path() + "HIST/H_20260305_103000_Büro.HST"},
                                 {"lock", "00.0A.10.01"},
                                 {"events",
                                  {{{"name", "Jürgen"},
                                    {"date", "04.03.2026"},
                                    {"time", "08:15"},
                                    {"event", "Code"},
                                    {"state", "Zustand: Stufe 2"}}}}}}}}));
}

TEST_F(Binary_Events, a_file_that_is_missing_is_told_and_the_others_are_printed) {
    const std::string file = directory.Path() + "HIST/H_20260306_070000_Tor.HST";
    const RunResult result = Events({directory.Path() + "none.HST", file});
    EXPECT_EQ(result.Code, 1);
    EXPECT_EQ(result.Err, "The file " + directory.Path() + "none.HST is not there.\n");
    EXPECT_THAT(result.Out, HasSubstr("06:59"));
    const Json document = Json::parse(Events({"--json", directory.Path() + "none.HST"}).Out);
    EXPECT_EQ(document["ok"], false);
    EXPECT_EQ(document["exit"], 1);
    EXPECT_EQ(document["messages"][0], "The file " + directory.Path() + "none.HST is not there.");
    EXPECT_EQ(document["files"], Json::array());
}

TEST_F(Binary_Events, a_directory_is_no_file) {
    const RunResult result = Events({directory.Path() + "HIST"});
    EXPECT_EQ(result.Code, 1);
    EXPECT_THAT(result.Err, HasSubstr("cannot be read"));
}

TEST_F(Binary_Events, lines_that_are_no_events_are_counted_and_no_fault) {
    const std::string file = directory.Write("a.HST", "00.0A.10.01\r\nhalf a li\tne\r\n\r\n\t\t\tlost state\r\n");
    const RunResult result = Events({file});
    EXPECT_EQ(result.Code, 0);
    EXPECT_EQ(result.Out, file + ": 00.0A.10.01\nno events\n");
    EXPECT_EQ(result.Err, file + ": 2 lines are neither event nor state.\n");
}

TEST_F(Binary_Events, control_characters_of_a_file_do_not_reach_the_terminal) {
    const RunResult result = Events({"-"}, std::string("\x1B[31m\nA\x07\x7F\t1\x1B\t2\t\x81\r\n"));
    EXPECT_EQ(result.Out, "-:  [31m\nA  1   2  ?\n");
}

TEST_F(Binary_Events, an_installation_without_history_is_told_and_no_fault) {
    TempDirectory other;
    other.Write("DAT/LSOEMIPART.LMT", "YY");
    const RunResult result = Qvmctl({"--dir", other.Path(), "events"});
    EXPECT_EQ(result.Code, 0);
    EXPECT_EQ(result.Out, "");
    EXPECT_EQ(result.Err, "There are no history files in " + other.Path() + "HIST.\n");
    EXPECT_FALSE(other.Has("HIST"));
}

TEST_F(Binary_Events, a_directory_without_data_is_a_fault) {
    TempDirectory other;
    const RunResult result = Qvmctl({"--dir", other.Path(), "events"});
    EXPECT_EQ(result.Code, 1);
    EXPECT_THAT(result.Err, HasSubstr("There is no directory"));
}

TEST_F(Binary_Events, wrong_use_is_told) {
    EXPECT_THAT(Events({"--date", "2026-03-05"}).Err, HasSubstr("--date: 2026-03-05 is not a date DD.MM.YYYY"));
    EXPECT_EQ(Events({"--date", "30.02.2026"}).Code, 1);
    EXPECT_THAT(Events({"--csv", "--json"}).Err, HasSubstr("--csv and --json exclude each other"));
    EXPECT_EQ(Events({"--csv", "--json"}).Code, 1);
    EXPECT_EQ(Events({"--lock", "3"}).Code, 1);
}

TEST_F(Binary_Events, the_help_names_the_filters) {
    const RunResult result = Events({"--help"});
    EXPECT_EQ(result.Code, 0);
    for (const char* word : {"--name", "--date", "--event", "--csv", "FILE"}) {
        EXPECT_THAT(result.Out, HasSubstr(word));
    }
}

TEST_F(Binary_Events, reading_changes_no_file) {
    const std::string before = directory.Read("HIST/H_20260306_070000_Tor.HST");
    Events({});
    EXPECT_EQ(directory.Read("HIST/H_20260306_070000_Tor.HST"), before);
    EXPECT_EQ(directory.List("HIST").size(), 3U);
}

} // namespace
} // namespace qvm
