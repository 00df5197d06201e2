#include "Telegramme.h"

#include <algorithm>

namespace qvm {
namespace {

// By code; the forms of one code with the more telling one first, as the first that fits names a frame.
constexpr std::array All{TelUnitTrennen::Telegram,       TelVerbinden::Telegram,       TelVerbindenKurz::Telegram,
                         TelTrennen::Telegram,           TelDatum::Telegram,           TelLebenszeichen::Telegram,
                         TelUhrzeit::Telegram,           TelBenutzerBeginn::Telegram,  TelBenutzerName1::Telegram,
                         TelBenutzerName2::Telegram,     TelBenutzerDaten::Telegram,   TelBenutzerDatenLang::Telegram,
                         TelCodeAendern::Telegram,       TelDatenEnde::Telegram,       TelHistorie::Telegram,
                         TelSchaltuhrA::Telegram,        TelSchaltuhrAKurz::Telegram,  TelSchaltuhrB::Telegram,
                         TelSchaltuhrBKurz::Telegram,    TelEinzelFeiertage::Telegram, TelPermFeiertage::Telegram,
                         TelSperrTimerFlag::Telegram,    TelKalenderFlag::Telegram,    TelDatenStart::Telegram,
                         TelKanalLesen::Telegram,        TelKanalSetzen::Telegram,     TelPrioritaet::Telegram,
                         TelSchlossModus::Telegram,      TelZeitfenster::Telegram,     TelBenutzerZeitgruppen::Telegram,
                         TelReaderEinstellung::Telegram, TelUnitEinstellung::Telegram, TelBenutzerVorlage::Telegram,
                         TelIdDaten1::Telegram,          TelIdDaten2::Telegram,        TelUnitSchluessel::Telegram,
                         TelUnitOeffnen::Telegram,       TelUnitBlock::Telegram,       TelUnitSuche::Telegram,
                         TelEKeyAktion::Telegram,        TelEKeyLesen::Telegram,       TelEKeyLesenAlt::Telegram,
                         TelAdapterKennung::Telegram,    TelAdapterKanal::Telegram,    TelAdapterDaten::Telegram,
                         TelAdapterName::Telegram,       TelAdapterZiel::Telegram,     TelKarteSchreiben::Telegram,
                         TelKarteFolge::Telegram,        TelFingerLoeschen::Telegram,  TelKarteStart::Telegram,
                         TelKarteLesen::Telegram,        TelFingerAnlernen::Telegram,  TelFingerAbfrage::Telegram,
                         TelUnitVerbinden::Telegram};

constexpr std::array WithFields{RpNeustart::Reply,       RpVerbunden::Reply,        RpLeben::Reply,
                                RpLeben::Reply8,         RpBenutzerSlot::Reply,     RpCodeErgebnis::Reply,
                                RpHistorieSatz::Reply,   RpBlockQuittung::Reply,    RpUnitGefunden::Reply,
                                RpAdapterKennung::Reply, RpAdapterKennung::Reply6A, RpAblehnung::Reply,
                                RpAdapterDaten::Reply,   RpAdapterName::Reply,      RpKarte::Reply,
                                RpKarteStart::Reply,     RpKarteBlock::Reply,       RpEKey::Reply,
                                RpFingerStatus::Reply,   RpFingerDaten::Reply,      RpFingerKennung::Reply};

constexpr std::size_t ReplyCount = WithFields.size() + QuittungCodes.size();

constexpr std::array<Layout, ReplyCount> Alle_Antworten() {
    std::array<Layout, ReplyCount> all{};
    std::size_t n = 0;
    for (const Layout& layout : WithFields) {
        all[n++] = layout;
    }
    for (const std::uint8_t code : QuittungCodes) {
        all[n++] = Layout{QuittungName, code, 1, Build::Reply, {}};
    }
    std::sort(all.begin(), all.end(), [](const Layout& a, const Layout& b) { return a.Code < b.Code; });
    return all;
}

constexpr std::array<Layout, ReplyCount> Replies = Alle_Antworten();

} // namespace

std::span<const Layout> Telegramme() {
    return All;
}

std::span<const Layout> Antworten() {
    return Replies;
}

} // namespace qvm
