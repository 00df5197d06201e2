#include "WorldFile.h"

#include "WorldAir.h"
#include "WorldCodecs.h"
#include "WorldDesk.h"

#include <set>

namespace qvm {

namespace {

/// A history record by its fields.
struct HistoryEntry {
    HistoryLine Line{};
};
/// A template slice with the number of its finger.
struct FingerEntry {
    std::uint16_t Number = 0;
    std::array<std::uint8_t, 28> Slice{};
};
/// An identification that may be missing.
struct UserId {
    std::array<std::uint8_t, 4> Id{};
    std::array<std::uint8_t, 16> Data{};
};
struct UserLongId {
    std::uint8_t GroupDigit = 0;
    std::array<std::uint8_t, 11> Id{};
    std::array<std::uint8_t, 16> Data{};
};

} // namespace

namespace world {

template <typename Archive>
void Fields(Archive& archive, HistoryEntry& entry) {
    std::array<std::uint8_t, 16> name{};
    std::copy_n(entry.Line.begin() + 5, name.size(), name.begin());
    archive("day", Number<std::uint8_t>{entry.Line[0], 0, 255});
    archive("month", Number<std::uint8_t>{entry.Line[1], 0, 255});
    archive("year", Number<std::uint8_t>{entry.Line[2], 0, 255});
    archive("hour", Number<std::uint8_t>{entry.Line[3], 0, 255});
    archive("minute", Number<std::uint8_t>{entry.Line[4], 0, 255});
    archive("name", Name<16>{name});
    archive("event", Number<std::uint8_t>{entry.Line[21], 0, 255});
    std::copy(name.begin(), name.end(), entry.Line.begin() + 5);
}

template <typename Archive>
void Fields(Archive& archive, FingerEntry& entry) {
    archive("number", Number<std::uint16_t>{entry.Number, 0, 65535, true});
    archive("slice", HexBytesField<28>{entry.Slice});
}

template <typename Archive>
void Fields(Archive& archive, UserId& id) {
    archive("bytes", HexBytesField<4>{id.Id});
    archive("data", HexBytesField<16>{id.Data});
}

template <typename Archive>
void Fields(Archive& archive, UserLongId& id) {
    archive("group", Number<std::uint8_t>{id.GroupDigit, 0, 255});
    archive("bytes", HexBytesField<11>{id.Id});
    archive("data", HexBytesField<16>{id.Data});
}

template <typename Archive>
void Fields(Archive& archive, LockClock& clock) {
    archive("day", Number<std::uint8_t>{clock.Day, 0, 255});
    archive("month", Number<std::uint8_t>{clock.Month, 0, 255});
    archive("year", Number<std::uint8_t>{clock.Year, 0, 255});
    archive("hour", Number<std::uint8_t>{clock.Hour, 0, 255});
    archive("minute", Number<std::uint8_t>{clock.Minute, 0, 255});
    archive("second", Number<std::uint8_t>{clock.Second, 0, 255});
}

template <typename Archive>
void Fields(Archive& archive, ListenTime& listen) {
    archive("first", Number<std::uint8_t>{listen.First, 0, 255});
    archive("second", Number<std::uint8_t>{listen.Second, 0, 255});
    archive("high", Number<std::uint8_t>{listen.High, 0, 255});
    archive("low", Number<std::uint8_t>{listen.Low, 0, 255});
}

template <typename Archive>
void Fields(Archive& archive, ReaderSetting& reader) {
    archive("level", Number<std::uint8_t>{reader.Level, 0, 255});
    archive("first", Number<std::uint8_t>{reader.First, 0, 255});
    archive("second", Number<std::uint8_t>{reader.Second, 0, 255});
}

/// What of a user is there or not there as a whole.
struct UserParts {
    std::optional<UserId> Id;
    std::optional<UserLongId> LongId;
    std::optional<std::array<std::uint8_t, 3>> Groups;
};

UserParts PartsOf(const LockUser& user) {
    UserParts parts;
    if (user.HasId) {
        parts.Id = UserId{.Id = user.Id, .Data = user.IdData};
    }
    if (user.HasLongId) {
        parts.LongId = UserLongId{.GroupDigit = user.GroupDigit, .Id = user.LongId, .Data = user.LongIdData};
    }
    if (user.HasGroups) {
        parts.Groups = user.Groups;
    }
    return parts;
}

void TakeParts(LockUser& user, const UserParts& parts) {
    user.HasId = parts.Id.has_value();
    user.HasLongId = parts.LongId.has_value();
    user.HasGroups = parts.Groups.has_value();
    const UserId id = parts.Id.value_or(UserId{});
    const UserLongId longId = parts.LongId.value_or(UserLongId{});
    user.Id = id.Id;
    user.IdData = id.Data;
    user.GroupDigit = longId.GroupDigit;
    user.LongId = longId.Id;
    user.LongIdData = longId.Data;
    user.Groups = parts.Groups.value_or(std::array<std::uint8_t, 3>{});
}

template <typename Archive>
void Fields(Archive& archive, LockUser& user) {
    UserParts parts = PartsOf(user);
    archive("slot", Number<std::uint16_t>{user.Slot, 0, 65535, true});
    archive("kind", Keyword<bool, 2>{user.Finger, {"code", "finger"}});
    archive("name", Name<16>{user.Name});
    archive("weighting", Number<std::uint8_t>{user.Weighting, 0, 255});
    archive("code", Code<5>{user.Code, false});
    archive("timer_selector", Number<std::uint8_t>{user.TimerSelector, 0, 255, false, true});
    archive("id", MaybeOne<UserId>{parts.Id});
    archive("long_id", MaybeOne<UserLongId>{parts.LongId});
    archive("finger_number", Number<std::uint16_t>{user.FingerNumber, 0, 65535, false, true});
    archive("slice", HexBytesField<28>{user.Slice});
    archive("groups", SlotMap{parts.Groups});
    TakeParts(user, parts);
}

/// Memory that a lock keeps in another shape than the file.
struct LockLists {
    std::vector<HistoryEntry> History;
    std::vector<FingerEntry> Fingers;
};

LockLists ListsOf(const VirtualLock& lock) {
    LockLists lists;
    for (const HistoryLine& line : lock.History) {
        lists.History.push_back({line});
    }
    for (const auto& [number, slice] : lock.Fingers) {
        lists.Fingers.push_back({number, slice});
    }
    return lists;
}

void TakeLists(VirtualLock& lock, const LockLists& lists) {
    lock.History.clear();
    for (const HistoryEntry& entry : lists.History) {
        lock.History.push_back(entry.Line);
    }
    lock.Fingers.clear();
    for (const FingerEntry& entry : lists.Fingers) {
        lock.Fingers[entry.Number] = entry.Slice;
    }
}

template <typename Archive>
void LockBehaviour(Archive& archive, VirtualLock& lock) {
    constexpr int longestErase = 3600000;
    archive("label", Label{lock.Label});
    archive("serial", Serial{lock.Serial, true});
    archive("admin_code", Code<3>{lock.AdminCode, true});
    archive("channel", Number<int>{lock.Channel, 1, 12});
    archive("login_status", Number<std::uint8_t>{lock.LoginStatus, 0, 255});
    archive("code_status", Number<std::uint8_t>{lock.CodeStatus, 0, 255});
    archive("erase_busy_ms", Number<int>{lock.EraseBusyMs, 0, longestErase});
    archive("echo_erase", Flag{lock.EchoErase});
    archive("alive_reply", Number<std::uint8_t>{lock.AliveReply, 0, 255});
    archive("forced_slot", MaybeNumber<std::uint16_t>{lock.ForcedSlot, 0, 65535});
    AirFields(archive, lock.Air);
}

template <typename Archive>
void Fields(Archive& archive, VirtualLock& lock) {
    LockLists lists = ListsOf(lock);
    LockBehaviour(archive, lock);
    archive("users", List<LockUser>{lock.Users});
    archive("fingers", List<FingerEntry>{lists.Fingers});
    archive("table_a_form", Keyword<TableForm, 4>{lock.FormA, {"none", "short", "parts", "block"}});
    archive("table_a", Rows<5, 24>{lock.TableA});
    archive("table_b_form", Keyword<TableForm, 4>{lock.FormB, {"none", "short", "parts", "block"}});
    archive("table_b", Rows<5, 16>{lock.TableB});
    archive("single_days", Rows<6, 21>{lock.SingleDays});
    archive("permanent_days", Rows<6, 21>{lock.PermanentDays});
    archive("clock", MaybeOne<LockClock>{lock.Clock});
    archive("lock_timer_flag", MaybeNumber<std::uint8_t>{lock.LockTimerFlag, 0, 255});
    archive("calendar_flag", MaybeNumber<std::uint8_t>{lock.CalendarFlag, 0, 255});
    archive("priority", MaybeNumber<std::uint8_t>{lock.Priority, 0, 255});
    archive("lock_mode", MaybeNumber<std::uint8_t>{lock.LockMode, 0, 255});
    archive("erase_option", MaybeNumber<std::uint8_t>{lock.EraseOption, 0, 255});
    archive("listen_time", MaybeOne<ListenTime>{lock.Listen});
    archive("reader", MaybeOne<ReaderSetting>{lock.Reader});
    archive("history", List<HistoryEntry>{lists.History});
    archive("erases", Number<int>{lock.Erases, 0, INT32_MAX});
    archive("sessions", Number<int>{lock.Sessions, 0, INT32_MAX});
    archive("data_complete", Flag{lock.DataComplete});
    TakeLists(lock, lists);
}

template <typename Archive>
void Fields(Archive& archive, UnitRow& row) {
    archive("number", Number<std::uint16_t>{row.Number, 0, 65535});
    archive("type", Number<std::uint8_t>{row.Type, 0, 255});
    archive("address", Number<std::uint16_t>{row.Address, 0, 65535});
    archive("bytes", HexText{row.Bytes});
}

template <typename Archive>
void Fields(Archive& archive, VirtualUnit& unit) {
    archive("label", Label{unit.Label});
    archive("type", Number<int>{unit.Type, 1, 2});
    archive("serial", Serial{unit.Serial, true});
    archive("admin_code", Code<3>{unit.AdminCode, true});
    archive("channel", Number<int>{unit.Channel, 1, 12});
    archive("login_status", Number<std::uint8_t>{unit.LoginStatus, 0, 255});
    archive("code_status", Number<std::uint8_t>{unit.CodeStatus, 0, 255});
    AirFields(archive, unit.Air);
    archive("refused_erases", Number<int>{unit.RefusedErases, 0, INT32_MAX});
    archive("block_status", Number<std::uint8_t>{unit.BlockStatus, 0, 255});
    archive("lock", MaybeSerial{unit.Lock});
    archive("key", HexBytesField<16>{unit.Key});
    archive("rows_announced", Number<std::uint16_t>{unit.RowsAnnounced, 0, 65535});
    archive("rows", List<UnitRow>{unit.Rows});
    archive("erases", Number<int>{unit.Erases, 0, INT32_MAX});
    archive("sessions", Number<int>{unit.Sessions, 0, INT32_MAX});
}

template <typename Archive>
void Fields(Archive& archive, NetworkWaits& waits) {
    constexpr int longestWait = 3600000, widestBlock = 1152;
    archive("answer_ms", Number<int>{waits.AnswerMs, 0, longestWait});
    archive("fetch_ms", Number<int>{waits.FetchMs, 0, longestWait});
    archive("program_ms", Number<int>{waits.ProgramMs, 0, longestWait});
    archive("history_bytes", Number<int>{waits.HistoryBytes, 1, widestBlock});
}

/// What only a network adapter has. Name and address make it one, so they are read before.
struct NetworkField {
    VirtualAdapter& Adapter;
    static constexpr bool Required = false;

