// Words of the window: menus, headings, status line, tips.

#include "F5.h"
#include "F5_Laden.h"
#include "TextSlots.h"
#include "UndoMenu.h"
#include "Worte.h"

namespace qvm {
namespace {

struct Menuetext {
    std::string_view Where;
    MenuEntry F5::*Entry;
    std::string_view Design;
};

constexpr std::array<Menuetext, 13> Entries{{
    {"F5.Delete", &F5::F5_Loeschen, u8"Löschen"_w},
    {"F5.key_anlernen", &F5::key_anlernen, "anlernen"},
    {"F5.Key_loeschen", &F5::Key_loeschen, u8"löschen"_w},
    {"F5.key_ausschneiden", &F5::key_ausschneiden, "Ausschneiden"},
    {"F5.key_einfuegen", &F5::key_einfuegen, u8"Einfügen"_w},
    {"F5.key_suchen", &F5::key_suchen, "Suchen"},
    {"F5.key_synchron", &F5::key_synchron, "E-Key synchronisieren"},
    {"F5.F5_Extras", &F5::F5_Extras, "Extras"},
    {"F5.F5_Markierung", &F5::F5_Markierung, "Markierung"},
    {"F5.F5_M5ON", &F5::F5_M5ON, "Ein"},
    {"F5.F5_M5_OFF", &F5::F5_M5_OFF, "Aus"},
    {"F5.F5_Sort", &F5::F5_Sort, "Sortieren"},
    {"F5.F5_Search", &F5::F5_Search, "Suchen"},
}};

int Zeile_Fuer(std::string_view where) {
    for (const TextSlot& slot : TextSlots) {
        if (slot.Where == where) {
            return slot.Line;
        }
    }
    return 0;
}

bool Gesetzt(const Grid& grid, int row, int column) {
    const std::string& text = grid.Text(row, column);
    return text == "X" || text == "F";
}

int Marken_Der_Zeile(const Grid& grid, int row) {
    int marks = 0;
    for (int lock = 1; lock <= UserGrid::Locks; ++lock) {
        marks += Gesetzt(grid, row, UserGrid::ColumnOf(lock)) ? 1 : 0;
    }
    return marks;
}

int Marken_Der_Spalte(const Grid& grid, int column) {
    int marks = 0;
    for (int row = UserGrid::FirstRow; row <= UserGrid::LastRow; ++row) {
        marks += Gesetzt(grid, row, column) ? 1 : 0;
    }
    return marks;
}

int Benutzer_Zaehlen(const Grid& grid) {
    int users = 0;
    for (int row = UserGrid::FirstRow; row <= UserGrid::LastRow; ++row) {
        users += grid.Text(row, UserColumn::Name).empty() ? 0 : 1;
    }
    return users;
}

} // namespace

void F5::Texte_Setzen() {
    Fenster.Title = std::string(SystemTitle);
    Label1.Text = Wort(kern, Line::UserManagement, "Benutzerverwaltung");
    Menues_Beschriften();
    Ueberschriften_Setzen();
    Toolbar1[0].Tip = kern.Zeile(Line::Back);
    Toolbar1[1].Tip = kern.Zeile(Line::Sort);
    Toolbar1[2].Tip = kern.Zeile(Line::Search);
    Toolbar1[3].Tip = Wort(kern, Word::UsersClear);
    Toolbar1[4].Tip = Wort(kern, Word::UsersExport);
    Toolbar1[5].Tip = kern.Zeile(Line::Save);
    Stand_Zeigen();
    Verlauf_Zeigen();
}

void F5::Menues_Beschriften() {
    for (const Menuetext& text : Entries) {
        (this->*text.Entry).Text = Wort(kern, Zeile_Fuer(text.Where), text.Design);
    }
    F5_Import.Text = Wort(kern, Word::SheetImport);
    Berichte.Texte_Setzen();
    Save_Ekey.Text = Wort(kern, Word::LearnEKey);
    Save_RFID.Text = Wort(kern, Word::LearnTransponder);
    Search_Ekey.Text = Wort(kern, Word::SearchEKey);
    Search_RFID.Text = Wort(kern, Word::SearchTransponder);
    FS_anerlen.Text = Wort(kern, Word::FingerLearn);
    FS_loeschen.Text = Wort(kern, Word::FingerRemove);
    F5_FSpremium.Text = Wort(kern, Word::FingerPremium);
    F5_FSstandard.Text = Wort(kern, Word::FingerStandard);
}

void F5::Ueberschriften_Setzen() {
    constexpr std::array<int, 7> headings{Line::Number, Line::Name,        Line::TimerGroup, Line::Right,
                                          Line::Code,   Line::Designation, Line::KeyColumn};
    for (int column = 0; column < static_cast<int>(headings.size()); ++column) {
        FGK4.SetText(1, column, kern.Zeile(headings[static_cast<std::size_t>(column)]));
    }
    FGK4.SetText(1, UserColumn::Finger, "FS");
    for (int lock = 1; lock <= UserGrid::Locks; ++lock) {
        FGK4.SetText(1, UserGrid::ColumnOf(lock), Ziffern(lock));
    }
    for (int row = UserGrid::FirstRow; row <= UserGrid::LastRow; ++row) {
        FGK4.SetText(row, UserColumn::Number, Ziffern(row - 1));
    }
}

void F5::Stand_Zeigen() {
    const int users = Benutzer_Zaehlen(FGK4);
    Benutzerzahl.Text = Wort(kern, Word::UserCount, {Ziffern(users), Ziffern(UserGrid::Users - users)});
    const std::string& name = FGK4.Text(FGK4.Row, UserColumn::Name);
    const bool chosen = FGK4.Row >= UserGrid::FirstRow && !Trim(name).empty();
    Berichte.Freigeben(ReportKind::People, users > 0);
    Berichte.Freigeben(ReportKind::Doors, chosen);
    Berichte.Freigeben(ReportKind::Receipt, chosen);
    Benutzermarken.Text = FGK4.Row < UserGrid::FirstRow || name.empty()
                              ? std::string()
                              : Wort(kern, Word::UserMarks, {name, Ziffern(Marken_Der_Zeile(FGK4, FGK4.Row))});
    const std::string lock = UserGrid::IsLock(FGK4.Column) ? Schlossname(FGK4, FGK4.Column) : std::string();
    Schlossmarken.Text = lock.empty()
                             ? std::string()
                             : Wort(kern, Word::LockMarks, {lock, Ziffern(Marken_Der_Spalte(FGK4, FGK4.Column))});
}

void F5::Verlauf_Zeigen() {
    Schritte_Zeigen(kern, Verlauf, F5_Undo, F5_Redo);
}

std::string F5::Markentip(int row, int column) const {
    if (FGK4.Text(0, column).empty()) {
        return {};
    }
    const std::string& mark = FGK4.Text(row, column);
    const Word meaning = mark == "X" ? Word::MarkAccess : mark == "F" ? Word::MarkFinger : Word::MarkNoAccess;
    return Wort(kern, Word::MarkTip,
                {FGK4.Text(row, UserColumn::Name), Schlossname(FGK4, column), Wort(kern, meaning)});
}

std::string F5::Tip(int row, int column) const {
    if (row < UserGrid::FirstRow || FGK4.Text(row, UserColumn::Name).empty()) {
        return {};
    }
    const Cell& cell = FGK4.At(row, column);
    if (column == UserColumn::Finger) {
        return Fingertext(cell.Picture);
    }
    if (column == UserColumn::KeyId && cell.ForeColor == UserLook::KeyOutOfStep && !cell.Text.empty()) {
        return Wort(kern, Word::KeyOutOfStep);
    }
    return UserGrid::IsLock(column) ? Markentip(row, column) : std::string();
}

std::string F5::Fingertext(int picture) const {
    switch (picture) {
    case FingerPicture::None:
        return Wort(kern, Word::FingerNone);
    case FingerPicture::Standard:
        return Wort(kern, Word::FingerStored);
    case FingerPicture::Premium:
        return Wort(kern, Word::FingerStoredPremium);
    case FingerPicture::Off:
        return Wort(kern, Word::FingerUnused);
    default:
        return {};
    }
}

int F5::Breite(int column) {
    constexpr std::array<int, 8> widths{450, 2000, 1600, 800, 1000, 2000, 1800, 800};
    constexpr int lock = 450;
    if (column >= 0 && column < static_cast<int>(widths.size())) {
        return widths[static_cast<std::size_t>(column)];
    }
    return UserGrid::IsLock(column) ? lock : 0;
}

int F5::Kopfhoehe() const {
    return F5_KopfHoehe(Tabelle);
}

} // namespace qvm
