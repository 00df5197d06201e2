#include "WorldFile.h"

#include "OemText.h"
#include "SimBench.h"

#include <gmock/gmock.h>
#include <rapidcheck.h>

namespace qvm::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

/// The fault of a world file; empty when it was read.
std::string FaultOf(std::string_view text) {
    VirtualWorld world;
    std::string fault;
    const bool good = World_FromJson(text, world, fault);
    EXPECT_EQ(good, fault.empty());
    return fault;
}

TEST(World_FromJson, reads_adapter_locks_units_and_faults) {
    VirtualWorld world;
    std::string fault;
    ASSERT_TRUE(World_FromJson(R"({
        "adapter": {"name": "PROGSTATION Süd", "version": 9, "address": "03.E0.00.01"},
        "reply_ms": 20, "faults": ["refuse@3=0x67"],
        "locks": [{"label": "Front", "serial": "01.50.0C.10", "admin_code": "104212", "channel": 7,
                   "erase_busy_ms": 100, "echo_erase": false,
                   "users": [{"slot": 3, "name": "Jürgen", "code": "1234------", "weighting": 12,
                              "groups": "XX-----------------X----"}],
                   "history": [{"day": 5, "month": 3, "year": 26, "hour": 10, "minute": 30, "name": "ÄNNE", "event": 18}]}],
        "units": [{"serial": "00.00.3D.20", "type": 2},
                  {"serial": "01.60.00.03", "signal": 168, "scan_type": 41, "answers": "poorly", "code_status": 2}]})",
                               world, fault))
        << fault;
    EXPECT_EQ(world.Adapter.Name, "PROGSTATION S\xFC"
                                  "d");
    EXPECT_THAT(world.Adapter.Address, ElementsAre(3, 0xE0, 0, 1));
    EXPECT_EQ(world.ReplyMs, 20);
    EXPECT_EQ(world.Faults.at(0).Value, 0x67);
    const VirtualLock& lock = world.Locks.at(0);
    EXPECT_THAT(lock.Serial, ElementsAre(0x01, 0x50, 0x0C, 0x10));
    EXPECT_THAT(lock.AdminCode, ElementsAre(0x1A, 0x42, 0x12));
    EXPECT_EQ(lock.Channel, 7);
    EXPECT_FALSE(lock.EchoErase);
    EXPECT_THAT(lock.Users.at(0).Code, ElementsAre(0x12, 0x34, 0xEE, 0xEE, 0xEE));
    EXPECT_EQ(lock.Users[0].Name[1], 0x81) << "u umlaut of code page 850";
    EXPECT_THAT(lock.Users[0].Groups, ElementsAre(0xC0, 0x00, 0x10));
    EXPECT_EQ(lock.History.at(0)[5], 0x8E) << "A umlaut of code page 850";
    EXPECT_EQ(lock.History[0][21], 18);
    EXPECT_EQ(world.Units.at(0).Type, 2);
    EXPECT_EQ(world.Units[0].Channel, 1) << "where a new one listens";
    EXPECT_EQ(world.Units[0].Air.ScanType, 6);
    EXPECT_EQ(world.Units[0].Air.Signal, 100);
    const VirtualUnit& unit = world.Units.at(1);
    EXPECT_EQ(unit.Air.Signal, 168);
    EXPECT_EQ(unit.Air.ScanType, 41);
    EXPECT_EQ(unit.Air.Answers, Answering::Poorly);
    EXPECT_EQ(unit.CodeStatus, 2);
}

TEST(World_FromJson, an_empty_object_is_an_adapter_alone) {
    EXPECT_EQ(FaultOf("{}"), "");
}

