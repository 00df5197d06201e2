// Which ports can hold an adapter, and which of them is opened.

#include "DiscoveryFixture.h"

#include <numeric>

namespace qvm::test {
namespace {

struct Ports : DiscoveryFixture {
    static constexpr const char* Settings = "/q/DAT/EST7CSB29A.I_1";

    int Find(std::vector<int> numbers) {
        world.AdapterPortNumbers = std::move(numbers);
        return Ports_Ermitteln(kern, list);
    }
};

TEST_F(Ports, the_last_candidate_is_the_result_and_all_are_listed_in_the_systems_order) {
    EXPECT_EQ(Find({7, 3, 5}), 5);
    EXPECT_THAT(list.PortListe, ElementsAre(7, 3, 5));
}

TEST_F(Ports, sixteen_is_the_highest_that_is_a_result) {
    EXPECT_EQ(Find({3, 16}), 16);
    EXPECT_EQ(Find({3, 17}), 0xEE);
    EXPECT_THAT(list.PortListe, ElementsAre(3, 17));
}

TEST_F(Ports, without_a_candidate_the_result_is_none) {
    list.PortListe = {4};
    EXPECT_EQ(Find({}), 0xFF);
    EXPECT_THAT(list.PortListe, IsEmpty());
}

TEST_F(Ports, numbers_that_no_byte_holds_and_the_mark_for_none_are_no_candidates) {
    EXPECT_EQ(Find({-1, 0, 255, 256, 261, 254, 4}), 4);
    EXPECT_THAT(list.PortListe, ElementsAre(254, 4));
    EXPECT_EQ(Find({300}), 0xFF);
}

TEST_F(Ports, the_list_takes_21_and_the_rest_is_left_out) {
    std::vector<int> numbers(25);
    std::iota(numbers.begin(), numbers.end(), 20);
    numbers[20] = 9;
    numbers[24] = 5;
    EXPECT_EQ(Find(numbers), 9);
    EXPECT_EQ(list.PortListe.size(), 21U);
}

TEST_F(Ports, finding_them_anew_ends_what_was_asked_before) {
    const int before = list.Stand;
    Find({3});
    EXPECT_NE(list.Stand, before);
}

TEST_F(Ports, a_found_port_becomes_the_configured_one_and_is_saved_and_opened) {
    PlugSilent(7);
    Mode("SET");
    EXPECT_TRUE(Port_Einrichten(link, list));
    EXPECT_EQ(kern.Config.PortNummer, 7);
    EXPECT_EQ(world.Disk.Files[Settings], "Deutsch\r\n1\r\nUSB-Port7\r\n3\r\n");
    EXPECT_TRUE(world.PortOpen);
    EXPECT_EQ(world.PortNumber, 7);
    EXPECT_EQ(link.PortNummer, 7);
}

TEST_F(Ports, the_configured_port_found_again_is_opened_and_nothing_is_written) {
    PlugSilent(1);
    Mode("SET");
    EXPECT_TRUE(Port_Einrichten(link, list));
    EXPECT_EQ(world.PortNumber, 1);
    EXPECT_THAT(world.Disk.Files, IsEmpty());
}

TEST_F(Ports, without_a_candidate_the_configured_port_is_opened) {
    Silent.insert(1);
    Mode("SET");
    EXPECT_TRUE(Port_Einrichten(link, list));
    EXPECT_EQ(world.PortNumber, 1);
    EXPECT_THAT(list.PortListe, IsEmpty());
    EXPECT_THAT(world.Disk.Files, IsEmpty());
}

TEST_F(Ports, a_candidate_beyond_16_stays_one_and_the_configured_port_is_opened) {
    Silent = {1, 17};
    world.AdapterPortNumbers = {17};
    Mode("SET");
    EXPECT_TRUE(Port_Einrichten(link, list));
    EXPECT_EQ(world.PortNumber, 1);
    EXPECT_EQ(kern.Config.PortNummer, 1);
    EXPECT_THAT(list.PortListe, ElementsAre(17));
}

TEST_F(Ports, a_fixed_port_empties_the_list_and_looks_for_no_other) {
    PlugSilent(7);
    Silent.insert(1);
    Mode("SET");
    Port_Einrichten(link, list);
    const int before = list.Stand;
    Mode("RESET");
    EXPECT_TRUE(Port_Einrichten(link, list));
    EXPECT_EQ(world.PortNumber, 1);
    EXPECT_THAT(list.PortListe, IsEmpty());
    EXPECT_NE(list.Stand, before);
}

TEST_F(Ports, a_port_that_cannot_be_opened_says_so) {
    Mode("RESET");
    EXPECT_FALSE(Port_Einrichten(link, list));
    EXPECT_FALSE(world.PortOpen);
}

TEST_F(Ports, a_found_port_serves_also_when_it_cannot_be_saved) {
    PlugSilent(7);
    Mode("SET");
    world.Disk.FailAt = world.Disk.Operations + 1;
    world.Disk.FailFromThere = true;
    EXPECT_TRUE(Port_Einrichten(link, list));
    EXPECT_EQ(world.PortNumber, 7);
}

TEST_F(Ports, adapters_known_before_are_unknown_then) {
    list.ProgStationPort = list.EnrollmentPort = 4;
    list.ProgAdresse = list.EnrollmentAdresse = "/1/2/3/4";
    Mode("RESET");
    Port_Einrichten(link, list);
    EXPECT_EQ(list.ProgStationPort, 0);
    EXPECT_EQ(list.EnrollmentPort, 0);
    EXPECT_EQ(list.ProgAdresse + list.EnrollmentAdresse, "");
}

} // namespace
} // namespace qvm::test
