#include "Fragen.h"

namespace qvm {

Verlassen Verlassen_Fragen(const Kern& kern, std::string_view title) {
    switch (kern.Meldung(kern.Zeile(Line::SaveChanges), Buttons::YesNo, Icon::Question, title)) {
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

bool Verlassen_Erlaubt(const Kern& kern, bool dirty, std::string_view title, const std::function<bool()>& save) {
    const Verlassen choice = dirty ? Verlassen_Fragen(kern, title) : Verlassen::Verwerfen;
    return choice == Verlassen::Verwerfen || (choice == Verlassen::Speichern && save());
}

bool Verlust_Hinnehmen(const Kern& kern, std::string_view question, std::string_view title) {
    constexpr int no = 2;
    return kern.Meldung(question, Buttons::YesNo, Icon::Question, title, no) == Answer::Yes;
}

} // namespace qvm
