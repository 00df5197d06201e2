#pragma once

#include "AdapterListe.h"
#include "F5.h"
#include "Link.h"

#include <cstdint>
#include <string>
#include <string_view>

/// What all conversations of F5 with the readers of the desk have in common.
namespace qvm {

/// The port of the programming adapter, whose reader is for E-Keys, or of the adapter for enrolment.
using LeserPort = int AdapterListe::*;

/// Makes the reader's port ready: adapters are searched first when none is known, and events go on meanwhile, with the
/// window disabled. False, behind a message, when there is no such adapter. A port that cannot be opened shows at the
/// first telegram. An E-Key that was asked for before is owed to nobody any more, in any case.
bool Leser_Bereitmachen(F5& window, Link& link, AdapterListe& adapters, LeserPort which);
/// What a reader owes to this telegram is not waited for any more; should it come all the same, it is told as late.
void Leser_Zurueckziehen(Link& link, std::uint8_t telegram);
/// True when the reader that was made ready is gone: its port is closed, or the ports were determined anew since, as
/// behind every removal and arrival. `stand`: of the list (AdapterListe::Stand) when it was asked.
bool Leser_Weg(const Kern& kern, const AdapterListe& adapters, int stand);
/// The telegram could not leave: the operator is told.
void Leser_Stumm(const Kern& kern);
/// The reader that was made ready is gone: the operator is told.
void Leser_Getrennt(const Kern& kern);

/// A row for which something was asked of a reader, and who stood in it: by the time of the answer the table may be
/// sorted, loaded anew, or closed. The name alone does not tell who, as two users may have the same.
struct F5Zeile {
    int Row = 0;
    std::string Name;
    int Who = 0; ///< F5::Wer then
};
F5Zeile F5Zeile_Merken(const F5& window, int row);
/// The row where the same user stands by now; 0 when that is not certain, or the window is closed.
int F5Zeile_Finden(const F5& window, const F5Zeile& asked);

/// `head`, then bytes of the received frame as decimals, `between` them. Bytes beyond the frame are 0. Nothing but the
/// result has held them.
std::string Dezimal(const Link& link, int first, int count, std::string_view between, std::string_view head = {});

} // namespace qvm
