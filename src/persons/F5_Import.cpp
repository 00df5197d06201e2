#include "F5_Import.h"

#include "Benutzerzelle.h"
#include "Blattwunsch.h"
#include "CsvLesen.h"
#include "Eingabe.h"
#include "F5_Laden.h"
#include "F5_Marken.h"
#include "Filter.h"
#include "Kern.h"
#include "Text.h"

#include <algorithm>
#include <array>
#include <map>
#include <set>
#include <utility>

namespace qvm {
namespace {

constexpr std::string_view FingerSlot = "Slot_Nr:"; ///< so begins the designation of a fingerprint, which nobody types
constexpr std::array KeyColumns{UserColumn::Number, UserColumn::Name};

/// Name by which a row of a sheet and one of the table are the same.
std::string Namensschluessel(std::string_view name) {
    return Csv_Wert(Ohne_Zeilenenden(name));
}

bool Frei(const Grid& users, int row) {
    for (const int column :
         {UserColumn::Name, UserColumn::Code, UserColumn::KeyLabel, UserColumn::KeyId, UserColumn::FingerId}) {
        if (!Trim(users.Text(row, column)).empty()) {
            return false;
        }
    }
    return true;
}

std::optional<Word> Namensmangel(const Blattzeile& line, const std::string& name) {
    if (line.Unfit.contains(UserColumn::Name)) {
        return Word::SheetNotInCodePage;
    }
    if (name.empty()) {
        return Word::SheetNeeded;
    }
    return Eingabe_Mangel(name, Name_Filter, UserRecord::UserName.Width);
}

/// Finds for each row of the sheet the user whose row it is.
class Zuordner {
public:
    Zuordner(const Grid& users, const Blatt& sheet, Blattschreiber& writer)
        : users_(users), sheet_(sheet), writer_(writer) {
        for (int row = UserGrid::FirstRow; row <= UserGrid::LastRow; ++row) {
            if (const std::string name = Namensschluessel(users.Text(row, UserColumn::Name)); !name.empty()) {
                named_[name].push_back(row);
            }
        }
    }

    std::vector<Blattwunsch> Alle() {
        // Those with a number first: a new user gets no row that another line asks for.
        for (const Blattzeile& line : sheet_.Rows) {
            if (const int number = Blattnummer(line.Feldtext(UserColumn::Number), UserGrid::Users); number > 0) {
                numbered_.insert(UserGrid::RowOf(number));
            }
        }
        for (const Blattzeile& line : sheet_.Rows) {
            Zeile(line);
        }
        // So that a user is new before the one below is.
        std::stable_sort(wishes_.begin(), wishes_.end(),
                         [](const Blattwunsch& a, const Blattwunsch& b) { return a.Row < b.Row; });
        return std::move(wishes_);
    }

private:
    void Zeile(const Blattzeile& line) {
        const std::string name = Namensschluessel(line.Feldtext(UserColumn::Name));
        const std::string number = line.Feldtext(UserColumn::Number);
        if (!Trim(number).empty()) {
            Nach_Nummer(line, name, Blattnummer(number, UserGrid::Users));
        } else if (!name.empty()) {
            Nach_Name(line, name);
        }
    }

    void Nach_Nummer(const Blattzeile& line, const std::string& name, int number) {
        const int row = number == 0 ? 0 : UserGrid::RowOf(number);
        const bool empty = row != 0 && name.empty() && Trim(users_.Text(row, UserColumn::Name)).empty();
        if (empty) {
            return;
        }
        if (row == 0 || !taken_.insert(row).second) {
            writer_.Zeile_Ablehnen(line, name, row == 0 ? Word::SheetNoNumber : Word::SheetRowTwice);
            return;
        }
        wishes_.push_back({.Line = &line, .Row = row, .Added = Trim(users_.Text(row, UserColumn::Name)).empty()});
    }

