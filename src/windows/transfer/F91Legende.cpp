// What the marks of the run list mean.

#include "F91.h"
#include "ListMark.h"
#include "Words.h"

#include <array>
#include <utility>

namespace qvm {
namespace {

constexpr std::array<std::pair<std::string_view, Word>, 5> Marks{{{ListMark::Waiting, Word::MarkWaiting},
                                                                  {ListMark::PassedOver, Word::MarkPassedOver},
                                                                  {ListMark::Programmed, Word::MarkProgrammed},
                                                                  {ListMark::HistoryRead, Word::MarkHistoryRead},
                                                                  {ListMark::Failed, Word::MarkFailed}}};

} // namespace

std::string Marke_Erklaeren(const Kern& kern, std::string_view mark) {
    for (const auto& [sign, word] : Marks) {
        if (sign == mark) {
            return Wort(kern, word);
        }
    }
    return {};
}

std::string Marken_Legende(const Kern& kern) {
    std::string legend;
    for (const auto& [sign, word] : Marks) {
        legend += (legend.empty() ? "" : "\n") + std::string(sign) + "   " + Wort(kern, word);
    }
    return legend;
}

} // namespace qvm
