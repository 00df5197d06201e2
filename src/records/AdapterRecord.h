#pragma once

#include "Record.h"

#include <array>

/// The list of known adapters.
namespace qvm {

/// An adapter: its address text, its name and the number of its port.
namespace AdapterRecord {
inline constexpr RecordField Adresse{"Adresse", 0, 16}, Name{"Name", 16, 20}, Port{"Port", 36, 2},
    Reserve{"Reserve", 38, 10}, Unused{"Unused", 48, 17, Fill::Null};
inline constexpr std::array Fields{Adresse, Name, Port, Reserve, Unused};
inline constexpr RecordLayout Record{"AdapterRecord", "COMSETUPADAPTER.ADP", 65, 1, 20, Fields, 20};
static_assert(sizeof(GapAtField<RecordError(Fields, 65)>) == 1);
} // namespace AdapterRecord

} // namespace qvm
