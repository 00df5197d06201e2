// Every reply code in place of the right reply at every telegram of every kind of run, once from a device that did as
// it was told and once from one that did nothing. A run may end as it likes, or stand; but it says that it is done only
// when the devices hold what a good run gives them, no lock is erased before its events are on the disk, and the next
// run works.

#include "Antwort_Verteilen.h"
#include "RunKinds.h"

#include <algorithm>
#include <array>
#include <tuple>
#include <utility>

namespace qvm::test {
namespace {

using Wrong = SimFault::Kind;

/// What the devices hold, without what a run is free to leave differently.
struct Held {
    std::vector<LockUser> Users;
    std::tuple<TableForm, TableForm> Forms;
    std::tuple<decltype(VirtualLock::TableA), decltype(VirtualLock::TableB)> Tables;
    std::tuple<decltype(VirtualLock::SingleDays), decltype(VirtualLock::PermanentDays)> Days;
    std::tuple<std::optional<std::uint8_t>, std::optional<std::uint8_t>, std::optional<std::uint8_t>,
               std::optional<std::uint8_t>>
        Flags;
    std::optional<ListenTime> Listen;
    std::optional<ReaderSetting> Reader;
    bool Clock = false, Erased = false, Complete = false;
    int Channel = 0;
    std::vector<std::optional<DeviceAddress>> UnitLocks;
    std::vector<std::vector<UnitRow>> UnitRows;

    bool operator==(const Held&) const = default;
};

Held HeldBy(const VirtualLock& lock, const std::vector<VirtualUnit>& units) {
    Held held{.Users = lock.Users,
              .Forms = {lock.FormA, lock.FormB},
              .Tables = {lock.TableA, lock.TableB},
              .Days = {lock.SingleDays, lock.PermanentDays},
              .Flags = {lock.LockTimerFlag, lock.CalendarFlag, lock.Priority, lock.LockMode},
              .Listen = lock.Listen,
              .Reader = lock.Reader,
              .Clock = lock.Clock.has_value(),
              .Erased = lock.Erases > 0,
              .Complete = lock.DataComplete,
              .Channel = lock.Channel,
              .UnitLocks = {},
              .UnitRows = {}};
    for (const VirtualUnit& unit : units) {
        held.UnitLocks.push_back(unit.Lock);
        held.UnitRows.push_back(unit.Rows);
    }
    return held;
}

/// Codes that no row of the chain knows all take one way, on which nothing happens, and those of windows lead no run
/// anywhere: four of them are tried at each telegram. At the first one all codes are.
bool Tried(int code, std::size_t position) {
    constexpr std::uint8_t firstOfWindows = 0x60;
    constexpr std::array unknown{0x00, 0x55, 0x81, 0xFF};
    const auto rows = Antwort_Tabelle();
    const bool known = std::any_of(rows.begin(), rows.end(), [code](const ReplyRow& row) { return row.Code == code; });
    return position == 0 || code == 0x69 || (known && code < firstOfWindows) ||
           std::find(unknown.begin(), unknown.end(), code) != unknown.end();
}

/// The telegrams of a kind that no other kind sends in the same place: the first and how many. A run that reads first
/// is an old lock's run from its erase telegram on, one with units up to its disconnect, and so on.
std::pair<std::size_t, std::size_t> OwnTelegrams(RunKind kind, const std::vector<int>& codes) {
    const auto at = [&codes](int code) {
        return static_cast<std::size_t>(std::find(codes.begin(), codes.end(), code) - codes.begin());
    };
    switch (kind) {
    case RunKind::HistoryFirst:
        return {0, at(0x27) + 2};
    case RunKind::Search:
        return {0, at(0x29) + 2};
    case RunKind::Unit1:
    case RunKind::Unit2:
    case RunKind::BothUnits:
        return {at(0x05), codes.size() - at(0x05)};
    case RunKind::LongId:
        return {at(0x25), at(0x23) - at(0x25)};
    case RunKind::Above:
    case RunKind::AboveTimers:
        return {at(0x25), 4};
    case RunKind::TwoPass:
        return {at(0x05) - 2, 5};
    default:
        return {0, codes.size()};
    }
}

/// One program that plays run after run, each against devices that are as they were at first.
struct Attack : Scene {
    explicit Attack(RunKind kindOfRun) : Scene(kindOfRun) {
        const bool first = kind == RunKind::HistoryFirst;
        world.World.ShowMessage = [first](const Message& message) {
            return message.Choice == Buttons::YesNoCancel && !first ? Answer::No
                   : message.Choice == Buttons::Ok                  ? Answer::Ok
                   : message.Choice == Buttons::OkCancel            ? Answer::Ok
                                                                    : Answer::Yes;
        };
        Begin();
        disk_ = world.Disk.Files;
    }

