#pragma once

#include "Record.h"

#include <span>
#include <string_view>

namespace qvm {

struct Kern;

/// One field that goes over from the old form of a record into the new one.
struct FieldCopy {
    RecordField From;
    RecordField To;
};

/// One step of the conversion of older data files at the start.
struct Umstellung {
    const RecordLayout& Source;        ///< old form; its file goes when the step has run
    const RecordLayout& Target;        ///< new form and the file that takes it
    int Records;                       ///< records that are converted, from 1
    std::span<const FieldCopy> Copies; ///< what goes over; every other field of the target becomes blank
    std::string_view Literal;          ///< stands behind `Line::DataConverted` in the message
};

/// Runs the step when its source exists in the data directory: writes the target in one piece, deletes the source and
/// shows `Line::DataConverted` with the literal, as information. A source that is too short ends there, the records
/// behind its end become blank. Records that an existing target holds behind the converted ones stay. True when there
/// was nothing to do or all was done. False on a file error, without a message: source and target are then as they were
/// (when not even the old target could be put back, the source still stands and the step runs again at the next start).
bool Datei_Umstellen(Kern& kern, const Umstellung& step);

} // namespace qvm
