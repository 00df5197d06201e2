#include "DatensatzStand.h"
#include "Filter.h"
#include "TemplateStore.h"
#include "Text.h"
#include "TimeRecords.h"
#include "UserRecords.h"
#include "Words.h"
#include "Zeitgruppen.h"

#include <algorithm>
#include <optional>

namespace qvm {
namespace {

constexpr int PremiumLimit = 40;
constexpr int ProgressOfSlot = 8;
constexpr std::size_t NameLength = 16, FingerNameLength = 9;
/// A longer stated length is damage: the template field has room for 750 values in the form that is written.
constexpr int MostTemplateBytes = 1000;
constexpr std::size_t DaysWidth = 24;

using TimerBits = std::array<std::uint8_t, 3>;

/// Everything the loop over the users carries from one to the next.
struct UserLoop {
    DatasetStand& stand;
    RecordFile users{UserRecord::Record};
    RecordFile groups{TimeGroup::Record};
    TemplateStore templates{};
    std::optional<ReadStatus> templatesRead{}; ///< nothing before the first finger that needs one
    int counted = 0;
    int premium = 0;
};

// ---- timer groups

/// Slot masks of a day map, "X" a 1, first slot highest. The map holds ten slots; the lock's masks have room for 24.
TimerBits Masken(std::string days) {
    days.resize(DaysWidth, '-');
    const std::string_view map = days;
    return {Gruppenmaske(map.substr(0, 8)), Gruppenmaske(map.substr(8, 8)), Gruppenmaske(map.substr(16, 8))};
}

/// Day map of a group that every installation has, whatever the file of groups holds; empty for any other.
std::string Feste_Gruppe(std::string_view id) {
    for (const GroupEntry& group : PersonGruppen_Vorgabe()) {
        if (group.PbId == id) {
            return group.Days;
        }
    }
    return {};
}

TimerBits Zeitgruppe(const UserLoop& loop, std::string_view id) {
    if (id.empty() || id == "-") {
        return {};
    }
    if (const std::string days = Feste_Gruppe(id); !days.empty()) {
        return Masken(days);
    }
    const RecordLayout& layout = loop.groups.Layout();
    for (int n = layout.First; n <= layout.Last; ++n) {
        if (loop.groups.Text(n, TimeGroup::PbId) == id) {
            return Masken(Feld_Roh(loop.groups.Record(n), TimeGroup::Days));
        }
    }
    return {};
}

// ---- names and codes

std::string Auf_Namenslaenge(std::string name) {
    name.resize(NameLength, ' ');
    return name;
}

/// The key of the lock itself is a user that carries the lock's name.
bool Ist_Schluessel(std::string_view user, std::string_view lock) {
    lock = Trim(lock);
    return !lock.empty() && GrossText(user).starts_with(GrossText(lock));
}

std::string Schluesselname() {
    return Auf_Namenslaenge(std::string("KEY\0", 4));
}

std::string Codeziffern(std::string code) {
    std::transform(code.begin(), code.end(), code.begin(), F13_ASCII_FILTER);
    return code;
}

/// Characters 10 to 12 of the key label "Slot_Nr: nnn".
std::string Fingernummer(const RecordFile& users, int record) {
    const std::string label = Feld_Roh(users.Record(record), UserRecord::KeyLabel);
    const std::string_view text = std::string_view(label).substr(0, label.find('\0'));
    return std::string(Trim(Mid(text, 10, 3)));
}

std::string Fingername(std::string_view oem, std::string_view number, bool networkWindow) {
    std::string name(oem.substr(0, std::min(FingerNameLength, oem.find('\0'))));
    name += networkWindow ? "_0" : "_";
    return Auf_Namenslaenge(name.append(number).append("_FP"));
}

// ---- one user

void Gemeinsames_Lesen(const UserLoop& loop, int record, ProgSlot& slot) {
    slot.User = record;
    slot.TimerName = loop.users.Text(record, UserRecord::UserGroupId);
    slot.Funktion = loop.users.Text(record, UserRecord::UserRight);
    slot.TimerBits = Zeitgruppe(loop, slot.TimerName);
}

void Anhaengen(Dataset& dataset, ProgSlot slot) {
    dataset.Slots.push_back(std::move(slot));
    dataset.ProgressTotal += ProgressOfSlot;
}

/// Counts the user; says so when the lock has no room for one more.
bool Zaehlen(UserLoop& loop) {
    if (++loop.counted <= loop.stand.dataset.MaxUser) {
        return true;
    }
    loop.stand.Melden(loop.stand.kern.Zeile(Line::TooManyUsers));
    return false;
}

DatasetEnd Codebenutzer(UserLoop& loop, int record, const std::string& name) {
    if (!Zaehlen(loop)) {
        return DatasetEnd::TooManyUsers;
    }
    const RecordFile& users = loop.users;
    ProgSlot slot;
    slot.Name = Ist_Schluessel(name, loop.stand.row.Name) ? Schluesselname() : loop.stand.kern.Welt.CharToOem(name);
    slot.CodeDigits = Codeziffern(users.Text(record, UserRecord::UserCode));
    slot.TransponderA = users.Text(record, UserRecord::KeyId);
    slot.TransponderB = users.Text(record, UserRecord::KeyData);
    Gemeinsames_Lesen(loop, record, slot);
    loop.stand.dataset.AnyTransponder |= !slot.TransponderA.empty();
    Anhaengen(loop.stand.dataset, std::move(slot));
    return DatasetEnd::Good;
}

/// The first fingerprint user warns and keeps the lock's fingerprint memory from being wiped.
void Finger_Vermerken(UserLoop& loop) {
    if (loop.stand.dataset.AnyFinger) {
        return;
    }
    loop.stand.dataset.AnyFinger = true;
    loop.stand.Melden(loop.stand.kern.Zeile(Line::NeedsCurrentAdapter), Icon::Exclamation);
}

void Vorlage_Fehlt_Melden(const DatasetStand& stand, const std::string& oemName) {
    const Kern& kern = stand.kern;
    const std::string name = kern.Welt.OemToChar(oemName);
    stand.Melden(name + (stand.Netzfenster() ? Fester_Text(kern, Word::FingerDataFault, " ") + " "
                                             : kern.Zeile(Line::TemplateMissing)));
}

/// The template as bytes: as many as its first two values say, held within what a record can hold. Values that the
/// text lacks are 0. Without a template says so.
DatasetEnd FsTemplate_Laden(UserLoop& loop, std::string_view identifier, ProgSlot& slot) {
    if (!loop.templatesRead) {
        loop.templatesRead = loop.templates.Laden(loop.stand.kern);
    }
    if (loop.templatesRead == ReadStatus::Error) {
        return DatasetEnd::Other;
    }
    const auto text = loop.templates.Suchen(identifier);
    if (!text) {
        Vorlage_Fehlt_Melden(loop.stand, slot.Name);
        return DatasetEnd::NoTemplate;
    }
    const int length = std::min(Template_Laenge(*text), MostTemplateBytes);
    slot.Template = Dezimalwerte(*text, static_cast<std::size_t>(length));
    return DatasetEnd::Good;
}

DatasetEnd Vorlage_Zuordnen(UserLoop& loop, int record, std::string_view number, ProgSlot& slot) {
    const std::string identifier = loop.users.Text(record, UserRecord::FingerId);
    if (identifier.starts_with("PR")) {
        if (++loop.premium > PremiumLimit) {
            loop.stand.Melden(loop.stand.kern.Zeile(Line::TooManyPremium));
            return DatasetEnd::TooManyPremium;
        }
        slot.PrFlag = 1;
    }
    slot.FingerNumber = static_cast<std::uint16_t>(std::max(Zahlwert(number), 0)); // three characters at most
    if (const DatasetEnd end = FsTemplate_Laden(loop, identifier, slot); end != DatasetEnd::Good) {
        return end;
    }
    if (!slot.Template.empty()) {
        loop.stand.dataset.TemplateBytes += static_cast<int>(slot.Template.size()) + 3;
    }
    return DatasetEnd::Good;
}

DatasetEnd Fingerbenutzer(UserLoop& loop, int record, const std::string& name) {
    if (!Zaehlen(loop)) {
        return DatasetEnd::TooManyUsers;
    }
    Finger_Vermerken(loop);
    const std::string number = Fingernummer(loop.users, record);
    ProgSlot slot;
    slot.Name = Fingername(loop.stand.kern.Welt.CharToOem(name), number, loop.stand.Netzfenster());
    slot.Kind = SlotKind::Finger;
    slot.CodeDigits = "EEEEEE";
    Gemeinsames_Lesen(loop, record, slot);
    if (loop.users.Text(record, UserRecord::FingerFlag) == "FS") {
        if (const DatasetEnd end = Vorlage_Zuordnen(loop, record, number, slot); end != DatasetEnd::Good) {
            return end;
        }
    }
    ++loop.stand.dataset.FingerCount;
    Anhaengen(loop.stand.dataset, std::move(slot));
    return DatasetEnd::Good;
}

/// A record without a name is no user, whatever marks a deletion has left in it.
DatasetEnd Benutzer(UserLoop& loop, int record) {
    const std::string name = loop.users.Text(record, UserRecord::UserName);
    if (name.empty()) {
        return DatasetEnd::Good;
    }
    const std::string marks = Feld_Roh(loop.users.Record(record), UserRecord::LockMask);
    const std::string_view mark = Mid(marks, static_cast<std::size_t>(loop.stand.row.Number), 1);
    if (mark == "X") {
        return Codebenutzer(loop, record, name);
    }
    return mark == "F" ? Fingerbenutzer(loop, record, name) : DatasetEnd::Good;
}

} // namespace

DatasetEnd Benutzer_Laden(DatasetStand& stand) {
    UserLoop loop{.stand = stand};
    if (!Datei_Lesen(stand, loop.users) || !Datei_Lesen(stand, loop.groups)) {
        return DatasetEnd::Other;
    }
    const int last = std::min(stand.kern.Globals.UserRows - 1, loop.users.Count());
    for (int record = 1; record <= last; ++record) {
        if (const DatasetEnd end = Benutzer(loop, record); end != DatasetEnd::Good) {
            return end;
        }
    }
    return DatasetEnd::Good;
}

} // namespace qvm
