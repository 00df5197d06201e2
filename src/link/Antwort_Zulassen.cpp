#include "Antwort_Verteilen.h"
#include "Telegramme.h"

namespace qvm {
namespace {

constexpr std::uint8_t CodeChange = TelCodeAendern::Telegram.Code, Refusal = RpAblehnung::Reply.Code;
/// From here on replies belong to windows, and to the adapter itself.
constexpr std::uint8_t FirstOfWindows = 0x60;

/// A window without a run waits for replies of the chain.
bool Fenster_Wartet(const RunState& lauf) {
    return lauf.Chain.CodeChangePending != 0 || lauf.Chain.SuchLauf != 0 || lauf.Chain.SuchMarke != 0 ||
           lauf.Chain.LaufZiel == "F20" || lauf.Chain.LaufZiel == "F22";
}

} // namespace

bool Antwort_Zulaessig(const Link& link, std::uint8_t code) {
    const RunState& lauf = link.Lauf;
    // In a run each of them counts, be it only as the wrong answer.
    if (lauf.Chain.Phase == RunPhase::Open || (code >= FirstOfWindows && code != Refusal)) {
        return true;
    }
    if (lauf.Chain.Phase == RunPhase::Closing) {
        return code == 0x03 || code == 0x05 || code == Refusal;
    }
    const bool due = code == Refusal ? link.AnswerDue != 0 : code == CodeChange && link.AnswerDue == CodeChange;
    return due || Fenster_Wartet(lauf);
}

void Antwort_Abhaken(Link& link, std::uint8_t code) {
    const bool key = link.AnswerDue == TelEKeyLesen::Telegram.Code && code == RpEKey::Reply.Code;
    if (code == link.AnswerDue || code == Refusal || key) {
        link.AnswerDue = 0;
    }
}

} // namespace qvm
