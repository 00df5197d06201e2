#include "Seiten.h"

#include "Words.h"

#include <algorithm>
#include <numeric>

namespace qvm {
namespace {

constexpr Milli Point = 1000;
constexpr Milli Left = 42 * Point, Right = PageWidth - 42 * Point, Top = 42 * Point, Bottom = PageHeight - 60 * Point;
constexpr Milli FootY = PageHeight - 36 * Point;
constexpr int TitleSize = 16, SubtitleSize = 11, HeadingSize = 10, TextSize = 9, SmallSize = 8;
constexpr Milli CellGap = 6 * Point, RowGap = 4 * Point, PartGap = 14 * Point;

constexpr Milli Zeilenhoehe(int size) {
    return size * 1250;
}

struct Spalte {
    Milli X = 0, Width = 0;
};

/// A row of a table, each cell as its lines.
using Zellen = std::vector<std::vector<std::string>>;

std::size_t Hoechste(const Zellen& cells) {
    std::size_t lines = 0;
    for (const auto& cell : cells) {
        lines = std::max(lines, cell.size());
    }
    return lines;
}

class Setzer {
public:
    explicit Setzer(const Report& report) : report_(report) { pages_.emplace_back(); }

    std::vector<ReportPage> Setzen();

private:
    void Kopf();
    void Teil(const ReportPart& part);
    void Tabelle(const ReportTable& table);
    void Zeile(const Zellen& cells);
    void Zeilen_Setzen(const Zellen& cells, std::size_t first, std::size_t count, bool bold);
    void Ueberschriften();
    void Unterschriften();
    void Fuesse();

    void Absatz(std::string_view text, int size, bool bold);
    void Text(std::string_view text, Milli x, Milli y, int size, bool bold) {
        if (!text.empty()) {
            pages_.back().Texts.push_back({x, y, size, bold, std::string(text)});
        }
    }
    void Strich(Milli x, Milli width) { pages_.back().Rules.push_back({x, y_, width}); }
    Milli Rest() const { return Bottom - y_; }
    void Neue_Seite() {
        pages_.emplace_back();
        y_ = Top;
    }

