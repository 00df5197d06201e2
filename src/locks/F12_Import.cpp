#include "F12_Import.h"

#include "Blattwunsch.h"
#include "CsvLesen.h"
#include "Filter.h"
#include "Kern.h"
#include "Schlossregeln.h"
#include "Seriennummer.h"
#include "Text.h"

#include <algorithm>
#include <array>
#include <functional>
#include <map>
#include <set>
#include <utility>

namespace qvm {
namespace {

constexpr std::size_t LongestLockName = 19;
constexpr std::array LockKeys{LockColumn::Number, LockColumn::Name, LockColumn::Serial};

/// By which serial numbers are the same: written out, whatever letters and blanks they were typed with.
std::string Serienschluessel(std::string_view text) {
    const std::string plain = Csv_Wert(text);
    const auto serial = Serie_Zerlegen(plain);
    return serial ? Serie_Text(*serial) : GrossText(plain);
}

/// Finds for each row of the sheet the lock whose row it is.
class Schlosszuordner {
public:
    Schlosszuordner(const Grid& locks, const Blatt& sheet, Blattschreiber& writer)
        : locks_(locks), sheet_(sheet), writer_(writer) {
        for (int row = LockGrid::FirstRow; row <= LockGrid::LastRow; ++row) {
            bySerial_[Serienschluessel(locks.Text(row, LockColumn::Serial))].push_back(row);
            byName_[Csv_Wert(locks.Text(row, LockColumn::Name))].push_back(row);
        }
    }

    std::vector<Blattwunsch> Alle() {
        // What says more about a lock goes first: a name alone gets what its number and its serial have left.
        for (const auto step : {&Schlosszuordner::Nach_Nummer, &Schlosszuordner::Nach_Serie,
                                &Schlosszuordner::Nach_Name, &Schlosszuordner::Neu}) {
            for (const Blattzeile& line : sheet_.Rows) {
                if (!done_.contains(line.Line) && (this->*step)(line)) {
                    done_.insert(line.Line);
                }
            }
        }
        std::stable_sort(wishes_.begin(), wishes_.end(),
                         [](const Blattwunsch& a, const Blattwunsch& b) { return a.Line->Line < b.Line->Line; });
        return std::move(wishes_);
    }

private:
    static std::string Serie(const Blattzeile& line) { return Serienschluessel(line.Feldtext(LockColumn::Serial)); }
    static std::string Name(const Blattzeile& line) { return Csv_Wert(line.Feldtext(LockColumn::Name)); }

    bool Frei(int row) const {
        return Trim(locks_.Text(row, LockColumn::Name)).empty() && Trim(locks_.Text(row, LockColumn::Serial)).empty();
    }

    void Nehmen(const Blattzeile& line, int row) { wishes_.push_back({.Line = &line, .Row = row, .Added = Frei(row)}); }

    /// True when the row of the sheet is settled.
    bool Nach_Nummer(const Blattzeile& line) {
        const std::string number = line.Feldtext(LockColumn::Number);
        if (Trim(number).empty()) {
            return Name(line).empty() && Serie(line).empty(); // a free row of the export
        }
        const int row = Blattnummer(number, LockGrid::LastRow);
        if (row == 0 || !taken_.insert(row).second) {
            writer_.Zeile_Ablehnen(line, Name(line), row == 0 ? Word::SheetNoNumber : Word::SheetRowTwice);
        } else if (!Frei(row) || !Name(line).empty() || !Serie(line).empty()) {
            Nehmen(line, row);
        }
        return true;
    }

    bool Unter(const Blattzeile& line, const std::vector<int>& rows) {
        for (const int row : rows) {
            if (taken_.insert(row).second) {
                Nehmen(line, row);
                return true;
            }
        }
        return false;
    }

    /// Of several with that number the one of the name, else the first one.
    bool Nach_Serie(const Blattzeile& line) {
        if (Serie(line).empty()) {
            return false;
        }
        std::vector<int> rows = bySerial_[Serie(line)];
        std::stable_partition(rows.begin(), rows.end(),
                              [&](int row) { return Csv_Wert(locks_.Text(row, LockColumn::Name)) == Name(line); });
        return Unter(line, rows);
    }

