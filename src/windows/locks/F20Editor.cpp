// Mouse and keyboard on the grid of the units, its editors and its menus.

#include "Eingabe.h"
#include "F20.h"
#include "Filter.h"
#include "LinkHooks.h"
#include "Modelle.h"
#include "Seriennummer.h"
#include "Text.h"
#include "Words.h"

namespace qvm {
namespace {

constexpr std::string_view Class1 = "1", Class2 = "2", Refused = "0";

/// Class of the unit with this number; Refused where there is none.
std::string_view Modulklasse(std::int64_t number) {
    if (Unit_Klasse_1(number)) {
        return Class1;
    }
    return Unit_Klasse_2(number) ? Class2 : Refused;
}

/// The digits of a serial as one number; 0 without any.
std::int64_t Zahl_Der_Ziffern(std::string_view serial) {
    std::string digits;
    for (const char character : serial) {
        if (character != '.') {
            digits += character;
        }
    }
    const std::int64_t value = HexWert(digits);
    return value < 0 ? 0 : value;
}

Address Bytes(std::int64_t number) {
    Address bytes{};
    for (std::size_t n = 0; n < bytes.size(); ++n) {
        bytes[bytes.size() - 1 - n] = static_cast<std::uint8_t>(number >> (8 * n) & 0xFF);
    }
    return bytes;
}

} // namespace

void F20::FGK20_MouseUp(MouseButton button, int row, int column) {
    if (!Bedienbar() || !Editor_Uebernehmen() || row < FirstRow || !FGK20.Holds(row, column)) {
        return;
    }
    if (Auswahl.Larger() && Auswahl.Holds(row, column)) {
        Auswahl.Within(row, column);
    } else {
        Auswahl.Go(row, column);
    }
    Menue_Oeffnen(column, button);
}

bool F20::Menue_Oeffnen(int column, MouseButton button) {
    const bool serial = button == MouseButton::Left && column == UnitColumn::Serial;
    const bool name = button == MouseButton::Right && column == UnitColumn::Name;
    if ((serial || name) && Menue_Zeigen) {
        Menue_Zeigen(serial ? F20Menu::FGK20PopUP : F20Menu::F20_Loe);
    }
    return serial || name;
}

void F20::FGK20_Kontext() {
    if (Bedienbar() && FGK20.Row >= FirstRow && Editor_Uebernehmen()) {
        Menue_Oeffnen(FGK20.Column, FGK20.Column == UnitColumn::Serial ? MouseButton::Left : MouseButton::Right);
    }
}

void F20::FGK20_DblClick(int row, int column) {
    if (Bedienbar() && Editor_Uebernehmen() && row >= FirstRow && FGK20.Holds(row, column)) {
        Auswahl.Go(row, column);
        Editor_Oeffnen(Key::Enter);
    }
}

void F20::FGK20_KeyPress(int key) {
    if (!Bedienbar() || key == Key::Escape || key == Key::Tab || FGK20.Row < FirstRow || !Editor_Uebernehmen()) {
        return;
    }
    if (FGK20.Column == UnitColumn::Name || key == Key::Enter || ASCII_FILTER_F20(key) != 0) {
        Editor_Oeffnen(key);
    }
}

bool F20::Beschreibbar(int row, int column) const {
    return row >= FirstRow && row <= LastRow && (column == UnitColumn::Name || column == UnitColumn::Serial);
}

void F20::FGK20_Eintragen(int row, int column, std::string_view text) {
    if (!Bedienbar() || !Beschreibbar(row, column) || !Editor_Uebernehmen()) {
        return;
    }
    Auswahl.Go(row, column);
    Editor_Oeffnen(Key::Enter);
    if (column == UnitColumn::Serial) {
        Serie.Eintippen(text);
        Serie.Taste(SerialEntry::Count - 1, Key::Enter);
    } else {
        Text1_Change(text);
        Text1_KeyPress(Key::Enter);
    }
}

void F20::Editor_Oeffnen(int key) {
    if (!Beschreibbar(FGK20.Row, FGK20.Column)) {
        return;
    }
    if (FGK20.Column == UnitColumn::Name) {
        Text1_Oeffnen(key);
    } else {
        row_ = FGK20.Row;
        OpenColumn = UnitColumn::Serial;
        Serie.Oeffnen(key);
    }
}

void F20::Text1_Oeffnen(int key) {
    row_ = FGK20.Row;
    OpenColumn = UnitColumn::Name;
    oldText_ = FGK20.Text(row_, UnitColumn::Name);
    FGK20.SetText(row_, UnitColumn::Name, "");
    typed_ = Ist_Zeichen(key) ? std::string(1, static_cast<char>(static_cast<unsigned char>(key))) : oldText_;
    Text1.Text = typed_;
    Text1.Caret = static_cast<int>(typed_.size());
    Text1.Visible = true;
    if (!Ist_Zeichen(key)) {
        Rufen(Text1.SelectAll);
    }
}

void F20::Text1_Change(std::string_view text) {
    if (OpenColumn == UnitColumn::Name) {
        typed_ = Gefiltert(text, Jedes_Zeichen).substr(0, LongestName);
        Text1.Text = typed_;
    }
}

/// The name's cell was emptied for the time; it gets its old text back.
void F20::Editor_Schliessen() {
    if (OpenColumn == UnitColumn::Name) {
        FGK20.SetText(row_, UnitColumn::Name, oldText_);
    }
    OpenColumn = 0;
    Text1.Visible = false;
    Text1.Text = std::string();
    Serie.Schliessen();
}

bool F20::Editor_Uebernehmen() {
    if (OpenColumn == UnitColumn::Serial) {
        Serie_LostFocus();
    } else if (OpenColumn == UnitColumn::Name) {
        if (!Unit_Name_Frei(FGK20, row_, typed_)) {
            kern.Meldung(kern.Zeile(Line::NameExists), Buttons::Ok, Icon::Exclamation, InfoTitle);
            Rufen(Text1.SetFocus);
            return false;
        }
        const std::string name = typed_;
        Editor_Schliessen();
        Aendern(Word::StepEdit, [&] { FGK20.SetText(row_, UnitColumn::Name, name); });
    }
    return true;
}

void F20::Text1_KeyPress(int key) {
    if (OpenColumn != UnitColumn::Name) {
        return;
    }
    if (key == Key::Escape) {
        Editor_Schliessen();
        Auswahl.Go(row_, UnitColumn::Serial);
    } else if ((key == Key::Tab || key == Key::Enter) && Editor_Uebernehmen()) {
        Auswahl.Go(row_, UnitColumn::Serial);
    }
}

void F20::Text1_LostFocus() {
    if (OpenColumn == UnitColumn::Name) {
        Editor_Uebernehmen();
    }
}

void F20::Serie_Schreiben(int row, const std::string& serial) {
    Editor_Schliessen();
    const std::int64_t number = Zahl_Der_Ziffern(serial);
    const std::string_view module = Modulklasse(number);
    Aendern(Word::StepEdit, [&] {
        FGK20.SetText(row, UnitColumn::Serial, module == Refused ? std::string() : Serie_Text(Bytes(number)));
        FGK20.SetText(row, UnitColumn::Module, module);
    });
    Klasse_Pruefen(row, module);
}

bool F20::Unit_Uebernehmen(int row, std::string_view serial, std::string_view unitNo) {
    const std::int64_t number = Zahl_Der_Ziffern(serial);
    const std::string_view module = Modulklasse(number);
    const bool refused = module == Refused;
    Aendern(Word::StepScan, [&] {
        FGK20.SetText(row, UnitColumn::Module, module);
        if (!refused) {
            FGK20.SetText(row, UnitColumn::Serial, Serie_Text(Bytes(number)));
            FGK20.SetText(row, UnitColumn::UnitNo, unitNo);
            heardOn_[FGK20.Text(row, UnitColumn::Serial)] = unitNo;
        }
    });
    Klasse_Pruefen(row, module);
    return !refused;
}

/// What follows a new serial number: the question for the code, or that it is none of a unit.
void F20::Klasse_Pruefen(int row, std::string_view module) {
    if (module == Refused) {
        kern.Meldung(Fester_Text(kern, Word::WrongModule), Buttons::Ok, Icon::Exclamation, InfoTitle);
    } else if (module == Class1 && Code_Aendern) {
        askedRow_ = row;
        askedSerial_ = FGK20.Text(row, UnitColumn::Serial);
        Timer1.Start(AskDelay);
    }
}

bool F20::Funk_Belegt() {
    if (moving_) {
        Hinweis.Text = Wort(kern, Word::UnitMoving);
    }
    return moving_;
}

void F20::Suche_Zeigen(int channel, const std::string& state) {
    scanning_ = true;
    Regler_Freigeben();
    Command2.Enabled = false;
    Hinweis.Text = std::string();
    F20Prg01.Value = channel;
    F20Prg01.Visible = true;
    Suchstand.Text = state;
}

void F20::Suche_Endet(const std::string& hint) {
    scanning_ = false;
    Regler_Freigeben();
    Command2.Enabled = true;
    F20Prg01.Visible = false;
    F20Prg01.Value = 0;
    Suchstand.Text = std::string();
    Hinweis.Text = hint;
}

void F20::Unit_Unterwegs() {
    moving_ = true;
    Hinweis.Text = Wort(kern, Word::UnitMoving);
}

void F20::Unit_Angekommen(std::string_view serial, int channel) {
    moving_ = false;
    Hinweis.Text = std::string();
    if (channel == 0) {
        return;
    }
    // Neither a step of undo nor a change to be accepted: the unit does not go back with it. Where the disk refuses,
    // the unit is looked for on its old channel first.
    Unit_Kanal_Merken(kern, Lock, serial, channel);
    heardOn_[std::string(serial)] = Ziffern(channel);
    Kanaele_Eintragen();
    Hinweis.Text = Wort(kern, Word::UnitMoved, {serial, Ziffern(channel)});
}

void F20::Kanaele_Eintragen() {
    for (int row = FirstRow; row <= LastRow; ++row) {
        const auto heard = heardOn_.find(FGK20.Text(row, UnitColumn::Serial));
        if (heard != heardOn_.end()) {
            FGK20.SetText(row, UnitColumn::UnitNo, heard->second);
        }
    }
}

void F20::Code_Fragen() {
    if (moving_ || !Bedienbar()) {
        return; // the timer comes again
    }
    Timer1.Stop();
    const bool there = FGK20.Text(askedRow_, UnitColumn::Serial) == askedSerial_;
    if (Fenster.Visible && there &&
        kern.Meldung(kern.Zeile(Line::SetUnitNow), Buttons::YesNo, Icon::Question, kern.Zeile(Line::RadioChannel)) ==
            Answer::Yes) {
        Code_Oeffnen(askedRow_);
    }
}

void F20::Code_Oeffnen(int row) {
    constexpr int channels = 12;
    const std::string& serial = FGK20.Text(row, UnitColumn::Serial);
    if (!Code_Aendern || serial.empty() || serial.front() == ' ' || serial.front() == '.' || Funk_Belegt()) {
        return;
    }
    const int channel = Zahlwert(FGK20.Text(row, UnitColumn::UnitNo));
    Fenster.Enabled = false;
    Code_Aendern(serial, channel >= 1 && channel <= channels ? channel : 1);
}

// ---- menus

void F20::F20_deleate_Click() {
    if (!Bedienbar() || !Editor_Uebernehmen()) {
        return;
    }
    const std::vector<int> rows = Auswahl.Rows();
    Aendern(Word::StepDelete, [&] {
        for (const int row : rows) {
            for (int column = UnitColumn::Name; column <= UnitColumn::UnitNo; ++column) {
                FGK20.SetText(row, column, "");
            }
        }
    });
}

void F20::SN_Msave_Click() {
    if (Bedienbar() && Editor_Uebernehmen()) {
        Auswahl.Go(FGK20.Row, UnitColumn::Serial);
        Editor_Oeffnen(Key::Enter);
    }
}

void F20::SN_Codechange_Click() {
    if (Bedienbar() && Editor_Uebernehmen() && FGK20.Row >= FirstRow) {
        Code_Oeffnen(FGK20.Row);
    }
}

void F20::F20_Keypad_Click() {
    if (Bedienbar() && !Funk_Belegt() && Editor_Uebernehmen() && FGK20.Row >= FirstRow && Keypad_Suchen) {
        Keypad_Suchen(FGK20.Row);
    }
}

void F20::F20_Readunit_Click() {
    if (Bedienbar() && !Funk_Belegt() && Editor_Uebernehmen() && FGK20.Row >= FirstRow && Readunit_Suchen) {
        Readunit_Suchen(FGK20.Row);
    }
}

} // namespace qvm
