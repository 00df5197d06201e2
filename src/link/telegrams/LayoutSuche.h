#pragma once

#include "TelegrammLayout.h"

#include <cstdint>
#include <span>

/// From a frame to the layout that explains it.
namespace qvm {

/// How many bytes a frame of this layout lacks against the full one.
int Kuerzung(const Layout& layout, std::span<const std::uint8_t> frame);

/// The field as it stands in a frame that lacks `shorter` bytes: rows are fewer, fields behind them move forward.
Field Feld_Im_Rahmen(const Layout& layout, Field field, int shorter);

/// True when every constant byte of the layout stands in the frame, as far as the frame goes.
bool Festwerte_Passen(const Layout& layout, std::span<const std::uint8_t> frame);

/// The layout of a frame, the first one whose constant bytes stand in it or else the first one of its length. Nothing
/// when the code or the length is not known.
const Layout* Layout_Suchen(bool sent, std::span<const std::uint8_t> frame);

} // namespace qvm
