#include "Fragen.h"

namespace qvm {

Verlassen Verlassen_Fragen(const Kern& kern, std::string_view title) {
    constexpr int saveLine = 60;
    switch (kern.Meldung(kern.Zeile(saveLine), Buttons::YesNo, Icon::Question, title)) {
    case Answer::Yes:
        return Verlassen::Speichern;
    case Answer::No:
        return Verlassen::Verwerfen;
    case Answer::Ok:
    case Answer::Cancel:
        break;
    }
    return Verlassen::Bleiben;
}

} // namespace qvm
