#include "Worttafel.h"

#include "TextEdge.h"
#include "Words.h"

namespace qvm::ui {

QString word(Word which, std::string_view language) {
    return toQt(Wort(which, language));
}

} // namespace qvm::ui
