#include "F51.h"

#include "Pictures.h"
#include "Text.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <optional>
#include <string_view>

namespace qvm {
namespace {

constexpr int FullBar = 1500, RestMs = 2000;

/// A step that leads on.
struct Swipe {
    std::uint8_t Code;
    int Bar;
    int Next; ///< the swipe that is due then
};
constexpr std::array Swipes{Swipe{FingerStep::Begun, 0, 1}, Swipe{FingerStep::Second, 300, 2},
                            Swipe{FingerStep::Third, 600, 3}, Swipe{FingerStep::Fourth, 900, 4},
                            Swipe{FingerStep::Fifth, 1200, 5}};

std::optional<Word> Fehlertext(std::uint8_t code) {
    switch (code) {
    case FingerStep::TooFast:
        return Word::FingerTooFast;
    case FingerStep::Slanted:
        return Word::FingerSlanted;
    case FingerStep::TooShort:
        return Word::FingerTooShort;
    case FingerStep::OffCentre:
        return Word::FingerOffCentre;
    default:
        return std::nullopt;
    }
}

std::string Schrittext(int swipe) {
    return "Swipe finger - " + Ziffern(swipe) + "x";
}

} // namespace

F51::F51(Kern& kernel)
    : kern(kernel), Timer1(kernel.Welt, RestMs), Timer2(kernel.Welt, RestMs), Wache(kernel.Welt, 1000) {
    Balken.Maximum = FullBar;
    Arbeit.Id = EnrolmentPicture::Working;
    Fertig.Id = EnrolmentPicture::Done;
    Fehlbild.Id = EnrolmentPicture::Error;
    Timer1.Ticked = [this] { Schliessen(); };
    Timer2.Ticked = [this] { Fehler_Wegnehmen(); };
    Wache.Ticked = [this] {
        if (Leser_Weg && Leser_Weg()) {
            Gescheitert(Wort(kern, Word::AdapterPulled));
        }
    };
}

void F51::F51_FormLaden() {
    swipe_ = 1;
    Schritt.Text = Schrittext(swipe_);
    Balken.Value = 0;
    Fehler.Text = std::string("!!ERROR!!");
    Fehler_Wegnehmen();
    Fertig.Visible = false;
    Texte_Setzen();
    Fenster.Visible = true;
    Wache.Start();
}

void F51::Texte_Setzen() {
    Fenster.Title = std::string("Fingerscan Enrollment");
    Command1.Text = kern.Zeile(Line::Cancel);
    Command2.Text = kern.Zeile(Line::Back);
    Arbeit.Name = Wort(kern, Word::FingerBusy);
    Fertig.Name = Wort(kern, Word::FingerEnrolled);
    Fehlbild.Name = Wort(kern, Word::FingerAgain);
    Anleitung_Setzen();
}

void F51::Anleitung_Setzen() {
    Anleitung.Text = swipe_ > 0         ? Wort(kern, Word::FingerSwipe, {Ziffern(swipe_)})
                     : Fertig.Visible() ? Wort(kern, Word::FingerEnrolled)
                                        : "";
}

void F51::Schritt_Zeigen(std::uint8_t code) {
    const auto swipe =
        std::find_if(Swipes.begin(), Swipes.end(), [code](const Swipe& candidate) { return candidate.Code == code; });
    if (swipe != Swipes.end()) {
        Balken.Value = swipe->Bar;
        swipe_ = swipe->Next;
        if (code != FingerStep::Begun) {
            Schritt.Text = Schrittext(swipe_);
        }
    } else if (code == FingerStep::Done) {
        swipe_ = 0;
        Fehler_Wegnehmen();
        Balken.Value = FullBar;
        Schritt.Text = std::string("Enroll Finger : OK");
        Fertig.Visible = true;
        Arbeit.Visible = false;
        Wache.Stop();
        Timer1.Start(RestMs);
    } else if (const auto error = Fehlertext(code)) {
        Fehler_Zeigen(Fester_Text(kern, *error));
        Timer2.Start(RestMs);
    }
    Anleitung_Setzen();
}

void F51::Fehler_Zeigen(const std::string& text) {
    Arbeit.Visible = false;
    Fehler.Text = text;
    Fehler.Visible = true;
    Fehlbild.Visible = true;
}

void F51::Fehler_Wegnehmen() {
    Timer2.Stop();
    Arbeit.Visible = true;
    Fehler.Visible = false;
    Fehlbild.Visible = false;
}

void F51::Gescheitert(const std::string& text) {
    Wache.Stop();
    Timer2.Stop();
    swipe_ = 0;
    Anleitung_Setzen();
    Fehler_Zeigen(text);
    if (Aufgegeben) {
        Aufgegeben();
    }
}

void F51::Schliessen() {
    if (!Fenster.Visible) {
        return;
    }
    Timer1.Stop();
    Timer2.Stop();
    Wache.Stop();
    Fenster.Visible = false;
    if (Verlassen) {
        Verlassen();
    }
}

} // namespace qvm
