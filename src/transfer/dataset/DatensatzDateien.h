#pragma once

#include "Dataset.h"
#include "FileTrouble.h"

#include <vector>

namespace qvm {

/// Looks at the files that a run of this lock rests on: those that its dataset is gathered from, and those that say
/// where the lock is and which adapter serves it. Names the ones that cannot be read or are damaged. A missing file is
/// none of them: it holds nothing.
std::vector<FileTrouble> Datensatz_Dateien_Pruefen(const Kern& kern, const LockRow& row);

/// What of it no consent helps against: files that cannot be read.
std::vector<FileTrouble> Unlesbare(const std::vector<FileTrouble>& troubles);

} // namespace qvm
