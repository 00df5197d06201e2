#include "NetSchritte.h"

namespace qvm {

bool Net_Uhrzeit_Senden(Netzlauf& run) {
    namespace U = NetzUhr;
    Link& link = run.link;
    run.Phase = NetPhase::Clock;
    const DateTime now = run.kern.Welt.Now();
    Net_Kopf(run, 1, 1, U::LengthWord, NetzCode::Clock, NetzClearShort);
    Net_Feld(link, U::Day, static_cast<unsigned>(now.Day));
    Net_Feld(link, U::Month, static_cast<unsigned>(now.Month));
    Net_Feld(link, U::Year, static_cast<unsigned>(now.Year % 100));
    Net_Feld(link, U::Hour, static_cast<unsigned>(now.Hour));
    Net_Feld(link, U::Minute, static_cast<unsigned>(now.Minute));
    Net_Feld(link, U::Second, static_cast<unsigned>(now.Second));
    Net_Feld(link, U::Sum, Bereich_Pruefsumme_Tx(link, U::Sum.Offset - NetzPayload, NetzPayload));
    // One byte more than the length word says, or the checksum would not go out.
    return Net_Telegramm_Senden(run, U::Sum.Offset, true, 3000, 4);
}

} // namespace qvm
