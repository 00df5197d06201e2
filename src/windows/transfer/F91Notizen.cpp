// What the row check has to say of the rows: beside their state, and in one box for all of them.

#include "F91.h"
#include "Schlosszeile.h"
#include "Text.h"

#include <algorithm>
#include <utility>

namespace qvm {
namespace {

/// More would not fit on a small screen.
constexpr std::size_t MostNoteLines = 12;
constexpr std::string_view BetweenNotes = "  /  ";

/// A message's text on one line.
std::string Einzeilig(std::string_view text) {
    std::string line;
    for (const char character : text) {
        const bool blank = static_cast<unsigned char>(character) <= ' ';
        if (!blank) {
            line += character;
        } else if (!line.empty() && line.back() != ' ') {
            line += ' ';
        }
    }
    return std::string(Trim(line));
}

} // namespace

void F91::Notizen_Sammeln(int row) {
    std::string joined;
    for (const std::string& note : run.Daten.Notes) {
        joined += (joined.empty() ? std::string_view() : BetweenNotes);
        joined += Einzeilig(note);
        if (!told_ && Zeile_Notiz) {
            Zeile_Notiz(row, note);
        }
    }
    if (!joined.empty() && !told_) {
        notes_.emplace_back(row, joined);
    }
    rowNotes_[static_cast<std::size_t>(row)] = std::move(joined);
}

std::string F91::Mit_Notizen(int row, std::string_view text) const {
    std::string state(text);
    const auto at = static_cast<std::size_t>(row);
    if (at < rowNotes_.size() && !rowNotes_[at].empty()) {
        state += BetweenNotes;
        state += rowNotes_[at];
    }
    return state;
}

bool F91::Notizen_Melden() {
    if (std::exchange(told_, true) || notes_.empty() || Zeile_Notiz) {
        return false;
    }
    // Of a turn of its own: the list goes on while the box is open.
    Notizbox.Start(1);
    return true;
}

void F91::Tick_Notizbox() {
    Notizbox.Stop();
    std::string text = Wort(kern, Word::CheckNotes) + "\r\n";
    const std::size_t shown = std::min(notes_.size(), MostNoteLines);
    for (std::size_t n = 0; n < shown; ++n) {
        const auto& [row, note] = notes_[n];
        const LockRow lock = Gitterzeile_Lesen(FGK91, row);
        text += "\r\n" + Schloss_Zeile(kern, lock.Number, lock.Name) + " - " + note;
    }
    if (shown < notes_.size()) {
        text +=
            "\r\n\r\n" + Wort(kern, Word::CheckNotesMore, {Ziffern(static_cast<std::int64_t>(notes_.size() - shown))});
    }
    kern.Meldung(text, Buttons::Ok, Icon::Information);
}

} // namespace qvm
