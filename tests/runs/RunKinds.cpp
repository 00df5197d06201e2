#include "RunKinds.h"

namespace qvm::test {

const char* KindName(RunKind kind) {
    constexpr std::array names{"Old",     "Polled",      "LongId",       "Above",  "AboveTimers",
                               "TwoPass", "HistoryOnly", "HistoryFirst", "Search", "SearchHistory",
                               "Unit1",   "Unit2",       "BothUnits"};
    return names[static_cast<std::size_t>(kind)];
}

bool OnlyHistory(RunKind kind) {
    return kind == RunKind::HistoryOnly || kind == RunKind::SearchHistory;
}
bool Searches(RunKind kind) {
    return kind == RunKind::Search || kind == RunKind::SearchHistory;
}
bool HasUnits(RunKind kind) {
    return kind == RunKind::Unit1 || kind == RunKind::Unit2 || kind == RunKind::BothUnits;
}
bool IsPolled(RunKind kind) {
    return kind == RunKind::Polled || kind == RunKind::LongId;
}
LockUser OldUser() {
    LockUser user;
    user.Slot = 700;
    return user;
}
bool HasFingers(RunKind kind) {
    return kind == RunKind::Unit2 || kind == RunKind::BothUnits;
}

namespace {

constexpr std::string_view Reader = "01600001", Reader2 = "01600003", Scanner = "00012CCD";

} // namespace

void PrintTo(RunKind kind, std::ostream* out) {
    *out << KindName(kind);
}

std::string_view SerialOf(RunKind kind) {
    switch (kind) {
    case RunKind::Polled:
        return Serial::Z;
    case RunKind::LongId:
        return Serial::N;
    case RunKind::Above:
    case RunKind::AboveTimers:
        return Serial::TAbove;
    case RunKind::TwoPass:
        return Serial::TwoPass;
    default:
        return Serial::S;
    }
}

Scene::Scene(RunKind kindOfRun) : kind(kindOfRun) {
    // With person timers the lock above 0xB49FFFF takes no table of them at all, without them empty ones.
    VirtualLock& lock = AddLock(1, "Tresor", SerialOf(kind), kind == RunKind::AboveTimers ? "XXXXX" : " XXXX");
    files.Emi(1, 'Y');
    for (int slot = 1; kind == RunKind::AboveTimers && slot <= 15; ++slot) {
        files.Slot(slot, 0, "00:00", "00:00");
    }
    TestUser user{.Name = "Anna", .Marks = {{1, 'X'}}};
    if (kind == RunKind::LongId) {
        user.KeyId = "#3-ID#10:20:30:40:50:60:70:80:90:100";
    } else if (kind == RunKind::TwoPass) {
        user.KeyId = "1 : 2 : 3 : 4";
    }
    files.User(1, user);
    if (IsPolled(kind)) {
        lock.Users = {OldUser()};
    }
    if (OnlyHistory(kind) || kind == RunKind::HistoryFirst) {
        lock.History = {HistoryLine{4, 3, 26, 9, 7, 'A'}, HistoryLine{3, 3, 26, 9, 7, 'B'}};
    }
    if (Searches(kind)) {
        world.Disk.Files["/q/DAT/EST7CSB29A.I_1"] = "Deutsch\r\n1\r\nUSB-Port1\r\n7\r\n";
        files.Channel(1, "1", "7", "1");
    }
    Units();
}

void Scene::Units() {
    if (HasUnits(kind)) {
        files.Reception(1, '2', '0', '0', 0, 0, 0, '0', "255");
    }
    if (kind == RunKind::Unit1 || kind == RunKind::BothUnits) {
        files.Unit(1, 1, "Unit", Reader, '1');
        AddUnit(Reader, 1);
    }
    if (HasFingers(kind)) {
        files.Unit(1, kind == RunKind::BothUnits ? 2 : 1, "Unit", Scanner, '2');
        AddUnit(Scanner, 2);
        files.User(
            2, {.Name = "Bert", .Label = "Slot_Nr: 002", .FingerFlag = "FS", .FingerId = "8001", .Marks = {{1, 'F'}}});
        files.Template(250, "8001", {3, 0, 1});
    }
    if (kind == RunKind::BothUnits) {
        files.Unit(1, 3, "Unit", Reader2, '1');
        AddUnit(Reader2, 1);
    }
}

void Scene::Start() {
    if (HasFingers(kind)) {
        const bool marked = files.File("RFCHANDIF12.RFX")[9] == '1';
        world.Answers.push_front({.Text = "L273"});
        world.Answers.insert(world.Answers.begin() + (marked ? 1 : 0), {.Text = "L63", .Reply = Answer::No});
        programm->Transfer->F13.FGK13_Click(1, F13Column::Program);
        TypeCode("123456");
        return;
    }
    if (OnlyHistory(kind)) {
        History(1);
    } else {
        Program(1, kind == RunKind::HistoryFirst ? Answer::Yes : Answer::No);
    }
}

std::vector<int> Scene::DeviceCodes() const {
    std::vector<int> codes;
    for (const auto& frame : system->Telegrams()) {
        if (frame[2] != 0x6F && frame[2] != 0x6B) {
            codes.push_back(frame[2]);
        }
    }
    return codes;
}

void Scene::Expect_Held() {
    const VirtualLock& lock = Lock(SerialOf(kind));
    if (OnlyHistory(kind)) {
        EXPECT_EQ(lock.Erases, 0);
    } else {
        EXPECT_TRUE(lock.DataComplete);
        EXPECT_EQ(lock.Users.size(), HasFingers(kind) ? 2U : 1U);
    }
    if (kind == RunKind::AboveTimers) {
        EXPECT_EQ(lock.FormA, TableForm::None);
        EXPECT_EQ(lock.FormB, TableForm::None);
    }
    if (Searches(kind)) {
        EXPECT_EQ(lock.Channel, 7);
        EXPECT_EQ(files.File("RFCHANDIF12.RFX").substr(0, 15), "7     7  0     ");
    }
    for (const VirtualUnit& unit : system->World().Units) {
        EXPECT_EQ(unit.Lock, AddressOf(SerialOf(kind)));
        if (unit.Type == 2) {
            ASSERT_EQ(unit.Rows.size(), 1U);
            EXPECT_EQ(unit.Rows[0].Address, 2);
            EXPECT_EQ(unit.Rows[0].Bytes[2], 1);
        }
    }
}

} // namespace qvm::test
