// Which of the candidates are adapters, and what they say of themselves.

#include "DiscoveryFixture.h"

namespace qvm::test {
namespace {

const Bytes Identified = ReplyWire(0x68, 0x0F, {});

struct Adapter_Suche : DiscoveryFixture {
    Adapter_Suche() { Mode("SET"); }
};

TEST_F(Adapter_Suche, a_programming_adapter_is_found_and_its_port_left_open) {
    VirtualSystem& adapter = Plug(5, "PROGSTATION 1");
    ASSERT_TRUE(Search());
    ASSERT_EQ(list.Saetze.size(), 1U);
    EXPECT_EQ(list.Saetze[0].Adresse, "/10/20/30/40");
    EXPECT_EQ(list.Saetze[0].Name, "PROGSTATION 1");
    EXPECT_EQ(list.Saetze[0].Port, "5");
    EXPECT_EQ(list.ProgStationPort, 5);
    EXPECT_EQ(list.ProgAdresse, "/10/20/30/40");
    EXPECT_EQ(list.EnrollmentPort, 5);
    EXPECT_EQ(list.EnrollmentAdresse, "/10/20/30/40");
    EXPECT_TRUE(world.PortOpen);
    EXPECT_EQ(world.PortNumber, 5);
    EXPECT_EQ(adapter.Codes(), (Bytes{0x68, 0x6C}));
    EXPECT_EQ(world.Hourglasses, 1);
    EXPECT_EQ(Took, 40); // two replies
}

TEST_F(Adapter_Suche, of_two_programming_adapters_the_first_is_used_and_both_are_listed) {
    Plug(7, "PROGSTATION B", {1, 1, 1, 1});
    Plug(4, "PROGSTATION A", {2, 2, 2, 2});
    ASSERT_TRUE(Search());
    EXPECT_THAT(Names(), ElementsAre("PROGSTATION B", "PROGSTATION A"));
    EXPECT_EQ(list.ProgStationPort, 7);
    EXPECT_EQ(list.ProgAdresse, "/1/1/1/1");
    EXPECT_EQ(world.PortNumber, 7);
    EXPECT_EQ(link.PortNummer, 7);
    EXPECT_THAT(Asked, ElementsAre(7, 4, 7, 4));
}

TEST_F(Adapter_Suche, the_version_of_the_programming_adapter_is_its_own_whichever_identifies_itself_last) {
    Plug(5, "PROGSTATION 1", {10, 20, 30, 40}, 3);
    Plug(9, "ENROLLMENT1 desk", {4, 3, 2, 1}, 35);
    ASSERT_TRUE(Search());
    EXPECT_EQ(list.ProgVersion, 3);
    EXPECT_EQ(list.Saetze.at(0).Version, 3);
    list.Ports_Vergessen();
    EXPECT_EQ(list.ProgVersion, 0);
}

TEST_F(Adapter_Suche, an_enrolment_adapter_is_known_by_its_port_and_not_listed) {
    for (const bool first : {true, false}) {
        Systems.clear();
        world.AdapterPortNumbers.clear();
        if (first) {
            Plug(9, "ENROLLMENT1 desk", {4, 3, 2, 1});
        }
        Plug(5, "PROGSTATION 1");
        if (!first) {
            Plug(9, "ENROLLMENT1 desk", {4, 3, 2, 1});
        }
        ASSERT_TRUE(Search());
        EXPECT_THAT(Names(), ElementsAre("PROGSTATION 1"));
        EXPECT_EQ(list.ProgStationPort, 5);
        EXPECT_EQ(list.ProgAdresse, "/10/20/30/40");
        EXPECT_EQ(list.EnrollmentPort, 9);
        EXPECT_EQ(list.EnrollmentAdresse, "/4/3/2/1");
        EXPECT_EQ(list.PortListe.size(), 2U);
        EXPECT_EQ(world.PortNumber, 5);
    }
}

TEST_F(Adapter_Suche, of_two_enrolment_adapters_the_first_counts) {
    Plug(9, "ENROLLMENT1 A", {1, 1, 1, 1});
    Plug(8, "ENROLLMENT1 B", {2, 2, 2, 2});
    ASSERT_TRUE(Search());
    EXPECT_EQ(list.EnrollmentPort, 9);
    EXPECT_EQ(list.EnrollmentAdresse, "/1/1/1/1");
}

TEST_F(Adapter_Suche, with_an_enrolment_adapter_alone_there_is_no_programming_adapter) {
    Silent.insert(1);
    Plug(9, "ENROLLMENT1");
    Port_Einrichten(link, list);
    Port_Oeffnen(link, 1);
    EXPECT_TRUE(Adapter_Suchen(link, list));
    EXPECT_THAT(Names(), IsEmpty());
    EXPECT_EQ(list.ProgStationPort, KeinPort);
    EXPECT_EQ(list.EnrollmentPort, 9);
    EXPECT_EQ(world.PortNumber, 1); // where it began
    EXPECT_TRUE(world.PortOpen);
}

TEST_F(Adapter_Suche, a_device_of_another_name_is_forgotten_and_leaves_the_candidates) {
    Plug(5, "PROGSTATIO");
    Plug(6, "PROGSTATION 1");
    ASSERT_TRUE(Search());
    EXPECT_THAT(Names(), ElementsAre("PROGSTATION 1"));
    EXPECT_THAT(list.PortListe, ElementsAre(6));
    EXPECT_EQ(list.ProgStationPort, 6);
}

TEST_F(Adapter_Suche, keeps_the_record_of_another_name_apart) {
    Plug(5, "Keller", {1, 2, 3, 4});
    Plug(6, "PROGSTATION 1");
    EXPECT_TRUE(Search());
    ASSERT_EQ(list.Fremde.size(), 1U);
    EXPECT_EQ(list.Fremde[0].Name, "Keller");
    EXPECT_EQ(list.Fremde[0].Adresse, "/1/2/3/4");
    EXPECT_EQ(list.Fremde[0].Port, "5");
    EXPECT_EQ(Adapter_Finden(list, "Keller"), nullptr);
    list.Ports_Vergessen();
    EXPECT_THAT(list.Fremde, IsEmpty());
}

TEST_F(Adapter_Suche, a_name_begins_with_its_class_in_capitals) {
    Plug(5, "progstation 1");
    ASSERT_TRUE(Search());
    EXPECT_THAT(Names(), IsEmpty());
    EXPECT_EQ(list.ProgStationPort, KeinPort);
}

// ---- no reply

TEST_F(Adapter_Suche, a_silent_port_is_asked_four_times_of_four_seconds) {
    PlugSilent(5);
    EXPECT_FALSE(Search());
    EXPECT_THAT(Asked, ElementsAre(5, 5, 5, 5));
    EXPECT_EQ(Took, 4 * 4001); // more than four seconds each
    EXPECT_EQ(list.ProgStationPort, 0);
    EXPECT_EQ(list.EnrollmentPort, 0);
    EXPECT_THAT(list.PortListe, ElementsAre(5));
    EXPECT_EQ(world.PortNumber, 5);
    EXPECT_TRUE(world.PortOpen);
}

TEST_F(Adapter_Suche, shows_each_of_its_questions_before_it_goes_out) {
    PlugSilent(4);
    Plug(5, "PROGSTATION 1");
    std::vector<std::string> steps;
    list.Suche_Zeigen = [&](const SuchSchritt& step) {
        EXPECT_EQ(step.Versuche, 4);
        steps.push_back((step.Satz ? "record " : "adapter ") + std::to_string(step.Port) + " " +
                        std::to_string(step.Versuch));
        EXPECT_EQ(Asked.size(), steps.size() - 1);
    };
    EXPECT_TRUE(Search());
    EXPECT_THAT(steps, ElementsAre("adapter 4 1", "adapter 4 2", "adapter 4 3", "adapter 4 4", "adapter 5 1",
                                   "record 4 1", "record 4 2", "record 4 3", "record 4 4", "record 5 1"));
}

TEST_F(Adapter_Suche, that_is_broken_off_ends_at_once_and_sends_nothing_more) {
    PlugSilent(4);
    PlugSilent(5);
    world.At(4500, [this] { Suche_Abbrechen(link, list); });
    EXPECT_FALSE(Search());
    EXPECT_EQ(Took, 4500);
    EXPECT_THAT(Asked, ElementsAre(4, 4));
    EXPECT_FALSE(list.SucheLaeuft);
    // Without a search it does nothing, and the next one is whole.
    Suche_Abbrechen(link, list);
    EXPECT_FALSE(Adapter_Suchen(link, list));
    EXPECT_EQ(Asked.size(), 10U);
}

TEST_F(Adapter_Suche, that_is_broken_off_among_the_records_knows_none) {
    Plug(5, "PROGSTATION 1");
    PlugAnswering(6, {{0x68, Identified}});
    world.At(1000, [this] { Suche_Abbrechen(link, list); });
    EXPECT_FALSE(Search());
    EXPECT_EQ(Took, 1000);
    EXPECT_THAT(Names(), IsEmpty());
    EXPECT_EQ(list.ProgStationPort, 0);
}

TEST_F(Adapter_Suche, without_any_reply_what_was_known_stays) {
    PlugSilent(5);
    Port_Einrichten(link, list);
    list.Saetze.resize(1);
    list.ProgStationPort = 5;
    list.EnrollmentPort = 7;
    EXPECT_FALSE(Adapter_Suchen(link, list));
    EXPECT_EQ(list.Saetze.size(), 1U);
    EXPECT_EQ(list.ProgStationPort, 5);
    EXPECT_EQ(list.EnrollmentPort, 7);
}

TEST_F(Adapter_Suche, a_silent_port_beside_an_adapter_is_also_asked_for_its_record) {
    PlugSilent(4);
    Plug(5, "PROGSTATION 1");
    EXPECT_TRUE(Search());
    EXPECT_THAT(Asked, ElementsAre(4, 4, 4, 4, 5, 4, 4, 4, 4, 5));
    EXPECT_EQ(Took, 4 * 4001 + 4 * 1401 + 40);
    EXPECT_EQ(list.ProgStationPort, 5);
    EXPECT_THAT(list.PortListe, ElementsAre(4, 5));
}

TEST_F(Adapter_Suche, an_adapter_that_misses_three_telegrams_is_found_at_the_fourth_try) {
    VirtualSystem& adapter = Plug(5, "PROGSTATION 1");
    adapter.World().Faults = {{.What = SimFault::Kind::Silent, .Telegram = 0, .CountAll = true},
                              {.What = SimFault::Kind::BadSum, .Telegram = 1, .CountAll = true},
                              {.What = SimFault::Kind::Half, .Telegram = 2, .CountAll = true},
                              {.What = SimFault::Kind::Silent, .Telegram = 4, .CountAll = true}};
    EXPECT_TRUE(Search());
    EXPECT_EQ(adapter.Codes(), (Bytes{0x68, 0x68, 0x68, 0x68, 0x6C, 0x6C}));
    EXPECT_EQ(list.ProgStationPort, 5);
    EXPECT_EQ(Took, 3 * 4001 + 20 + 1401 + 20);
}

TEST_F(Adapter_Suche, an_echo_is_no_identification) {
    PlugDevice(5, [this](std::span<const std::uint8_t> bytes) {
        // A device that answers each telegram by its code with nothing behind it.
        world.Deliver(ReplyWire(bytes[2], 0x0E, {}), 20);
    });
    EXPECT_FALSE(Search());
    EXPECT_EQ(Asked.size(), 4U);
    EXPECT_EQ(Took, 4 * 4001);
}

TEST_F(Adapter_Suche, other_replies_are_passed_over_while_the_wait_goes_on) {
    PlugAnswering(5, {{0x68, ReplyWire(0x6D, 0x1C, {})}});
    EXPECT_FALSE(Search());
    EXPECT_EQ(Took, 4 * 4001);
}

/// Answers the telegrams 0x68 and 0x6C with the adapter's replies between two strings of further bytes, all of them in
/// one event.
struct Adapter_Suche_Ein_Ereignis : Adapter_Suche {
    void PlugTalkative(int port, const Bytes& before, const Bytes& behind) {
        PlugDevice(port, [=, this](std::span<const std::uint8_t> bytes) {
            Bytes wire = before;
            const Bytes reply = bytes[2] == 0x68 ? Identified : ReplyWire(0x6C, 0x2E, RecordPayload("PROGSTATION 1"));
            wire.insert(wire.end(), reply.begin(), reply.end());
            wire.insert(wire.end(), behind.begin(), behind.end());
            world.At(20, [this, wire] {
                for (const std::uint8_t byte : wire) {
                    Empfang_Byte(link, byte);
                }
            });
        });
    }
    void ExpectFoundAtTheFirstTry() {
        ASSERT_TRUE(Search());
        EXPECT_EQ(Asked.size(), 2U);
        EXPECT_EQ(Took, 40);
        ASSERT_THAT(Names(), ElementsAre("PROGSTATION 1"));
        EXPECT_EQ(list.Saetze[0].Adresse, "/1/0/255/7");
        EXPECT_EQ(list.ProgStationPort, 5);
    }
};

TEST_F(Adapter_Suche_Ein_Ereignis, garbage_behind_the_reply_does_not_spoil_it) {
    PlugTalkative(5, {}, {0x02, 0x30, 0x55, 0x66, 0x77, 0x88, 0x99, 0xAA, 0xBB, 0xCC});
    ExpectFoundAtTheFirstTry();
}

TEST_F(Adapter_Suche_Ein_Ereignis, a_frame_that_no_wait_looks_at_behind_the_reply_does_not_spoil_it) {
    PlugTalkative(5, {}, ReplyWire(0x03, 0x0D, Bytes(12, 0x77)));
    ExpectFoundAtTheFirstTry();
}

TEST_F(Adapter_Suche_Ein_Ereignis, another_adapters_reply_before_or_behind_is_passed_over) {
    const Bytes name = ReplyWire(0x6D, 0x1C, Bytes(25, 0x41));
    PlugTalkative(5, name, name);
    ExpectFoundAtTheFirstTry();
}

TEST_F(Adapter_Suche_Ein_Ereignis, of_two_records_the_first_counts) {
    PlugTalkative(5, {}, ReplyWire(0x6C, 0x2E, RecordPayload("ENROLLMENT1")));
    ExpectFoundAtTheFirstTry();
}

TEST_F(Adapter_Suche_Ein_Ereignis, an_echo_and_a_record_cut_short_before_the_reply_are_passed_over) {
    Bytes before = ReplyWire(0x68, 0x0E, {});
    const Bytes shortRecord = ReplyWire(0x6C, 0x2D, RecordPayload("PROGSTATION 2"));
    before.insert(before.end(), shortRecord.begin(), shortRecord.end());
    PlugTalkative(5, before, {});
    ExpectFoundAtTheFirstTry();
}

TEST_F(Adapter_Suche, a_doubled_identification_does_not_pass_for_the_record) {
    VirtualSystem& adapter = Plug(5, "PROGSTATION 1");
    adapter.World().Faults = {{.What = SimFault::Kind::Doubled, .Telegram = 0, .CountAll = true}};
    EXPECT_TRUE(Search());
    EXPECT_THAT(Names(), ElementsAre("PROGSTATION 1"));
}

TEST_F(Adapter_Suche, the_other_code_of_the_identification_counts_too) {
    PlugAnswering(5, {{0x68, ReplyWire(0x6A, 0x0F, {})}, {0x6C, ReplyWire(0x6C, 0x2E, RecordPayload("PROGSTATION"))}});
    EXPECT_TRUE(Search());
    EXPECT_EQ(list.ProgStationPort, 5);
}

TEST_F(Adapter_Suche, a_record_of_another_length_is_none) {
    PlugAnswering(5, {{0x68, Identified}, {0x6C, ReplyWire(0x6C, 0x2D, RecordPayload("PROGSTATION"))}});
    EXPECT_TRUE(Search());
    EXPECT_THAT(Names(), IsEmpty());
    EXPECT_EQ(list.ProgStationPort, KeinPort);
    EXPECT_EQ(Asked.size(), 5U);
    EXPECT_EQ(Took, 20 + 4 * 1401);
}

TEST_F(Adapter_Suche, a_port_that_cannot_be_opened_is_skipped_at_once) {
    world.AdapterPortNumbers.push_back(3);
    Plug(5, "PROGSTATION 1");
    EXPECT_TRUE(Search());
    EXPECT_THAT(Asked, ElementsAre(5, 5));
    EXPECT_EQ(Took, 40);
    EXPECT_EQ(list.ProgStationPort, 5);
}

TEST_F(Adapter_Suche, with_no_port_that_opens_nothing_is_sent) {
    world.AdapterPortNumbers = {3, 4};
    EXPECT_FALSE(Search());
    EXPECT_THAT(Asked, IsEmpty());
    EXPECT_EQ(Took, 0);
}

// ---- a fixed port

TEST_F(Adapter_Suche, a_fixed_port_is_asked_alone_with_a_shorter_wait) {
    Mode("RESET");
    PlugSilent(1);
    Plug(5, "PROGSTATION 1");
    EXPECT_FALSE(Search());
    EXPECT_THAT(Asked, ElementsAre(1, 1, 1, 1));
    EXPECT_EQ(Took, 4 * 1801);
    EXPECT_THAT(list.PortListe, IsEmpty());
}

TEST_F(Adapter_Suche, the_record_of_a_fixed_port_is_waited_for_like_that_of_a_candidate) {
    Mode("RESET");
    PlugAnswering(1, {{0x68, Identified}});
    EXPECT_TRUE(Search());
    EXPECT_EQ(Asked.size(), 5U);
    EXPECT_EQ(Took, 20 + 4 * 1401); // more than 1.4 s each
    EXPECT_THAT(Names(), IsEmpty());
    EXPECT_EQ(list.ProgStationPort, KeinPort);
}

TEST_F(Adapter_Suche, an_adapter_on_the_fixed_port_is_found) {
    Mode("RESET");
    Plug(1, "PROGSTATION 1");
    EXPECT_TRUE(Search());
    EXPECT_EQ(list.ProgStationPort, 1);
    EXPECT_THAT(Names(), ElementsAre("PROGSTATION 1"));
}

TEST_F(Adapter_Suche, the_automatic_search_without_a_candidate_asks_nobody) {
    Silent.insert(1);
    EXPECT_FALSE(Search());
    EXPECT_THAT(Asked, IsEmpty());
    EXPECT_EQ(list.ProgStationPort, 0);
    EXPECT_EQ(world.PortNumber, 1);
}

// ---- while it waits

TEST_F(Adapter_Suche, a_port_made_ready_during_the_search_ends_it_and_stays_open) {
    PlugSilent(4);
    Plug(5, "PROGSTATION 1");
    Silent.insert(6);
    world.At(5000, [this] {
        world.AdapterPortNumbers = {6};
        Port_Einrichten(link, list);
    });
    EXPECT_FALSE(Search());
    EXPECT_THAT(Asked, ElementsAre(4, 4));
    EXPECT_EQ(Took, 2 * 4001);
    EXPECT_EQ(world.PortNumber, 6);
    EXPECT_TRUE(world.PortOpen);
    EXPECT_THAT(list.PortListe, ElementsAre(6));
    EXPECT_EQ(list.ProgStationPort, 0);
}

TEST_F(Adapter_Suche, an_adapter_pulled_out_before_its_record_is_not_known) {
    VirtualSystem& adapter = Plug(5, "PROGSTATION 1");
    adapter.World().Faults = {{.What = SimFault::Kind::Silent, .Telegram = 1, .CountAll = true}};
    world.At(500, [this] {
        Systems.clear();
        world.AdapterPortNumbers.clear();
        Port_Einrichten(link, list);
    });
    EXPECT_FALSE(Search());
    EXPECT_THAT(Names(), IsEmpty());
    EXPECT_EQ(list.ProgStationPort, 0);
    EXPECT_FALSE(world.PortOpen);
    EXPECT_THAT(Asked, ElementsAre(5, 5));
}

TEST_F(Adapter_Suche, a_search_within_a_search_does_nothing) {
    PlugSilent(4);
    bool inner = true;
    world.At(100, [&] { inner = Adapter_Suchen(link, list); });
    EXPECT_FALSE(Search());
    EXPECT_FALSE(inner);
    EXPECT_EQ(Asked.size(), 4U);
    EXPECT_EQ(world.Hourglasses, 1);
}

TEST_F(Adapter_Suche, half_a_frame_received_before_does_not_spoil_the_reply) {
    Plug(5, "PROGSTATION 1");
    link.Rx.RxState = 2;
    link.Rx.RxIndex = 9;
    link.Rx.RxLength = 200;
    EXPECT_TRUE(Search());
    EXPECT_EQ(Took, 40);
}

// ---- what the record holds

TEST_F(Adapter_Suche, the_address_is_four_decimal_bytes_behind_strokes) {
    PlugAnswering(5, {{0x68, Identified}, {0x6C, ReplyWire(0x6C, 0x2E, RecordPayload("PROGSTATION"))}});
    Plug(6, "PROGSTATION", {255, 255, 255, 255});
    ASSERT_TRUE(Search());
    ASSERT_EQ(list.Saetze.size(), 2U);
    EXPECT_EQ(list.Saetze[0].Adresse, "/1/0/255/7");
    EXPECT_EQ(list.Saetze[1].Adresse, "/255/255/255/255"); // all sixteen characters of its field
}

TEST_F(Adapter_Suche, a_name_ends_at_a_zero_or_its_last_blank_and_fills_twenty_characters_at_most) {
    const std::string zeroInside("PROGSTATION A\0rest  ", 20);
    PlugAnswering(4, {{0x68, Identified}, {0x6C, ReplyWire(0x6C, 0x2E, RecordPayload("PROGSTATION  B      "))}});
    PlugAnswering(5, {{0x68, Identified}, {0x6C, ReplyWire(0x6C, 0x2E, RecordPayload(zeroInside))}});
    PlugAnswering(6, {{0x68, Identified}, {0x6C, ReplyWire(0x6C, 0x2E, RecordPayload("PROGSTATION 23456789"))}});
    ASSERT_TRUE(Search());
    EXPECT_THAT(Names(), ElementsAre("PROGSTATION  B", "PROGSTATION A", "PROGSTATION 23456789"));
}

TEST_F(Adapter_Suche, the_transfer_key_comes_from_record_probe_and_constants) {
    // Record bytes 0 to 15; worked out by hand: byte, probe byte of its place, constant of its place.
    NextProbe({0x11, 0x22, 0x33, 0x44, 0x55});
    PlugAnswering(5, {{0x68, Identified}, {0x6C, ReplyWire(0x6C, 0x2E, RecordPayload("PROGSTATION"))}});
    ASSERT_TRUE(Search());
    ASSERT_EQ(list.Saetze.size(), 1U);
    EXPECT_THAT(list.Saetze[0].TransferKey.Bytes(), ElementsAre(0x4A, 0x83, 0x0F, 0xC5, 0x4A, 0xFC, 0x56, 0x94, 0x17,
                                                                0xED, 0x22, 0xC1, 0x4B, 0xA2, 0x21, 0xBD));
}

TEST_F(Adapter_Suche, the_probe_goes_out_as_drawn_and_the_keys_of_two_adapters_are_their_own) {
    NextProbe({0x00, 0xFF, 0x02, 0x80, 0x7F});
    VirtualSystem& first = Plug(4, "PROGSTATION 1", {1, 1, 1, 1});
    VirtualSystem& second = Plug(5, "PROGSTATION 2", {2, 2, 2, 2});
    first.World().Adapter.Key = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16};
    second.World().Adapter.Key = {0xF0, 0xE0, 2, 2, 2, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0xFF};
    ASSERT_TRUE(Search());
    const Bytes& probe = first.Telegrams()[0];
    EXPECT_EQ(Bytes(probe.begin() + 3, probe.begin() + 8), (Bytes{0x00, 0xFF, 0x02, 0x80, 0x7F}));
    EXPECT_EQ(first.World().Adapter.Probe, second.World().Adapter.Probe);
    ASSERT_EQ(list.Saetze.size(), 2U);
    EXPECT_EQ(list.Saetze[0].TransferKey, first.World().Adapter.Key);
    EXPECT_EQ(list.Saetze[1].TransferKey, second.World().Adapter.Key);
}

TEST_F(Adapter_Suche, each_search_draws_a_fresh_probe_and_the_key_stays) {
    VirtualSystem& adapter = Plug(5, "PROGSTATION 1");
    adapter.World().Adapter.Key = {9, 8, 7, 6, 5, 4, 3, 2, 1};
    ASSERT_TRUE(Search());
    const auto probe = adapter.World().Adapter.Probe;
    ASSERT_TRUE(Search());
    EXPECT_NE(adapter.World().Adapter.Probe, probe);
    EXPECT_EQ(list.Saetze.at(0).TransferKey, adapter.World().Adapter.Key);
    EXPECT_EQ(list.Saetze.size(), 1U);
}

} // namespace
} // namespace qvm::test
