#include "F5Finger.h"

#include "AntwortLayouts.h"
#include "Secret.h"
#include "SeriellesProtokoll.h"
#include "TelegrammeUnit.h"
#include "TemplateStore.h"
#include "UserRecords.h"
#include "Zeit.h"

#include <cstddef>
#include <string_view>
#include <vector>

namespace qvm {
namespace {

constexpr std::string_view PremiumMark = "PR";
constexpr std::size_t SlotDigitsAt = 9, SlotDigits = 3; ///< characters 10 to 12
constexpr int UsualSlots = 250;
constexpr std::size_t LongestByte = 6; ///< "255 : "
/// The last column of which FS_loeschen takes an "F": locks 195 to 200 keep theirs.
constexpr int LastFingerColumn = 201;

std::string Slottext(int slot) {
    std::string digits = Ziffern(slot);
    digits.insert(0, digits.size() < SlotDigits ? SlotDigits - digits.size() : 0, '0');
    return std::string(F5::FingerSlot) + " " + digits;
}

void Fehler_Melden(const Kern& kern, Word which) {
    kern.Meldung(Fester_Text(kern, which) + " ", Buttons::Ok, Icon::Exclamation); // the system's texts end so
}

} // namespace

F5Finger::F5Finger(F5& window, F51& enrolment, Link& serialLink, AdapterListe& list)
    : f5(window), f51(enrolment), kern(window.kern), link(serialLink), Adapter(list) {
    f51.Verlassen = [this] { Verlassen(); };
    f51.Aufgegeben = [this] { Nichts_Erwarten(); };
    f51.Leser_Weg = [this] { return Leser_Weg(kern, Adapter, stand_); };
}

void F5Finger::FS_anerlen_Click() {
    asked_ = F5Zeile_Merken(f5, f5.FsRow);
    if (!Leser_Bereitmachen(f5, link, Adapter, &AdapterListe::EnrollmentPort)) {
        return;
    }
    template_.clear();
    template_.reserve(TemplateRecord::Template.Width + LongestByte); // no copy is left behind as it grows
    broken_ = true;                                                  // until its first piece is there
    stand_ = Adapter.Stand;
    link.Lauf.KeyMode = 0; // a refusal is that of a learn
    link.AnswerWithdrawn = 0;
    f5.Fenster.Enabled = false;
    f51.F51_FormLaden();
    if (!TelFingerAnlernen_Senden(link, link.TelegrammParam1, link.TelegrammParam2)) {
        f51.Schliessen();
        Leser_Stumm(kern);
    }
}

/// Nothing more is sent; what the unit still says nobody is owed any more.
void F5Finger::Nichts_Erwarten() {
    if (link.AnswerDue == TelFingerAnlernen::Telegram.Code) {
        link.AnswerDue = 0;
    }
    Vergessen(template_);
    Empfang_Vergessen(link);
}

void F5Finger::Verlassen() {
    Nichts_Erwarten();
    f5.Fenster.Enabled = true;
}

bool F5Finger::Aufgegeben() {
    const bool gone = Leser_Weg(kern, Adapter, stand_);
    if (gone) {
        f51.Gescheitert(Wort(kern, Word::AdapterPulled));
    }
    return gone;
}

void F5Finger::Leser_Abgelehnt() {
    f51.Schliessen();
}

void F5Finger::Finger_Daten() {
    Empfang_Vergessen(link);
    if (Aufgegeben()) {
        return;
    }
    const std::size_t count = link.RxByte(RpFingerDaten::Count.Offset);
    if (link.RxByte(RpFingerDaten::Piece.Offset) == 1) {
        template_.clear();
        broken_ = false;
    }
    if (RpFingerDaten::Data + count > link.RxFrame().size()) {
        broken_ = true;
        return;
    }
    // What goes beyond the field is cut off in any case.
    for (std::size_t n = 0; n < count && template_.size() < TemplateRecord::Template.Width; ++n) {
        template_ += Ziffern(link.RxByte(static_cast<int>(RpFingerDaten::Data + n))) + " : ";
    }
}

void F5Finger::Finger_Schritt() {
    if (Aufgegeben()) {
        return;
    }
    const std::uint8_t code = link.RxByte(RpFingerStatus::Step.Offset);
    if (code == FingerStep::Done && !Finger_Speichern()) {
        f51.Schliessen();
    } else {
        f51.Schritt_Zeigen(code);
    }
}

F5Finger::Slots F5Finger::Bezeichnete() const {
    Slots used{};
    for (int row = UserGrid::FirstRow; row <= UserGrid::LastRow; ++row) {
        const std::string_view label = Trim(f5.FGK4.Text(row, UserColumn::KeyLabel));
        if (!label.starts_with(F5::FingerSlot) || label.size() <= SlotDigitsAt) {
            continue;
        }
        const auto slot = Zahlwert(label.substr(SlotDigitsAt, SlotDigits));
        if (slot < 1 || slot > HighestSlot) {
            continue;
        }
        if (used[static_cast<std::size_t>(slot)]) {
            Fehler_Melden(kern, Word::FingerSlotTwice);
        }
        used[static_cast<std::size_t>(slot)] = true;
    }
    return used;
}

int F5Finger::Freier(const Slots& used) {
    int slot = 1;
    while (slot <= UsualSlots && used[static_cast<std::size_t>(slot)]) {
        ++slot;
    }
    return slot;
}

int F5Finger::Unbelegter(const Slots& used) {
    const int slot = Freier(used);
    return used[static_cast<std::size_t>(slot)] ? 0 : slot;
}

std::optional<int> F5Finger::Slot_Zum_Schreiben() const {
    TemplateStore templates;
    RecordFile saved(UserRecord::Record);
    if (templates.Laden(kern) == ReadStatus::Error ||
        saved.Laden(kern.Welt.Files, kern.DatPfad()) == ReadStatus::Error) {
        return std::nullopt;
    }
    std::vector<std::string> shown;
    std::vector<std::string> others = f5.Verlauf.Texts(UserColumn::FingerId);
    for (int user = 1; user <= UserGrid::Users; ++user) {
        shown.push_back(f5.FGK4.Text(UserGrid::RowOf(user), UserColumn::FingerId));
        others.push_back(saved.Text(user, UserRecord::FingerId));
    }
    Slots used = Bezeichnete();
    const auto add = [&](const std::vector<std::string>& fingers) {
        for (const std::string& finger : fingers) {
            used[static_cast<std::size_t>(templates.Slot(finger))] = true; // of 0 nobody asks
        }
    };
    add(shown);
    const int besideTheTable = Unbelegter(used);
    add(others);
    const int untouched = Unbelegter(used);
    return untouched != 0 ? untouched : besideTheTable;
}

std::optional<int> F5Finger::Template_Ablegen(int row, const std::string& identifier) const {
    const std::optional<int> slot = Slot_Zum_Schreiben();
    if (slot == 0) {
        kern.Meldung(Wort(kern, Word::FingerNoSlot), Buttons::Ok, Icon::Exclamation);
        return std::nullopt;
    }
    if (!slot || !Template_Schreiben(kern, *slot, row, identifier, template_)) {
        kern.Meldung(Wort(kern, Word::FingerUnsaved), Buttons::Ok, Icon::Exclamation);
        return std::nullopt;
    }
    return slot;
}

bool F5Finger::Finger_Speichern() {
    if (asked_.Row == F5::NoRow) {
        Fehler_Melden(kern, Word::FingerWrongRow);
        return false;
    }
    const int row = F5Zeile_Finden(f5, asked_);
    if (row == 0) {
        kern.Meldung(Wort(kern, Word::KeyRowChanged), Buttons::Ok, Icon::Exclamation);
        return false;
    }
    if (broken_ || template_.empty()) {
        kern.Meldung(Wort(kern, Word::FingerIncomplete), Buttons::Ok, Icon::Exclamation);
        return false;
    }
    const std::string identifier = Ziffern(Sekunden_Seit_2000(kern.Welt.Now()));
    const std::optional<int> slot = Template_Ablegen(row, identifier);
    if (!slot) {
        return false;
    }
    f5.Aendern(Word::StepFinger, [&] {
        f5.FGK4.SetText(row, UserColumn::FingerId, identifier);
        f5.FGK4.SetPicture(row, UserColumn::Finger, FingerPicture::Standard);
        f5.FGK4.SetText(row, UserColumn::KeyLabel, Slottext(*slot));
        f5.Verlauf.Keep(Word::TemplateStays);
    });
    return true;
}

void F5Finger::FS_loeschen_Click() {
    const int row = f5.FsRow;
    if (row == F5::NoRow) {
        return;
    }
    const std::string question = kern.Zeile(Line::Remove) + " Fingerscan  ?\r\n\r\n" + kern.Zeile(Line::FingerRemoved) +
                                 "\r\n\r\n" + kern.Zeile(Line::MarksCleared);
    if (kern.Meldung(question, Buttons::YesNo, Icon::Question, kern.Zeile(Line::Confirmation)) != Answer::Yes) {
        return;
    }
    f5.Aendern(Word::StepRemoveFinger, [&] {
        f5.FGK4.SetText(row, UserColumn::KeyLabel, "");
        f5.FGK4.SetText(row, UserColumn::FingerId, "");
        f5.FGK4.SetPicture(row, UserColumn::Finger, FingerPicture::None);
        for (int column = UserGrid::ColumnOf(1); column <= LastFingerColumn; ++column) {
            if (f5.FGK4.Text(row, column) == "F") {
                f5.FGK4.SetText(row, column, " ");
            }
        }
    });
}

void F5Finger::F5_FSpremium_Click() {
    const int row = f5.FGK4.Row;
    const std::string id = f5.FGK4.Text(row, UserColumn::FingerId);
    if (id.empty()) {
        return;
    }
    f5.Aendern(Word::StepFingerClass, [&] {
        f5.FGK4.SetText(row, UserColumn::FingerId, id.starts_with(PremiumMark) ? id : std::string(PremiumMark) + id);
        f5.FGK4.SetPicture(row, UserColumn::Finger, FingerPicture::Premium);
    });
}

void F5Finger::F5_FSstandard_Click() {
    const int row = f5.FGK4.Row;
    const std::string id = f5.FGK4.Text(row, UserColumn::FingerId);
    if (id.empty()) {
        return;
    }
    f5.Aendern(Word::StepFingerClass, [&] {
        f5.FGK4.SetText(row, UserColumn::FingerId, id.starts_with(PremiumMark) ? id.substr(PremiumMark.size()) : id);
        f5.FGK4.SetPicture(row, UserColumn::Finger, FingerPicture::Standard);
    });
}

} // namespace qvm