TEST(World_FromJson, names_the_place_of_a_fault) {
    EXPECT_THAT(FaultOf("{"), StartsWith("not JSON: "));
    EXPECT_THAT(FaultOf(""), StartsWith("not JSON: "));
    EXPECT_EQ(FaultOf("[]"), "the document: must be an object");
    EXPECT_EQ(FaultOf(R"({"lock": []})"), "lock: is not a name known here");
    EXPECT_EQ(FaultOf(R"({"locks": [{}]})"), "locks[0].serial: is missing");
    EXPECT_EQ(FaultOf(R"({"locks": [5]})"), "locks[0]: must be an object");
    EXPECT_EQ(FaultOf(R"({"locks": [{"serial": "00.00.2C.10", "channel": 13}]})"),
              "locks[0].channel: must be a whole number from 1 to 12");
    EXPECT_EQ(FaultOf(R"({"locks": [{"serial": "00.00.2C.10", "channel": 1.5}]})"),
              "locks[0].channel: must be a whole number from 1 to 12");
    EXPECT_EQ(FaultOf(R"({"locks": [{"serial": "00.00.2C.10", "channel": 18446744073709551615}]})"),
              "locks[0].channel: must be a whole number from 1 to 12");
    EXPECT_EQ(FaultOf(R"({"locks": [{"serial": "2C10"}]})"),
              "locks[0].serial: must be four hexadecimal bytes joined by points, as \"01.50.0C.10\"");
    EXPECT_EQ(FaultOf(R"({"locks": [{"serial": "00.00.2C.10", "admin_code": "12345"}]})"),
              "locks[0].admin_code: must be 6 digits");
    EXPECT_EQ(FaultOf(R"({"locks": [{"serial": "00.00.2C.10", "users": [{"slot": 1}, {"slot": 1, "name": "Ω"}]}]})"),
              "locks[0].users[1].name: must be a text of at most 16 characters of code page 850");
    EXPECT_EQ(FaultOf(R"({"locks": [{"serial": "00.00.2C.10", "table_a": [[1, 2]]}]})"),
              "locks[0].table_a[0]: must be an array of 5 numbers from 0 to 255");
    EXPECT_EQ(FaultOf(R"({"locks": [{"serial": "00.00.2C.10", "table_a_form": "long"}]})"),
              "locks[0].table_a_form: must be one of none, short, parts, block");
    EXPECT_EQ(FaultOf(R"({"locks": [{"serial": "00.00.2C.10"}], "units": [{"serial": "00.00.2C.10"}]})"),
              "units[0].serial: another device has it");
    EXPECT_EQ(FaultOf(R"({"units": [{"serial": "00.00.3D.20", "answers": "loudly"}]})"),
              "units[0].answers: must be one of well, poorly, refusing, never");
    EXPECT_EQ(FaultOf(R"({"units": [{"serial": "00.00.3D.20", "signal": 256}]})"),
              "units[0].signal: must be a whole number from 0 to 255");
    EXPECT_EQ(FaultOf(R"({"faults": ["loud@1"]})"),
              "faults[0]: must be a fault, as \"silent@5+\" or \"refuse@3=0x64\"");
}

TEST(World_FromJson, a_faulty_world_leaves_the_old_one) {
    VirtualWorld world = OneLock(0x2C10);
    std::string fault;
    EXPECT_FALSE(World_FromJson(R"({"locks": [{"serial": "00.00.00.01"}, {}]})", world, fault));
    ASSERT_EQ(world.Locks.size(), 1U);
    EXPECT_EQ(world.Locks[0].Channel, 5);
}

