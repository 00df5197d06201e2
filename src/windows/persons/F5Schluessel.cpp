#include "F5Schluessel.h"

#include "AntwortLayouts.h"
#include "FileTrouble.h"
#include "Secret.h"
#include "SeriellesProtokoll.h"
#include "TelegrammeUnit.h"
#include "UserRecords.h"

namespace qvm {
namespace {

constexpr std::string_view Title = "E-Key";
constexpr std::uint8_t Learn = 0, Synchronise = 1, Search = 2;  ///< RunState::KeyMode
constexpr std::uint8_t NewKey = 0, KnownKey = 1, AnyKey = 0x64; ///< the second parameter of TelEKeyLesen
constexpr int LastOldAdapter = 3, Channels = 12;
/// From here on the unit reports a slot as being in use.
constexpr std::uint8_t FirstUsedSlot = 128;
constexpr Colour TransponderGround = 0x80FFFF;

} // namespace

F5Schluessel::F5Schluessel(F5& window, F16& search, Link& serialLink, AdapterListe& list)
    : f5(window), f16(search), kern(window.kern), link(serialLink), Adapter(list), Wache(window.kern.Welt, 1000),
      EKeyWache(window.kern.Welt, 1000) {
    Wache.Ticked = [this] { Nachsehen(); };
    EKeyWache.Ticked = [this] { EKey_Nachsehen(); };
    f5.Geschlossen = [this] {
        Ausgeschnittenes_Vergessen();
        Empfang_Vergessen(link);
    };
}

void F5Schluessel::Melden(int line, Icon sign) const {
    kern.Meldung(kern.Zeile(line), Buttons::Ok, sign);
}

int F5Schluessel::Zeile_Von(std::string_view id) const {
    // The file keeps no more of an identification than its field holds.
    const std::string_view wanted = Trim(id).substr(0, UserRecord::KeyId.Width);
    for (int row = UserGrid::FirstRow; row <= UserGrid::LastRow; ++row) {
        const std::string_view held = Trim(f5.FGK4.Text(row, UserColumn::KeyId));
        if (!wanted.empty() && held.substr(0, UserRecord::KeyId.Width) == wanted) {
            return row;
        }
    }
    return 0;
}

void F5Schluessel::Kanal_Bleibt(bool written) {
    if (written) {
        f5.Verlauf.Keep(Word::ChannelStays);
    }
}

void F5Schluessel::Kanal_Melden(bool written) {
    if (!written) {
        kern.Meldung(Wort(kern, Word::KeyChannelUnsaved), Buttons::Ok, Icon::Exclamation);
    }
}

// ---- E-Keys

std::optional<F5Schluessel::Frage> F5Schluessel::Bereitmachen(LeserPort which) {
    // Whoever was asked for before gets nothing any more, and nobody else gets it in that one's place.
    Warten_Beenden();
    const F5Zeile row = F5Zeile_Merken(f5, f5.MenuRow);
    if (!Leser_Bereitmachen(f5, link, Adapter, which)) {
        return {};
    }
    return Frage{.Zeile = row, .Stand = Adapter.Stand};
}

void F5Schluessel::Leser_Verspaetet() {
    Empfang_Vergessen(link);
    link.AnswerWithdrawn = 0;
    f5.Hinweis.Text = Wort(kern, Word::KeyTooLate);
}

int F5Schluessel::Version() const {
    const int searched = Adapter.ProgVersion;
    return searched != 0 || !AdapterVersion ? searched : AdapterVersion();
}

void F5Schluessel::EKey_Fragen(const Frage& wanted, std::uint8_t mode, std::uint8_t wish) {
    // Another port may be open by now. One that could not be opened shows below.
    if (Adapter.Stand != wanted.Stand) {
        Leser_Getrennt(kern);
        return;
    }
    asked_ = wanted;
    const bool old = Version() <= LastOldAdapter;
    const int channel = kern.Config.Funkkanal();
    link.Lauf.KeyMode = mode;
    link.AnswerWithdrawn = 0;
    Fund = {};
    if (TelEKeyLesen_Senden(link, static_cast<std::uint8_t>(channel >= 1 && channel <= Channels ? channel : 1), wish,
                            old)) {
        EKeyWache.Start();
    } else {
        Leser_Stumm(kern);
    }
}

/// The window is not locked meanwhile, so nothing else would say that no key will come.
void F5Schluessel::EKey_Nachsehen() {
    if (!f5.Fenster.Visible || link.AnswerDue != TelEKeyLesen::Telegram.Code) {
        EKeyWache.Stop();
    } else if (Leser_Weg(kern, Adapter, asked_.Stand)) {
        EKeyWache.Stop();
        Leser_Zurueckziehen(link, TelEKeyLesen::Telegram.Code);
        Leser_Getrennt(kern);
    }
}

void F5Schluessel::Save_Ekey_Click() {
    const auto wanted = Bereitmachen(&AdapterListe::ProgStationPort);
    if (!wanted) {
        return;
    }
    std::uint8_t wish = NewKey;
    if (Version() > LastOldAdapter) {
        const Answer answer =
            kern.Meldung(kern.Zeile(Line::LearnAsNewKey), Buttons::YesNoCancel, Icon::Question, Title, 2);
        if (answer == Answer::Cancel) {
            return;
        }
        wish = answer == Answer::Yes ? NewKey : KnownKey;
    }
    if (kern.Meldung(kern.Zeile(Line::HaveKeyReady) + "\r\n" + kern.Zeile(Line::LearnOnChannel), Buttons::OkCancel,
                     Icon::Information, Title) == Answer::Ok) {
        EKey_Fragen(*wanted, Learn, wish);
    }
}

void F5Schluessel::EKey_Finden(std::uint8_t mode, std::uint8_t wish) {
    const auto wanted = Bereitmachen(&AdapterListe::ProgStationPort);
    if (wanted &&
        kern.Meldung(kern.Zeile(Line::HaveKeyReady), Buttons::OkCancel, Icon::Information, Title) == Answer::Ok) {
        EKey_Fragen(*wanted, mode, wish);
    }
}

void F5Schluessel::Search_Ekey_Click() {
    EKey_Finden(Search, AnyKey);
}

void F5Schluessel::key_synchron_Click() {
    EKey_Finden(Synchronise, KnownKey);
}

void F5Schluessel::EKey_Ergebnis() {
    Empfang_Vergessen(link);
    if (!f5.Fenster.Visible) {
        return;
    }
    if (Leser_Weg(kern, Adapter, asked_.Stand)) {
        Leser_Getrennt(kern); // whoever says this was not asked
        return;
    }
    constexpr std::size_t whole = RpEKey::IdData.Offset + RpEKey::IdData.Width;
    const std::uint8_t mode = link.Lauf.KeyMode;
    if (link.RxFrame().size() < whole) {
        Melden(mode == Learn ? Line::KeyNotLearned : mode == Search ? Line::KeyNotFound : Line::KeyNotSynchronised);
        return;
    }
    if (mode == Learn) {
        EKey_Anlernen();
        return;
    }
    std::string id = Dezimal(link, RpEKey::Id.Offset, RpEKey::Id.Width, " : ");
    const Wiper wipeId(id);
    if (mode == Search) {
        Fund = {.Row = f16.F16_Suchen(UserColumn::KeyId, id)};
    } else {
        Fund = f16.F16_EkeySuchen(UserColumn::KeyId, id, true);
    }
}

void F5Schluessel::EKey_Anlernen() {
    std::string id = Dezimal(link, RpEKey::Id.Offset, RpEKey::Id.Width, " : ");
    std::string data = Dezimal(link, RpEKey::IdData.Offset, RpEKey::IdData.Width, " : ");
    const Wiper wipeId(id);
    const Wiper wipeData(data);
    Eintragen(id, data, Line::KeyAssigned);
}

void F5Schluessel::Eintragen(const std::string& id, const std::string& data, int takenLine) {
    if (Zeile_Von(id) != 0) {
        Melden(takenLine);
        return;
    }
    const int row = F5Zeile_Finden(f5, asked_.Zeile);
    if (row == 0) {
        kern.Meldung(Wort(kern, Word::KeyRowChanged), Buttons::Ok, Icon::Exclamation);
        return;
    }
    bool written = false;
    f5.Aendern(Word::StepLearn, [&] {
        f5.FGK4.SetText(row, UserColumn::KeyId, id);
        f5.FGK4.SetText(row, UserColumn::KeyData, data);
        written = Key_Kanal_Bestaetigen(kern, f5.FGK4, row);
        Kanal_Bleibt(written);
    });
    Kanal_Melden(written);
}

// ---- Transponders

void F5Schluessel::Transponder_Fragen(bool search) {
    const auto wanted = Bereitmachen(&AdapterListe::EnrollmentPort);
    if (!wanted) {
        return;
    }
    asked_ = *wanted;
    search_ = search;
    link.Lauf.KeyMode = search ? Search : Learn; // by which a refusal is told
    link.AnswerWithdrawn = 0;
    Fund = {};
    waited_ = 0;
    f5.Fenster.Enabled = false;
    Wache.Start(1000);
    if (!TelFingerAbfrage_Senden(link, link.TelegrammParam1, link.TelegrammParam2)) {
        Warten_Beenden();
        Leser_Stumm(kern);
    }
}

void F5Schluessel::Warten_Beenden() {
    if (!Wartet()) {
        return;
    }
    Wache.Stop();
    Leser_Zurueckziehen(link, TelFingerAbfrage::Telegram.Code);
    f5.Fenster.Enabled = true;
}

void F5Schluessel::Nachsehen() {
    ++waited_;
    const bool pulled = Leser_Weg(kern, Adapter, asked_.Stand);
    if (pulled || waited_ >= Geduld) {
        Warten_Beenden();
        if (pulled) {
            Leser_Getrennt(kern);
        } else {
            kern.Meldung(Wort(kern, Word::ReaderSilent), Buttons::Ok, Icon::Exclamation);
        }
    }
}

void F5Schluessel::Leser_Fertig() {
    Warten_Beenden();
}

void F5Schluessel::Finger_Kennung() {
    Empfang_Vergessen(link);
    const bool wanted = Wartet() && f5.Fenster.Visible;
    Warten_Beenden();
    constexpr std::size_t whole = RpFingerKennung::IdData.Offset + RpFingerKennung::IdData.Width;
    if (!wanted) {
        return;
    }
    if (link.RxFrame().size() < whole) {
        Melden(search_ ? Line::KeyNotFound : Line::KeyNotLearned);
        return;
    }
    const std::uint8_t slot = link.RxByte(RpFingerKennung::Slot.Offset);
    std::string id =
        Dezimal(link, RpFingerKennung::Id.Offset, RpFingerKennung::Id.Width, ":", "#" + Ziffern(slot) + "-ID#");
    std::string data = Dezimal(link, RpFingerKennung::IdData.Offset, RpFingerKennung::IdData.Width, ":");
    const Wiper wipeId(id);
    const Wiper wipeData(data);
    if (search_) {
        Transponder_Suchen(id);
    } else if (slot >= FirstUsedSlot) {
        Slot_Freigeben(slot);
    } else {
        Eintragen(id, data, Line::TransponderAssigned);
    }
}

void F5Schluessel::Slot_Freigeben(std::uint8_t slot) {
    if (kern.Meldung(kern.Zeile(Line::SlotInUse), Buttons::YesNo, Icon::Question, kern.Zeile(Line::UserManagement)) !=
        Answer::Yes) {
        return;
    }
    if (Leser_Weg(kern, Adapter, asked_.Stand)) {
        Leser_Getrennt(kern);
    } else if (!TelFingerLoeschen_Senden(link, slot)) {
        Leser_Stumm(kern);
    }
}

void F5Schluessel::Transponder_Suchen(std::string_view id) {
    Fund = {.Row = Zeile_Von(id)};
    f5.Treffer_Zeigen(Fund.Row, UserColumn::KeyId, TransponderGround);
    if (Fund.Row != 0) {
        f5.Auswahl.Go(Fund.Row, UserColumn::KeyId);
        f5.Treffer_Melden(Fund.Row);
    } else {
        Melden(Line::KeyNotFound);
    }
}

// ---- Cut and paste

void F5Schluessel::key_ausschneiden_Click() {
    const int row = f5.MenuRow;
    if (row < UserGrid::FirstRow || Trim(f5.FGK4.Text(row, UserColumn::KeyId)).empty()) {
        return;
    }
    const std::optional<KeyKanal> channel = Key_Kanal_Lesen(kern, row);
    if (!channel) {
        const FileTrouble trouble{.File = std::string(ChannelRecord::Record.File),
                                  .Fault = Lesefehler(kern.Welt.Files)};
        kern.Meldung(Wort(kern, Word::KeyNotCut, {Dateimaengel_Text(kern, {&trouble, 1})}), Buttons::Ok,
                     Icon::Exclamation);
        return;
    }
    Ausgeschnittenes_Vergessen();
    cut_.emplace();
    cut_->Id = f5.FGK4.Text(row, UserColumn::KeyId);
    cut_->Data = f5.FGK4.Text(row, UserColumn::KeyData);
    cut_->Channel = *channel;
    f5.Aendern(Word::StepCut, [&] {
        f5.FGK4.SetText(row, UserColumn::KeyId, "");
        f5.FGK4.SetText(row, UserColumn::KeyData, "");
    });
}

void F5Schluessel::Ausgeschnittenes_Vergessen() {
    if (cut_) {
        Vergessen(cut_->Id);
        Vergessen(cut_->Data);
        cut_.reset();
    }
}

void F5Schluessel::key_einfuegen_Click() {
    const int row = f5.MenuRow;
    if (!cut_ || row < UserGrid::FirstRow || row > UserGrid::LastRow) {
        return;
    }
    // An undo may have brought it back to where it was.
    if (const int holder = Zeile_Von(cut_->Id); holder != 0 && holder != row) {
        Melden(cut_->Id.starts_with('#') ? Line::TransponderAssigned : Line::KeyAssigned);
        return;
    }
    bool written = false;
    f5.Aendern(Word::StepPaste, [&] {
        f5.FGK4.SetText(row, UserColumn::KeyId, cut_->Id);
        f5.FGK4.SetText(row, UserColumn::KeyData, cut_->Data);
        written = Key_Kanal_Einfuegen(kern, f5.FGK4, row, cut_->Channel);
        Kanal_Bleibt(written);
    });
    Ausgeschnittenes_Vergessen();
    Kanal_Melden(written);
}

} // namespace qvm