    const Report& report_;
    std::vector<ReportPage> pages_;
    Milli y_ = Top;
    std::vector<Spalte> columns_; ///< of the table that is being set
    Zellen headings_;
};

std::vector<ReportPage> Setzer::Setzen() {
    Kopf();
    for (const ReportPart& part : report_.Parts) {
        Teil(part);
    }
    if (!report_.Signatures.empty()) {
        Unterschriften();
    }
    Fuesse();
    return std::move(pages_);
}

void Setzer::Kopf() {
    const std::string moment = Drucktext(report_.Moment);
    y_ += Zeilenhoehe(SmallSize);
    Text(Drucktext(report_.System), Left, y_, SmallSize, false);
    Text(moment, Right - Textbreite(moment, SmallSize, false), y_, SmallSize, false);
    y_ += RowGap;
    Strich(Left, Right - Left);
    y_ += RowGap;
    Absatz(report_.Title, TitleSize, true);
    if (!report_.Subtitle.empty()) {
        Absatz(report_.Subtitle, SubtitleSize, false);
    }
}

void Setzer::Absatz(std::string_view text, int size, bool bold) {
    for (const std::string& line : Text_Umbrechen(text, Right - Left, size, bold)) {
        if (Rest() < Zeilenhoehe(size)) {
            Neue_Seite();
        }
        y_ += Zeilenhoehe(size);
        Text(line, Left, y_, size, bold);
    }
    y_ += RowGap;
}

void Setzer::Teil(const ReportPart& part) {
    y_ += PartGap - RowGap;
    // A heading stands with what follows it.
    if (Rest() < Zeilenhoehe(HeadingSize) + 3 * Zeilenhoehe(TextSize) + 4 * RowGap) {
        Neue_Seite();
    }
    if (!part.Heading.empty()) {
        Absatz(part.Heading, HeadingSize, true);
    }
    if (!part.Text.empty()) {
        Absatz(part.Text, TextSize, false);
    }
    if (!part.Table.Headings.empty()) {
        Tabelle(part.Table);
    }
}

void Setzer::Tabelle(const ReportTable& table) {
    const int shares = std::accumulate(table.Shares.begin(), table.Shares.end(), 0);
    columns_.clear();
    headings_.clear();
    Milli x = Left;
    for (std::size_t n = 0; n < table.Headings.size(); ++n) {
        const Milli width = (Right - Left) / shares * table.Shares[n];
        columns_.push_back({x, width - CellGap});
        headings_.push_back(Text_Umbrechen(table.Headings[n], width - CellGap, TextSize, true));
        x += width;
    }
    Ueberschriften();
    if (table.Rows.empty()) {
        Absatz(report_.Nothing, TextSize, false);
    }
    for (const std::vector<std::string>& row : table.Rows) {
        Zellen cells;
        for (std::size_t n = 0; n < columns_.size() && n < row.size(); ++n) {
            cells.push_back(Text_Umbrechen(row[n], columns_[n].Width, TextSize, false));
        }
        Zeile(cells);
    }
}

void Setzer::Ueberschriften() {
    Zeilen_Setzen(headings_, 0, Hoechste(headings_), true);
}

void Setzer::Zeile(const Zellen& cells) {
    const std::size_t lines = Hoechste(cells);
    const auto fit = [this] {
        const Milli room = std::max(Rest() - RowGap, 0);
        return static_cast<std::size_t>(room / Zeilenhoehe(TextSize));
    };
    constexpr std::size_t page = (Bottom - Top) / Zeilenhoehe(TextSize);
    const std::size_t longest = page - std::min(page - 1, Hoechste(headings_) + 1);
    for (std::size_t first = 0; first < lines;) {
        std::size_t room = fit();
        if (room == 0 || (first == 0 && lines > room && lines <= longest)) {
            Neue_Seite();
            Ueberschriften();
            room = std::max<std::size_t>(fit(), 1);
        }
        const std::size_t count = std::min(room, lines - first);
        Zeilen_Setzen(cells, first, count, false);
        first += count;
    }
}

void Setzer::Zeilen_Setzen(const Zellen& cells, std::size_t first, std::size_t count, bool bold) {
    for (std::size_t n = 0; n < cells.size(); ++n) {
        for (std::size_t line = first; line < first + count && line < cells[n].size(); ++line) {
            const auto below = static_cast<Milli>(line - first + 1);
            Text(cells[n][line], columns_[n].X, y_ + below * Zeilenhoehe(TextSize), TextSize, bold);
        }
    }
    y_ += static_cast<Milli>(count) * Zeilenhoehe(TextSize) + RowGap;
    Strich(Left, Right - Left);
}

void Setzer::Unterschriften() {
    constexpr Milli space = 50 * Point, gap = 24 * Point;
    if (Rest() < space + 2 * Zeilenhoehe(SmallSize)) {
        Neue_Seite();
    }
    y_ += space;
    const auto count = static_cast<Milli>(report_.Signatures.size());
    const Milli width = (Right - Left - (count - 1) * gap) / count;
    Milli x = Left;
    for (const std::string& name : report_.Signatures) {
        Strich(x, width);
        Milli y = y_ + Zeilenhoehe(SmallSize);
        for (const std::string& line : Text_Umbrechen(name, width, SmallSize, false)) {
            Text(line, x, y, SmallSize, false);
            y += Zeilenhoehe(SmallSize);
        }
        x += width + gap;
    }
}

void Setzer::Fuesse() {
    for (std::size_t n = 0; n < pages_.size(); ++n) {
        const std::string foot =
            Drucktext(Ausfuellen(report_.PageText, {std::to_string(n + 1), std::to_string(pages_.size())}));
        pages_[n].Texts.push_back({Right - Textbreite(foot, SmallSize, false), FootY, SmallSize, false, foot});
    }
}

} // namespace

ReportPages Seiten_Setzen(const Report& report) {
    return {.Title = report.Title, .System = report.System, .Pages = Setzer(report).Setzen()};
}

} // namespace qvm
