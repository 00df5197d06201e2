// What the virtual lock holds after a run is what the data files say, worked out here without the program.

#include "RunFixture.h"

#include <random>

namespace qvm::test {
namespace {

struct Pick {
    std::mt19937 engine;
    int operator()(int low, int high) { return std::uniform_int_distribution<int>(low, high)(engine); }
    bool Chance(int percent) { return (*this)(1, 100) <= percent; }
};

struct SlotRow {
    int Day, FromHour, FromMinute, ToHour, ToMinute;
};
struct Span {
    int FromDay, FromMonth, FromYear, ToDay, ToMonth, ToYear; // years with four digits; permanent: 0
};
struct Person {
    TestUser Record;
    char Mark = '-';
    int Number = 0; // of a finger
    bool Premium = false;
    std::vector<std::uint8_t> Template;
    std::vector<int> Key;
    std::vector<int> KeyData;
    int Digit = 0;
};

std::string Two(int value) {
    return (value < 10 ? "0" : "") + std::to_string(value);
}
std::string Time(int hour, int minute) {
    return Two(hour) + ":" + Two(minute);
}

std::string Joined(const std::vector<int>& values, const std::string& between) {
    std::string text;
    for (const int value : values) {
        text += (text.empty() ? "" : between) + std::to_string(value);
    }
    return text;
}

/// A made-up installation around one lock, and what that lock must hold.
struct House {
    Pick pick;
    std::uint32_t serial;
    std::string serialText;
    std::vector<SlotRow> slots{};                // 15
    std::map<std::string, std::string> groups{}; // identifier to ten marks
    std::string lockGroupDays{};
    std::vector<Span> singles{}, permanents{};
    std::vector<Person> people{};
    std::string priority{};
    char emi = ' ';
    char unitMode = '2', always = '0', third = '0', signal = '0';
    int seconds = 0;
    std::string level = "255";
    bool timers = true, calendars = true, lockTimer = true, calendarFlag = true;
};

House Build(std::uint32_t serial, unsigned number) {
    House house{.pick = {std::mt19937(number * 7919U + serial)}, .serial = serial, .serialText = {}};
    Pick& pick = house.pick;
    char text[12];
    std::snprintf(text, sizeof text, "%02X.%02X.%02X.%02X", serial >> 24, (serial >> 16) & 255, (serial >> 8) & 255,
                  serial & 255);
    house.serialText = text;
    for (int n = 0; n < 15; ++n) {
        house.slots.push_back({pick(0, 10), pick(0, 11), pick(0, 59), pick(12, 23), pick(0, 59)});
    }
    house.groups = {{"PB_2008TimA", "XXXXX-----"}, {"PB_2008TimB", "-----XXXXX"}};
    for (int n = 3; n <= 7; ++n) {
        std::string days;
        for (int d = 0; d < 10; ++d) {
            days += pick.Chance(50) ? 'X' : '-';
        }
        house.groups["PB_" + std::to_string(800000000 + n)] = days;
    }
    for (int d = 0; d < 5; ++d) {
        house.lockGroupDays += pick.Chance(60) ? 'X' : '-';
    }
    for (int n = pick(0, 20); n > 0; --n) {
        const int month = pick(1, 12);
        const int year = pick(2024, 2031);
        house.singles.push_back({pick(1, 20), month, year, pick(21, 28), month, year});
    }
    for (int n = pick(0, 20); n > 0; --n) {
        const int month = pick(1, 12);
        house.permanents.push_back({pick(1, 20), month, 0, pick(21, 28), month, 0});
    }
    house.priority = std::to_string(pick(1, 5));
    house.emi = "XY "[pick(0, 2)];
    house.unitMode = pick.Chance(30) ? '3' : '2';
    house.always = pick.Chance(50) ? '1' : '0';
    house.signal = pick.Chance(50) ? '1' : '0';
    house.seconds = pick(0, 17) * 3600 + pick(0, 59) * 60;
    house.level = std::array{"090", "130", "170", "210", "255"}[static_cast<std::size_t>(pick(0, 4))];
    house.timers = pick.Chance(80);
    house.calendars = pick.Chance(80);
    house.lockTimer = pick.Chance(50);
    house.calendarFlag = pick.Chance(50);
    return house;
}

Person MakePerson(House& house, int number) {
    Pick& pick = house.pick;
    Person person;
    person.Record.Name = "User " + std::to_string(number) + std::string(static_cast<std::size_t>(pick(0, 6)), 'x');
    person.Record.Code.clear();
    for (int n = 0; n < 6; ++n) {
        person.Record.Code += static_cast<char>('0' + pick(0, 9));
    }
    auto group = house.groups.begin();
    std::advance(group, pick(0, static_cast<int>(house.groups.size()) - 1));
    person.Record.Group = pick.Chance(30) ? "-" : group->first;
    person.Record.Right =
        std::array{"1", "0", "1/2", "1/3", "ADMI", "FS+", "odd"}[static_cast<std::size_t>(pick(0, 6))];
    person.Mark = std::array{'X', 'X', 'F', '-'}[static_cast<std::size_t>(pick(0, 3))];
    if (person.Mark == 'F') {
        person.Number = pick(1, 99);
        person.Premium = pick.Chance(40);
        person.Record.Label = "Slot_Nr: 0" + Two(person.Number);
        person.Record.FingerFlag = "FS";
        const std::string id = std::to_string(810000000 + number);
        person.Record.FingerId = (person.Premium ? "PR" : "") + id;
        const int length = pick(99, 140);
        person.Template = {static_cast<std::uint8_t>(length), 0};
        while (static_cast<int>(person.Template.size()) < length) {
            person.Template.push_back(static_cast<std::uint8_t>(pick(0, 255)));
        }
    } else if (pick.Chance(60)) {
        const bool longForm = pick.Chance(40);
        for (int n = 0; n < (longForm ? 10 : 4); ++n) {
            person.Key.push_back(pick(0, longForm ? 99 : 255));
        }
        for (int n = 0; n < 16; ++n) {
            person.KeyData.push_back(pick(0, 255));
        }
        person.Digit = pick(1, 9);
        person.Record.KeyId = longForm ? "#" + std::to_string(person.Digit) + "-ID#" + Joined(person.Key, ":")
                                       : Joined(person.Key, " : ");
        person.Record.KeyData = Joined(person.KeyData, longForm ? ":" : " : ");
    }
    if (person.Mark != '-') {
        person.Record.Marks[1] = person.Mark;
    }
    return person;
}

void WriteFiles(House& house, Datendateien& files, int people) {
    std::string switches;
    for (const bool on : {house.timers, house.calendars, house.lockTimer, house.calendarFlag, true}) {
        switches += on ? 'X' : ' ';
    }
    files.Lock(1, "Tresor", house.serialText, switches);
    files.Channel(1, "1", "1", "0");
    files.Priority(1, house.priority);
    files.Emi(1, house.emi);
    for (int n = 0; n < 15; ++n) {
        const SlotRow& row = house.slots[static_cast<std::size_t>(n)];
        files.Slot(n + 1, static_cast<std::uint8_t>(row.Day), Time(row.FromHour, row.FromMinute),
                   Time(row.ToHour, row.ToMinute));
    }
    int number = 1;
    for (const auto& [id, days] : house.groups) {
        files.Group(number, "Group" + std::to_string(number), days, id);
        ++number;
    }
    files.LockGroup(2, "Lock group", house.lockGroupDays, "PB_700000001");
    files.LockHasGroup(1, "PB_700000001");
    int record = 1;
    for (const Span& span : house.singles) {
        files.Holiday(record++, Two(span.FromDay) + "." + Two(span.FromMonth) + "." + std::to_string(span.FromYear),
                      Two(span.ToDay) + "." + Two(span.ToMonth) + "." + std::to_string(span.ToYear),
                      house.pick.Chance(50) ? '1' : '0');
    }
    record = 22;
    for (const Span& span : house.permanents) {
        files.Holiday(record++, Two(span.FromDay) + "." + Two(span.FromMonth) + ". - -",
                      Two(span.ToDay) + "." + Two(span.ToMonth) + ". - -", ' ');
    }
    files.Reception(1, house.unitMode, house.always, house.third, house.seconds / 3600, house.seconds / 60 % 60, 0,
                    house.signal, house.level);
    int templates = 250;
    for (int n = 1; n <= people; ++n) {
        Person person = MakePerson(house, n);
        files.User(n, person.Record);
        if (!person.Template.empty()) {
            files.Template(templates++, std::to_string(810000000 + n), person.Template);
        }
        if (person.Mark != '-') {
            house.people.push_back(std::move(person));
        }
    }
}

// What the lock must hold, from here on.

bool InZ(std::uint32_t s) {
    return (s >= 0x1000001 && s <= 0x1600000) || (s >= 0x1D00001 && s <= 0x2000000) ||
           (s >= 0x1C00001 && s <= 0x1D00000);
}
bool InN(std::uint32_t s) {
    return (s >= 0x1500C06 && s <= 0x1600000) || (s >= 0x1C000AE && s <= 0x1D00000);
}

enum class Mode { ByUser, AB, None };
Mode ModeOf(const House& house) {
    if (house.timers) {
        return InZ(house.serial) ? Mode::ByUser : house.serial <= 0xB49FFFF ? Mode::AB : Mode::None;
    }
    return house.serial <= 0xB49FFFF ? Mode::AB : Mode::ByUser;
}

TimerLine Line(const SlotRow& row) {
    return {static_cast<std::uint8_t>(row.Day), static_cast<std::uint8_t>(row.FromHour),
            static_cast<std::uint8_t>(row.FromMinute), static_cast<std::uint8_t>(row.ToHour),
            static_cast<std::uint8_t>(row.ToMinute)};
}

void ExpectTimers(const House& house, const VirtualLock& lock) {
    std::array<TimerLine, 24> a{};
    std::array<TimerLine, 16> b{};
    const Mode mode = ModeOf(house);
    if (house.timers && mode == Mode::ByUser) {
        for (std::size_t n = 0; n < 10; ++n) {
            a[n] = Line(house.slots[n]);
        }
        for (std::size_t n = 0; n < 5; ++n) {
            if (house.lockGroupDays[n] == 'X') {
                b[n] = Line(house.slots[10 + n]);
            }
        }
    } else if (house.timers && mode == Mode::AB) {
        for (std::size_t n = 0; n < 5; ++n) {
            a[n] = Line(house.slots[n]);
            b[n] = Line(house.slots[n + 4]);
        }
    }
    EXPECT_EQ(lock.TableA, a);
    EXPECT_EQ(lock.TableB, b);
}

int DaysIn(int month, int year) {
    constexpr std::array days{31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    const bool leap = year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
    return days[static_cast<std::size_t>(month - 1)] + (month == 2 && leap ? 1 : 0);
}

void ExpectCalendars(const House& house, const VirtualLock& lock) {
    std::array<DateLine, 21> single{}, permanent{};
    const auto byte = [](int value) { return static_cast<std::uint8_t>(value); };
    if (house.calendars) {
        std::size_t used = 0;
        for (const Span& span : house.singles) {
            int day = span.ToDay + 1, month = span.ToMonth, year = span.ToYear; // the end is exclusive
            if (day > DaysIn(month, year)) {
                day = 1;
                year += month == 12 ? 1 : 0;
                month = month == 12 ? 1 : month + 1;
            }
            single[used++] = {byte(span.FromDay), byte(span.FromMonth), byte(span.FromYear % 100),
                              byte(day),          byte(month),          byte(year % 100)};
        }
        const bool shared = house.serial > 0xA000000 && house.serial < 0xD912D64;
        std::size_t at = 0;
        for (const Span& span : house.permanents) {
            const int year = shared ? 26 : 99;
            const DateLine line{byte(span.FromDay), byte(span.FromMonth), byte(year),
                                byte(span.ToDay),   byte(span.ToMonth),   byte(year)};
            if (!shared) {
                permanent[at++] = line;
            } else if (used < 20) {
                single[used++] = line;
            }
        }
    }
    // The telegram of a part of seven rows ends one byte short: the last byte of its last row never goes out.
    permanent[6][5] = permanent[13][5] = permanent[20][5] = 0;
    EXPECT_EQ(lock.SingleDays, single);
    EXPECT_EQ(lock.PermanentDays, permanent);
}

void ExpectSettings(const House& house, const VirtualLock& lock) {
    EXPECT_EQ(lock.LockTimerFlag, house.lockTimer ? 1 : 0);
    EXPECT_EQ(lock.CalendarFlag, house.calendarFlag ? 1 : 0);
    EXPECT_EQ(lock.Priority, house.priority[0] - '1');
    std::optional<std::uint8_t> mode;
    if (!(house.serial > 0xB49FFFF && house.serial < 0xDFFB9EF)) {
        if (house.emi == 'X') {
            mode = 10;
        } else if (house.emi == 'Y') {
            mode = 20;
        }
    }
    EXPECT_EQ(lock.LockMode, mode);
    EXPECT_EQ(lock.Listen.has_value(), house.unitMode == '3');
    if (lock.Listen) {
        EXPECT_EQ(lock.Listen->First, 0); // the third record character
        EXPECT_EQ(lock.Listen->Second, house.always == '1' ? 1 : 0);
        EXPECT_EQ(lock.Listen->Low, house.seconds % 256);
        int high = house.seconds; // halved eight times, ties to the even neighbour
        for (int n = 0; n < 8; ++n) {
            high = high % 2 == 0 ? high / 2 : (high / 2) % 2 == 0 ? high / 2 : high / 2 + 1;
        }
        EXPECT_EQ(lock.Listen->High, high);
    }
    const bool reader = house.unitMode != '3' && InN(house.serial);
    EXPECT_EQ(lock.Reader.has_value(), reader);
    if (lock.Reader) {
        EXPECT_EQ(int{lock.Reader->Level}, std::stoi(house.level));
        EXPECT_EQ(lock.Reader->First, house.signal == '1' ? 3 : 0);
        EXPECT_EQ(lock.Reader->Second, house.signal == '1' ? 1 : 0);
    }
    EXPECT_EQ(lock.Clock.has_value(), true);
    EXPECT_TRUE(lock.DataComplete);
}

std::array<std::uint8_t, 3> Masks(const House& house, const Person& person) {
    std::array<std::uint8_t, 3> masks{};
    const auto group = house.groups.find(person.Record.Group);
    if (group != house.groups.end()) {
        for (std::size_t n = 0; n < 10; ++n) {
            if (group->second[n] == 'X') {
                masks[n / 8] = static_cast<std::uint8_t>(masks[n / 8] | (0x80 >> (n % 8)));
            }
        }
    }
    return masks;
}

std::uint8_t WeightOf(const std::string& right) {
    const std::map<std::string, int> bytes{{"1", 0x0C}, {"0", 0},       {"1/2", 6},
                                           {"1/3", 4},  {"ADMI", 0x0D}, {"FS+", 0x0A}};
    const auto found = bytes.find(right);
    return static_cast<std::uint8_t>(found == bytes.end() ? 0x0C : found->second);
}

LockUser CodeUser(const House& house, const Person& person) {
    LockUser user;
    std::copy(person.Record.Name.begin(), person.Record.Name.end(), user.Name.begin());
    user.Weighting = WeightOf(person.Record.Right);
    for (std::size_t n = 0; n < 5; ++n) {
        const auto nibble = [&](std::size_t at) {
            const std::string& code = person.Record.Code;
            return at >= code.size() ? 0xE : code[at] == '0' ? 0xA : code[at] - '0';
        };
        user.Code[n] = static_cast<std::uint8_t>(nibble(2 * n) * 16 + nibble(2 * n + 1));
    }
    const Mode mode = ModeOf(house);
    const auto masks = Masks(house, person);
    if (mode == Mode::AB) {
        user.TimerSelector = person.Record.Group == "PB_2008TimA" ? 1 : person.Record.Group == "PB_2008TimB" ? 2 : 0;
    } else if (mode == Mode::ByUser) {
        user.TimerSelector = masks[0];
        user.HasGroups = true;
        user.Groups = masks;
    }
    const bool twoParts = person.Key.size() == 10 && InN(house.serial);
    user.HasId = !person.Key.empty() && !twoParts;
    user.HasLongId = twoParts;
    for (std::size_t n = 0; n < person.Key.size(); ++n) {
        if (twoParts) {
            user.LongId[n] = static_cast<std::uint8_t>(person.Key[n]);
        } else if (n < 4) {
            user.Id[n] = static_cast<std::uint8_t>(person.Key[n]);
        }
    }
    auto& data = twoParts ? user.LongIdData : user.IdData;
    for (std::size_t n = 0; n < person.KeyData.size(); ++n) {
        data[n] = static_cast<std::uint8_t>(person.KeyData[n]);
    }
    user.GroupDigit = static_cast<std::uint8_t>(twoParts ? person.Digit : 0);
    return user;
}

LockUser FingerUser(const House& house, const Person& person) {
    LockUser user;
    user.Finger = true;
    std::string name = person.Record.Name.substr(0, 9) + "_0" + Two(person.Number) + "_FP";
    name.resize(16, ' ');
    std::copy(name.begin(), name.end(), user.Name.begin());
    user.Weighting = WeightOf(person.Record.Right);
    user.FingerNumber = static_cast<std::uint16_t>(person.Number);
    for (std::size_t n = 0; n < 28; ++n) {
        user.Slice[n] = person.Template[70 + n];
    }
    user.HasGroups = true;
    user.Groups = Masks(house, person);
    return user;
}

void ExpectUsers(const House& house, const VirtualLock& lock) {
    ASSERT_EQ(lock.Users.size(), house.people.size());
    for (std::size_t n = 0; n < house.people.size(); ++n) {
        const Person& person = house.people[n];
        LockUser expected = person.Mark == 'F' ? FingerUser(house, person) : CodeUser(house, person);
        expected.Slot = lock.Users[n].Slot; // the lock's own choice
        EXPECT_TRUE(lock.Users[n] == expected) << person.Record.Name << " " << person.Mark;
    }
}

struct Lock_Content : RunFixture, ::testing::WithParamInterface<std::uint32_t> {};

TEST_P(Lock_Content, is_what_the_data_files_say) {
    for (unsigned number = 1; number <= 8 && !HasFailure(); ++number) {
        SCOPED_TRACE(number);
        world.Disk.Files.erase("/q/DAT/BX10X52WUJ9.UBW");
        world.Disk.Files.erase("/q/DAT/TEmpTCD0UPK.FSD");
        world.Disk.Files.erase("/q/DAT/KL10X49WTTI.CBW");
        House house = Build(GetParam(), number);
        WriteFiles(house, files, 30);
        devices = {};
        VirtualLock lock;
        lock.Serial = AddressOf(house.serialText);
        devices.Locks = {lock};
        Begin();
        const bool fingers =
            std::any_of(house.people.begin(), house.people.end(), [](const Person& p) { return p.Mark == 'F'; });
        Expect(63, Answer::No);
        if (house.timers && !InZ(house.serial) && house.serial <= 0xB49FFFF) {
            world.Answers.push_back({.Text = "L180\n\rL181"});
        }
        if (fingers) {
            Expect(273);
        }
        programm->Transfer->F13.FGK13_Click(1, F13Column::Program);
        TypeCode("123456");
        ASSERT_TRUE(Finish());
        EXPECT_EQ(Outcome(), RunOutcome::Done);
        EXPECT_EQ(system->JudgementLines(), "");
        const VirtualLock& held = *system->FindLock(lock.Serial);
        ExpectUsers(house, held);
        ExpectTimers(house, held);
        ExpectCalendars(house, held);
        ExpectSettings(house, held);
    }
}

INSTANTIATE_TEST_SUITE_P(Classes, Lock_Content,
                         ::testing::Values(0x000A1001U, 0x01200001U, 0x01500C10U, 0x01700001U, 0x01C00100U, 0x01E00001U,
                                           0x05000003U, 0x0A000001U, 0x0B49FFFFU, 0x0C000001U, 0x0D912D63U, 0x0D912D64U,
                                           0x0DFFB9EFU, 0x0F000001U));

// On each side of the ends of the two ranges that take a reader's setting, and of those whose locks are polled.
INSTANTIATE_TEST_SUITE_P(Ends, Lock_Content,
                         ::testing::Values(0x01000000U, 0x01000001U, 0x01500C05U, 0x01500C06U, 0x01600000U, 0x01600001U,
                                           0x01C000ADU, 0x01C000AEU, 0x01D00000U, 0x01D00001U, 0x01FFFFFFU, 0x02000000U,
                                           0x02000001U));

} // namespace
} // namespace qvm::test
