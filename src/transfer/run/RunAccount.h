#pragma once

#include "Dataset.h"
#include "Kern.h"
#include "RunState.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// What a run owes its lock. The reply chain goes where the replies lead it, so that a wrong but well-formed one can
/// pass over most of a lock; the account does not steer it, but knows at the end what never arrived.
namespace qvm {

/// What a telegram of a run brings, in the order in which gaps are named.
enum class AccountPart : std::uint8_t {
    Login,
    Channel,
    Clock,
    History,
    Priority,
    Erase,
    CalendarFlag,
    Reception, ///< window or reader setting
    Timers,
    Holidays,
    User,
    TimerFlag,
    Mode,
    DataEnd,
    Disconnect,
    Unit,
};

/// One telegram that must reach the lock, or the reading of the history, which is as many telegrams as there are
/// events.
struct AccountItem {
    enum class State : std::uint8_t {
        Open,         ///< not sent, or not answered as it should have been
        Sent,         ///< its reply is awaited
        Acknowledged, ///< its own reply came
        Twice,        ///< sent once too often, or without being owed: what the device holds is not known
    };
    AccountPart Part = AccountPart::Login;
    std::uint8_t Code = 0; ///< telegram code
    int Detail = 0;        ///< part of a table or an identification; Blockstelle of a unit block
    int Who = -1;          ///< user of the dataset or wireless unit, from 0; -1: the lock itself
    int Pass = 0;          ///< 0, or 1 in the second pass
    bool Carried = false;  ///< needs no reply of its own: the reply to the telegram behind it counts for both
    bool Once = false;     ///< a second time is one too many
    bool Out = false;      ///< was sent, and not erased again
    State Is = State::Open;
};

/// Several telegrams of a kind that are missing: users `First` to `Last` of the dataset, counted from 1; 0 otherwise.
struct AccountGap {
    AccountPart Part = AccountPart::Login;
    int First = 0, Last = 0;

    bool operator==(const AccountGap&) const = default;
};

/// How far the session with a wireless unit came.
enum class UnitStage : std::uint8_t {
    None,       ///< it never answered
    LoggedIn,   ///< it answered, and was told nothing that changes it
    ChangeSent, ///< type 1: its setting went out, type 2: the erase telegram, but no right reply came
    Changed,    ///< type 1: it took its setting; type 2: it was erased
};

struct UnitProgress {
    UnitStage Stage = UnitStage::None;
    int Templates = 0;       ///< type 2: templates that arrived whole
    int TemplatesWanted = 0; ///< of so many

    bool operator==(const UnitProgress&) const = default;
};

/// What the lock itself holds behind a run, as far as its account knows.
enum class LockData : std::uint8_t {
    Untouched,  ///< it was not told to erase itself
    Incomplete, ///< it was, and has not acknowledged all that it had to get
    Complete,   ///< it has; whether its session was closed is another matter
};

struct RunAccount {
    std::vector<AccountItem> Items;
    int Awaited = -1;          ///< the item whose reply the next frame is; -1: none
    int Pass = 0;              ///< the pass that is on
    std::uint8_t LastCode = 0; ///< of the telegram sent last
    bool AtUnit = false;       ///< which was for a unit
    bool EraseEchoed = false;  ///< the lock has acknowledged its erase telegram
    std::vector<int> Slots;    ///< places that the lock has given to users since it was erased

    /// Telegrams that the lock, without its units, must get, and those that it has acknowledged.
    int Gesamt() const;
    int Erledigt() const;
    /// The lock has acknowledged all of them, and was told nothing else.
    bool Vollstaendig() const;
};

/// What the account looks at in a reply.
struct AccountReply {
    std::uint8_t Code = 0;
    bool Leads = true;    ///< the reply chain goes somewhere at it
    bool Accepted = true; ///< the status of a login, or of a unit's block, is a good one
    int Slot = 0;         ///< the place that a reply 0x0A gives to a user
};

/// Detail of a unit block: its row, from 1, and its piece, from 0.
constexpr int Blockstelle(int row, int piece) {
    return row * 256 + piece;
}

/// The account of a run that is about to log in: `lauf` holds the order, `daten` what the lock is to get.
RunAccount Konto_Anlegen(const RunState& lauf, const Dataset& daten);

/// A telegram goes out. `frame`: its words from the start byte on; `lauf` tells whom it is for.
void Konto_Gesendet(RunAccount& account, std::span<const std::uint16_t> frame, const RunState& lauf);
/// A good frame came, and the reply chain is about to look at it.
void Konto_Antwort(RunAccount& account, const AccountReply& reply);
/// The history has come to its end.
void Konto_Historie_Fertig(RunAccount& account);
/// The lock is logged into a second time: telegrams count for the second pass from here on.
void Konto_Zweiter_Durchgang(RunAccount& account);

/// The lock has said that it listens on the system's channel.
bool Konto_Kanal_Gesetzt(const RunAccount& account);
/// Whether the lock has acknowledged its erase telegram; nothing when the run owes none.
std::optional<bool> Konto_Loeschen_Bestaetigt(const RunAccount& account);
LockData Konto_Schloss(const RunAccount& account);
/// What the lock did not get, each kind once, runs of users together.
std::vector<AccountGap> Konto_Luecken(const RunAccount& account);
/// True when the run owes the unit (0 to 4) anything, when something went out to it, and when the whole conversation
/// was had.
bool Konto_Unit_Geplant(const RunAccount& account, int unit);
bool Konto_Unit_Begonnen(const RunAccount& account, int unit);
bool Konto_Unit_Fertig(const RunAccount& account, int unit);
UnitProgress Konto_Unit_Stand(const RunAccount& account, int unit);

/// A gap in words, code page 1252, in the language in use.
std::string Luecke_Text(const Kern& kern, const AccountGap& gap);
/// The same for programs: "login", "user 3".
std::string Luecke_Kennung(const AccountGap& gap);
/// A whole sentence about what is missing, in the language in use; empty when nothing is.
std::string Konto_Fehlendes(const Kern& kern, const RunAccount& account);
/// What became of a wireless unit whose session was not had to its end, with its name, in the language in use.
std::string Unit_Stand_Text(const Kern& kern, const ProgUnit& unit, const UnitProgress& progress);

} // namespace qvm
