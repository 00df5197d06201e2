#pragma once

#include "Protokoll.h"

#include <vector>

namespace qvm {

/// Which bytes of a frame the trace does not show: the secret fields and the checksum over them, everything behind the
/// header of what no layout explains, and the payload of a network telegram. Of a frame that was dropped nothing but
/// the code and the length are shown, as a damaged code must not decide what a secret is. Bytes that were hidden
/// already stay so, even with Geheimnis::Zeigen.
std::vector<bool> Verborgene(const Mitschnitt& frame, Geheimnis secrets);

} // namespace qvm
