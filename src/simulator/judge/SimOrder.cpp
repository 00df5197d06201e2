#include "SimOrder.h"

#include <algorithm>
#include <array>
#include <initializer_list>

namespace qvm {

namespace {

using enum Step;

/// A step and the steps that it may follow.
struct Due {
    Step Next;
    std::array<Step, 5> Behind; ///< the rest is None
};

constexpr std::array LockSteps{
    Due{Date, {Login, ChannelSet}},
    Due{Time, {Date}},
    Due{HistoryFirst, {Login, ChannelSet, Time}},
    Due{HistoryNext, {HistoryFirst, HistoryNext}},
    Due{Priority, {Time, HistoryFirst, HistoryNext}},
    Due{Erase, {Login, ChannelSet, Priority}},
    Due{Alive, {Erase, Alive}},
    Due{Calendar, {Erase, Alive}},
    Due{Listen, {Calendar}},
    Due{Reader, {Calendar}},
    Due{A0, {Calendar, Listen, Reader}},
    Due{A1, {A0}},
    Due{A2, {A1}},
    Due{AShort, {Calendar, Listen, Reader}},
    Due{B0, {A2}},
    Due{B1, {B0}},
    Due{BShort, {AShort}},
    Due{Single0, {B1, BShort, Calendar, Listen, Reader}},
    Due{Single1, {Single0}},
    Due{Single2, {Single1}},
    Due{Perm0, {Single2}},
    Due{Perm1, {Perm0}},
    Due{Perm2, {Perm1}},
    Due{UserBegin, {Perm2, UserData, Id2, Groups}},
    Due{Name1, {UserBegin}},
    Due{Name2, {Name1}},
    Due{UserData, {Name2}},
    Due{Finger, {UserBegin}},
    Due{Id1, {UserData}},
    Due{Id2, {Id1}},
    Due{Groups, {UserData, Id2, Finger}},
    Due{LockTimer, {Perm2, UserData, Id2, Groups}},
    Due{Step::LockMode, {LockTimer}},
    Due{DataEnd, {LockTimer, Step::LockMode}},
    Due{ChannelRead, {Login, CodeChange}},
    Due{ChannelAct, {ChannelRead}},
    Due{ChannelSet, {ChannelAct}},
    Due{CodeChange, {Login}},
};

constexpr std::array Unit1Steps{
    Due{UnitSetting, {Login}},
};

constexpr std::array ServiceSteps{
    Due{CodeChange, {Login}},
    Due{ChannelRead, {CodeChange}},
    Due{ChannelAct, {ChannelRead}},
    Due{ChannelSet, {ChannelAct}},
};

constexpr std::array Unit2Steps{
    Due{ChannelAct, {ChannelRead}},     Due{ChannelSet, {ChannelAct}}, Due{UnitOpen, {ChannelSet}},
    Due{UnitKey, {UnitOpen}},           Due{UnitConnect, {UnitKey}},   Due{Erase, {UnitConnect}},
    Due{UnitBlock, {Erase, UnitBlock}}, Due{UnitDisconnect, {Close}},
};

std::string NotDue(Step next, Step last) {
    return std::string{StepName(next)} + " behind " + StepName(last);
}

std::string TableFault(std::span<const Due> table, Step next, Step last) {
    for (const Due& due : table) {
        if (due.Next == next) {
            const bool good = last != None && std::find(due.Behind.begin(), due.Behind.end(), last) != due.Behind.end();
            return good ? std::string{} : NotDue(next, last);
        }
    }
    return std::string{StepName(next)} + " is nothing for this device";
}

/// What the serial decides. Above 0xB49FFFF a lock takes its timer tables in parts (all zero) or not at all, below in
/// the short form unless it polls through the erase.
std::string ClassFault(const Session& session, Step next, std::uint32_t serial) {
    constexpr std::uint32_t lastWithShortTables = 0xB49FFFF, firstWithModeAgain = 0xDFFB9EF;
    const bool afterTables = session.Last == Calendar || session.Last == Listen || session.Last == Reader;
    const char* fault = nullptr;
    if (next == Alive && !ErasesInBackground(serial)) {
        fault = "this lock does not erase in the background";
    } else if (next == Reader && !HasReaderSetting(serial)) {
        fault = "this lock has no reader setting";
    } else if ((next == A0 || next == AShort || next == Single0) && session.Last == Calendar &&
               HasReaderSetting(serial)) {
        fault = "the reader setting is missing";
    } else if (next == Id1 && !HasReaderSetting(serial)) {
        fault = "this lock takes no identification in two parts";
    } else if (next == AShort && serial > lastWithShortTables) {
        fault = "this lock takes no short timer tables";
    } else if (next == A0 && !ErasesInBackground(serial) && serial <= lastWithShortTables) {
        fault = "this lock takes no timer tables in parts";
    } else if (next == Single0 && afterTables && serial <= lastWithShortTables) {
        fault = "the timer tables are missing";
    } else if (next == Step::LockMode && serial > lastWithShortTables && serial < firstWithModeAgain) {
        fault = "this lock has no mode";
    }
    return fault == nullptr ? std::string{} : std::string{StepName(next)} + ": " + fault;
}

/// Time groups follow a code user only when the timer tables came in parts, and then always.
std::string GroupsFault(const Session& session, Step next) {
    const bool userDone = session.Last == UserData || session.Last == Id2;
    const bool parts = session.Tables == TimerTables::Parts;
    if (next == Groups && userDone && !parts) {
        return "user time groups, but the timer tables did not come in parts";
    }
    if ((next == UserBegin || next == LockTimer) && userDone && parts) {
        return "the user's time groups are missing";
    }
    return {};
}

} // namespace

std::string LockOrderFault(const Session& session, Step next, std::uint32_t serial) {
    if (next == Login || next == Close) {
        return {};
    }
    std::string fault = TableFault(LockSteps, next, session.Last);
    if (fault.empty()) {
        fault = ClassFault(session, next, serial);
    }
    return fault.empty() ? GroupsFault(session, next) : fault;
}

std::string UnitOrderFault(const Session& session, Step next, int type, bool service) {
    if (next == Close || (next == Login && (type == 1 || service))) {
        return {};
    }
    if (service) {
        return TableFault(ServiceSteps, next, session.Last);
    }
    if (type == 1) {
        return TableFault(Unit1Steps, next, session.Last);
    }
    // A unit of type 2 is opened by its channel, on which it is looked for.
    return next == ChannelRead ? std::string{} : TableFault(Unit2Steps, next, session.Last);
}

bool MayCloseBehind(Step last) {
    constexpr std::array good{None,       Login,        ChannelRead, ChannelAct, ChannelSet,
                              CodeChange, HistoryFirst, HistoryNext, DataEnd,    Close};
    return std::find(good.begin(), good.end(), last) != good.end();
}

} // namespace qvm
