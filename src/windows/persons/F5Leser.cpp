#include "F5Leser.h"

#include "AdapterScan.h"
#include "TelegrammeUnit.h"

#include <cstddef>

namespace qvm {

bool Leser_Bereitmachen(F5& window, Link& link, AdapterListe& adapters, LeserPort which) {
    Leser_Zurueckziehen(link, TelEKeyLesen::Telegram.Code);
    window.Fenster.Enabled = adapters.*which != 0; // a search lets events go on
    const bool ready = Adapter_Port_Oeffnen(link, adapters, which);
    window.Fenster.Enabled = true;
    if (!ready) {
        window.kern.Meldung(window.kern.Zeile(Line::NoSuitableAdapter), Buttons::Ok, Icon::Exclamation);
    }
    return ready;
}

void Leser_Zurueckziehen(Link& link, std::uint8_t telegram) {
    if (link.AnswerDue == telegram) {
        link.AnswerDue = 0;
        link.AnswerWithdrawn = telegram;
    }
}

bool Leser_Weg(const Kern& kern, const AdapterListe& adapters, int stand) {
    return !kern.Welt.Port.IsOpen() || adapters.Stand != stand;
}

void Leser_Stumm(const Kern& kern) {
    kern.Meldung(kern.Zeile(Line::PortNotOpened), Buttons::Ok, Icon::Exclamation);
}

void Leser_Getrennt(const Kern& kern) {
    kern.Meldung(Wort(kern, Word::AdapterPulled), Buttons::Ok, Icon::Exclamation);
}

F5Zeile F5Zeile_Merken(const F5& window, int row) {
    return {.Row = row, .Name = window.Benutzername(row), .Who = window.Wer(row)};
}

int F5Zeile_Finden(const F5& window, const F5Zeile& asked) {
    const int row = window.Zeile_Von(asked.Who);
    // Of the rows without a name none is like another.
    const bool same = row == asked.Row || !Trim(asked.Name).empty();
    return window.Fenster.Visible && same && window.Benutzername(row) == asked.Name ? row : 0;
}

std::string Dezimal(const Link& link, int first, int count, std::string_view between, std::string_view head) {
    constexpr std::size_t digits = 3;
    std::string text;
    text.reserve(head.size() + static_cast<std::size_t>(count) * (digits + between.size()));
    text += head;
    for (int n = 0; n < count; ++n) {
        text += n == 0 ? std::string_view() : between;
        text += Ziffern(link.RxByte(first + n));
    }
    return text;
}

} // namespace qvm
