// Writing and reading a card.

#include "AdapterScan.h"
#include "AntwortLayouts.h"
#include "F60.h"
#include "SeriellesProtokoll.h"
#include "TelegrammeUnit.h"

#include <algorithm>
#include <utility>

namespace qvm {
namespace {

/// Sub-codes of the answer to a written part.
namespace CardAnswer {
constexpr std::uint8_t Second = 1, Third = 2, Written = 0xD1, NotWritten = 0xD2, Refused = 0xD3, Faulty = 0xD4,
                       UserWindow = 0xDC;
}
constexpr std::uint8_t NoCard = 0x6A;
constexpr int BatteryDue = 3;
constexpr int LengthIndex = 1;
constexpr std::string_view BeforeFault = "      ";

bool Karte_Faellig(const Link& link) {
    const std::uint8_t due = link.AnswerDue;
    return due == TelKarteSchreiben::Telegram.Code || due == TelKarteStart::Telegram.Code ||
           due == TelKarteLesen::Telegram.Code;
}

} // namespace

GastKarte F60::Karte() const {
    KartenAuftrag order;
    for (int row = FirstRow; row <= LastRow; ++row) {
        order.Tueren.push_back({FGK60.Text(row, CardColumn::Mark), FGK60.Text(row, CardColumn::Serial),
                                FGK60.Text(row, CardColumn::OffsetId), FGK60.Text(row, CardColumn::Room)});
    }
    order.Offsets = offsets_;
    order.Standard = standard_;
    order.CheckIn = CheckIn;
    order.CheckOut = CheckOut;
    order.Zeiten = {Text1.Text(), Text2.Text()};
    order.Objekt = Objekt;
    order.Gruppe = static_cast<std::uint8_t>(std::clamp(std::min(List1.Selected(), GruppenNr), 0, Groups - 1));
    order.SlotMaske = slotMask_;
    order.Tag = Tage_Seit_2000(kern.Welt.Now());
    return Karte_Bauen(order);
}

void F60::Command2_Click() {
    if (Wartet()) {
        return;
    }
    bool single = false;
    for (int row = FirstRow; row <= LastRow; ++row) {
        single = single || FGK60.Text(row, CardColumn::Mark) == DoorMark::Single;
    }
    if (!single) {
        Ergebnis = KartenErgebnis::Ohne_Tuer;
        kern.Meldung(kern.Zeile(Line::MarkOneDoor), Buttons::Ok, Icon::Exclamation);
        return;
    }
    if (!Gelesen()) {
        Ergebnis = KartenErgebnis::Ungelesen;
        return;
    }
    Hinweis.Text = std::string();
    Label12.Visible = true;
    card_ = Karte();
    if (card_.OhneRaum) {
        Ergebnis = KartenErgebnis::Ohne_Raum;
        const int row = FirstRow + static_cast<int>(*card_.OhneRaum);
        kern.Meldung(kern.Zeile(Line::TheDoor) + "  [  " + FGK60.Text(row, CardColumn::Name) +
                         "  /  Sn:   " + FGK60.Text(row, CardColumn::Serial) + "  ]  " + kern.Zeile(Line::HasNoRoom),
                     Buttons::Ok, Icon::Exclamation);
        return;
    }
    if (Port_Bereit()) {
        part_ = 1;
        Warten(TelKarteSchreiben_Senden(link, card_.Kopf(), std::span(card_.TuerBytes).first(5), card_.Betriebsart));
    }
}

void F60::Command4_Click() {
    if (Wartet()) {
        return;
    }
    Hinweis.Text = std::string();
    Label12.Visible = true;
    Lesung = {};
    part_ = 0;
    if (Port_Bereit()) {
        Block_Anfordern(0);
    }
}

// ---- the exchange

/// The enrolment adapter's port, or the one of any adapter where there is none.
bool F60::Port_Bereit() {
    Ergebnis = KartenErgebnis::Offen;
    Fenster.Enabled = false; // a search lets events go on
    const bool ready = Adapter_Port_Oeffnen(link, Adapter, &AdapterListe::EnrollmentPort);
    Fenster.Enabled = true;
    if (!ready) {
        Enden(KartenErgebnis::Ohne_Adapter);
        kern.Meldung(kern.Zeile(Line::NoSuitableAdapter), Buttons::Ok, Icon::Exclamation);
        return false;
    }
    stand_ = Adapter.Stand;
    link.AnswerWithdrawn = 0;
    return true;
}

void F60::Warten(bool sent) {
    if (!sent) {
        Enden(KartenErgebnis::Ohne_Adapter);
        kern.Meldung(kern.Zeile(Line::PortNotOpened), Buttons::Ok, Icon::Exclamation);
        return;
    }
    waited_ = 0;
    Command2.Enabled = false;
    Command4.Enabled = false;
    Wache.Start();
}

/// Nothing is awaited any more; what still comes is nobody's.
void F60::Enden(KartenErgebnis result) {
    Wache.Stop();
    if (Karte_Faellig(link)) {
        link.AnswerDue = 0;
    }
    Ergebnis = result;
    Label12.Visible = false;
    Command2.Enabled = true;
    Command4.Enabled = true;
}

void F60::Nachsehen() {
    waited_ += LookMs;
    if (!kern.Welt.Port.IsOpen() || Adapter.Stand != stand_) {
        Enden(KartenErgebnis::Getrennt);
        kern.Meldung(Wort(kern, Word::AdapterPulled), Buttons::Ok, Icon::Exclamation);
    } else if (waited_ >= Geduld || !Karte_Faellig(link)) {
        Enden(KartenErgebnis::Stumm);
        kern.Meldung(Wort(kern, Word::ReaderSilent), Buttons::Ok, Icon::Exclamation);
    }
}

void F60::Folge_Senden(const GastKarte::Folge& part) {
    Warten(TelKarteFolge_Senden(link, part.Head, part.Bytes, part.Rows));
}

void F60::Karte_Quittung() {
    if (!Wartet()) {
        return;
    }
    const std::uint8_t code = link.RxByte(RpKarte::SubCode.Offset);
    const bool asksForMore = code == CardAnswer::Second || code == CardAnswer::Third;
    if (asksForMore && code < part_) {
        link.AnswerDue = TelKarteSchreiben::Telegram.Code; // an answer that came twice; the next one is still due
        return;
    }
    if (asksForMore && code == part_ && part_ < card_.Telegramme()) {
        ++part_;
        Folge_Senden(code == CardAnswer::Second ? card_.Zweites() : card_.Drittes());
        return;
    }
    Enden(code == CardAnswer::Written ? KartenErgebnis::Geschrieben : KartenErgebnis::Abgelehnt);
    switch (code) {
    case CardAnswer::Written:
        Geschrieben();
        break;
    case CardAnswer::NotWritten:
        kern.Meldung(kern.Zeile(Line::CardNotWritten), Buttons::Ok, Icon::Exclamation);
        break;
    case CardAnswer::Refused:
        kern.Meldung(kern.Zeile(Line::CardRefused), Buttons::Ok, Icon::Exclamation);
        break;
    case CardAnswer::Faulty:
        kern.Meldung(kern.Zeile(Line::CardError), Buttons::Ok, Icon::Exclamation);
        break;
    case CardAnswer::UserWindow:
        if (Zu_F5) {
            Zu_F5();
        }
        break;
    default:
        kern.Meldung(Ziffern(code) + std::string(BeforeFault) + Fester_Text(kern, Word::CardFault), Buttons::Ok,
                     Icon::Exclamation);
        break;
    }
}

void F60::Geschrieben() {
    for (int row = FirstRow; row <= LastRow; ++row) {
        if (FGK60.Text(row, CardColumn::Mark) == DoorMark::Single) {
            Markieren(row, "");
        }
    }
    Schritte_Vergessen();
    Stand_Zeigen();
    kern.Meldung(kern.Zeile(Line::CardWritten), Buttons::Ok, Icon::Information);
}

void F60::Block_Anfordern(int block) {
    block_ = block;
    Warten(block == BatteryDue ? TelKarteStart_Senden(link)
                               : TelKarteLesen_Senden(link, static_cast<std::uint8_t>(block)));
}

void F60::Karte_Block() {
    if (!Wartet()) {
        return;
    }
    if (link.RxByte(LengthIndex) < RpKarteBlock::Reply.L) {
        Lesung_Abbrechen();
        return;
    }
    const int block = link.RxByte(RpKarteBlock::Block.Offset);
    if (block < block_) {
        link.AnswerDue = block_ == BatteryDue
                             ? TelKarteStart::Telegram.Code
                             : TelKarteLesen::Telegram.Code; // an answer that came twice; the next one is still due
        return;
    }
    if (block != block_ || block_ >= BatteryDue) {
        Lesung_Abbrechen();
        return;
    }
    const auto frame = link.RxFrame();
    constexpr std::size_t data = RpKarteBlock::Block.Offset + 1;
    if (frame.size() > data) {
        Lesung.Teile[static_cast<std::size_t>(block_)].assign(frame.begin() + data, frame.end());
    }
    Block_Anfordern(block_ + 1);
}

void F60::Lesung_Abbrechen() {
    Enden(KartenErgebnis::Abgelehnt);
    kern.Meldung(Wort(kern, Word::CardReadBroken), Buttons::Ok, Icon::Exclamation);
}

void F60::Karte_Start() {
    if (!Wartet()) {
        return;
    }
    if (link.RxByte(LengthIndex) < RpKarteStart::Reply.L) { // bytes that did not come would read as 0
        Lesung_Abbrechen();
        return;
    }
    for (std::size_t n = 0; n < Lesung.Batterie.size(); ++n) {
        Lesung.Batterie[n] = link.RxByte(RpKarteStart::Card.Offset + static_cast<int>(n));
    }
    Lesung.Fertig = true;
    Enden(KartenErgebnis::Gelesen);
    Lesung_Zeigen();
}

void F60::Karte_Abgelehnt() {
    if (!Wartet()) {
        return;
    }
    const std::uint8_t reason = link.RxByte(RpAblehnung::Reason.Offset);
    Enden(KartenErgebnis::Abgelehnt);
    if (reason != NoCard) {
        kern.Meldung(Ziffern(reason) + std::string(BeforeFault) + Fester_Text(kern, Word::CardFault), Buttons::Ok,
                     Icon::Exclamation);
    }
}

} // namespace qvm
