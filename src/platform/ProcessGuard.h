#pragma once

namespace qvm {

/// Keeps the memory of this process, with its codes and keys, from others: it writes no core file, and only the
/// administrator can trace it or look into it. To be called first of all. False when the system does not do so.
bool Memory_Protect();

} // namespace qvm
