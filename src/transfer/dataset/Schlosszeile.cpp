#include "Schlosszeile.h"

#include "Text.h"
#include "Words.h"

#include <utility>

namespace qvm {

std::string Schloss_Zeile(const Kern& kern, int number, std::string_view name) {
    return number < 1 ? std::string() : Wort(kern, Word::LockLine, {Ziffern(number), name});
}

Answer Meldung_Zu(const Kern& kern, std::string about, std::string_view text, Buttons choice, Icon sign,
                  std::string_view title, int defaultButton) {
    return kern.Welt.ShowMessage({.Text = std::string(text),
                                  .Title = std::string(title),
                                  .Choice = choice,
                                  .Sign = sign,
                                  .DefaultButton = defaultButton,
                                  .About = std::move(about)});
}

} // namespace qvm