    void Nach_Name(const Blattzeile& line, const std::string& name) {
        for (const int row : named_[name]) {
            if (!numbered_.contains(row) && taken_.insert(row).second) {
                wishes_.push_back({.Line = &line, .Row = row, .Added = false});
                return;
            }
        }
        if (!named_[name].empty() || !new_.insert(name).second) {
            writer_.Zeile_Ablehnen(line, name, Word::SheetRowTwice);
            return;
        }
        if (const auto why = Namensmangel(line, name)) {
            writer_.Wer(name);
            writer_.Ablehnen({.Line = &line, .Row = 0, .Added = true}, UserColumn::Name, *why);
            return; // no row is kept free for it
        }
        for (int row = UserGrid::FirstRow; row <= UserGrid::LastRow; ++row) {
            if (Frei(users_, row) && !numbered_.contains(row) && taken_.insert(row).second) {
                wishes_.push_back({.Line = &line, .Row = row, .Added = true});
                return;
            }
        }
        writer_.Zeile_Ablehnen(line, name, Word::SheetNoRoom);
    }

    const Grid& users_;
    const Blatt& sheet_;
    Blattschreiber& writer_;
    std::map<std::string, std::vector<int>> named_;
    std::set<int> numbered_, taken_;
    std::set<std::string> new_;
    std::vector<Blattwunsch> wishes_;
};

/// Looks at the cells of the rows that were found.
class Benutzerplaner {
public:
    Benutzerplaner(const UserTable& table, const Blatt& sheet, Blattplan& plan)
        : table_(table), users_(table.FGK4), sheet_(sheet), plan_(plan), writer_(plan, sheet) {}

    void Planen() {
        wishes_ = Zuordner(users_, sheet_, writer_).Alle();
        const std::set<std::size_t> names = Doppelte(UserColumn::Name);
        const std::set<std::size_t> labels = Doppelte(UserColumn::KeyLabel);
        named_ = sheet_.Above.Line > 0 && std::any_of(sheet_.Above.Fields.begin(), sheet_.Above.Fields.end(),
                                                      [](const auto& field) { return !Trim(field.second).empty(); });
        for (std::size_t n = 0; n < wishes_.size(); ++n) {
            Zeile(wishes_[n], names.contains(n), labels.contains(n));
        }
        Fehlende();
    }

private:
    std::set<std::size_t> Doppelte(int column) const {
        std::vector<Blatttext> texts;
        for (std::size_t n = 0; n < wishes_.size(); ++n) {
            const Blattwunsch& wish = wishes_[n];
            const std::string* field = wish.Feld(column);
            if (field == nullptr || Blattfeld_Gleich(*field, users_.Text(wish.Row, column))) {
                continue;
            }
            // What is refused anyhow leaves the cell its old text.
            std::string text = Csv_Wert(*field);
            if (!(column == UserColumn::Name ? Namensmangel(*wish.Line, text) : Bezeichnungsmangel(wish, text))) {
                texts.push_back({.Wish = n, .Text = std::move(text)});
            }
        }
        return Blatt_Doppelte(users_, UserGrid::FirstRow, column, wishes_, texts);
    }

    void Zeile(const Blattwunsch& wish, bool nameTaken, bool labelTaken) {
        const std::string& before = users_.Text(wish.Row, UserColumn::Name);
        writer_.Wer(wish.Added ? Namensschluessel(wish.Line->Feldtext(UserColumn::Name)) : before);
        if (wish.Added && !Aufnehmen(wish, nameTaken)) {
            return;
        }
        if (!wish.Added) {
            Text(wish, UserColumn::Name, nameTaken);
        }
        Gruppe(wish);
        Recht(wish);
        Text(wish, UserColumn::KeyLabel, labelTaken);
        for (int lock = 1; lock <= UserGrid::Locks; ++lock) {
            Marke(wish, UserGrid::ColumnOf(lock));
        }
    }

