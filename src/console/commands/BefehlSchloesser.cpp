#include "Befehle.h"
#include "F12_Laden.h"
#include "Kanal.h"
#include "Liste.h"
#include "LockRecords.h"
#include "Pictures.h"
#include "Record.h"
#include "Suchtext.h"
#include "Text.h"
#include "UnitRecords.h"
#include "Units.h"
#include "UserRecords.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

namespace qvm {

namespace {

using Json = nlohmann::ordered_json;

std::string Anzeige(std::string_view text) {
    return Anzeige_Aus_1252(Trim(text));
}

/// A unit without a name and a serial number is none.
bool Vorhanden(const Unit& unit) {
    return !Trim(unit.Name).empty() || !Sn_Verbinden(unit.Sn).empty();
}

/// How a lock hears its units.
std::string Empfang(const UnitRecord& units) {
    return units.UnitMode == "1" ? "TA" : units.UnitMode == "2" ? "AE" : units.UnitMode == "3" ? "STE" : "";
}

/// The files beside the lock table that the lists rest on.
struct Quellen {
    RecordFile Locks{LockRecord::Record}, Units{WirelessUnitRecord::Record}, Channels{ChannelRecord::Record};

    bool Laden(const Kern& kern) {
        bool good = true;
        for (RecordFile* file : {&Locks, &Units, &Channels}) {
            good = file->Laden(kern.Welt.Files, kern.DatPfad()) != ReadStatus::Error && good;
        }
        return good;
    }
    std::string Lockname(int lock) const { return Anzeige(Locks.Text(lock, LockRecord::Name)); }
};

/// 1 to 12; 0 for what is blank or no channel.
int Kanalzahl(std::string_view text) {
    constexpr int channels = 12;
    const auto channel = static_cast<int>(Zahlwert(text));
    return channel >= 1 && channel <= channels ? channel : 0;
}

/// What of a lock is told.
struct Schloss {
    int Number = 0;
    std::string Name, Serial, Switches, Priority, Emi, Group, Adapter, Offset, Reception; ///< UTF-8
    int Units = 0;
    int Channel = 0;    ///< on which it listens; 0: nobody knows, it was neither programmed nor found
    bool Moves = false; ///< the next run takes it to the channel of the system
};

std::string Schalter(const Grid& grid, int row) {
    std::string all;
    for (int column = LockColumn::FirstSwitch; column <= LockColumn::LastSwitch; ++column) {
        all += grid.At(row, column).Picture == LockPicture::On ? 'X' : '-';
    }
    return all;
}

std::string Emi_Wort(int picture) {
    return picture == LockPicture::On ? "on" : picture == LockPicture::Off ? "off" : "-";
}

/// As a run decides it, which looks for a lock that has no channel yet, too.
bool Wird_Umgestellt(const Kern& kern, int lock) {
    const KanalStand state = Kanal_Stand(kern, lock);
    return state.ChangePending || state.Channel != state.Target;
}

Schloss Schloss_Von(const Kern& kern, const LockTable& table, const Quellen& files, int lock) {
    const Grid& grid = table.FGK12;
    const auto text = [&](int column) { return Anzeige(grid.Text(lock, column)); };
    const UnitRecord units = Unit_Lesen(files.Units.Record(lock));
    return {.Number = lock,
            .Name = text(LockColumn::Name),
            .Serial = text(LockColumn::Serial),
            .Switches = Schalter(grid, lock),
            .Priority = text(LockColumn::Priority),
            .Emi = Emi_Wort(grid.At(lock, LockColumn::Emi).Picture),
            .Group = text(LockColumn::Group),
            .Adapter = text(LockColumn::AdapterName),
            .Offset = text(LockColumn::Offset),
            .Reception = Empfang(units),
            .Units = static_cast<int>(std::count_if(units.Units.begin(), units.Units.end(), Vorhanden)),
            .Channel = Kanalzahl(files.Channels.Text(lock, ChannelRecord::LockChannel)),
            .Moves = !grid.Text(lock, LockColumn::Serial).empty() && Wird_Umgestellt(kern, lock)};
}

bool Gewollt(const Schloss& lock, const Optionen& options) {
    return (!lock.Name.empty() || !lock.Serial.empty()) && Text_Enthaelt(AusUtf8(lock.Name), AusUtf8(options.Find));
}

std::string Kanaltext(int channel) {
    return channel > 0 ? std::to_string(channel) : "-";
}

std::vector<std::string> Zeile(const Schloss& lock) {
    return {std::to_string(lock.Number),
            lock.Name,
            lock.Serial,
            lock.Switches,
            lock.Priority,
            lock.Emi,
            lock.Group,
            lock.Adapter,
            lock.Offset,
            std::to_string(lock.Units),
            Kanaltext(lock.Channel) + (lock.Moves ? " moves" : "")};
}

Json Schloss_Json(const Schloss& lock) {
    return {{"lock", lock.Number},         {"name", lock.Name},         {"serial", lock.Serial},
            {"switches", lock.Switches},   {"priority", lock.Priority}, {"emi", lock.Emi},
            {"group", lock.Group},         {"adapter", lock.Adapter},   {"offset", lock.Offset},
            {"reception", lock.Reception}, {"units", lock.Units},       {"channel", lock.Channel},
            {"moves", lock.Moves}};
}

void Units_Eintragen(const Quellen& files, int lock, Liste& list) {
    const UnitRecord record = Unit_Lesen(files.Units.Record(lock));
    for (std::size_t n = 0; n < record.Units.size(); ++n) {
        const Unit& unit = record.Units[n];
        if (!Vorhanden(unit)) {
            continue;
        }
        const std::string name = Anzeige(unit.Name), serial = Anzeige(Sn_Verbinden(unit.Sn));
        const int channel = Kanalzahl(unit.UnitNo);
        const std::string module = Anzeige(unit.Module);
        list.Rows.push_back({std::to_string(lock), files.Lockname(lock), std::to_string(n + 1), name, serial, module,
                             Kanaltext(channel)});
        list.Records.push_back({{"lock", lock},
                                {"lockName", files.Lockname(lock)},
                                {"unit", n + 1},
                                {"name", name},
                                {"serial", serial},
                                {"class", module},
                                {"channel", channel}});
    }
}

} // namespace

ExitCode Befehl_Schloesser(const Umgebung& world, const Console& console, const Optionen& options) {
    return Liste_Ausgeben(world, console, "locks", "the locks", [&](Kern& kern, Liste& list) {
        LockTable table;
        Quellen files;
        if (!F12_Laden(kern, table, {}) || !files.Laden(kern)) {
            return false;
        }
        list.Rows = {{"Lock", "Name", "Serial", "Switches", "Priority", "EMI", "Group", "Adapter", "Offset", "Units",
                      "Channel"}};
        for (int number = LockGrid::FirstRow; number <= LockGrid::LastRow; ++number) {
            if (const Schloss lock = Schloss_Von(kern, table, files, number); Gewollt(lock, options)) {
                list.Rows.push_back(Zeile(lock));
                list.Records.push_back(Schloss_Json(lock));
            }
        }
        return true;
    });
}

ExitCode Befehl_Units(const Umgebung& world, const Console& console, const Optionen& options) {
    return Liste_Ausgeben(world, console, "units", "the locks", [&](Kern& kern, Liste& list) {
        Quellen files;
        if (!files.Laden(kern)) {
            return false;
        }
        list.Rows = {{"Lock", "Name", "Unit", "Unit name", "Serial", "Class", "Channel"}};
        for (int number = LockGrid::FirstRow; number <= LockGrid::LastRow; ++number) {
            if (options.Lock == 0 || options.Lock == number) {
                Units_Eintragen(files, number, list);
            }
        }
        return true;
    });
}

} // namespace qvm
