#include "Kalender.h"

#include "Kern.h"
#include "Satzluecken.h"
#include "Text.h"
#include "TimeRecords.h"

#include <algorithm>
#include <vector>

namespace qvm {

namespace {

constexpr char BehindAll = '\xFF'; // sorts behind every date

constexpr int Satznummer(KalenderBlock block, int row) {
    return block == KalenderBlock::Einzel ? row : row + 21;
}

const std::string& Art(const Kern& kern, int index) {
    return kern.Sprache.FeiertagsTexte[static_cast<std::size_t>(index)];
}

std::string Arttext(const Kern& kern, KalenderBlock block, std::string_view stored) {
    if (block == KalenderBlock::Permanent || stored == "1") {
        return Art(kern, 1);
    }
    return stored == "0" ? Art(kern, 0) : std::string{};
}

std::string Satz(std::string_view from, std::string_view to, std::string_view kind) {
    std::string record;
    Feld_Schreiben(record, CalendarEntry::DateFrom, from);
    Feld_Schreiben(record, CalendarEntry::DateTo, to);
    Feld_Schreiben(record, CalendarEntry::Kind, kind);
    return record;
}

std::string Zeile_Satz(const Kern& kern, const Grid& grid, KalenderBlock block, int row) {
    const std::string_view from = Trim(grid.Text(row, CalendarColumn::From));
    const std::string_view to = Trim(grid.Text(row, CalendarColumn::To));
    const std::string& kind = grid.Text(row, CalendarColumn::Kind);
    if (from.empty() || to.empty() || Trim(kind).empty()) {
        return Satz({}, {}, {});
    }
    if (block == KalenderBlock::Permanent) {
        return Satz(from, to, {});
    }
    return Satz(from, to, kind == Art(kern, 1) ? "1" : "0");
}

std::string Sortiertext(const std::string& date) {
    return Trim(date).empty() ? std::string(1, BehindAll) : date;
}

/// std::string compares its characters as unsigned bytes. Rows of the same date keep their order.
void Sortieren(Grid& grid) {
    std::vector<std::vector<Cell>> rows;
    for (int row = 1; row <= CalendarRows; ++row) {
        std::vector<Cell>& cells = rows.emplace_back();
        for (int column = 0; column < grid.Columns(); ++column) {
            cells.push_back(grid.At(row, column));
        }
        if (Trim(grid.Text(row, CalendarColumn::From)).empty()) {
            cells[CalendarColumn::From].Text.clear();
        }
    }
    std::stable_sort(rows.begin(), rows.end(), [](const std::vector<Cell>& a, const std::vector<Cell>& b) {
        return Sortiertext(a[CalendarColumn::From].Text) < Sortiertext(b[CalendarColumn::From].Text);
    });
    for (int row = 1; row <= CalendarRows; ++row) {
        for (int column = 0; column < grid.Columns(); ++column) {
            grid.Set(row, column, rows[static_cast<std::size_t>(row) - 1][static_cast<std::size_t>(column)]);
        }
        grid.SetText(row, CalendarColumn::Number, Ziffern(row));
    }
}

} // namespace

bool Kalender_Laden(Kern& kern, Grid& grid, KalenderBlock block) {
    RecordFile calendar(CalendarEntry::Record);
    const ReadStatus status = calendar.Laden(kern.Welt.Files, kern.DatPfad());
    if (status == ReadStatus::Error) {
        return false;
    }
    if (status == ReadStatus::Missing && block == KalenderBlock::Einzel) {
        // Where it cannot be made the calendar is empty all the same; the save tells why it stays so.
        calendar.Speichern(kern.Welt.Files, kern.DatPfad());
    }
    for (int row = 1; row <= CalendarRows; ++row) {
        const int record = Satznummer(block, row);
        const std::string from = calendar.Text(record, CalendarEntry::DateFrom);
        const bool used = !from.empty();
        grid.SetText(row, CalendarColumn::Number, Ziffern(row));
        grid.SetText(row, CalendarColumn::From, from);
        grid.SetText(row, CalendarColumn::To, used ? calendar.Text(record, CalendarEntry::DateTo) : std::string{});
        grid.SetText(row, CalendarColumn::Kind,
                     used ? Arttext(kern, block, calendar.Text(record, CalendarEntry::Kind)) : std::string{});
    }
    return true;
}

bool Kalender_Speichern(Kern& kern, Grid& grid, KalenderBlock block) {
    RecordFile calendar(CalendarEntry::Record);
    if (grid.Columns() <= CalendarColumn::Kind ||
        calendar.Laden(kern.Welt.Files, kern.DatPfad()) == ReadStatus::Error) {
        return false;
    }
    grid.Visible = false;
    Sortieren(grid);
    grid.Visible = true;
    Satzluecken_Fuellen(calendar, Satznummer(block, 1) - 1, Satz({}, {}, {}));
    for (int row = 1; row <= CalendarRows; ++row) {
        calendar.SetRecord(Satznummer(block, row), Zeile_Satz(kern, grid, block, row));
    }
    return calendar.Speichern(kern.Welt.Files, kern.DatPfad());
}

} // namespace qvm
