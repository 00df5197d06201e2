#include "SimSteps.h"

#include <algorithm>
#include <array>

namespace qvm {

namespace {

struct StepRow {
    Step What;
    std::uint8_t Code;
    const char* Name;
};

/// One row a step, in their order. Steps that share a code stand together, the parts of a table in sequence.
constexpr std::array Rows{
    StepRow{Step::None, 0x00, "nothing"},
    StepRow{Step::Login, 0x04, "login"},
    StepRow{Step::Date, 0x07, "date"},
    StepRow{Step::Time, 0x09, "time"},
    StepRow{Step::HistoryFirst, 0x17, "history, first record"},
    StepRow{Step::HistoryNext, 0x17, "history, next record"},
    StepRow{Step::Priority, 0x2F, "priority"},
    StepRow{Step::Erase, 0x27, "data start"},
    StepRow{Step::Alive, 0x08, "sign of life"},
    StepRow{Step::Calendar, 0x25, "calendar flag"},
    StepRow{Step::Listen, 0x33, "listen time"},
    StepRow{Step::Reader, 0x3B, "reader setting"},
    StepRow{Step::A0, 0x19, "timer table A, part 0"},
    StepRow{Step::A1, 0x19, "timer table A, part 1"},
    StepRow{Step::A2, 0x19, "timer table A, part 2"},
    StepRow{Step::AShort, 0x19, "timer table A, short"},
    StepRow{Step::B0, 0x1B, "timer table B, part 0"},
    StepRow{Step::B1, 0x1B, "timer table B, part 1"},
    StepRow{Step::BShort, 0x1B, "timer table B, short"},
    StepRow{Step::Single0, 0x1F, "single holidays, part 0"},
    StepRow{Step::Single1, 0x1F, "single holidays, part 1"},
    StepRow{Step::Single2, 0x1F, "single holidays, part 2"},
    StepRow{Step::Perm0, 0x21, "permanent holidays, part 0"},
    StepRow{Step::Perm1, 0x21, "permanent holidays, part 1"},
    StepRow{Step::Perm2, 0x21, "permanent holidays, part 2"},
    StepRow{Step::UserBegin, 0x0A, "user begin"},
    StepRow{Step::Name1, 0x0B, "user name 1"},
    StepRow{Step::Name2, 0x0D, "user name 2"},
    StepRow{Step::UserData, 0x0E, "user data"},
    StepRow{Step::Finger, 0x40, "fingerprint user"},
    StepRow{Step::Id1, 0x43, "identification, part 1"},
    StepRow{Step::Id2, 0x43, "identification, part 2"},
    StepRow{Step::Groups, 0x37, "user time groups"},
    StepRow{Step::LockTimer, 0x23, "lock timer flag"},
    StepRow{Step::LockMode, 0x32, "lock mode"},
    StepRow{Step::DataEnd, 0x15, "data end"},
    StepRow{Step::Close, 0x05, "disconnect"},
    StepRow{Step::ChannelRead, 0x28, "channel read"},
    StepRow{Step::ChannelAct, 0x66, "channel action"},
    StepRow{Step::ChannelSet, 0x29, "channel set"},
    StepRow{Step::CodeChange, 0x12, "code change"},
    StepRow{Step::UnitSetting, 0x3D, "unit setting"},
    StepRow{Step::UnitOpen, 0x49, "unit open"},
    StepRow{Step::UnitKey, 0x48, "unit key"},
    StepRow{Step::UnitConnect, 0xFE, "unit connect"},
    StepRow{Step::UnitBlock, 0x4A, "unit block"},
    StepRow{Step::UnitDisconnect, 0x03, "unit disconnect"},
};

consteval bool RowsStandInOrder() {
    for (std::size_t n = 0; n < Rows.size(); ++n) {
        if (static_cast<std::size_t>(Rows[n].What) != n) {
            return false;
        }
    }
    return true;
}
static_assert(RowsStandInOrder() && Rows.size() == static_cast<std::size_t>(Step::UnitDisconnect) + 1);

/// How many steps further than the first of its code this telegram is.
int Variant(std::span<const std::uint8_t> frame) {
    constexpr int shortForm = 0x35;
    const auto number = [&frame](std::size_t index, int last) {
        return index < frame.size() ? std::min<int>(frame[index], last) : 0;
    };
    switch (frame[2]) {
    case 0x17:
        return number(14, 1);
    case 0x19:
        return frame[1] == shortForm ? 3 : number(54, 2);
    case 0x1B:
        return frame[1] == shortForm ? 2 : number(54, 1);
    case 0x1F:
    case 0x21:
        return number(14, 2);
    case 0x43:
        return frame[1] == 0x20 ? 0 : 1;
    default:
        return 0;
    }
}

} // namespace

Step StepOf(std::span<const std::uint8_t> frame) {
    const auto first =
        std::find_if(Rows.begin() + 1, Rows.end(), [&](const StepRow& row) { return row.Code == frame[2]; });
    return first == Rows.end() ? Step::None : (first + Variant(frame))->What;
}

const char* StepName(Step step) {
    return Rows[static_cast<std::size_t>(step)].Name;
}

} // namespace qvm
