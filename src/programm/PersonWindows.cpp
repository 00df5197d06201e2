#include "PersonWindows.h"

namespace qvm {

void PersonWindows::Verbinden() {}

} // namespace qvm
