#pragma once

#include "Bestand.h"
#include "Kern.h"

#include <string_view>
#include <vector>

namespace qvm {

/// What the data files hold, read anew. A missing file holds nothing.
Bestand Bestand_Lesen(const Kern& kern);

/// The latest history files, the newest first, at most `LetzteHistorien`. A file whose name does not tell lock and
/// date, as that of a program that names its files otherwise, is left out.
std::vector<Historiendatei> Historien_Liste(const Kern& kern);

/// "Tor, 05.03.2026 10:30" of a history file by its name, UTF-8; empty when the name does not tell it.
std::string Historie_Beschreiben(std::string_view file);

} // namespace qvm
