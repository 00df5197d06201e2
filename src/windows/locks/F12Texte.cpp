// Words of the window: menus, headings, status line, tips.

#include "F12.h"
#include "F12_Laden.h"
#include "Schlossregeln.h"
#include "Seriennummer.h"
#include "UndoMenu.h"
#include "Worte.h"

#include <map>

namespace qvm {
namespace {

/// Names of columns 4 to 11, whose headings show a picture.
std::string Spaltenname(const Kern& kern, int column) {
    constexpr std::array names{Line::PersonGroups, Line::CalendarsReleased, Line::LockClockActive,
                               Line::TimeControl,  Line::ClockSetting,      Line::Priority};
    if (column == LockColumn::Emi) {
        return "EMI";
    }
    if (column == LockColumn::UnitType) {
        return kern.Zeile(Line::WirelessUnit);
    }
    return kern.Zeile(names[static_cast<std::size_t>(column - LockColumn::FirstSwitch)]);
}

bool Mit_Bild(int column) {
    return column >= LockColumn::FirstSwitch && column <= LockColumn::UnitType;
}

/// By which serial numbers are equal: letters in any case, written out or not.
std::string Serienkennung(const std::string& text) {
    const auto serial = Serie_Zerlegen(text);
    return serial ? Serie_Text(*serial) : GrossText(Trim(text));
}

} // namespace

void F12::Texte_Setzen() {
    Fenster.Title = Fenstertitel(kern.Zeile(Line::LockSettings));
    Label1.Text = Wort(kern, Line::LockSettings, u8"Einstellung Türschlösser"_w);
    F12_Ueberschriften(kern, Tabelle);
    Zellen_Uebersetzen();
    F12_Extras.Text = Wort(kern, Line::Extras, "Extras");
    F12_COURon.Text = Wort(kern, Word::CursorOn);
    F12_COURoff.Text = Wort(kern, Word::CursorOff);
    F12_Import.Text = Wort(kern, Word::SheetImport);
    Berichte.Texte_Setzen();
    F12_delete.Text = Wort(kern, Line::Delete, u8"Löschen"_w);
    SNA_save.Text = Wort(kern, Line::ReadSerial, "SNA autosave");
    SNA_Input.Text = Wort(kern, Line::EnterSerial, "SNA_manual_config");
    SNA_Function.Text = Wort(kern, Line::ManualConfiguration, "Manuelle_Configuration");
    SNA_save.Enabled = static_cast<bool>(Suche_Starten);
    SNA_Function.Enabled = static_cast<bool>(F20_Oeffnen);
    Toolbar1[0].Tip = kern.Zeile(Line::Back);
    Toolbar1[1].Tip = Wort(kern, Word::UsersExport);
    Toolbar1[2].Tip = kern.Zeile(Line::Save);
    Toolbar1[3].Tip = Wort(kern, Word::LocksClear);
    Toolbar1[4].Tip = Wort(kern, Word::LocksRenewDates);
    Stand_Zeigen();
    Schritte_Zeigen(kern, Verlauf, F12_Undo, F12_Redo);
}

F12::Zellworte F12::Worte_Der_Zellen() const {
    const auto type = [this](int line) { return std::string(Mid(kern.Zeile(line), 1, 3)); };
    return {.Door = {Tuermodus_Text(kern, "AA"), Tuermodus_Text(kern, "BB")},
            .Unit = {type(Line::UnitTA), type(Line::UnitAE), type(Line::UnitSTE)}};
}

/// A save tells the door mode by its word: one of another language would be lost.
void F12::Zellen_Uebersetzen() {
    const Zellworte now = Worte_Der_Zellen();
    if (now == cellWords_) {
        return;
    }
    const auto translate = [this](int column, const auto& from, const auto& to) {
        for (int row = LockGrid::FirstRow; row <= LockGrid::LastRow; ++row) {
            for (std::size_t n = 0; n < from.size(); ++n) {
                if (!from[n].empty() && FGK12.Text(row, column) == from[n]) {
                    FGK12.SetText(row, column, to[n]);
                    break;
                }
            }
        }
    };
    translate(LockColumn::DoorMode, cellWords_.Door, now.Door);
    translate(LockColumn::UnitType, cellWords_.Unit, now.Unit);
    cellWords_ = now;
    Verlauf.Forget();
}

void F12::Stand_Zeigen() {
    int locks = 0;
    bool named = false;
    for (int row = LockGrid::FirstRow; row <= LockGrid::LastRow; ++row) {
        named = named || !Trim(FGK12.Text(row, LockColumn::Name)).empty();
        const bool used = !FGK12.Text(row, LockColumn::Name).empty() || !FGK12.Text(row, LockColumn::Serial).empty();
        locks += used ? 1 : 0;
    }
    Schlosszahl.Text = Wort(kern, Word::LockCount, {Ziffern(locks), Ziffern(LockGrid::LastRow - locks)});
    Berichte.Freigeben(ReportKind::People, named);
    Berichte.Freigeben(ReportKind::Persons,
                       FGK12.Row >= LockGrid::FirstRow && !Trim(FGK12.Text(FGK12.Row, LockColumn::Name)).empty());
    const std::string others = Andere(FGK12.Row);
    Doppelt.Text = others.empty() ? std::string() : Wort(kern, Word::SerialTwice, {others});
}

/// The other locks with the serial number of this one, by number and name.
std::string F12::Andere(int row) const {
    std::string others;
    if (row < LockGrid::FirstRow || static_cast<std::size_t>(row) >= others_.size()) {
        return others;
    }
    for (const int other : others_[static_cast<std::size_t>(row)]) {
        others += (others.empty() ? "" : ", ") +
                  Wort(kern, Word::LockLine, {Ziffern(other), FGK12.Text(other, LockColumn::Name)});
    }
    return others;
}

void F12::Doppelte_Suchen() {
    std::map<std::string, std::vector<int>> rows;
    for (int row = LockGrid::FirstRow; row <= LockGrid::LastRow; ++row) {
        const std::string& text = FGK12.Text(row, LockColumn::Serial);
        if (!Trim(text).empty()) {
            rows[Serienkennung(text)].push_back(row);
        }
    }
    others_.assign(LockGrid::Rows, {});
    for (const auto& [serial, same] : rows) {
        for (const int row : same) {
            std::vector<int>& others = others_[static_cast<std::size_t>(row)];
            others = same;
            std::erase(others, row);
        }
    }
    for (int row = LockGrid::FirstRow; row <= LockGrid::LastRow; ++row) {
        const bool twice = !others_[static_cast<std::size_t>(row)].empty();
        FGK12.SetPicture(row, LockColumn::Number, twice ? LockPicture::Twice : LockPicture::None);
        FGK12.SetBackColor(row, LockColumn::Serial, twice ? LockLook::SerialTwice : White);
    }
}

std::string F12::Tip(int row, int column) const {
    if (row == 0) {
        return Mit_Bild(column) ? Spaltenname(kern, column) : std::string();
    }
    if (column != LockColumn::Number && column != LockColumn::Serial) {
        return {};
    }
    const std::string others = Andere(row);
    return others.empty() ? std::string() : Wort(kern, Word::SerialTwice, {others});
}

std::string F12::Bildtext(int picture) const {
    switch (picture) {
    case LockPicture::On:
        return Wort(kern, Word::SwitchOn);
    case LockPicture::Off:
        return Wort(kern, Word::SwitchOff);
    case LockPicture::NotApplicable:
        return Wort(kern, Word::SwitchNotApplicable);
    default:
        return {};
    }
}

int F12::Breite(int column) const {
    constexpr std::array<int, LockGrid::Columns> widths{600, 3100, 2400, 0,    650, 650,  650, 650,  650, 650,
                                                        650, 650,  3400, 3400, 0,   3400, 0,   3400, 0};
    if (column < 0 || column >= LockGrid::Columns || (column == LockColumn::AdapterId && !Tabelle.AdapterSpalten)) {
        return 0;
    }
    return widths[static_cast<std::size_t>(column)];
}

} // namespace qvm