    bool Nach_Name(const Blattzeile& line) { return !Name(line).empty() && Unter(line, byName_[Name(line)]); }

    bool Neu(const Blattzeile& line) {
        const std::string same = Name(line) + "\n" + Serie(line);
        if ((!Name(line).empty() && !byName_[Name(line)].empty()) || !new_.insert(same).second) {
            writer_.Zeile_Ablehnen(line, Name(line), Word::SheetRowTwice);
            return true;
        }
        for (int row = LockGrid::FirstRow; row <= LockGrid::LastRow; ++row) {
            if (Frei(row) && taken_.insert(row).second) {
                Nehmen(line, row);
                return true;
            }
        }
        writer_.Zeile_Ablehnen(line, Name(line), Word::SheetNoRoom);
        return true;
    }

    const Grid& locks_;
    const Blatt& sheet_;
    Blattschreiber& writer_;
    std::map<std::string, std::vector<int>> bySerial_, byName_;
    std::set<int> taken_, done_;
    std::set<std::string> new_;
    std::vector<Blattwunsch> wishes_;
};

/// Looks at the cells of the rows that were found.
class Schlossplaner {
public:
    Schlossplaner(const LockTable& table, const Blatt& sheet, Blattplan& plan)
        : locks_(table.FGK12), sheet_(sheet), plan_(plan), writer_(plan, sheet) {}

    void Planen() {
        wishes_ = Schlosszuordner(locks_, sheet_, writer_).Alle();
        const std::set<std::size_t> taken = Doppelte();
        for (std::size_t n = 0; n < wishes_.size(); ++n) {
            Zeile(wishes_[n], taken.contains(n));
        }
        Fehlende();
    }

private:
    std::set<std::size_t> Doppelte() const {
        std::vector<Blatttext> texts;
        for (std::size_t n = 0; n < wishes_.size(); ++n) {
            const Blattwunsch& wish = wishes_[n];
            const std::string* field = wish.Feld(LockColumn::Name);
            if (field != nullptr && !Blattfeld_Gleich(*field, locks_.Text(wish.Row, LockColumn::Name)) &&
                !Namensmangel(wish)) {
                texts.push_back({.Wish = n, .Text = Csv_Wert(*field)});
            }
        }
        return Blatt_Doppelte(locks_, LockGrid::FirstRow, LockColumn::Name, wishes_, texts);
    }

    std::optional<Word> Namensmangel(const Blattwunsch& wish) const {
        if (writer_.Unpassend(wish, LockColumn::Name)) {
            return Word::SheetNotInCodePage;
        }
        return Eingabe_Mangel(Csv_Wert(*wish.Feld(LockColumn::Name)), Name_Filter, LongestLockName);
    }

    std::optional<Word> Serienmangel(const Blattwunsch& wish) const {
        const std::string text = Csv_Wert(*wish.Feld(LockColumn::Serial));
        return text.empty() || Serie_Zerlegen(text) ? std::nullopt : std::optional(Word::SheetNoSerial);
    }

    bool Anders(const Blattwunsch& wish, int column) const {
        const std::string* field = wish.Feld(column);
        return field != nullptr && !Blattfeld_Gleich(*field, locks_.Text(wish.Row, column));
    }

    /// Serial numbers are the same, however they are written.
    bool Serie_Anders(const Blattwunsch& wish) const {
        return Anders(wish, LockColumn::Serial) && Serienschluessel(*wish.Feld(LockColumn::Serial)) !=
                                                       Serienschluessel(locks_.Text(wish.Row, LockColumn::Serial));
    }

    std::optional<Word> Namensgrund(const Blattwunsch& wish, bool taken) const {
        if (Anders(wish, LockColumn::Name)) {
            if (const auto why = Namensmangel(wish)) {
                return why;
            }
        }
        return taken ? std::optional(Word::SheetTaken) : std::nullopt;
    }

