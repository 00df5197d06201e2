#include "SerialEntry.h"

#include "Eingabe.h"
#include "Filter.h"
#include "LinkHooks.h"

#include <algorithm>
#include <utility>

namespace qvm {

SerialEntry::SerialEntry() {
    for (TextBox& box : Boxes) {
        box.MaxLength = static_cast<int>(Digits);
    }
}

void SerialEntry::Oeffnen(int key) {
    Schliessen();
    entered_ = 0;
    Visible = true;
    Rufen(Boxes.front().SetFocus);
    const int digit = SN_ASCII_FILTER(key);
    if (Ist_Zeichen(digit)) {
        typed_.front() = static_cast<char>(digit);
        Boxes.front().Text = typed_.front();
        Boxes.front().Caret = 1;
    }
}

void SerialEntry::Schliessen() {
    Visible = false;
    for (std::size_t box = 0; box < Count; ++box) {
        typed_[box].clear();
        Boxes[box].Text = std::string();
    }
}

void SerialEntry::Betreten(std::size_t box) {
    if (!Visible || box >= Count || box == entered_) {
        return;
    }
    entered_ = box;
    typed_[box].clear();
    Boxes[box].Text = std::string();
    Rufen(Boxes[box].SetFocus);
}

void SerialEntry::Getippt(std::size_t box, std::string_view text) {
    if (!Visible || box >= Count) {
        return;
    }
    const std::string before = typed_[box];
    const std::string offered(text); // which may be that of the box
    typed_[box] = Gefiltert(offered, SN_ASCII_FILTER).substr(0, Digits);
    Boxes[box].Text = typed_[box];
    if (typed_[box] != offered) {
        Boxes[box].Caret = Einfuegestelle(before, offered, typed_[box]);
    }
    if (before.size() < Digits && typed_[box].size() == Digits && box + 1 < Count) {
        Betreten(box + 1);
    }
}

void SerialEntry::Eintippen(std::string_view text) {
    bool advanced = false; // behind the second digit, by itself
    for (const char character : text) {
        const std::size_t box = entered_;
        if (character != '.') {
            Getippt(box, typed_[box] + character);
            advanced = entered_ != box;
        } else if (!std::exchange(advanced, false)) {
            Betreten(box + 1);
        }
    }
}

void SerialEntry::Taste(std::size_t box, int key) {
    if (!Visible) {
        return;
    }
    const bool confirms = key == Key::Tab || key == Key::Enter;
    if (key == Key::Escape) {
        Abgebrochen();
    } else if (confirms && box + 1 < Count) {
        Betreten(box + 1);
    } else if (confirms) {
        Fertig(true);
    }
}

void SerialEntry::Verlassen() {
    if (!Visible) {
        return;
    }
    if (Leer()) {
        Abgebrochen();
    } else {
        Fertig(false);
    }
}

bool SerialEntry::Leer() const {
    return std::all_of(typed_.begin(), typed_.end(), [](const std::string& part) { return part.empty(); });
}

bool SerialEntry::Vollstaendig() const {
    return std::all_of(typed_.begin(), typed_.end(), [](const std::string& part) { return part.size() == Digits; });
}

std::string SerialEntry::Serie() const {
    return Leer() ? std::string() : typed_[0] + "." + typed_[1] + "." + typed_[2] + "." + typed_[3];
}

} // namespace qvm
