// The switch clocks: open, save, leave, export.

#include "WeekTimer.h"

#include "Csv.h"
#include "CsvAusgabe.h"
#include "Dateisatz.h"
#include "Fragen.h"
#include "TimeRecords.h"

#include <algorithm>
#include <cstddef>

namespace qvm {
namespace {

constexpr int SlotFields = 3, TableRows = 8;

bool Personengruppen_Lesen(Kern& kern, GroupTable& groups, Grid& grid) {
    return PersonGruppen_Laden(kern, groups, grid);
}

GroupTable Leere_Gruppen() {
    return {};
}

} // namespace

const WeekTimerTraits PersonClockTraits{.Window = "F4",
                                        .Menu = "F4_FGK3",
                                        .DeleteEntry = "F5_FGK3_Loeschen",
                                        .Slots = PersonSlots,
                                        .Groups = PersonGroupRows,
                                        .FirstFree = 3,
                                        .LessAfterDelete = 0,
                                        .StopsTimers = false,
                                        .InfoRows = 9, // the rest of the slots is scrolled to
                                        .Purpose = Line::PersonSwitchClock,
                                        .GroupFile = TimeGroup::Record.File,
                                        .Vorgabe = PersonGruppen_Vorgabe,
                                        .Laden = Personengruppen_Lesen,
                                        .Speichern = PersonGruppen_Speichern};
/// That the numbers begin at 0 behind a delete is how this clock has always counted.
const WeekTimerTraits LockClockTraits{.Window = "F41",
                                      .Menu = "F41_FGK3",
                                      .DeleteEntry = "F41_FGK3_Loeschen",
                                      .Slots = LockSlots,
                                      .Groups = LockGroupRows,
                                      .FirstFree = 1,
                                      .LessAfterDelete = 1,
                                      .StopsTimers = true,
                                      .InfoRows = LockSlots.Count,
                                      .Purpose = Line::LockSwitchClock,
                                      .GroupFile = LockTimeGroup::Record.File,
                                      .Vorgabe = Leere_Gruppen,
                                      .Laden = SperrGruppen_Laden,
                                      .Speichern = SperrGruppen_Speichern};

WeekTimer::WeekTimer(Kern& kernel, const WeekTimerTraits& traits)
    : kern(kernel), Traits(traits), FGK1(traits.Slots.Count + 1, SlotColumn::Count),
      FGK3(traits.Groups + 1, GroupColumn::Count), Timer1(kernel.Welt, Flash), Timer2(kernel.Welt, HoverFirst),
      kept_(traits.Slots.Count + traits.Groups + TableRows, GroupColumn::Count) {
    List1.Visible = false;
    Text1.Visible = false;
    Text2.Visible = false;
    List2.Visible = false;
    Info_Verbergen();
    SlotAuswahl.Moved = [this] { Stand_Zeigen(); };
    Timer1.Ticked = [this] { Titel_Blinken(); };
    Timer2.Ticked = [this] { Ruhe_Pruefen(); };
    kern.Windows.Open[std::string(Traits.Window)] = [this] { FormLaden(); };
}

void WeekTimer::FormLaden() {
    TasteZeit = TasteName = 0;
    Info_Verbergen();
    std::optional<FileTrouble> trouble;
    if (!loaded_) {
        trouble = Laden();
    }
    Hinweis.Text = Geaendert ? Wort(kern, Word::TimerKept) : std::string();
    Texte_Setzen();
    Timer1.Stop();
    Timer1.SetInterval(Flash);
    mouse_ = pointer_ = {};
    idle_ = 0;
    byKeys_ = false;
    keyRow_ = FGK3.Row;
    Timer2.Start(HoverFirst);
    Fenster.Enabled = true;
    Fenster.Visible = true; // last, as the window's first size goes by its contents
    if (trouble) {
        kern.Meldung(Wort(kern, Word::FileNotRead, {FileTrouble_Text(kern, *trouble)}), Buttons::Ok, Icon::Exclamation);
    }
}

/// Groups, then the slots over a grid in which all are off.
std::optional<FileTrouble> WeekTimer::Laden() {
    FGK1.ClearRows(FirstRow);
    FGK3.ClearRows(FirstRow);
    Gruppen = Traits.Vorgabe();
    const bool groups = Traits.Laden(kern, Gruppen, FGK3);
    Zeitfenster_Normalisieren(kern, FGK1);
    const SlotLoad slots = Zeitfenster_Laden(kern, FGK1, Traits.Slots);
    std::optional<FileTrouble> trouble;
    if (!groups || !slots) {
        trouble = {.File = std::string(TimeSlot::Record.File) + ", " + std::string(Traits.GroupFile),
                   .Fault = Lesefehler(kern.Welt.Files)};
    } else if (slots.Damaged > 0) {
        trouble = {
            .File = std::string(TimeSlot::Record.File), .Damage = FileDamage::BadRecord, .Number = slots.Damaged};
    }
    for (int row = FirstRow; row <= Traits.Groups; ++row) {
        FGK3.SetText(row, GroupColumn::Number, Ziffern(row));
    }
    unread_ = trouble.has_value();
    loaded_ = !unread_; // else the next opening tries again
    Geaendert = false;
    cellDays_.assign(kern.Sprache.TagTexte.begin(), kern.Sprache.TagTexte.end());
    SlotAuswahl.Go(FirstRow, SlotColumn::Day);
    GruppenAuswahl.Go(Traits.FirstFree, GroupColumn::Name);
    Stand_Merken();
    steps_.Forget();
    return trouble;
}

void WeekTimer::Toolbar1_ButtonClick(std::string_view key) {
    Editor_Verlassen();
    if (key == u8"Zurück"_w) {
        Schliessen();
    } else if (key == "CSV-Print") {
        Csv_Schreiben();
    } else if (key == "Speichern") {
        Speichern();
    }
}

/// Slots and groups are two files: when the second is refused, the first one is put back.
bool WeekTimer::Speichern() {
    if (unread_) {
        kern.Meldung(Wort(kern, Word::TimersUnread), Buttons::Ok, Icon::Exclamation);
        return false;
    }
    const FileStore& files = kern.Welt.Files;
    const Dateistand before = Datei_Merken(files, kern.DatPfad() + std::string(TimeSlot::Record.File));
    const bool slots = before.Status != ReadStatus::Error && Zeitfenster_Speichern(kern, FGK1, Traits.Slots);
    if (!slots || !Traits.Speichern(kern, Gruppen)) {
        const bool unchanged = !slots || Datei_Zuruecknehmen(files, before);
        kern.Meldung(Wort(kern, unchanged ? Word::TimersNotSaved : Word::TimersHalfSaved), Buttons::Ok,
                     Icon::Exclamation);
        return false;
    }
    Geaendert = false;
    Hinweis.Text = std::string();
    return true;
}

void WeekTimer::Schliessen() {
    Editor_Verlassen();
    if (!Abgeschlossen(kern.Zeile(Line::TimerGroup))) {
        return;
    }
    if (Traits.StopsTimers) {
        Timer1.Stop();
        Timer2.Stop();
    }
    Fenster.Visible = false;
    kern.Windows.BackToMain();
}

bool WeekTimer::Abgeschlossen(std::string_view title) {
    if (!Verlassen_Erlaubt(kern, Geaendert, title, [this] { return Speichern(); })) {
        return false;
    }
    Geaendert = false;
    loaded_ = false;
    steps_.Forget();
    return true;
}

bool WeekTimer::Ende_Erlaubt() {
    // The question names the clock, as its window is not there to be seen.
    return !Geaendert || Abgeschlossen(kern.Zeile(Traits.Purpose));
}

void WeekTimer::Verbergen() {
    Editor_Verlassen();
    Fenster.Visible = false;
    kern.Windows.BackToMain();
}

void WeekTimer::Csv_Schreiben() {
    Csv_Ausgeben(kern, Label1.Text(), kern.Zeile(Line::Settings), CsvText(), kern.DatPfad());
}

std::string WeekTimer::CsvText() const {
    std::string text;
    const auto line = [&text](std::initializer_list<std::string> fields) {
        for (const std::string& field : fields) {
            text += Csv_Feld(field) + ";";
        }
        text += "\r";
    };
    const auto row = [&line](const Grid& grid, int number) {
        line({grid.Text(number, SlotColumn::Day), grid.Text(number, SlotColumn::From),
              grid.Text(number, SlotColumn::To)});
    };
    const auto head = [&] { line({kern.Zeile(Line::Day), kern.Zeile(Line::From), kern.Zeile(Line::To)}); };
    head();
    for (int slot = FirstRow; slot <= Traits.Slots.Count; ++slot) {
        row(FGK1, slot);
    }
    text += "\r\r\r\r";
    line({kern.Zeile(Line::GroupHeading), kern.Zeile(Line::RowChecked)});
    for (int group = FirstRow; group <= Traits.Groups; ++group) {
        line({FGK3.Text(group, GroupColumn::Name), FGK3.Text(group, GroupColumn::SlotCount)});
    }
    text += "\r\r";
    for (int group = FirstRow; group <= Traits.Groups; ++group) {
        text += "\r\r";
        line({FGK3.Text(group, GroupColumn::Name)});
        const double count = Zahlwert(FGK3.Text(group, GroupColumn::SlotCount));
        if (count < 1) {
            continue;
        }
        head();
        InfoPbS info;
        const int shown = InfoPbS_Anzeigen(kern, FGK1, Gruppen, false, group, info);
        for (int slot = 1; slot <= shown && slot <= count; ++slot) {
            row(info.FGK3i, slot);
        }
    }
    return text;
}

// ---- what the steps go by

void WeekTimer::Stand_Merken() {
    int at = 0;
    const auto keep = [&](const Grid& grid, int rows, int columns, int first) {
        for (int row = FirstRow; row <= rows; ++row, ++at) {
            for (int n = 0; n < columns; ++n) {
                kept_.SetText(at, n, grid.Text(row, first + n));
            }
        }
    };
    keep(FGK1, Traits.Slots.Count, SlotFields, SlotColumn::Day);
    keep(FGK3, Traits.Groups, GroupColumn::Count, GroupColumn::Number);
    for (int group = 1; group <= TableRows; ++group, ++at) {
        const GroupEntry& entry = Gruppe(group);
        int n = 0;
        for (const std::string* field : {&entry.Num, &entry.Name, &entry.Count, &entry.Days, &entry.PbId}) {
            kept_.SetText(at, n++, *field);
        }
    }
}

void WeekTimer::Stand_Herstellen() {
    int at = 0;
    const auto restore = [&](Grid& grid, int rows, int columns, int first) {
        for (int row = FirstRow; row <= rows; ++row, ++at) {
            for (int n = 0; n < columns; ++n) {
                grid.SetText(row, first + n, kept_.Text(at, n));
            }
        }
    };
    restore(FGK1, Traits.Slots.Count, SlotFields, SlotColumn::Day);
    restore(FGK3, Traits.Groups, GroupColumn::Count, GroupColumn::Number);
    for (int group = 1; group <= TableRows; ++group, ++at) {
        GroupEntry& entry = Gruppe(group);
        int n = 0;
        for (std::string* field : {&entry.Num, &entry.Name, &entry.Count, &entry.Days, &entry.PbId}) {
            *field = kept_.Text(at, n++);
        }
    }
}

bool WeekTimer::Aendern(Word what, const std::function<void()>& change) {
    change();
    steps_.Begin(what);
    Stand_Merken();
    if (!steps_.End()) {
        return false;
    }
    Geaendert = true;
    infoRow_ = 0;
    Hinweis.Text = std::string();
    Stand_Zeigen();
    return true;
}

void WeekTimer::Undo_Click() {
    Schritt_Gehen(&GridUndo::Undo, Word::UndoDone);
}

void WeekTimer::Redo_Click() {
    Schritt_Gehen(&GridUndo::Redo, Word::RedoDone);
}

} // namespace qvm