    /// A new user stands or falls with the name. Above a user no row is free.
    bool Aufnehmen(const Blattwunsch& wish, bool taken) {
        const std::string name = Csv_Wert(wish.Line->Feldtext(UserColumn::Name));
        std::optional<Word> why = Textmangel(wish, UserColumn::Name, name, taken);
        const int above = wish.Row - 1;
        const bool gap = above >= UserGrid::FirstRow && Trim(users_.Text(above, UserColumn::Name)).empty() &&
                         !added_.contains(above);
        if (!why && gap) {
            why = Word::SheetGap;
        }
        if (why) {
            writer_.Ablehnen(wish, UserColumn::Name, *why);
            return false;
        }
        added_.insert(wish.Row);
        writer_.Neu(wish);
        writer_.Aendern(wish, UserColumn::Name, {}, name);
        return true;
    }

    std::optional<Word> Textmangel(const Blattwunsch& wish, int column, const std::string& text, bool taken) const {
        const auto why = column == UserColumn::Name ? Namensmangel(*wish.Line, text) : Bezeichnungsmangel(wish, text);
        return why || !taken ? why : std::optional(Word::SheetTaken);
    }

    std::optional<Word> Bezeichnungsmangel(const Blattwunsch& wish, const std::string& text) const {
        if (writer_.Unpassend(wish, UserColumn::KeyLabel)) {
            return Word::SheetNotInCodePage;
        }
        if (users_.Text(wish.Row, UserColumn::KeyLabel).starts_with(FingerSlot)) {
            return Word::SheetOfFinger;
        }
        return Eingabe_Mangel(text, Jedes_Zeichen, UserRecord::KeyLabel.Width);
    }

    void Text(const Blattwunsch& wish, int column, bool taken) {
        const std::string& old = users_.Text(wish.Row, column);
        const std::string* field = wish.Feld(column);
        if (field == nullptr || (Blattfeld_Gleich(*field, old) && !writer_.Unpassend(wish, column))) {
            return;
        }
        const std::string text = Csv_Wert(*field);
        if (const auto why = Textmangel(wish, column, text, taken)) {
            writer_.Ablehnen(wish, column, *why);
        } else {
            writer_.Aendern(wish, column, old, text);
        }
    }

    void Gruppe(const Blattwunsch& wish) {
        const std::string old = wish.Added ? "-" : users_.Text(wish.Row, UserColumn::Group);
        const std::string* field = wish.Feld(UserColumn::Group);
        const auto none = [](std::string_view text) { return Trim(text).empty() || Trim(text) == "-"; };
        if (field == nullptr || Blattfeld_Gleich(*field, old) || (none(*field) && none(old))) {
            return;
        }
        const std::string wanted = none(*field) ? "-" : Csv_Wert(*field);
        const GroupTable& groups = table_.GroupTablePerson;
        const bool known = wanted == "-" || std::any_of(groups.begin() + 1, groups.end() - 1, [&](const auto& group) {
                               return !group.Name.empty() && Trim(group.Name) == wanted;
                           });
        known ? writer_.Aendern(wish, UserColumn::Group, old, wanted)
              : writer_.Ablehnen(wish, UserColumn::Group, Word::SheetNoChoice);
    }

    void Recht(const Blattwunsch& wish) {
        const std::string old =
            wish.Added ? std::string(Benutzerrechte.front()) : users_.Text(wish.Row, UserColumn::Right);
        const std::string* field = wish.Feld(UserColumn::Right);
        if (field == nullptr || Blattfeld_Gleich(*field, old) || Trim(*field).empty()) {
            return; // a user always has one
        }
        const std::string wanted = Csv_Wert(*field);
        const bool known = std::find(Benutzerrechte.begin(), Benutzerrechte.end(), wanted) != Benutzerrechte.end();
        known ? writer_.Aendern(wish, UserColumn::Right, old, wanted)
              : writer_.Ablehnen(wish, UserColumn::Right, Word::SheetNoChoice);
    }

    void Marke(const Blattwunsch& wish, int column) {
        const std::string* field = wish.Feld(column);
        if (field == nullptr) {
            return;
        }
        const std::string old(Trim(users_.Text(wish.Row, column)));
        const std::string typed = GrossText(Csv_Wert(*field));
        const std::string wanted = typed == "-" ? std::string() : typed;
        if (wanted == old) {
            return;
        }
        if (const auto why = Markenmangel(wish, column, wanted)) {
            writer_.Ablehnen(wish, column, *why);
        } else {
            writer_.Aendern(wish, column, old, wanted);
        }
    }

