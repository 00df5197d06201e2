#include "RunAccount.h"

#include "TelegrammeDaten.h"
#include "TelegrammeUnit.h"

#include <algorithm>
#include <array>

namespace qvm {
namespace {

using State = AccountItem::State;

/// The telegram whose reply nobody waits for: a short time later the next one goes out, whatever came.
constexpr std::uint8_t NobodyWaits = 0x66;

constexpr std::uint8_t Refused = 0x69, SignOfLife = 0x08;

/// Detail of an item that no run owes.
constexpr int Unwanted = -1;
using Words = std::span<const std::uint16_t>;

int Wert(Words frame, const Field& field) {
    int value = 0;
    for (std::size_t at = field.Offset; at < static_cast<std::size_t>(field.End()) && at < frame.size(); ++at) {
        value = value * 256 + (frame[at] & 0xFF);
    }
    return value;
}

/// What tells telegrams of one code apart.
int Kennzeichen(Words frame) {
    const int length = frame[1] & 0xFF;
    switch (frame[2]) {
    case 0x19:
        return length == TelSchaltuhrA::Telegram.L ? Wert(frame, TelSchaltuhrA::Part) : 0;
    case 0x1B:
        return length == TelSchaltuhrB::Telegram.L ? Wert(frame, TelSchaltuhrB::Part) : 0;
    case 0x1F:
    case 0x21:
        return Wert(frame, TelEinzelFeiertage::Part);
    case 0x43:
        return Wert(frame, TelIdDaten1::Part);
    case 0x4A:
        return Blockstelle(Wert(frame, TelUnitBlock::Row), Wert(frame, TelUnitBlock::Piece));
    default:
        return 0;
    }
}

bool Benutzercode(std::uint8_t code) {
    return (code >= 0x0A && code <= 0x0E) || code == 0x37 || code == 0x40 || code == 0x43;
}

bool An_Unit(const RunState& lauf) {
    return lauf.Chain.UnitModus != 0 || lauf.Chain.LaufZiel == "UNIT";
}

/// The item that a telegram is; -1 when the run owes no such one.
int Posten_Finden(const RunAccount& account, Words frame, const RunState& lauf) {
    const auto code = static_cast<std::uint8_t>(frame[2]);
    const bool unit = An_Unit(lauf);
    const int who = unit ? lauf.Chain.UnitIndex : Benutzercode(code) ? lauf.Chain.SlotCursor : -1;
    const int detail = Kennzeichen(frame);
    const auto found = std::find_if(account.Items.begin(), account.Items.end(), [&](const AccountItem& item) {
        return item.Code == code && item.Detail == detail && item.Who == who &&
               (item.Part == AccountPart::Unit) == unit && (unit || item.Pass == account.Pass);
    });
    return found == account.Items.end() ? -1 : static_cast<int>(found - account.Items.begin());
}

bool Ein_Gespraech(const AccountItem& one, const AccountItem& other) {
    const bool unit = one.Part == AccountPart::Unit;
    return unit == (other.Part == AccountPart::Unit) && (unit ? one.Who == other.Who : one.Pass == other.Pass);
}

/// What has been erased is owed again.
void Dahinter_Oeffnen(RunAccount& account, std::size_t erase) {
    for (std::size_t n = erase + 1; n < account.Items.size(); ++n) {
        if (account.Items[n].Detail != Unwanted && Ein_Gespraech(account.Items[n], account.Items[erase])) {
            account.Items[n].Is = State::Open;
            account.Items[n].Out = false;
        }
    }
}

/// Telegrams that leave a lock as it is, or give it what it has anyway.
bool Harmlos(std::uint8_t code) {
    constexpr std::array codes{0x03, 0x04, 0x05, 0x17, 0x28, 0x29, 0x2F, 0x66};
    return std::find(codes.begin(), codes.end(), int{code}) != codes.end();
}

AccountPart Art(std::uint8_t code) {
    switch (code) {
    case 0x07:
    case 0x09:
        return AccountPart::Clock;
    case 0x33:
    case 0x3B:
        return AccountPart::Reception;
    case 0x19:
    case 0x1B:
        return AccountPart::Timers;
    case 0x32:
        return AccountPart::Mode;
    default:
        return Benutzercode(code) ? AccountPart::User : AccountPart::Login;
    }
}

/// A device was told something that this run does not want it to have. Nothing takes that back.
void Ungewollt(RunAccount& account, std::uint8_t code, const RunState& lauf) {
    const bool unit = An_Unit(lauf);
    account.Items.push_back({.Part = unit ? AccountPart::Unit : Art(code),
                             .Code = code,
                             .Detail = Unwanted,
                             .Who = unit                 ? lauf.Chain.UnitIndex
                                    : Benutzercode(code) ? lauf.Chain.SlotCursor
                                                         : -1,
                             .Pass = account.Pass,
                             .Out = true,
                             .Is = State::Twice});
}

/// The items just before this one that need no reply of their own are good with it.
void Mitnehmen(RunAccount& account, std::size_t acknowledged) {
    for (std::size_t n = acknowledged; n-- > 0 && account.Items[n].Carried;) {
        if (account.Items[n].Is == State::Sent && Ein_Gespraech(account.Items[n], account.Items[acknowledged])) {
            account.Items[n].Is = State::Acknowledged;
        }
    }
}

bool Des_Schlosses(const AccountItem& item) {
    return item.Part != AccountPart::Unit;
}

bool Dem_Schloss_Geschuldet(const AccountItem& item) {
    return Des_Schlosses(item) && item.Detail != Unwanted;
}

bool Loeschen_Ist_Aus(const RunAccount& account) {
    return std::any_of(account.Items.begin(), account.Items.end(),
                       [](const AccountItem& item) { return item.Part == AccountPart::Erase && item.Out; });
}

/// Takes a place that the lock gives. False when another user has it: one of both is not in the lock any more.
bool Platz_Frei(RunAccount& account, int slot) {
    if (std::find(account.Slots.begin(), account.Slots.end(), slot) != account.Slots.end()) {
        return false;
    }
    account.Slots.push_back(slot);
    return true;
}

bool Der_Unit(const AccountItem& item, int unit) {
    return item.Part == AccountPart::Unit && item.Who == unit;
}

} // namespace

int RunAccount::Gesamt() const {
    return static_cast<int>(std::count_if(Items.begin(), Items.end(), Dem_Schloss_Geschuldet));
}

int RunAccount::Erledigt() const {
    return static_cast<int>(std::count_if(Items.begin(), Items.end(), [](const AccountItem& item) {
        return Dem_Schloss_Geschuldet(item) && item.Is == State::Acknowledged;
    }));
}

bool RunAccount::Vollstaendig() const {
    return std::all_of(Items.begin(), Items.end(),
                       [](const AccountItem& item) { return !Des_Schlosses(item) || item.Is == State::Acknowledged; });
}

void Konto_Gesendet(RunAccount& account, Words frame, const RunState& lauf) {
    account.LastCode = static_cast<std::uint8_t>(frame[2]);
    account.AtUnit = An_Unit(lauf);
    if (account.LastCode == SignOfLife) {
        return; // a sign of life asks on for the telegram before it
    }
    account.Awaited = Posten_Finden(account, frame, lauf);
    if (account.Awaited < 0) {
        if (!Harmlos(account.LastCode)) {
            Ungewollt(account, account.LastCode, lauf);
        }
        return;
    }
    const auto at = static_cast<std::size_t>(account.Awaited);
    AccountItem& item = account.Items[at];
    item.Is = item.Once && item.Out ? State::Twice : State::Sent;
    item.Out = true;
    if (item.Code == 0x27) {
        Dahinter_Oeffnen(account, at);
    }
    if (item.Part == AccountPart::Erase) {
        account.EraseEchoed = false;
        account.Slots.clear();
    }
}

void Konto_Antwort(RunAccount& account, const AccountReply& reply) {
    if (reply.Code == 0x27 && !account.AtUnit && Loeschen_Ist_Aus(account)) {
        account.EraseEchoed = true; // late, too: it proves nothing but the erasing
    }
    if (account.Awaited < 0) {
        return;
    }
    const auto at = static_cast<std::size_t>(account.Awaited);
    AccountItem& item = account.Items[at];
    if (reply.Code == Refused && item.Part == AccountPart::Erase) {
        // A sign of life may be refused; but as long as the erasing is not acknowledged, nobody knows which of both
        // was.
        if (account.LastCode != SignOfLife || !account.EraseEchoed) {
            item.Is = State::Open;
            account.Awaited = -1;
        }
        return;
    }
    const std::uint8_t own = item.Code == 0xFE ? std::uint8_t{0x04} : item.Code;
    if (item.Carried && (reply.Code == own || item.Code == NobodyWaits)) {
        return; // nor does it end here: what comes before the next telegram still counts
    }
    if (!reply.Leads) {
        return; // the reply is still to come
    }
    account.Awaited = -1;
    const bool right = reply.Code == own && (reply.Accepted || item.Code == 0xFE);
    if (item.Is != State::Sent || (right && item.Part == AccountPart::History)) {
        return; // the end of the history is told apart
    }
    item.Is = right ? State::Acknowledged : State::Open;
    if (right && item.Code == 0x0A && !Platz_Frei(account, reply.Slot)) {
        item.Is = State::Twice;
    }
    if (right) {
        Mitnehmen(account, at);
    }
}

void Konto_Historie_Fertig(RunAccount& account) {
    for (AccountItem& item : account.Items) {
        if (item.Part == AccountPart::History && item.Is == State::Sent) {
            item.Is = State::Acknowledged;
        }
    }
}

void Konto_Zweiter_Durchgang(RunAccount& account) {
    account.Pass = 1;
    account.Awaited = -1;
}

bool Konto_Kanal_Gesetzt(const RunAccount& account) {
    return std::any_of(account.Items.begin(), account.Items.end(), [](const AccountItem& item) {
        return item.Part == AccountPart::Channel && item.Code == 0x29 && item.Is == State::Acknowledged;
    });
}

std::optional<bool> Konto_Loeschen_Bestaetigt(const RunAccount& account) {
    const bool owed = std::any_of(account.Items.begin(), account.Items.end(),
                                  [](const AccountItem& item) { return item.Part == AccountPart::Erase; });
    return owed ? std::optional<bool>(account.EraseEchoed) : std::nullopt;
}

LockData Konto_Schloss(const RunAccount& account) {
    constexpr std::uint8_t erase = 0x27;
    const auto erased = [](const AccountItem& item) { return Des_Schlosses(item) && item.Code == erase && item.Out; };
    const auto there = [](const AccountItem& item) {
        return !Des_Schlosses(item) || item.Part == AccountPart::Disconnect || item.Is == State::Acknowledged;
    };
    if (std::none_of(account.Items.begin(), account.Items.end(), erased)) {
        return LockData::Untouched;
    }
    return std::all_of(account.Items.begin(), account.Items.end(), there) ? LockData::Complete : LockData::Incomplete;
}

std::vector<AccountGap> Konto_Luecken(const RunAccount& account) {
    std::vector<AccountGap> gaps;
    for (const AccountItem& item : account.Items) {
        if (Des_Schlosses(item) && item.Is != State::Acknowledged) {
            const bool user = item.Part == AccountPart::User;
            gaps.push_back({.Part = item.Part, .First = user ? item.Who + 1 : 0, .Last = user ? item.Who + 1 : 0});
        }
    }
    // The second pass misses the same kinds again.
    std::stable_sort(gaps.begin(), gaps.end(), [](const AccountGap& one, const AccountGap& other) {
        return one.Part != other.Part ? one.Part < other.Part : one.First < other.First;
    });
    std::vector<AccountGap> joined;
    for (const AccountGap& gap : gaps) {
        if (!joined.empty() && joined.back().Part == gap.Part && gap.First <= joined.back().Last + 1) {
            joined.back().Last = gap.Last;
        } else {
            joined.push_back(gap);
        }
    }
    return joined;
}

bool Konto_Unit_Geplant(const RunAccount& account, int unit) {
    return std::any_of(account.Items.begin(), account.Items.end(),
                       [unit](const AccountItem& item) { return Der_Unit(item, unit); });
}

bool Konto_Unit_Begonnen(const RunAccount& account, int unit) {
    return std::any_of(account.Items.begin(), account.Items.end(),
                       [unit](const AccountItem& item) { return Der_Unit(item, unit) && item.Out; });
}

bool Konto_Unit_Fertig(const RunAccount& account, int unit) {
    return Konto_Unit_Geplant(account, unit) &&
           std::all_of(account.Items.begin(), account.Items.end(), [unit](const AccountItem& item) {
               return !Der_Unit(item, unit) || item.Is == State::Acknowledged;
           });
}

UnitProgress Konto_Unit_Stand(const RunAccount& account, int unit) {
    UnitProgress progress;
    int row = 0;
    bool whole = false;
    for (const AccountItem& item : account.Items) {
        if (!Der_Unit(item, unit)) {
            continue;
        }
        const bool good = item.Is == State::Acknowledged;
        if (item.Code == 0x4A) {
            if (const int itsRow = item.Detail / Blockstelle(1, 0); itsRow != row) {
                progress.Templates += whole ? 1 : 0;
                ++progress.TemplatesWanted;
                row = itsRow;
                whole = true;
            }
            whole = whole && good;
        } else if (item.Code == 0x3D || item.Code == 0x27) {
            progress.Stage = good ? UnitStage::Changed : item.Out ? UnitStage::ChangeSent : progress.Stage;
        } else if (good && (item.Code == 0x04 || item.Code == 0x49 || item.Code == 0xFE)) {
            progress.Stage = std::max(progress.Stage, UnitStage::LoggedIn);
        }
    }
    progress.Templates += whole ? 1 : 0;
    return progress;
}

} // namespace qvm