    void Play(const std::vector<SimFault>& faults) {
        world.Disk.Files = disk_;
        devices.Faults = faults;
        system = std::make_unique<VirtualSystem>(devices, Surroundings());
        programm->Transfer->F13.RFk_IconLoad();
        programm->Transfer->F13.FGK13_Click(1, OnlyHistory(kind) ? F13Column::History : F13Column::Program);
        TypeCode("123456");
        // No run is longer without a telegram than while a scanner erases: 6 s.
        std::size_t sent = 0;
        std::int64_t since = world.Elapsed();
        world.RunUntil([this, &sent, &since] {
            if (const std::size_t now = system->Telegrams().size(); now != sent) {
                sent = now;
                since = world.Elapsed();
            }
            return programm->Run.Gesamtende || world.Elapsed() - since > 8000;
        });
        Ended = programm->Run.Gesamtende;
        world.RunFor(100);
    }
    void Close() {
        if (!programm->Run.Gesamtende) {
            programm->Transfer->F9.Command1_Click();
        }
        programm->Transfer->F9.Command2_Click();
        programm->Transfer->F18.F18_Schliessen();
        world.RunFor(7000);
    }
    bool SaysDone() const {
        const auto& units = programm->Run.Bericht.Units;
        const auto& wanted = programm->Run.Daten.Units;
        for (std::size_t n = 0; n < units.size(); ++n) {
            if (!OnlyHistory(kind) && wanted[n].UnitPresent && units[n].End != UnitReport::State::Done) {
                return false;
            }
        }
        return Ended && Outcome() == RunOutcome::Done;
    }
    /// Done without the lock's word that it erased: what it held before may still be there.
    bool EraseUnsure() const { return !programm->Run.Bericht.EraseConfirmed.value_or(true); }
    /// The file says that the lock has come to the system's channel.
    bool SaysMoved() { return Searches(kind) && files.File("RFCHANDIF12.RFX").starts_with("7"); }
    Held Now() { return HeldBy(Lock(SerialOf(kind)), system->World().Units); }
    bool ReadsEvents() const { return OnlyHistory(kind) || kind == RunKind::HistoryFirst; }
    /// The files of events, without their names.
    std::vector<std::string> Events() const {
        std::vector<std::string> all;
        for (const auto& [path, bytes] : world.Disk.Files) {
            if (path.ends_with(".HST")) {
                all.push_back(bytes);
            }
        }
        return all;
    }

    bool Ended = false;

private:
    decltype(world.Disk.Files) disk_;
};

struct Wrong_Reply : ::testing::TestWithParam<RunKind> {
    Attack attack{GetParam()};
    Held Good;
    std::string GoodEvents;
    std::vector<int> Telegrams;

    void SetUp() override {
        attack.Play({});
        ASSERT_TRUE(attack.SaysDone());
        Good = attack.Now();
        Telegrams = attack.DeviceCodes();
        if (attack.ReadsEvents()) {
            ASSERT_EQ(attack.Events().size(), 1U);
            GoodEvents = attack.Events().front();
        }
        attack.Close();
    }

    bool EventsAreSafe() const {
        // A reading that was begun anew goes on in the same file when it is still the same second, and a record that
        // nobody asked for stands there, too.
        const auto files = attack.Events();
        return std::any_of(files.begin(), files.end(),
                           [this](const std::string& file) { return file.find(GoodEvents) != std::string::npos; });
    }

    void Judge() {
        if (attack.SaysDone()) {
            Held held = attack.Now();
            if (attack.EraseUnsure()) {
                std::erase(held.Users, OldUser());
                held.Erased = Good.Erased;
            }
            EXPECT_TRUE(held == Good) << "done, but the devices do not hold it";
            EXPECT_TRUE(!attack.ReadsEvents() || EventsAreSafe()) << "done, but events are missing";
        }
        if (attack.Ended && attack.Outcome() == RunOutcome::Incomplete) {
            EXPECT_NE(attack.programm->Run.Bericht.Text, "");
            EXPECT_EQ(attack.Status(), attack.programm->Run.Bericht.Text);
        }
        const VirtualLock& lock = attack.Lock(SerialOf(GetParam()));
        EXPECT_TRUE(!attack.SaysMoved() || lock.Channel == 7) << "its channel is not where its record says";
        if (OnlyHistory(GetParam())) {
            EXPECT_EQ(lock.Erases, 0);
            EXPECT_TRUE(lock.Users.empty());
            EXPECT_FALSE(lock.CalendarFlag);
        } else if (attack.ReadsEvents() && lock.Erases > 0) {
            EXPECT_TRUE(EventsAreSafe()) << "erased before its events were on the disk";
        }
    }

    void Everywhere(SimFault::Kind what) {
        const auto [first, count] = OwnTelegrams(GetParam(), Telegrams);
        for (std::size_t position = first; position < first + count; ++position) {
            for (int code = 0; code <= 0xFF && !HasFailure(); ++code) {
                const int own = Telegrams[position] == 0xFE ? 0x04 : Telegrams[position];
                if (code == own || !Tried(code, position)) {
                    continue;
                }
                const SimFault fault{.What = what, .Telegram = static_cast<int>(position), .Value = code};
                SCOPED_TRACE(FaultText(fault) + " behind telegram " + std::to_string(Telegrams[position]));
                attack.Play({fault});
                Judge();
                attack.Close();
            }
            attack.Play({});
            EXPECT_TRUE(attack.SaysDone()) << "the run behind those at telegram " << position;
            EXPECT_TRUE(attack.Now() == Good);
            attack.Close();
        }
    }
};

TEST_P(Wrong_Reply, of_a_device_that_obeyed_proves_nothing) {
    Everywhere(Wrong::Wrong);
}
TEST_P(Wrong_Reply, of_a_device_that_did_nothing_proves_nothing) {
    Everywhere(Wrong::Instead);
}

INSTANTIATE_TEST_SUITE_P(Kinds, Wrong_Reply, ::testing::ValuesIn(AllKinds),
                         [](const auto& kind) { return std::string(KindName(kind.param)); });

} // namespace
} // namespace qvm::test
