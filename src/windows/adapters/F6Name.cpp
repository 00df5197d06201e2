// The editor of the name column, and the way of a new name to its adapter.

#include "AdapterScan.h"
#include "Adapterklasse.h"
#include "AntwortLayouts.h"
#include "F6.h"
#include "Pictures.h"
#include "SeriellesProtokoll.h"
#include "Words.h"

#include <algorithm>
#include <iterator>

namespace qvm {
namespace {

constexpr std::string_view InfoTitle = "INFO";

/// Seconds that the adapter has for its reply, and the words of TxBuffer that a name may touch.
constexpr double NameWait = 0.8;
constexpr int NameWords = 45;

bool Zeichen(int key) {
    return key >= ' ' && key <= 0xFF && key != Key::Delete;
}

/// The name in the reply is the one that was sent, up to what fills it up.
bool Name_Bestaetigt(const Link& link, std::string_view name) {
    for (int n = 0; n < RpAdapterName::AdapterName.Width; ++n) {
        const std::uint8_t byte = link.ReplyByte(RpAdapterName::AdapterName.Offset + n);
        const auto at = static_cast<std::size_t>(n);
        const bool equal = at < name.size() ? byte == static_cast<std::uint8_t>(name[at]) : byte == 0 || byte == ' ';
        if (!equal) {
            return false;
        }
    }
    return true;
}

} // namespace

void F6::FGK6_Click(int row, int column) {
    if (busy_) {
        return;
    }
    Editor_Uebernehmen();
    FGK6.Row = row;
    FGK6.Column = column;
    Editor_Oeffnen(row, FGK6.Text(row, F6Column::Name));
}

void F6::FGK6_KeyPress(int key) {
    if (busy_ || (key != Key::Enter && !Zeichen(key))) {
        return;
    }
    Editor_Uebernehmen();
    const int row = FGK6.Row;
    Editor_Oeffnen(row, key == Key::Enter ? FGK6.Text(row, F6Column::Name)
                                          : std::string(1, static_cast<char>(static_cast<unsigned char>(key))));
}

void F6::Editor_Oeffnen(int row, std::string_view text) {
    const bool stored = row >= 1 && row <= Records && !FGK6.Text(row, F6Column::Address).empty();
    if (!stored || FGK6.Column != F6Column::Name) {
        return;
    }
    editedRow_ = row;
    Text3.Text = std::string(text);
    Text3.Caret = static_cast<int>(text.size());
    Text3.Visible = true;
    if (Text3.SetFocus) {
        Text3.SetFocus();
    }
}

void F6::Editor_Schliessen() {
    editedRow_ = 0;
    Text3.Visible = false;
    Text3.Text = std::string();
}

void F6::Text3_Change(std::string_view text) {
    std::string kept;
    std::copy_if(text.begin(), text.end(), std::back_inserter(kept),
                 [](char c) { return Zeichen(static_cast<unsigned char>(c)); });
    Text3.Text = kept.substr(0, NameWidth);
}

void F6::Text3_KeyPress(int key) {
    if (key == Key::Tab || key == Key::Enter) {
        Editor_Uebernehmen();
    } else if (key == Key::Escape) {
        Editor_Schliessen();
    }
}

void F6::Text3_LostFocus() {
    Editor_Uebernehmen();
}

bool F6::Name_Vergeben(int row, std::string_view name) const {
    for (int other = 1; other <= Records; ++other) {
        if (other != row && !FGK6.Text(other, F6Column::Address).empty() && FGK6.Text(other, F6Column::Name) == name) {
            return true;
        }
    }
    return false;
}

void F6::Editor_Uebernehmen() {
    if (editedRow_ == 0) {
        return;
    }
    const int row = editedRow_;
    const std::string name(Trim(Text3.Text())); // as the file gives it back
    const std::string oldName = FGK6.Text(row, F6Column::Name);
    Editor_Schliessen();
    const bool due = FGK6.At(row, F6Column::Name).BackColor == ChangedName;
    if (name == oldName && !due) {
        return;
    }
    if (name.empty()) { // no search would find an adapter without a name
        kern.Meldung(Wort(kern, Word::AdapterNameMissing), Buttons::Ok, Icon::Exclamation, InfoTitle);
        return;
    }
    if (!Adaptername_Brauchbar(name)) {
        kern.Meldung(Wort(kern, Word::AdapterNameRefused), Buttons::Ok, Icon::Exclamation, InfoTitle);
        return;
    }
    if (Name_Vergeben(row, name)) {
        kern.Meldung(kern.Zeile(Line::EntryExists), Buttons::Ok, Icon::Exclamation, InfoTitle);
        return;
    }
    FGK6.SetText(row, F6Column::Name, name);
    if (Ist_Da(row)) {
        const bool written = Transmit_USB_WORD(row, name, oldName);
        dirty_ = dirty_ || written || FGK6.Text(row, F6Column::Name) != oldName;
    } else {
        dirty_ = true;
        kern.Meldung(kern.Zeile(Line::AdapterAbsent), Buttons::Ok, Icon::Exclamation, InfoTitle);
    }
}

bool F6::Transmit_USB_WORD(int row, std::string_view name, std::string_view oldName) {
    const int port = Zahlwert(FGK6.Text(row, F6Column::Port));
    if (port < 1 || port >= KeinPort) {
        return false;
    }
    const bool written = Name_Schreiben(port, name);
    if (written) {
        Zeile_Faerben(row, White);
        Adapter_Umbenennen(Adapter, FGK6.Text(row, F6Column::Address), name);
        Zustand_Setzen(row, Adaptername_Brauchbar(name) ? AdapterPicture::Present : AdapterPicture::Unusable);
        kern.Meldung(kern.Zeile(Line::NameSaved), Buttons::Ok, Icon::Information);
    } else {
        FGK6.SetText(row, F6Column::Name, oldName);
        kern.Meldung(kern.Zeile(Line::NameNotSaved), Buttons::Ok, Icon::Exclamation);
    }
    return written;
}

bool F6::Name_Schreiben(int port, std::string_view name) {
    constexpr AdapterAntwort reply{
        .Code = RpAdapterName::Reply.Code, .OtherCode = RpAdapterName::Reply.Code, .Shortest = RpAdapterName::Reply.L};
    const int portBefore = link.PortNummer;
    const int stand = Adapter.Stand;
    busy_ = true;
    bool written = false;
    if (Port_Oeffnen(link, port)) {
        std::fill_n(link.TxBuffer.begin() + 1, NameWords, std::uint16_t{0});
        link.Rx.Ruecksetzen();
        written = TelAdapterName_Senden(link, name) && Adapter_Antwort_Abwarten(link, NameWait, reply) &&
                  Name_Bestaetigt(link, name);
    }
    busy_ = false;
    if (link.PortNummer != portBefore && Adapter.Stand == stand) {
        Port_Oeffnen(link, portBefore);
    }
    return written;
}

} // namespace qvm
