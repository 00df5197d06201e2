#include "SeriellesProtokoll.h"

#include "TelegrammBau.h"
#include "TelegrammeSitzung.h"
#include "Zeit.h"

/// Session telegrams, and those that set the device as a whole.
namespace qvm {

bool TelUnitTrennen_Senden(Link& link) {
    return Leer_Abschicken(link, TelUnitTrennen::Telegram);
}

bool TelVerbinden_Senden(Link& link) {
    Telegramm_Beginnen(link, TelVerbinden::Telegram);
    Feld_Setzen(link, TelVerbinden::AdminCode, link.Lauf.Order.AdminCode);
    Feld_Setzen(link, TelVerbinden::Channel, link.TargetChannel);
    return Telegramm_Abschicken(link, TelVerbinden::Telegram);
}

bool TelVerbindenKurz_Senden(Link& link) {
    Telegramm_Beginnen(link, TelVerbindenKurz::Telegram);
    Feld_Setzen(link, TelVerbindenKurz::AdminCode, link.Lauf.Order.AdminCode);
    Feld_Setzen(link, TelVerbindenKurz::Channel, link.TargetChannel);
    return Telegramm_Abschicken(link, TelVerbindenKurz::Telegram);
}

bool TelTrennen_Senden(Link& link) {
    return Leer_Abschicken(link, TelTrennen::Telegram);
}

bool TelDatum_Senden(Link& link) {
    const DateTime now = link.kern.Welt.Now();
    Telegramm_Beginnen(link, TelDatum::Telegram);
    Feld_Setzen(link, TelDatum::Day, static_cast<unsigned>(now.Day));
    Feld_Setzen(link, TelDatum::Month, static_cast<unsigned>(now.Month));
    Feld_Setzen(link, TelDatum::Year, static_cast<unsigned>(now.Year % 100));
    return Telegramm_Abschicken(link, TelDatum::Telegram);
}

bool TelUhrzeit_Senden(Link& link) {
    const DateTime now = link.kern.Welt.Now();
    Telegramm_Beginnen(link, TelUhrzeit::Telegram);
    Feld_Setzen(link, TelUhrzeit::Hour, static_cast<unsigned>(now.Hour));
    Feld_Setzen(link, TelUhrzeit::Minute, static_cast<unsigned>(now.Minute));
    Feld_Setzen(link, TelUhrzeit::Second, static_cast<unsigned>(now.Second));
    return Telegramm_Abschicken(link, TelUhrzeit::Telegram);
}

bool TelLebenszeichen_Senden(Link& link) {
    return Leer_Abschicken(link, TelLebenszeichen::Telegram);
}

bool TelCodeAendern_Senden(Link& link, const AdminCodeBytes& oldCode, const AdminCodeBytes& newCode) {
    Telegramm_Beginnen(link, TelCodeAendern::Telegram);
    Feld_Setzen(link, TelCodeAendern::OldCode, oldCode);
    Feld_Setzen(link, TelCodeAendern::NewCode, newCode);
    return Telegramm_Abschicken(link, TelCodeAendern::Telegram);
}

bool TelDatenEnde_Senden(Link& link) {
    return Leer_Abschicken(link, TelDatenEnde::Telegram);
}

bool TelHistorie_Senden(Link& link, std::uint8_t which) {
    return Parameter_Abschicken(link, TelHistorie::Telegram, which, 0);
}

bool TelSperrTimerFlag_Senden(Link& link) {
    return Wert_Abschicken(link, TelSperrTimerFlag::Telegram, TelSperrTimerFlag::Flag, link.Lauf.Values.FlagLockTimer);
}

bool TelKalenderFlag_Senden(Link& link) {
    return Wert_Abschicken(link, TelKalenderFlag::Telegram, TelKalenderFlag::Flag, link.Lauf.Values.FlagCalendar);
}

bool TelDatenStart_Senden(Link& link, std::uint8_t option) {
    return Wert_Abschicken(link, TelDatenStart::Telegram, TelDatenStart::Option, option);
}

bool TelKanalLesen_Senden(Link& link, int channel) {
    return Wert_Abschicken(link, TelKanalLesen::Telegram, TelKanalLesen::Channel, static_cast<unsigned>(channel - 1));
}

bool TelKanalSetzen_Senden(Link& link, int channel) {
    return Wert_Abschicken(link, TelKanalSetzen::Telegram, TelKanalSetzen::Channel, static_cast<unsigned>(channel - 1));
}

bool TelPrioritaet_Senden(Link& link) {
    return Wert_Abschicken(link, TelPrioritaet::Telegram, TelPrioritaet::Priority, link.Lauf.Values.PriorityCode);
}

bool TelSchlossModus_Senden(Link& link) {
    return Wert_Abschicken(link, TelSchlossModus::Telegram, TelSchlossModus::Mode, link.Lauf.Values.LockMode);
}

bool TelZeitfenster_Senden(Link& link, std::uint8_t first, std::uint8_t second, int seconds) {
    std::int64_t high = seconds;
    for (int n = 0; n < 8; ++n) {
        high = Halbieren_Gerade(high);
    }
    Telegramm_Beginnen(link, TelZeitfenster::Telegram);
    Feld_Setzen(link, TelZeitfenster::First, first);
    Feld_Setzen(link, TelZeitfenster::Second, second);
    Feld_Setzen(link, TelZeitfenster::High, static_cast<unsigned>(high));
    Feld_Setzen(link, TelZeitfenster::Low, static_cast<unsigned>(seconds));
    return Telegramm_Abschicken(link, TelZeitfenster::Telegram);
}

bool TelReaderEinstellung_Senden(Link& link, std::uint8_t level, bool flag) {
    Telegramm_Beginnen(link, TelReaderEinstellung::Telegram);
    Feld_Setzen(link, TelReaderEinstellung::Level, level);
    Feld_Setzen(link, TelReaderEinstellung::Pair1, flag ? 3U : 0U);
    Feld_Setzen(link, TelReaderEinstellung::Pair2, flag ? 1U : 0U);
    return Telegramm_Abschicken(link, TelReaderEinstellung::Telegram);
}

} // namespace qvm