    /// The new text, or why it is refused.
    void Eintragen(const Blattwunsch& wish, int column, const std::optional<Word>& why, std::string text) {
        if (why) {
            writer_.Ablehnen(wish, column, *why);
        } else {
            writer_.Aendern(wish, column, locks_.Text(wish.Row, column), std::move(text));
        }
    }

    void Zeile(const Blattwunsch& wish, bool nameTaken) {
        const std::string& before = locks_.Text(wish.Row, LockColumn::Name);
        const std::string name = wish.Added ? Csv_Wert(wish.Line->Feldtext(LockColumn::Name)) : before;
        const std::string serial = wish.Line->Feldtext(LockColumn::Serial);
        writer_.Wer(name.empty() ? serial : name);
        const std::optional<Word> noName = Namensgrund(wish, nameTaken);
        const std::optional<Word> noSerial = Serie_Anders(wish) ? Serienmangel(wish) : std::nullopt;
        const bool refused = wish.Added && (noName || noSerial);
        if (wish.Added && !refused) {
            writer_.Neu(wish);
        }
        if (Anders(wish, LockColumn::Name) && (!refused || noName)) {
            Eintragen(wish, LockColumn::Name, noName, Csv_Wert(*wish.Feld(LockColumn::Name)));
        }
        if (Serie_Anders(wish) && (!refused || noSerial)) {
            Eintragen(wish, LockColumn::Serial, noSerial, Serienschluessel(*wish.Feld(LockColumn::Serial)));
        }
        if (!refused) {
            Einstellungen(wish, Serie_Anders(wish) && !noSerial);
        }
    }

    void Einstellungen(const Blattwunsch& wish, bool otherSerial) {
        const std::string serial =
            otherSerial ? Serienschluessel(*wish.Feld(LockColumn::Serial)) : locks_.Text(wish.Row, LockColumn::Serial);
        for (int column = LockColumn::FirstSwitch; column <= LockColumn::LastSwitch; ++column) {
            const int picture = locks_.At(wish.Row, column).Picture;
            // With its number a lock gets switches that are on.
            const bool gets = otherSerial && !serial.empty() && picture == LockPicture::None;
            Schalter(wish, column, gets ? LockPicture::On : picture);
        }
        Prioritaet(wish);
        Schalter(wish, LockColumn::Emi, otherSerial ? Emi_Bild(serial) : locks_.At(wish.Row, LockColumn::Emi).Picture);
    }

    void Schalter(const Blattwunsch& wish, int column, int picture) {
        const std::string* field = wish.Feld(column);
        if (field == nullptr) {
            return;
        }
        const bool on = picture == LockPicture::On;
        const std::string typed = GrossText(Csv_Wert(*field));
        const bool wanted = typed == "X";
        if (!wanted && !typed.empty() && typed != "-") {
            writer_.Ablehnen(wish, column, Word::SheetNoChoice);
        } else if (wanted && picture == LockPicture::NotApplicable) {
            writer_.Ablehnen(wish, column, Word::SheetNoEmi);
        } else if (wanted != on) {
            writer_.Aendern(wish, column, on ? "X" : "", wanted ? "X" : "");
        }
    }

    void Prioritaet(const Blattwunsch& wish) {
        const std::string old = locks_.Text(wish.Row, LockColumn::Priority);
        const std::string* field = wish.Feld(LockColumn::Priority);
        if (field == nullptr || Blattfeld_Gleich(*field, old) || Trim(*field).empty()) {
            return; // a lock always has one
        }
        const std::string wanted = Csv_Wert(*field);
        Blattnummer(wanted, 5) == 0 || wanted.size() != 1
            ? writer_.Ablehnen(wish, LockColumn::Priority, Word::SheetNoChoice)
            : writer_.Aendern(wish, LockColumn::Priority, old, wanted);
    }

