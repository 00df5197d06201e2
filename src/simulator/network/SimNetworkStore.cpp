#include "SimNetworkStore.h"

#include "SimFrame.h"
#include "SimLock.h"
#include "SimOrder.h"

#include <algorithm>

namespace qvm {

namespace {

/// Rows from `bytes`, as many as the table of the telegram has; the rest of the lock's table is 0.
template <std::size_t W, std::size_t N>
void FillRows(std::span<const std::uint8_t> bytes, std::size_t count,
              std::array<std::array<std::uint8_t, W>, N>& table) {
    table = {};
    for (std::size_t row = 0; row < count; ++row) {
        std::copy_n(bytes.begin() + static_cast<std::ptrdiff_t>(W * row), W, table[row].begin());
    }
}

void StoreValues(std::span<const std::uint8_t> fixed, VirtualLock& lock) {
    constexpr std::uint8_t modeNotSent = 0xFF;
    lock.Channel = std::clamp(fixed[NetValue::Channel] + 1, 1, 12);
    lock.CalendarFlag = fixed[NetValue::CalendarFlag];
    lock.LockTimerFlag = fixed[NetValue::LockTimerFlag];
    lock.Priority = fixed[NetValue::Priority];
    lock.EraseOption = fixed[NetValue::Erase];
    if (fixed[NetValue::Mode] != modeNotSent) {
        lock.LockMode = fixed[NetValue::Mode];
    }
    if (HasReaderSetting(SerialNumber(lock.Serial))) {
        lock.Reader = ReaderSetting{fixed[NetValue::Level], fixed[NetValue::Signal], fixed[NetValue::Signal + 1]};
    }
    const auto listen = fixed.subspan(NetValue::Listen, 4);
    if (std::any_of(listen.begin(), listen.end(), [](std::uint8_t byte) { return byte != 0; })) {
        lock.Listen = ListenTime{listen[0], listen[1], listen[2], listen[3]};
    }
}

void StoreNetworkTables(std::span<const std::uint8_t> fixed, VirtualLock& lock) {
    lock.FormA = lock.FormB = TableForm::Block;
    FillRows(fixed.subspan(NetTable::TimerA), 11, lock.TableA);
    FillRows(fixed.subspan(NetTable::TimerB), 6, lock.TableB);
    FillRows(fixed.subspan(NetTable::SingleDays), 20, lock.SingleDays);
    FillRows(fixed.subspan(NetTable::PermanentDays), 20, lock.PermanentDays);
}

void StoreUsers(std::span<const std::uint8_t> records, VirtualLock& lock) {
    lock.Users.clear();
    if (lock.EraseOption == 1) {
        lock.Fingers.clear();
    }
    for (std::size_t at = 0; at + NetworkUserBytes <= records.size(); at += NetworkUserBytes) {
        const auto slot = static_cast<std::uint16_t>(at / NetworkUserBytes + 1);
        lock.Users.push_back(NetworkUser(records.subspan(at, NetworkUserBytes), slot));
        if (const LockUser& user = lock.Users.back(); user.Finger) {
            lock.Fingers[user.FingerNumber] = user.Slice;
        }
    }
}

/// A unit keeps whole pieces of 32 bytes of each template.
void StoreTemplates(std::span<const NetworkTemplate> fingers, VirtualUnit& unit) {
    constexpr std::size_t piece = 32;
    unit.Rows.clear();
    unit.RowsAnnounced = static_cast<std::uint16_t>(fingers.size());
    ++unit.Erases;
    for (const NetworkTemplate& finger : fingers) {
        UnitRow row{.Number = static_cast<std::uint16_t>(unit.Rows.size() + 1),
                    .Type = finger.Premium,
                    .Address = finger.Number,
                    .Bytes = finger.Bytes};
        row.Bytes.resize((row.Bytes.size() + piece - 1) / piece * piece, 0);
        unit.Rows.push_back(std::move(row));
    }
}

void StoreUnit(const NetworkDataset& data, std::size_t place, VirtualUnit& unit, Judge& judge) {
    constexpr std::size_t typeTwoPlaces = 2;
    const int wanted = place < typeTwoPlaces ? 2 : 1;
    if (unit.Type != wanted) {
        judge.Note(Wrong::Range, NetworkMark,
                   "place " + std::to_string(place) + " holds a unit of type " + std::to_string(unit.Type));
    }
    if (!std::equal(unit.AdminCode.begin(), unit.AdminCode.end(), data.Fixed.begin() + NetValue::AdminCode)) {
        return;
    }
    unit.Lock = data.Serial;
    ++unit.Sessions;
    if (unit.Type == 2) {
        StoreTemplates(data.Fingers, unit);
    }
}

} // namespace

bool NetworkReaches(const VirtualLock& lock, std::span<const std::uint8_t> adminCode) {
    const bool willing = lock.LoginStatus == 0 || lock.LoginStatus == StatusAccepted;
    return willing && std::equal(lock.AdminCode.begin(), lock.AdminCode.end(), adminCode.begin());
}

void StoreNetworkDataset(const NetworkDataset& data, VirtualLock& lock, std::vector<VirtualUnit>& units, Judge& judge) {
    StoreValues(data.Fixed, lock);
    StoreNetworkTables(data.Fixed, lock);
    StoreUsers(data.Users, lock);
    lock.Clock = data.Clock;
    lock.DataComplete = true;
    ++lock.Erases;
    ++lock.Sessions;
    for (std::size_t place = 0; place < data.Units.size(); ++place) {
        const auto unit = std::find_if(units.begin(), units.end(),
                                       [&](const VirtualUnit& u) { return u.Serial == data.Units[place]; });
        if (unit != units.end() && data.Units[place] != DeviceAddress{}) {
            StoreUnit(data, place, *unit, judge);
        }
    }
}

} // namespace qvm