VirtualWorld FullWorld() {
    VirtualWorld world = OneLock(0x01500C10);
    world.Adapter.Key = {1, 2, 3};
    world.ReplyMs = 7;
    world.Faults = {{.What = SimFault::Kind::Late, .Telegram = 4, .AndAllBehind = true, .Value = 30}};
    VirtualLock& lock = world.Locks[0];
    lock.ForcedSlot = 0;
    lock.FormA = TableForm::Parts;
    lock.TableA[9] = {1, 2, 3, 4, 5};
    lock.TableB[0] = {10, 0, 0, 23, 59};
    lock.SingleDays[20] = {24, 12, 26, 27, 12, 26};
    lock.PermanentDays[0] = {1, 5, 99, 1, 5, 99};
    lock.Clock = LockClock{5, 3, 26, 10, 30, 59};
    lock.Priority = 2;
    lock.LockMode = 0x14;
    lock.Listen = ListenTime{1, 0, 1, 44};
    lock.Reader = ReaderSetting{0xAA, 3, 1};
    lock.Fingers[300][27] = 9;
    lock.History.push_back({5, 3, 26, 10, 30, 'A', 0, 0x81});
    LockUser user{
        .Slot = 1, .Name = {'K', 'E', 'Y', 0, ' ', ' '}, .Weighting = 12, .Code = {0x12, 0xEE, 0xA0, 0xEF, 0xBC}};
    user.HasId = true;
    user.Id = {9, 8, 7, 6};
    user.HasLongId = true;
    user.GroupDigit = 7;
    user.LongId[10] = 3;
    lock.Users.push_back(user);
    LockUser finger{.Slot = 2, .Finger = true, .FingerNumber = 300};
    finger.HasGroups = true;
    finger.Groups = {0x80, 0x01, 0xFF};
    lock.Users.push_back(finger);
    VirtualUnit unit;
    unit.Type = 2;
    unit.CodeStatus = 3;
    unit.Air = {.Signal = 200, .ScanType = 51, .Answers = Answering::Never};
    unit.Serial = {0, 0, 0x3D, 0x20};
    unit.Lock = lock.Serial;
    unit.Key = {5};
    unit.RowsAnnounced = 1;
    unit.Rows.push_back({.Number = 1, .Type = 1, .Address = 300, .Bytes = {1, 2, 3}});
    world.Units.push_back(unit);
    return world;
}

TEST(World_ToJson, a_full_world_survives_the_way_there_and_back) {
    const VirtualWorld before = FullWorld();
    const std::string text = World_ToJson(before);
    VirtualWorld after;
    std::string fault;
    ASSERT_TRUE(World_FromJson(text, after, fault)) << fault;
    EXPECT_EQ(World_ToJson(after), text);
    const VirtualLock &a = before.Locks[0], &b = after.Locks.at(0);
    EXPECT_EQ(b.Users, a.Users);
    EXPECT_EQ(b.TableA, a.TableA);
    EXPECT_EQ(b.TableB, a.TableB);
    EXPECT_EQ(b.SingleDays, a.SingleDays);
    EXPECT_EQ(b.PermanentDays, a.PermanentDays);
    EXPECT_EQ(b.History, a.History);
    EXPECT_EQ(b.Fingers, a.Fingers);
    EXPECT_EQ(b.Clock, a.Clock);
    EXPECT_EQ(b.ForcedSlot, 0);
    EXPECT_EQ(b.Listen, a.Listen);
    EXPECT_EQ(b.Reader, a.Reader);
    EXPECT_EQ(b.LockMode, 0x14);
    EXPECT_FALSE(b.LockTimerFlag.has_value());
    EXPECT_EQ(after.Units.at(0).Rows, before.Units[0].Rows);
    EXPECT_EQ(after.Units[0].Lock, before.Units[0].Lock);
    EXPECT_EQ(after.Units[0].CodeStatus, 3);
    EXPECT_EQ(after.Units[0].Air.Signal, 200);
    EXPECT_EQ(after.Units[0].Air.ScanType, 51);
    EXPECT_EQ(after.Units[0].Air.Answers, Answering::Never);
    EXPECT_EQ(after.Faults, before.Faults);
    EXPECT_EQ(after.Adapter.Key, before.Adapter.Key);
}

TEST(State_ToJson, holds_what_the_devices_hold_and_the_findings_and_is_a_world_again) {
    SimBench bench(FullWorld());
    bench.System.World().Faults.clear();
    bench.SayWire({0x55});
    const std::string state = State_ToJson(bench.System);
    EXPECT_THAT(state, HasSubstr(R"("telegram 0 (0x00, line): byte 0x55 outside a frame")"));
    EXPECT_THAT(state, HasSubstr(R"("garbage_bytes": 1)"));
    EXPECT_THAT(state, HasSubstr(R"("finger_number": 300)"));
    EXPECT_EQ(FaultOf(state), "");
}

