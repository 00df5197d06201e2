#pragma once

#include "Link.h"
#include "TelegrammLayout.h"

#include <cstdint>
#include <span>
#include <string_view>

/// What every builder is made of: begin by a layout, set its fields, send.
namespace qvm {

/// Header words by the layout's manner, payload 0, constant bytes in place, index 13 zero. Index 13 lies inside the
/// checksum and would otherwise keep a byte of the telegram before.
void Telegramm_Beginnen(Link& link, const Layout& layout);
/// The same for a layout with a variable number of rows; `length` is held inside the layout's range.
void Telegramm_Beginnen(Link& link, const Layout& layout, int length);

/// A Byte or Word field.
void Feld_Setzen(Link& link, const Field& field, unsigned value);
/// As many bytes as the field takes; what is missing stays 0.
void Feld_Setzen(Link& link, const Field& field, std::span<const std::uint8_t> bytes);
void Feld_Setzen(Link& link, const Field& field, std::string_view text);
/// The bytes from the field's first on, over as many fields as they reach, but not behind the telegram's last payload
/// byte.
void Ab_Feld_Setzen(Link& link, const Field& field, std::span<const std::uint8_t> bytes);

/// Raw or addressed transmit, by the layout.
bool Telegramm_Abschicken(Link& link, const Layout& layout);
/// A layout of manner Kopf2.
bool Parameter_Abschicken(Link& link, const Layout& layout, std::uint8_t param1, std::uint8_t param2);
/// A layout of one Byte or Word field, or of none.
bool Wert_Abschicken(Link& link, const Layout& layout, const Field& field, unsigned value);
bool Leer_Abschicken(Link& link, const Layout& layout);

} // namespace qvm
