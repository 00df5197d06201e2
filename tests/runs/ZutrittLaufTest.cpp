// What the program tells of a user's times is what the virtual lock says of the times that it was sent.

#include "Gitterzeile.h"
#include "LockTimes.h"
#include "RunFixture.h"
#include "Zutritt.h"

#include <cstdio>
#include <random>

namespace qvm::test {
namespace {

constexpr int Houses = 100, CasesPerHouse = 1000, People = 30;

struct Dice {
    std::mt19937 Engine;
    int operator()(int low, int high) { return std::uniform_int_distribution<int>(low, high)(Engine); }
    bool Chance(int percent) { return (*this)(1, 100) <= percent; }
};

std::string Text(const char* form, int a, int b = 0, int c = 0) {
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), form, a, b, c);
    return text.data();
}

/// The minutes at which anything can begin or end: those of the slots, and midnight from both sides.
struct Zutritt_Lauf : RunFixture {
    Dice dice{std::mt19937(77020)};
    std::vector<int> edges;

    std::string Minute() {
        const int minute = dice.Chance(20) ? 0 : dice.Chance(20) ? 24 * 60 - 1 : dice(0, 24 * 60 - 1);
        edges.push_back(minute);
        return Text("%02d:%02d", minute / 60, minute % 60);
    }

    std::string Marks(int count) {
        std::string marks;
        for (int n = 0; n < count; ++n) {
            marks += dice.Chance(40) ? 'X' : '-';
        }
        return marks;
    }

    /// A day on which calendars tend to go wrong, or any other.
    Datum Day() {
        const int year = dice(2024, 2032);
        switch (dice(0, 4)) {
        case 0:
            return {year, 12, dice(28, 31)};
        case 1:
            return {year, 1, dice(1, 4)};
        case 2:
            return year % 4 == 0 ? Datum{year, 2, 29} : Datum{year, 3, 1};
        default:
            return {year, dice(1, 12), dice(1, 28)};
        }
    }

    void WriteCalendar() {
        for (int n = dice(0, 20); n > 0; --n) {
            const Datum from = Day(), to = dice.Chance(50) ? from : Day();
            files.Holiday(n, Text("%02d.%02d.%04d", from.Day, from.Month, from.Year),
                          Text("%02d.%02d.%04d", to.Day, to.Month, to.Year), dice.Chance(50) ? '1' : '0');
        }
        for (int n = dice(0, 20); n > 0; --n) {
            const Datum from = Day(), to = dice.Chance(40) ? from : Day();
            files.Holiday(21 + n, Text("%02d.%02d. - -", from.Day, from.Month),
                          Text("%02d.%02d. - -", to.Day, to.Month), ' ');
        }
    }

    void WriteTimes() {
        for (int slot = 1; slot <= 15; ++slot) {
            const std::string from = Minute(), to = Minute();
            files.Slot(slot, static_cast<std::uint8_t>(dice(0, 10)), from, to);
        }
        files.Group(1, "Timer-A", "XXXXX-----", "PB_2008TimA");
        files.Group(2, "Timer-B", "-----XXXXX", "PB_2008TimB");
        for (int group = 3; group <= 7; ++group) {
            files.Group(group, "Group", Marks(10), "PB_80000000" + std::to_string(group));
        }
        files.LockGroup(dice(1, 5), "Night", Marks(5), "PB_700000001");
        files.LockHasGroup(1, dice.Chance(80) ? "PB_700000001" : "-");
    }

    bool WritePeople() {
        bool fingers = false;
        const std::vector<std::string> groups{
            "-", "PB_2008TimA", "PB_2008TimB", "PB_800000003", "PB_800000004", "PB_800000005", "PB_999999999", ""};
        for (int user = 1; user <= People; ++user) {
            TestUser person{.Name = "User " + std::to_string(user),
                            .Group = groups[static_cast<std::size_t>(dice(0, static_cast<int>(groups.size()) - 1))]};
            if (dice.Chance(85)) {
                person.Marks[1] = dice.Chance(15) ? 'F' : 'X';
                fingers = fingers || person.Marks[1] == 'F';
            }
            person.Label = "Slot_Nr: 007";
            files.User(user, person);
        }
        return fingers;
    }

    DateTime Moment() {
        const Datum day = Day();
        const int near = edges[static_cast<std::size_t>(dice(0, static_cast<int>(edges.size()) - 1))] + dice(-1, 1);
        const int minute = std::clamp(dice.Chance(70) ? near : dice(0, 24 * 60 - 1), 0, 24 * 60 - 1);
        return {.Year = day.Year, .Month = day.Month, .Day = day.Day, .Hour = minute / 60, .Minute = minute % 60};
    }