TEST(World_FromJson, wild_text_never_harms) {
    EXPECT_TRUE(rc::check([] {
        std::string text = World_ToJson(FullWorld());
        const int edits = *rc::gen::inRange(0, 4);
        for (int n = 0; n < edits; ++n) {
            const auto at = *rc::gen::inRange<std::size_t>(0, text.size());
            switch (*rc::gen::inRange(0, 3)) {
            case 0:
                text[at] = *rc::gen::arbitrary<char>();
                break;
            case 1:
                text.erase(at, *rc::gen::inRange<std::size_t>(1, 40));
                break;
            default:
                text.insert(at, *rc::gen::arbitrary<std::string>());
                break;
            }
        }
        VirtualWorld world;
        std::string fault;
        const bool good = World_FromJson(text, world, fault);
        RC_ASSERT(good == fault.empty());
    }));
}

TEST(OemText, every_byte_has_a_character_of_its_own) {
    Bytes all;
    for (int n = 0; n < 256; ++n) {
        all.push_back(static_cast<std::uint8_t>(n));
    }
    EXPECT_EQ(Utf8ToOem(OemToUtf8(all)), all);
    EXPECT_EQ(OemToUtf8(Bytes{0x81, 0x84, 0x94, 0xE1}), "üäöß");
}

TEST(OemText, broken_utf8_and_foreign_characters_are_refused) {
    for (const char* text : {"\xC3", "\xC3(", "\xFF", "\x80", "Ω", "\xF0\x9F\x98\x80", "\xC0\x80"}) {
        EXPECT_FALSE(Utf8ToOem(text).has_value()) << text;
    }
}

TEST(World_FromJson, a_network_adapter_has_its_waits) {
    VirtualWorld world;
    std::string fault;
    const char* text = R"({"adapter": {"network": {"answer_ms": 5, "fetch_ms": 70, "program_ms": 80,
        "history_bytes": 100}, "name": "PROGSTATION N", "address": "03.F0.00.00"}})";
    ASSERT_TRUE(World_FromJson(text, world, fault)) << fault;
    EXPECT_TRUE(world.Adapter.Network());
    EXPECT_EQ(world.Adapter.Waits.AnswerMs, 5);
    EXPECT_EQ(world.Adapter.Waits.FetchMs, 70);
    EXPECT_EQ(world.Adapter.Waits.ProgramMs, 80);
    EXPECT_EQ(world.Adapter.Waits.HistoryBytes, 100);
    VirtualWorld again;
    ASSERT_TRUE(World_FromJson(World_ToJson(world), again, fault)) << fault;
    EXPECT_EQ(again.Adapter.Waits.HistoryBytes, 100);
}

TEST(World_FromJson, name_and_address_make_a_network_adapter) {
    EXPECT_EQ(FaultOf(R"({"adapter": {"network": {}}})"),
              "adapter.network: needs a name that begins PROGSTATION and an address from 03.E0.00.01 to 03.F0.00.00");
    EXPECT_EQ(FaultOf(R"({"adapter": {"address": "03.E0.00.01", "network": {"history_bytes": 1153}}})"),
              "adapter.network.history_bytes: must be a whole number from 1 to 1152");
    VirtualWorld world;
    std::string fault;
    ASSERT_TRUE(World_FromJson(R"({"adapter": {"address": "03.E0.00.01"}})", world, fault)) << fault;
    EXPECT_TRUE(world.Adapter.Network());
    ASSERT_TRUE(World_FromJson(R"({"adapter": {"address": "03.E0.00.00"}})", world, fault)) << fault;
    EXPECT_FALSE(world.Adapter.Network());
    EXPECT_EQ(World_ToJson(world).find("network"), std::string::npos);
}

