#pragma once

#include "FileStore.h"

#include <array>
#include <set>
#include <string>
#include <vector>

/// Small text files of the guest cards. Lines end with carriage return and line feed; line 1 is the date of saving,
/// which nobody reads.
namespace qvm {

struct Kern;

/// PERMSELECT.RFS: serials of the permanent doors, trimmed, up to "ENDE" or the end of the file. Ok, Missing (none) or
/// Error (none).
ReadStatus PermSelect_Laden(const Kern& kern, std::set<std::string>& serials);
/// Replaces it, all or nothing. False on a file error.
bool PermSelect_Speichern(const Kern& kern, const std::vector<std::string>& serials);

/// ObJNR09DAT.OBN: the current object group, 0 to 254. 0 without a file; 1 when the file is damaged: line 3 is line 2
/// plus 1. Error leaves 1.
ReadStatus GruppenNr_Laden(const Kern& kern, int& number);
/// Replaces it, all or nothing. False on a file error.
bool GruppenNr_Speichern(const Kern& kern, int number);

/// OFSTSETUPDT.FST: lines 2 and 3 as they stand; empty where there is none.
ReadStatus Kartenzeiten_Laden(const Kern& kern, std::array<std::string, 2>& times);

} // namespace qvm
