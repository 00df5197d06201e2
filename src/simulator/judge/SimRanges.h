#pragma once

#include "SimForms.h"

#include <cstdint>
#include <span>
#include <string>

namespace qvm {

/// What is wrong with the bytes of this part, as a sentence's end; empty when nothing is.
std::string RangeFault(const FormPart& part, std::span<const std::uint8_t> bytes);

/// Days of a month, February with 29 unless `year` (two digits, 20xx) has only 28. 0 for a month that does not exist.
int DaysOfMonth(int month, int year);

} // namespace qvm
