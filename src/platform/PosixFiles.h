#pragma once

#include "FileStore.h"

#include <cstddef>

namespace qvm {

/// No file of the system comes near this size; one that does is not read.
inline constexpr std::size_t LargestFile = std::size_t{64} << 20U;

/// The files of a POSIX system, as FileStore describes them, and in addition:
/// - A path is UTF-8. A byte that belongs to no UTF-8 character counts as code page 1252 and is converted, since the
///   logic puts names of locks into file names. A path with 0x00 in it, and an empty one, is refused.
/// - New files get mode 0600, new directories 0755.
/// - Only plain files are read and written. What else stands at the place is never opened: opening alone can hang (a
///   pipe) or do something (a device).
/// - A link to nothing is an error and not a missing file: what it led to, as on a disk that is not mounted, is missed.
/// - Replace follows a link and keeps the owner. Its sibling is `.NAME.XXXXXX`; List leaves such names out, so that
///   one left by a loss of power does no harm. While it is written it is held by a lock (flock), so that Sweep can tell
///   it from one that nobody writes.
/// - WriteAt flushes to the disk. When it or Append fails half-way the file is put back to what it held.
/// - Append does not flush: a history is written a line at a time while the lock waits for the next telegram.
/// - ReadAll reads up to LargestFile bytes; more is an error.
FileStore PosixFiles();

} // namespace qvm
