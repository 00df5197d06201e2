#include "F92.h"

#include "Text.h"
#include "Words.h"

#include <algorithm>
#include <vector>

namespace qvm {
namespace {

constexpr int Hours = 24, MinutesOfHour = 60;

std::vector<std::string> Zahlen(int count) {
    std::vector<std::string> texts;
    texts.reserve(static_cast<std::size_t>(count));
    for (int n = 0; n < count; ++n) {
        texts.push_back(Ziffern(n, 2));
    }
    return texts;
}

} // namespace

std::string Startzeit_Text(const DateTime& moment) {
    return Ziffern(moment.Hour, 2) + ":" + Ziffern(moment.Minute, 2) + " / " + Datum_Text(Heute(moment));
}

F92::F92(Kern& kernel) : kern(kernel) {
    Stunden.Entries = Zahlen(Hours);
    Minuten.Entries = Zahlen(MinutesOfHour);
}

void F92::F92_Laden() {
    const DateTime now = kern.Welt.Now();
    Tag = Heute(now);
    Rufen_Tag();
    Zeit_Waehlen(now.Hour, now.Minute);
    Texte_Setzen();
    Fenster.Enabled = true;
    Fenster.Visible = true;
}

void F92::Texte_Setzen() {
    Fenster.Title = Fenstertitel(Wort(kern, Word::DelayedStart));
    OK.Text = kern.Zeile(Line::Ok);
    Abbrechen.Text = kern.Zeile(Line::Cancel);
    Kopf.Text = Startzeit_Text(Zeitpunkt());
}

Datum F92::Erster_Tag() const {
    return Heute(kern.Welt.Now());
}

DateTime F92::Zeitpunkt() const {
    return {.Year = Tag.Year,
            .Month = Tag.Month,
            .Day = Tag.Day,
            .Hour = std::max(0, Stunden.Selected()),
            .Minute = std::max(0, Minuten.Selected())};
}

void F92::Rufen_Tag() const {
    if (Tag_Geaendert) {
        Tag_Geaendert();
    }
}

void F92::Tag_Waehlen(const Datum& day) {
    if (Datum_Gueltig(day)) {
        Tag = day;
        Rufen_Tag();
        Kopf_Setzen();
    }
}

void F92::Zeit_Waehlen(int hour, int minute) {
    if (hour >= 0 && hour < Hours && minute >= 0 && minute < MinutesOfHour) {
        Stunden.Selected = hour;
        Minuten.Selected = minute;
        Kopf_Setzen();
    }
}

void F92::Kopf_Setzen() {
    Kopf.Text = Startzeit_Text(Zeitpunkt());
}

void F92::OK_Click() {
    Fenster.Visible = false;
    if (Gewaehlt) {
        Gewaehlt(Zeitpunkt());
    }
}

void F92::Schliessen_Click() {
    Fenster.Visible = false;
    if (Verworfen) {
        Verworfen();
    }
}

} // namespace qvm
