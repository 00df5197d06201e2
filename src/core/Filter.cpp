#include "Filter.h"

#include "Text.h"

#include <algorithm>

namespace qvm {

namespace {

constexpr int TimeLength = 5;
constexpr int ColonAt = 2;
constexpr int MinutesAt = 3;
constexpr int HighestHour = 23;

constexpr bool Ziffer(int key) {
    return key >= '0' && key <= '9';
}
constexpr bool Gross(int key) {
    return key >= 'A' && key <= 'Z';
}
constexpr bool Klein(int key) {
    return key >= 'a' && key <= 'z';
}
constexpr bool Bleibt(int key) {
    return key == Key::Backspace || key == Key::Escape || key == Key::Delete;
}
constexpr bool Eines_Von(int key, std::string_view characters) {
    return key > 0 && key < 0x80 && characters.find(static_cast<char>(key)) != std::string_view::npos;
}

char Gedeckelt(char digit, int caret) {
    if (caret == 0) {
        return std::min(digit, '2');
    }
    return caret == MinutesAt ? std::min(digit, '5') : digit;
}

/// The digit takes the place of the character under the caret, or of one that a damaged text lacks.
bool Ziffer_Schreiben(TextBox& box, char digit) {
    std::string text = box.Text().substr(0, TimeLength);
    const int caret = std::clamp(box.Caret(), 0, static_cast<int>(text.size()));
    if (caret >= TimeLength) {
        return false;
    }
    text.replace(static_cast<std::size_t>(caret), 1, 1, Gedeckelt(digit, caret));
    box.Text = text;
    box.Caret = caret + 1;
    Zeit_Geaendert(box);
    return true;
}

} // namespace

char F13_ASCII_FILTER(char character) {
    // The digits of the letters A to Z on a telephone.
    constexpr std::string_view Keypad = "22233344455566677778889999";
    const int key = static_cast<unsigned char>(character);
    if (Ziffer(key) || Bleibt(key)) {
        return character;
    }
    if (Gross(key)) {
        return Keypad[static_cast<std::size_t>(key - 'A')];
    }
    if (Klein(key)) {
        return Keypad[static_cast<std::size_t>(key - 'a')];
    }
    return Eines_Von(key, "+,-.") ? '1' : '0';
}

int Code_Ziffer(int key) {
    const bool known = Ziffer(key) || Gross(key) || Klein(key) || Eines_Von(key, "+,-.:;_");
    return known ? F13_ASCII_FILTER(static_cast<char>(key)) - '0' : -1;
}

int Name_Filter(int key) {
    constexpr std::string_view Umlauts = "\xC4\xD6\xDC\xDF\xE4\xF6\xFC";
    const bool umlaut = key >= 0x80 && key <= 0xFF && Umlauts.find(static_cast<char>(key)) != std::string_view::npos;
    const bool passes =
        key == Key::Backspace || key == ' ' || key == Key::Delete || Ziffer(key) || Gross(key) || Klein(key) || umlaut;
    return passes ? key : 0;
}

int F5_ASCII_FILTER(int key) {
    if (Bleibt(key) || Ziffer(key) || Gross(key)) {
        return key;
    }
    if (Klein(key)) {
        return key - 'a' + 'A';
    }
    if (Eines_Von(key, ":;_")) {
        return '0';
    }
    return Eines_Von(key, "+,-.") ? '1' : 0;
}

int SN_ASCII_FILTER(int key) {
    if (Bleibt(key) || Ziffer(key) || (key >= 'A' && key <= 'F')) {
        return key;
    }
    return key >= 'a' && key <= 'f' ? key - 'a' + 'A' : 0;
}

int ASCII_FILTER_F20(int key) {
    return SN_ASCII_FILTER(key);
}

ZeitTaste Zeit_Taste(TextBox& box, int key) {
    box.MaxLength = TimeLength;
    // On the colon every key is lost, also those that would close the box; leaving the box still commits it.
    if (box.Caret() == ColonAt) {
        return ZeitTaste::Verschluckt;
    }
    if (Ziffer(key)) {
        return Ziffer_Schreiben(box, static_cast<char>(key)) ? ZeitTaste::Geschrieben : ZeitTaste::Verschluckt;
    }
    if (key == Key::Tab || key == Key::Enter) {
        return ZeitTaste::Bestaetigt;
    }
    return key == Key::Escape ? ZeitTaste::Abgebrochen : ZeitTaste::Verschluckt;
}

void Zeit_Oeffnen(TextBox& box, int key) {
    box.MaxLength = TimeLength;
    const char first = Ziffer(key) ? Gedeckelt(static_cast<char>(key), 0) : '0';
    box.Text = std::string(1, first) + "0:00";
    box.Caret = 1;
}

void Zeit_Geaendert(TextBox& box) {
    if (box.Caret() == ColonAt) {
        box.Caret = MinutesAt;
    }
    const std::string text = box.Text();
    if (Zahlwert(Mid(text, 1, ColonAt)) > HighestHour) {
        const std::size_t tail = text.size() < 2 ? 0 : text.size() - 2;
        box.Text = "23:" + text.substr(tail);
        box.Caret = MinutesAt;
    }
}

} // namespace qvm
