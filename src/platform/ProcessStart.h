#pragma once

namespace qvm {

/// What a program does before anything else, so that what it writes to cannot end it or lead it astray:
/// - A reader that goes away, and a limit to the size of files, are an error of the write and not a signal.
/// - Standard handles that are closed are taken, or the next file would get their numbers and be written into. What is
///   written to them is an error.
void Process_Start();

} // namespace qvm
