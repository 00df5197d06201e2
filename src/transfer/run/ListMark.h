#pragma once

#include <string_view>

/// States of a row of the run list, in its column Mark.
namespace qvm::ListMark {

inline constexpr std::string_view Waiting = "*", PassedOver = "-", Programmed = ">>", HistoryRead = "<<", Failed = "#";

} // namespace qvm::ListMark
