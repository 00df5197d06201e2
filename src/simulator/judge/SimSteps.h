#pragma once

#include <cstdint>
#include <span>

namespace qvm {

/// What a telegram is in the course of a session: its code, and the part of it where a code has several.
enum class Step : std::uint8_t {
    None, // no session yet
    Login,
    Date,
    Time,
    HistoryFirst,
    HistoryNext,
    Priority,
    Erase,
    Alive,
    Calendar,
    Listen,
    Reader,
    A0,
    A1,
    A2,
    AShort,
    B0,
    B1,
    BShort,
    Single0,
    Single1,
    Single2,
    Perm0,
    Perm1,
    Perm2,
    UserBegin,
    Name1,
    Name2,
    UserData,
    Finger,
    Id1,
    Id2,
    Groups,
    LockTimer,
    LockMode,
    DataEnd,
    Close,
    ChannelRead,
    ChannelAct,
    ChannelSet,
    CodeChange,
    UnitSetting,
    UnitOpen,
    UnitKey,
    UnitConnect,
    UnitBlock,
    UnitDisconnect,
};

/// The step that a telegram with a known form is. None for those to the adapter itself.
Step StepOf(std::span<const std::uint8_t> frame);
const char* StepName(Step step);

} // namespace qvm
