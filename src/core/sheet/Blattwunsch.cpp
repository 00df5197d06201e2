#include "Blattwunsch.h"

#include "Eingabe.h"
#include "Text.h"

#include <algorithm>
#include <map>
#include <utility>

namespace qvm {

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

Blattschritt& Blattschreiber::Schritt(Blattart kind, const Blattwunsch& wish, int column) {
    Blattschritt step;
    step.Kind = kind;
    step.Line = wish.Line->Line;
    step.Row = wish.Row;
    step.Column = column;
    step.Who = who_;
    // Column 0 would be that of the numbers.
    if (const auto found = sheet_.Headings.find(column); column != 0 && found != sheet_.Headings.end()) {
        step.Heading = found->second;
    }
    return plan_.Steps.emplace_back(std::move(step));
}

void Blattschreiber::Neu(const Blattwunsch& wish) {
    Schritt(Blattart::Added, wish, 0);
}

void Blattschreiber::Aendern(const Blattwunsch& wish, int column, std::string old, std::string text) {
    Blattschritt& step = Schritt(Blattart::Changed, wish, column);
    step.Old = std::move(old);
    step.New = std::move(text);
}

void Blattschreiber::Ablehnen(const Blattwunsch& wish, int column, Word why) {
    Blattschritt& step = Schritt(Blattart::Refused, wish, column);
    step.New = wish.Line->Feldtext(column);
    step.Why = why;
}

void Blattschreiber::Zeile_Ablehnen(const Blattzeile& line, std::string name, Word why) {
    Wer(std::move(name));
    Schritt(Blattart::Refused, {.Line = &line, .Row = 0, .Added = false}, 0).Why = why;
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