TEST(World_FromJson, reads_what_is_going_to_be_presented_on_the_desk) {
    VirtualWorld world;
    std::string fault;
    ASSERT_TRUE(World_FromJson(R"({"desk": {"patience_ms": 3000, "freed": "81", "presented": [
        {"kind": "key", "delay_ms": 40, "id": "0A141E28", "data": "000102030405060708090A0B0C0D0E0F"},
        {"kind": "transponder", "slot": 129, "id": "0102030405060708090A"},
        {"kind": "finger", "steps": "0C1C0A", "step_ms": 5, "template": "FFFE", "piece_bytes": 1}]}})",
                               world, fault))
        << fault;
    EXPECT_EQ(world.Desk.PatienceMs, 3000);
    EXPECT_THAT(world.Desk.Freed, ElementsAre(129));
    ASSERT_EQ(world.Desk.Presented.size(), 3U);
    const Credential& key = world.Desk.Presented[0];
    EXPECT_EQ(key.What, Credential::Kind::Key);
    EXPECT_EQ(key.DelayMs, 40);
    EXPECT_THAT(key.Id, ElementsAre(10, 20, 30, 40));
    EXPECT_EQ(key.Data[15], 15);
    EXPECT_EQ(world.Desk.Presented[1].Slot, 129);
    EXPECT_EQ(world.Desk.Presented[1].DelayMs, 500);
    const Credential& finger = world.Desk.Presented[2];
    EXPECT_EQ(finger.What, Credential::Kind::Finger);
    EXPECT_THAT(finger.Steps, ElementsAre(0x0C, 0x1C, 0x0A));
    EXPECT_EQ(finger.StepMs, 5);
    EXPECT_THAT(finger.Template, ElementsAre(255, 254));
    EXPECT_EQ(finger.PieceBytes, 1);
}

TEST(World_FromJson, names_the_place_of_a_fault_on_the_desk) {
    EXPECT_EQ(FaultOf(R"({"desk": {"presented": [{"kind": "coin"}]}})"),
              "desk.presented[0].kind: must be one of key, transponder, finger");
    EXPECT_EQ(FaultOf(R"({"desk": {"presented": [{"id": "0102030405060708090A0B"}]}})"),
              "desk.presented[0].id: must be hexadecimal digits, two a byte, of at most 10 bytes");
    EXPECT_EQ(FaultOf(R"({"desk": {"presented": [{"piece_bytes": 241}]}})"),
              "desk.presented[0].piece_bytes: must be a whole number from 1 to 240");
}

TEST(World_ToJson, gives_a_desk_back_that_reads_the_same) {
    VirtualWorld world;
    world.Desk.PatienceMs = 1;
    world.Desk.Freed = {200};
    world.Desk.Presented = {{.What = Credential::Kind::Finger, .Steps = {}, .Template = {9, 0}, .PieceBytes = 3},
                            {.What = Credential::Kind::Transponder, .DelayMs = 0, .Id = {0, 1}, .Slot = 7}};
    VirtualWorld again;
    std::string fault;
    ASSERT_TRUE(World_FromJson(World_ToJson(world), again, fault)) << fault;
    EXPECT_EQ(again.Desk.Presented, world.Desk.Presented);
    EXPECT_EQ(again.Desk.PatienceMs, 1);
    EXPECT_THAT(again.Desk.Freed, ElementsAre(200));
}

TEST(Credential_FromJson, reads_one_line_and_names_what_is_wrong_with_it) {
    Credential credential;
    std::string fault;
    EXPECT_TRUE(Credential_FromJson(R"({"kind": "transponder", "slot": 4})", credential, fault)) << fault;
    EXPECT_EQ(credential.Slot, 4);
    const Credential before = credential;
    EXPECT_FALSE(Credential_FromJson("key", credential, fault));
    EXPECT_THAT(fault, StartsWith("not JSON: "));
    EXPECT_FALSE(Credential_FromJson("5", credential, fault));
    EXPECT_EQ(fault, "what is presented: must be an object");
    EXPECT_FALSE(Credential_FromJson(R"({"slot": 256})", credential, fault));
    EXPECT_EQ(fault, "slot: must be a whole number from 0 to 255");
    EXPECT_EQ(credential, before);
}

} // namespace
} // namespace qvm::test