    std::optional<Word> Markenmangel(const Blattwunsch& wish, int column, const std::string& wanted) const {
        const std::string lock = Ohne_Zeilenenden(users_.Text(0, column));
        if (!wanted.empty() && wanted != "X" && wanted != "F") {
            return Word::SheetNoChoice;
        }
        if (lock.empty()) {
            return Word::SheetNoLock;
        }
        // The lock had another name when the sheet was made: the mark may be meant for another door.
        if (named_ && sheet_.Above.Fields.contains(column) &&
            Csv_Inhalt(Ohne_Zeilenenden(sheet_.Above.Fields.at(column))) != lock) {
            return Word::SheetLockMoved;
        }
        const bool finger = !users_.Text(wish.Row, UserColumn::FingerId).empty();
        return wanted == "F" && !finger ? std::optional(Word::SheetNoFinger) : std::nullopt;
    }

    void Fehlende() {
        std::set<int> there;
        for (const Blattwunsch& wish : wishes_) {
            there.insert(wish.Row);
        }
        for (int row = UserGrid::FirstRow; row <= UserGrid::LastRow; ++row) {
            const std::string& name = users_.Text(row, UserColumn::Name);
            if (!Trim(name).empty() && !there.contains(row)) {
                plan_.Missing.push_back(name);
            }
        }
    }

    const UserTable& table_;
    const Grid& users_;
    const Blatt& sheet_;
    Blattplan& plan_;
    Blattschreiber writer_;
    std::vector<Blattwunsch> wishes_;
    std::set<int> added_;
    bool named_ = false; ///< the sheet has the names of the locks above their numbers
};

} // namespace

std::vector<Blattspalte> F5_Blattspalten(const Kern& kern) {
    struct Kopf {
        int Column, Line;
        bool Taken;
    };
    constexpr std::array heads{
        Kopf{UserColumn::Number, Line::Number, true},    Kopf{UserColumn::Name, Line::Name, true},
        Kopf{UserColumn::Group, Line::TimerGroup, true}, Kopf{UserColumn::Right, Line::Right, true},
        Kopf{UserColumn::Code, Line::Code, false},       Kopf{UserColumn::KeyLabel, Line::Designation, true},
        Kopf{UserColumn::KeyId, Line::KeyColumn, false}};
    std::vector<Blattspalte> columns;
    for (const Kopf& head : heads) {
        for (std::string& heading : Blattueberschriften(kern, head.Line)) {
            columns.push_back({.Column = head.Column, .Heading = std::move(heading), .Taken = head.Taken});
        }
    }
    columns.push_back({.Column = UserColumn::Finger, .Heading = "FS", .Taken = false});
    for (int lock = 1; lock <= UserGrid::Locks; ++lock) {
        columns.push_back({.Column = UserGrid::ColumnOf(lock), .Heading = Ziffern(lock)});
    }
    return columns;
}

Blattplan F5_Blatt_Planen(const Kern& kern, const UserTable& table, std::string_view bytes) {
    return Blatt_Planen(bytes, F5_Blattspalten(kern), KeyColumns,
                        [&table](const Blatt& sheet, Blattplan& plan) { Benutzerplaner(table, sheet, plan).Planen(); });
}

void F5_Blatt_Anwenden(UserTable& table, const Blattplan& plan) {
    for (const Blattschritt& step : plan.Steps) {
        if (step.Kind != Blattart::Changed) {
            continue;
        }
        if (UserGrid::IsLock(step.Column)) {
            Marke_Setzen(table.FGK4, step.Row, step.Column, step.New.empty() ? '-' : step.New.front());
        } else {
            Benutzerzelle_Schreiben(table.FGK4, step.Row, step.Column, step.New);
        }
    }
}

} // namespace qvm
