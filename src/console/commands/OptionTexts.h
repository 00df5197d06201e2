#pragma once

#include "Optionen.h"

#include <string>

namespace qvm {

/// The options as texts, where CLI11 puts them.
struct OptionTexts {
    std::string Since;
    std::string Date;
    std::string At;
    std::string CheckIn, CheckOut;
    std::string Erase = "keep";
};

/// Takes the texts over into `options` and looks at what CLI11 cannot check. Gives what is wrong, for the operator;
/// empty when all is well.
/// @param today of which a history may be read at the latest
std::string Optionen_Nachpruefen(Optionen& options, const OptionTexts& texts, const Datum& today);

} // namespace qvm
