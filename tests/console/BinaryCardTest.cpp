// Guest cards, through the built programs.

#include "VirtualLocks.h"

#include <fstream>
#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

namespace qvm::test {
namespace {

using testing::HasSubstr;

/// The installation, as an object of group 9, and a card writer.
struct Binary_Cards : testing::Test {
    VirtualLocks Locks;

    void Start(const nlohmann::json& desk, const std::string& mode = "OBJEKT") {
        Write("ASWTIMQVMLCK.FSN", "x\r\n" + mode + "\r\nX\r\n0\r\n0\r\n0\r\n0\r\n0\r\n0\r\n0\r\nENDE\r\n");
        Write("ObJNR09DAT.OBN", "x\r\n9\r\n10\r\n");
        nlohmann::json world = VirtualLocks::World();
        world["adapter"]["name"] = "ENROLLMENT1";
        world["desk"] = desk;
        Locks.StartWorld(world);
    }
    void Write(const std::string& name, const std::string& bytes) const {
        std::ofstream(Locks.Directory.Path() + "DAT/" + name, std::ios::binary) << bytes;
    }
    RunResult Card(const std::vector<std::string>& more) const {
        std::vector<std::string> arguments{"--json",           "card",  "write",           "--in",
                                           "24.12.2026 15:00", "--out", "02.01.2027 10:30"};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return Locks.RunHere(arguments);
    }
};

const nlohmann::json BlankCard{{"card", nlohmann::json::object()}};

TEST_F(Binary_Cards, write_what_the_command_line_says) {
    Start(BlankCard);
    const RunResult result = Card({"--door", "2", "1", "--group", "4"});
    EXPECT_EQ(result.Code, 0) << result.Err;
    const auto document = nlohmann::json::parse(result.Out);
    EXPECT_EQ(document["text"], "card written");
    EXPECT_EQ(document["doors"], nlohmann::json::array({2, 1}));
    EXPECT_EQ(document["entries"], 7); // group, four places of permanent doors, two doors
    EXPECT_EQ(Locks.Stop(), "");
    const auto card = Locks.State()["desk"]["card"];
    EXPECT_EQ(card["mode"], "object");
    EXPECT_EQ(card["group"], 4);
    EXPECT_EQ(card["check_in"], "24.12.2026 15:00");
    EXPECT_EQ(card["check_out"], "02.01.2027 10:30");
    EXPECT_EQ(card["slots"], nlohmann::json::array({1}));
    ASSERT_EQ(card["doors"].size(), 2U);
    EXPECT_EQ(card["doors"][0]["serial"], Tor);
    EXPECT_EQ(card["doors"][1]["serial"], Leer);
}

TEST_F(Binary_Cards, are_read_with_the_battery) {
    Start({{"card", {{"check_in", "24.12.2026 15:00"}, {"check_out", "02.01.2027 10:30"}, {"battery", "01022A04"}}}});
    const RunResult result = Locks.RunHere({"--json", "card", "read"});
    EXPECT_EQ(result.Code, 0) << result.Err;
    const auto document = nlohmann::json::parse(result.Out);
    EXPECT_EQ(document["battery"], "01 02 2A 04");
    EXPECT_EQ(document["check_in"], "24.12.2026 15:00");
    EXPECT_EQ(document["check_out"], "02.01.2027 10:30");
    EXPECT_THAT(document["text"].get<std::string>(), HasSubstr("24.12.2026 15:00"));
    EXPECT_EQ(Locks.Stop(), "");
}

TEST_F(Binary_Cards, that_are_blank_have_a_battery_but_no_validity) {
    Start({{"card", {{"check_in", "00.00.2000 00:00"}, {"check_out", "02.01.2027 10:30"}, {"battery", "01022A04"}}}});
    const RunResult result = Locks.RunHere({"--json", "card", "read"});
    EXPECT_EQ(result.Code, 0) << result.Err;
    const auto document = nlohmann::json::parse(result.Out);
    EXPECT_EQ(document["battery"], "01 02 2A 04");
    EXPECT_FALSE(document.contains("check_in") || document.contains("check_out"));
}

TEST_F(Binary_Cards, that_are_not_there_or_refused_end_with_2) {
    Start(nlohmann::json::object());
    EXPECT_EQ(Card({"--door", "1"}).Code, 2);
    EXPECT_EQ(Locks.RunHere({"card", "read"}).Code, 2);
    Locks.Stop();
    Start({{"card", nlohmann::json::object()}, {"card_results", "D2"}});
    const RunResult result = Card({"--door", "1"});
    EXPECT_EQ(result.Code, 2);
    EXPECT_EQ(nlohmann::json::parse(result.Out)["result"], "refused");
}

TEST_F(Binary_Cards, are_not_written_from_a_wrong_command_line) {
    Start(BlankCard, "HOTEL");
    EXPECT_EQ(Card({"--door", "200"}).Code, 1) << "no such lock";
    EXPECT_EQ(Card({"--door", "1", "--group", "1"}).Code, 1) << "a hotel has no groups";
    const RunResult noRoom = Card({"--door", "1"});
    EXPECT_EQ(noRoom.Code, 1);
    EXPECT_THAT(noRoom.Out, HasSubstr(Tor));
    for (const std::vector<std::string>& arguments : std::vector<std::vector<std::string>>{
             {"card"},
             {"card", "wipe"},
             {"card", "write"},
             {"card", "write", "--in", "24.12.2026 15:00", "--out", "25.12.2026 10:00"},
             {"card", "write", "--in", "24.12.2026", "--out", "25.12.2026 10:00", "--door", "1"},
             {"card", "write", "--in", "24.12.2100 15:00", "--out", "25.12.2100 10:00", "--door", "1"},
             {"card", "write", "--in", "24.12.2026 15:00", "--out", "25.12.2026 10:00", "--door", "1", "1"},
             {"card", "read", "--door", "1"}}) {
        EXPECT_EQ(Locks.RunHere(arguments).Code, 1);
    }
    EXPECT_EQ(Locks.Stop(), "");
    EXPECT_FALSE(Locks.State()["desk"]["card"].contains("writes"));
}

TEST_F(Binary_Cards, of_a_group_that_is_not_there_yet_are_refused) {
    Start(BlankCard);
    EXPECT_EQ(Card({"--door", "1", "--group", "10"}).Code, 1);
    EXPECT_EQ(Locks.Stop(), "");
    EXPECT_FALSE(Locks.State()["desk"]["card"].contains("writes"));
}

} // namespace
} // namespace qvm::test