    void Fehlende() {
        std::set<int> there;
        for (const Blattwunsch& wish : wishes_) {
            there.insert(wish.Row);
        }
        for (int row = LockGrid::FirstRow; row <= LockGrid::LastRow; ++row) {
            const std::string name(Trim(locks_.Text(row, LockColumn::Name)));
            const std::string serial(Trim(locks_.Text(row, LockColumn::Serial)));
            if (!there.contains(row) && !(name.empty() && serial.empty())) {
                plan_.Missing.push_back(name.empty() ? serial : name);
            }
        }
    }

    const Grid& locks_;
    const Blatt& sheet_;
    Blattplan& plan_;
    Blattschreiber writer_;
    std::vector<Blattwunsch> wishes_;
};

} // namespace

std::vector<Blattspalte> F12_Blattspalten(const Kern& kern) {
    struct Schlosskopf {
        int Column, Line;
        bool Taken;
    };
    constexpr int none = -1; // of the export, without data below
    constexpr std::array heads{Schlosskopf{LockColumn::Number, Line::Number, true},
                               Schlosskopf{LockColumn::Name, Line::LockName, true},
                               Schlosskopf{LockColumn::Serial, Line::SerialNumber, true},
                               Schlosskopf{LockColumn::FirstSwitch, Line::PersonGroups, true},
                               Schlosskopf{LockColumn::FirstSwitch + 1, Line::CalendarsReleased, true},
                               Schlosskopf{LockColumn::FirstSwitch + 2, Line::LockClockActive, true},
                               Schlosskopf{LockColumn::FirstSwitch + 3, Line::TimeControl, true},
                               Schlosskopf{LockColumn::FirstSwitch + 4, Line::ClockSetting, true},
                               Schlosskopf{LockColumn::Priority, Line::Priority, true},
                               Schlosskopf{none, Line::Object, false},
                               Schlosskopf{none, Line::CardError, false}};
    std::vector<Blattspalte> columns;
    for (const Schlosskopf& head : heads) {
        for (std::string& heading : Blattueberschriften(kern, head.Line)) {
            columns.push_back(
                {.Column = head.Column, .Heading = std::move(heading), .Taken = head.Taken, .Repeated = !head.Taken});
        }
    }
    columns.push_back({.Column = none, .Heading = "-", .Taken = false, .Repeated = true});
    columns.push_back({.Column = LockColumn::Emi, .Heading = "EMI"});
    columns.push_back({.Column = LockColumn::UnitType, .Heading = "QVM", .Taken = false});
    return columns;
}

Blattplan F12_Blatt_Planen(const Kern& kern, const LockTable& table, std::string_view bytes) {
    return Blatt_Planen(bytes, F12_Blattspalten(kern), LockKeys,
                        [&table](const Blatt& sheet, Blattplan& plan) { Schlossplaner(table, sheet, plan).Planen(); });
}

void F12_Blatt_Anwenden(LockTable& table, const Blattplan& plan) {
    Grid& locks = table.FGK12;
    for (const Blattschritt& step : plan.Steps) {
        if (step.Kind != Blattart::Changed) {
            continue;
        }
        if (LockColumn::IstSchalter(step.Column) || step.Column == LockColumn::Emi) {
            locks.SetPicture(step.Row, step.Column, step.New.empty() ? LockPicture::Off : LockPicture::On);
            continue;
        }
        locks.SetText(step.Row, step.Column, step.New);
        if (step.Column == LockColumn::Serial) {
            locks.SetPicture(step.Row, LockColumn::Emi, Emi_Bild(step.New));
            if (!step.New.empty()) {
                Schalter_Geben(locks, step.Row);
            }
        }
    }
}

std::vector<int> F12_Blatt_Serien(const Blattplan& plan) {
    std::vector<int> rows;
    for (const Blattschritt& step : plan.Steps) {
        if (step.Kind == Blattart::Changed && step.Column == LockColumn::Serial) {
            rows.push_back(step.Row);
        }
    }
    return rows;
}

} // namespace qvm
