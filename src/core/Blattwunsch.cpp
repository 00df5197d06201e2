#include "Blattwunsch.h"

#include "Eingabe.h"
#include "Text.h"

#include <algorithm>
#include <map>

namespace qvm {

const std::string* Blattwunsch::Feld(int column) const {
    const auto found = Line->Fields.find(column);
    return found == Line->Fields.end() ? nullptr : &found->second;
}

std::set<std::size_t> Blatt_Doppelte(const Grid& grid, int firstRow, int column, const std::vector<Blattwunsch>& wishes,
                                     const std::vector<Blatttext>& texts) {
    std::map<int, std::string> wanted;
    for (const Blatttext& text : texts) {
        wanted[wishes[text.Wish].Row] = RTrim(text.Text);
    }
    const auto later = [&](int row) {
        const auto found = wanted.find(row);
        return found == wanted.end() ? std::string(RTrim(grid.Text(row, column))) : found->second;
    };
    std::set<std::size_t> refused;
    // One that is refused keeps its old text, which another row may have been about to take.
    for (bool again = true; again;) {
        again = false;
        for (auto text = texts.rbegin(); text != texts.rend(); ++text) {
            const int row = wishes[text->Wish].Row;
            const std::string mine(RTrim(text->Text));
            if (mine.empty() || refused.contains(text->Wish)) {
                continue;
            }
            for (int other = firstRow; other < grid.Rows(); ++other) {
                if (other != row && later(other) == mine) {
                    wanted.erase(row);
                    refused.insert(text->Wish);
                    again = true;
                    break;
                }
            }
        }
    }
    return refused;
}

std::string Blattschreiber::Ueberschrift(int column) const {
    const auto found = sheet_.Headings.find(column);
    return found == sheet_.Headings.end() ? std::string() : found->second;
}

void Blattschreiber::Neu(const Blattwunsch& wish) {
    plan_.Steps.push_back({.Kind = Blattart::Added,
                           .Line = wish.Line->Line,
                           .Row = wish.Row,
                           .Column = 0,
                           .Who = who_,
                           .Heading = {},
                           .Old = {},
                           .New = {},
                           .Why = {}});
}

void Blattschreiber::Aendern(const Blattwunsch& wish, int column, std::string old, std::string text) {
    plan_.Steps.push_back({.Kind = Blattart::Changed,
                           .Line = wish.Line->Line,
                           .Row = wish.Row,
                           .Column = column,
                           .Who = who_,
                           .Heading = Ueberschrift(column),
                           .Old = std::move(old),
                           .New = std::move(text),
                           .Why = {}});
}

void Blattschreiber::Ablehnen(const Blattwunsch& wish, int column, Word why) {
    const std::string* field = wish.Feld(column);
    plan_.Steps.push_back({.Kind = Blattart::Refused,
                           .Line = wish.Line->Line,
                           .Row = wish.Row,
                           .Column = column,
                           .Who = who_,
                           .Heading = Ueberschrift(column),
                           .Old = {},
                           .New = field == nullptr ? std::string() : *field,
                           .Why = why});
}

void Blattschreiber::Zeile_Ablehnen(const Blattzeile& line, std::string name, Word why) {
    plan_.Steps.push_back({.Kind = Blattart::Refused,
                           .Line = line.Line,
                           .Row = 0,
                           .Column = 0,
                           .Who = std::move(name),
                           .Heading = {},
                           .Old = {},
                           .New = {},
                           .Why = why});
}

std::optional<Word> Eingabe_Mangel(std::string_view text, int (*filter)(int key), std::size_t longest) {
    if (Gefiltert(text, filter) != text) {
        return Word::SheetNotAllowed;
    }
    return text.size() > longest ? std::optional(Word::SheetTooLong) : std::nullopt;
}

int Blattnummer(std::string_view field, int last) {
    const std::string_view text = Trim(field);
    const bool digits =
        !text.empty() && text.size() <= 4 && text.find_first_not_of("0123456789") == std::string_view::npos;
    const int number = digits ? Zahlwert(text) : 0;
    return number <= last ? number : 0;
}

} // namespace qvm