    std::string Load(const Json& json) {
        if (!Adapter.Network()) {
            return ": needs a name that begins PROGSTATION and an address from 03.E0.00.01 to 03.F0.00.00";
        }
        return One<NetworkWaits>{Adapter.Waits}.Load(json);
    }
    Json Save() const { return Adapter.Network() ? One<NetworkWaits>{Adapter.Waits}.Save() : Json(); }
};

template <typename Archive>
void Fields(Archive& archive, VirtualAdapter& adapter) {
    archive("name", PcText{adapter.Name, 20});
    archive("version", Number<std::uint8_t>{adapter.Version, 0, 255});
    archive("address", Serial{adapter.Address});
    archive("key", HexBytesField<16>{adapter.Key});
    archive("network", NetworkField{adapter});
}

template <typename Archive>
void Fields(Archive& archive, Credential& credential) {
    CredentialFields(archive, credential);
}

template <typename Archive>
void Fields(Archive& archive, VirtualDesk& desk) {
    DeskFields(archive, desk);
}

template <typename Archive>
void Fields(Archive& archive, VirtualWorld& all) {
    constexpr int longestDelay = 60000;
    archive("adapter", One<VirtualAdapter>{all.Adapter});
    archive("reply_ms", Number<int>{all.ReplyMs, 0, longestDelay});
    archive("faults", Faults{all.Faults});
    archive("locks", List<VirtualLock>{all.Locks});
    archive("units", List<VirtualUnit>{all.Units});
    archive("desk", One<VirtualDesk>{all.Desk});
    archive.Ignore("judgements");
    archive.Ignore("line");
}

namespace {

std::string DoubledSerial(const VirtualWorld& all) {
    std::set<DeviceAddress> seen;
    std::string fault;
    const auto test = [&](const auto& devices, const char* list) {
        for (std::size_t n = 0; n < devices.size(); ++n) {
            if (!seen.insert(devices[n].Serial).second && fault.empty()) {
                fault = std::string{list} + "[" + std::to_string(n) + "].serial: another device has it";
            }
        }
    };
    test(all.Locks, "locks");
    test(all.Units, "units");
    return fault;
}

Json WorldJson(const VirtualWorld& all) {
    VirtualWorld copy = all; // the fields are described once, for reading and writing
    Writer writer;
    Fields(writer, copy);
    return writer.Take();
}

std::string Dump(const Json& json) {
    return json.dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
}

bool Parse(std::string_view text, Json& json, std::string& fault) {
    try {
        json = Json::parse(text);
    } catch (const Json::exception& error) { // the only way in which this parser tells the place
        fault = std::string{"not JSON: "} + error.what();
        return false;
    }
    return true;
}

} // namespace
} // namespace world

bool Credential_FromJson(std::string_view text, Credential& credential, std::string& fault) {
    world::Json json;
    if (!world::Parse(text, json, fault)) {
        return false;
    }
    fault = world::One<Credential>{credential}.Load(json);
    if (!fault.empty()) {
        fault = fault.starts_with('.') ? fault.substr(1) : "what is presented" + fault;
    }
    return fault.empty();
}

bool World_FromJson(std::string_view text, VirtualWorld& world, std::string& fault) {
    world::Json json;
    if (!world::Parse(text, json, fault)) {
        return false;
    }
    VirtualWorld read;
    world::Reader reader(json);
    world::Fields(reader, read);
    fault = reader.Fault();
    if (fault.empty()) {
        fault = world::DoubledSerial(read);
    } else {
        fault = fault.starts_with('.') ? fault.substr(1) : "the document" + fault;
    }
    if (!fault.empty()) {
        return false;
    }
    world = std::move(read);
    return true;
}

std::string World_ToJson(const VirtualWorld& world) {
    return world::Dump(world::WorldJson(world));
}

std::string State_ToJson(const VirtualSystem& system) {
    world::Json json = world::WorldJson(system.World());
    world::Json judgements = world::Json::array();
    for (const Judgement& judgement : system.Judgements()) {
        judgements.push_back(JudgementText(judgement));
    }
    const LineCounters& line = system.Counters();
    json["judgements"] = std::move(judgements);
    json["line"] = {
        {"telegrams", line.Telegrams},   {"device_telegrams", line.DeviceTelegrams}, {"replies", line.Replies},
        {"bad_checksums", line.BadSums}, {"bad_stuffings", line.BadStuffings},       {"garbage_bytes", line.Garbage}};
    return world::Dump(json);
}

} // namespace qvm
