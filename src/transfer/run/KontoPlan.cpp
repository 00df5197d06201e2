// Which telegrams a run owes, from its order and its dataset.

#include "Modelle.h"
#include "RunAccount.h"

namespace qvm {
namespace {

/// No telegram has this code.
constexpr std::uint8_t NeverSent = 0;

/// Adds the items of a conversation in its order.
struct Planner {
    RunAccount& account;
    int Pass = 0;
    int Who = -1;

    AccountItem& Add(AccountPart part, std::uint8_t code, int detail = 0) {
        return account.Items.emplace_back(
            AccountItem{.Part = part, .Code = code, .Detail = detail, .Who = Who, .Pass = Pass});
    }
    void Parts(AccountPart part, std::uint8_t code, int count) {
        for (int n = 0; n < count; ++n) {
            Add(part, code, n);
        }
    }
};

void Anmeldung(Planner& plan, const RunState& lauf) {
    plan.Add(AccountPart::Login, 0x04);
    if (plan.Pass == 0 && lauf.Chain.KanalSuche != 0) {
        plan.Add(AccountPart::Channel, 0x28);
        plan.Add(AccountPart::Channel, 0x66).Carried = true;
        plan.Add(AccountPart::Channel, 0x29);
    }
    if (lauf.Values.FlagSetClock == 1) {
        plan.Add(AccountPart::Clock, 0x07);
        plan.Add(AccountPart::Clock, 0x09);
    }
}

void Zeiten(Planner& plan, const RunState& lauf) {
    constexpr int PartsA = 3, PartsB = 2, HolidayParts = 3;
    if (lauf.Values.TimerMode == TimerPB_UT) {
        plan.Parts(AccountPart::Timers, 0x19, PartsA);
        plan.Parts(AccountPart::Timers, 0x1B, PartsB);
    } else if (lauf.Values.TimerMode != Timer_ERROR) {
        plan.Add(AccountPart::Timers, 0x19);
        plan.Add(AccountPart::Timers, 0x1B);
    }
    plan.Parts(AccountPart::Holidays, 0x1F, HolidayParts);
    plan.Parts(AccountPart::Holidays, 0x21, HolidayParts);
}

void Benutzer(Planner& plan, const RunState& lauf, const ProgSlot& user) {
    const auto add = [&plan](std::uint8_t code, int detail = 0) {
        plan.Add(AccountPart::User, code, detail).Once = true;
    };
    const bool finger = user.Kind == SlotKind::Finger;
    add(0x0A);
    if (finger) {
        add(0x40);
    } else {
        add(0x0B);
        add(0x0D);
        add(0x0E);
        if (BereichN(lauf.Order.SerialValue) && Schluessel_Zerlegen(user.TransponderA).Kind == KeyForm::Form::Long) {
            add(0x43, 1);
            add(0x43, 2);
        }
    }
    if (finger || lauf.Values.TimerMode == TimerPB_UT) {
        add(0x37);
    }
}

void Durchgang(Planner& plan, const RunState& lauf, const Dataset& daten) {
    const bool history = plan.Pass == 0 && (lauf.Chain.HistoryOnly != 0 || lauf.Chain.ReadHistoryFirst != 0);
    Anmeldung(plan, lauf);
    if (history) {
        plan.Add(AccountPart::History, 0x17);
    }
    if (lauf.Chain.HistoryOnly == 0) {
        if (history || lauf.Values.FlagSetClock == 1) {
            plan.Add(AccountPart::Priority, 0x2F);
        }
        plan.Add(AccountPart::Erase, 0x27).Carried = BereichZ(lauf.Order.SerialValue);
        plan.Add(AccountPart::CalendarFlag, 0x25);
        if (lauf.Values.ListenWindow || BereichN(lauf.Order.SerialValue)) {
            plan.Add(AccountPart::Reception, lauf.Values.ListenWindow ? 0x33 : 0x3B);
        }
        Zeiten(plan, lauf);
        for (plan.Who = 0; plan.Who < static_cast<int>(daten.Slots.size()); ++plan.Who) {
            Benutzer(plan, lauf, daten.Slots[static_cast<std::size_t>(plan.Who)]);
        }
        plan.Who = -1;
        plan.Add(AccountPart::TimerFlag, 0x23);
        if (lauf.Values.LockMode != 0xFF) {
            plan.Add(AccountPart::Mode, 0x32);
        }
        plan.Add(AccountPart::DataEnd, 0x15);
    }
    plan.Add(AccountPart::Disconnect, 0x05);
}

void Unit_Bloecke(Planner& plan, const Dataset& daten) {
    int row = 0;
    for (const ProgSlot& slot : daten.Slots) {
        if (!slot.Template.empty()) {
            ++row;
            const auto pieces =
                static_cast<int>((slot.Template.size() + ProgSlot::PieceLength - 1) / ProgSlot::PieceLength);
            for (int piece = 0; piece < pieces; ++piece) {
                plan.Add(AccountPart::Unit, 0x4A, Blockstelle(row, piece)).Once = true;
            }
        }
    }
}

void Unit_Planen(Planner& plan, const Dataset& daten, char type) {
    const auto add = [&plan](std::uint8_t code) -> AccountItem& { return plan.Add(AccountPart::Unit, code); };
    if (type == '1') {
        for (const int code : {0x04, 0x3D, 0x05}) {
            add(static_cast<std::uint8_t>(code));
        }
    } else if (type != '2') {
        add(NeverSent); // nobody knows how such a unit is programmed, but the lock is to have it
    }
    if (type != '2') {
        return;
    }
    add(0x28);
    add(0x66).Carried = true;
    for (const int code : {0x29, 0x49, 0x48, 0xFE, 0x27}) {
        add(static_cast<std::uint8_t>(code));
    }
    Unit_Bloecke(plan, daten);
    add(0x05);
    add(0x03);
}

} // namespace

RunAccount Konto_Anlegen(const RunState& lauf, const Dataset& daten) {
    RunAccount account;
    Planner plan{.account = account};
    const bool twice =
        lauf.Chain.TwoPassFlag != 0 && lauf.Chain.HistoryOnly == 0 && BereichZweiDurchgaenge(lauf.Order.SerialValue);
    for (plan.Pass = 0; plan.Pass <= (twice ? 1 : 0); ++plan.Pass) {
        Durchgang(plan, lauf, daten);
    }
    plan.Pass = 0;
    for (plan.Who = 0; lauf.Chain.HistoryOnly == 0 && plan.Who < static_cast<int>(daten.Units.size()); ++plan.Who) {
        if (const ProgUnit& unit = daten.Units[static_cast<std::size_t>(plan.Who)]; unit.UnitPresent) {
            Unit_Planen(plan, daten, unit.Type);
        }
    }
    return account;
}

} // namespace qvm