    void Compare(const Dataset& dataset, const VirtualLock& lock, std::size_t n, const DateTime& at) {
        const Datum day = Heute(at);
        const int minute = at.Hour * 60 + at.Minute;
        const auto byte = [](int value) { return static_cast<std::uint8_t>(value); };
        const LockVerdict verdict =
            JudgeTimes(lock, lock.Users[n],
                       {byte(at.Day), byte(at.Month), byte(at.Year % 100), byte(at.Hour), byte(at.Minute), 0});
        const UserTimes times = Benutzer_Zeiten(dataset, dataset.Slots[n]);
        std::vector<int> open, lockOpen;
        for (const UserTimes::Slot& slot : times.Slots) {
            if (Zeit_Haelt(slot.Row, Wochentag(day), minute)) {
                open.push_back(slot.Number);
            }
        }
        for (const OpenRow& row : verdict.Open) {
            lockOpen.push_back(row.Table == 'A' ? row.Row + 1 : row.Row + 5);
        }
        ASSERT_EQ(open, lockOpen);
        ASSERT_EQ(!times.Limited || !open.empty(), verdict.Admits);
        std::vector<int> timers;
        for (const UserTimes::Slot& slot : Schloss_Zeiten(dataset)) {
            if (Zeit_Haelt(slot.Row, Wochentag(day), minute)) {
                timers.push_back(slot.Number - 1);
            }
        }
        ASSERT_EQ(timers, verdict.LockTimers);
        const auto holiday = Feiertag_Am(dataset, day);
        ASSERT_EQ(holiday.has_value(), verdict.SingleDay || verdict.PermanentDay);
        ASSERT_TRUE(!holiday || holiday->Permanent == !verdict.SingleDay);
        ++(verdict.Admits ? admitted : refused);
        holidays += holiday ? 1 : 0;
        limited += times.Limited ? 1 : 0;
    }

    int admitted = 0, refused = 0, holidays = 0, limited = 0, compared = 0;
};

TEST_F(Zutritt_Lauf, a_hundred_thousand_moments_are_judged_as_the_lock_judges_them) {
    const std::array<std::string_view, 6> serials{Serial::S, Serial::Z,      Serial::N,
                                                  Serial::T, Serial::TAbove, Serial::TwoPass};
    for (int house = 0; house < Houses; ++house) {
        SCOPED_TRACE(house);
        const std::string_view serial = serials[static_cast<std::size_t>(house) % serials.size()];
        world.Disk.Files.erase("/q/DAT/KL10X49WTTI.CBW");
        devices.Locks.clear();
        edges.clear();
        const bool timers = dice.Chance(90);
        AddLock(1, "Tresor", serial, timers ? (dice.Chance(85) ? "XXXXX" : "X X X") : " XXXX");
        WriteTimes();
        WriteCalendar();
        const bool fingers = WritePeople();
        ASSERT_NO_FATAL_FAILURE(Begin());
        if (timers && (serial == Serial::S || serial == Serial::T)) {
            world.Answers.push_back({.Text = "L180\n\rL181"});
        }
        if (fingers) {
            Expect(273);
        }
        Program(1);
        ASSERT_TRUE(Finish());
        ASSERT_EQ(Outcome(), RunOutcome::Done);
        Dataset dataset;
        ASSERT_EQ(Datensatz_Laden(programm->kern, dataset, Gitterzeile_Lesen(programm->Transfer->F13.FGK13, 1),
                                  DatasetVariant::Network),
                  DatasetStatus::Good);
        const VirtualLock& lock = Lock(serial);
        ASSERT_EQ(lock.Users.size(), dataset.Slots.size());
        ASSERT_FALSE(lock.Users.empty());
        for (int n = 0; n < CasesPerHouse; ++n, ++compared) {
            const auto user = static_cast<std::size_t>(dice(0, static_cast<int>(lock.Users.size()) - 1));
            ASSERT_NO_FATAL_FAILURE(Compare(dataset, lock, user, Moment()));
        }
    }
    EXPECT_EQ(compared, 100000);
    // Each kind of case is among them in numbers.
    EXPECT_GE(admitted, 10000);
    EXPECT_GE(refused, 10000);
    EXPECT_GE(holidays, 10000);
    EXPECT_GE(limited, 20000);
}

} // namespace
} // namespace qvm::test
