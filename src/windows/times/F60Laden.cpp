// What the window of the guest cards loads and saves.

#include "F60.h"
#include "FileTrouble.h"
#include "Gastzeiten.h"
#include "Kartendateien.h"
#include "LockRecords.h"
#include "Schlossserie.h"
#include "TimeRecords.h"

#include <set>

namespace qvm {
namespace {

constexpr std::string_view SelectionName = "ASWTIMQVMLCK.FSN", PermName = "PERMSELECT.RFS",
                           TimesName = "OFSTSETUPDT.FST", GroupName = "ObJNR09DAT.OBN";

std::string Serie_Mit_Anfang(const RecordFile& file, int row, const SerialFields& fields) {
    const bool begins = !file.Text(row, fields[0]).empty() && !file.Text(row, fields[1]).empty();
    return begins ? Serie_Lesen(file, row, fields) : std::string();
}

std::string Name_Ohne_Ende(const RecordFile& locks, int row) {
    const std::string raw = Feld_Roh(locks.Record(row), LockRecord::Name);
    return std::string(RTrim(std::string_view(raw).substr(0, raw.find('\0'))));
}

} // namespace

void F60::Laden() {
    std::vector<FileTrouble> unread;
    const auto note = [&](bool read, std::string_view file) {
        if (!read) {
            unread.push_back({.File = std::string(file), .Fault = Lesefehler(kern.Welt.Files)});
        }
    };
    FGK60.ClearRows(FirstRow);
    for (int row = FirstRow; row <= LastRow; ++row) {
        FGK60.SetText(row, CardColumn::Number, Ziffern(row));
    }
    note(Offsets_Lesen(), GuestOffset::Record.File);
    note(Kartenzeiten_Laden(kern, standard_) != ReadStatus::Error, TimesName);
    note(Schloesser_Lesen(), LockRecord::Record.File);
    const bool permRead = Dauertueren_Zeigen();
    note(permRead, PermName);
    note(Tuermodus_Lesen(), DoorModeRecord::Record.File);
    note(Auswahl_Lesen(), SelectionName);
    note(GruppenNr_Laden(kern, GruppenNr) != ReadStatus::Error, GroupName);
    List1.Selected = GruppenNr;
    unread_ = !unread.empty();
    if (unread_) {
        kern.Meldung(Wort(kern, Word::FileNotRead, {Dateimaengel_Text(kern, unread)}), Buttons::Ok, Icon::Exclamation);
    }
}

bool F60::Offsets_Lesen() {
    offsets_ = {};
    RecordFile file(GuestOffset::Record);
    const ReadStatus status = file.Laden(kern.Welt.Files, kern.DatPfad());
    for (std::size_t n = 0; n < offsets_.size() && status == ReadStatus::Ok; ++n) {
        const int record = static_cast<int>(n) + 1;
        offsets_[n] = {file.Text(record, GuestOffset::OffsetId), file.Text(record, GuestOffset::Time),
                       file.Text(record, GuestOffset::Base)};
        offsetNames_[n] = file.Text(record, GuestOffset::Name);
        if (offsets_[n].Id.empty()) { // a first save leaves them blank, but they never change
            offsets_[n].Id = OffsetId_Von(record);
        }
    }
    return status != ReadStatus::Error;
}

bool F60::Schloesser_Lesen() {
    RecordFile locks(LockRecord::Record);
    if (locks.Laden(kern.Welt.Files, kern.DatPfad()) == ReadStatus::Error) {
        return false;
    }
    namespace Rec = LockRecord;
    for (int row = FirstRow; row <= LastRow; ++row) {
        FGK60.SetText(row, CardColumn::Name, Name_Ohne_Ende(locks, row));
        FGK60.SetText(row, CardColumn::Serial, Serie_Mit_Anfang(locks, row, {Rec::Sn1, Rec::Sn2, Rec::Sn3, Rec::Sn4}));
        const std::string id = locks.Text(row, Rec::OffsetId);
        for (std::size_t n = 0; n < offsets_.size() && !id.empty(); ++n) {
            if (offsets_[n].Id == id) {
                FGK60.SetText(row, CardColumn::OffsetName, offsetNames_[n]);
                FGK60.SetText(row, CardColumn::OffsetId, id);
            }
        }
    }
    return true;
}

/// Of the modes only that of a room's door is shown here; the number is taken with either.
bool F60::Tuermodus_Lesen() {
    RecordFile doors(DoorModeRecord::Record);
    if (doors.Laden(kern.Welt.Files, kern.DatPfad()) == ReadStatus::Error) {
        return false;
    }
    namespace Rec = DoorModeRecord;
    for (int row = FirstRow; row <= LastRow; ++row) {
        const std::string serial = Serie_Mit_Anfang(doors, row, {Rec::Sn1, Rec::Sn2, Rec::Sn3, Rec::Sn4});
        if (serial.empty() || serial != FGK60.Text(row, CardColumn::Serial)) {
            continue;
        }
        FGK60.SetText(row, CardColumn::Mode, doors.Text(row, Rec::Mode) == "AA" ? kern.Zeile(Line::RoomDoor) : "");
        FGK60.SetText(row, CardColumn::Room, doors.Text(row, Rec::Days));
    }
    return true;
}

bool F60::Auswahl_Lesen() {
    GuestSelection selection;
    const bool read = Auswahl_Laden(kern, selection);
    Objekt = !selection.Hotel;
    slotMask_ = 0;
    for (std::size_t n = 0; n < selection.Slots.size(); ++n) {
        slotMask_ = static_cast<std::uint8_t>(slotMask_ | (selection.Slots[n] ? 1U << n : 0U));
    }
    return read;
}

bool F60::Dauertueren_Zeigen() {
    std::set<std::string> serials;
    const ReadStatus status = PermSelect_Laden(kern, serials);
    for (int row = FirstRow; row <= LastRow; ++row) {
        if (serials.contains(std::string(Trim(FGK60.Text(row, CardColumn::Serial))))) {
            Markieren(row, DoorMark::Permanent);
        }
    }
    return status != ReadStatus::Error;
}

/// What could not be read looks like what is not there: neither a file nor a card is to say so.
bool F60::Gelesen() const {
    if (unread_) {
        kern.Meldung(Wort(kern, Word::CardDataUnread), Buttons::Ok, Icon::Exclamation);
    }
    return !unread_;
}

bool F60::PermSelect_Speichern() {
    if (!Gelesen()) {
        return false;
    }
    std::vector<std::string> serials;
    for (const int row : Dauertueren()) {
        serials.emplace_back(Trim(FGK60.Text(row, CardColumn::Serial)));
    }
    if (!qvm::PermSelect_Speichern(kern, serials)) {
        kern.Meldung(Wort(kern, Word::PermNotSaved), Buttons::Ok, Icon::Exclamation);
        return false;
    }
    Gespeichert();
    return true;
}

} // namespace qvm
