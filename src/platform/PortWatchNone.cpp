// For systems without a watch of their own: nothing is ever reported. On Windows this file's place is for a hidden
// window that gets WM_DEVICECHANGE and calls `stir` at an arrival or a removal of device type 3 (DBT_DEVTYP_PORT).

#include "PortWatch.h"

namespace qvm {

struct PortWatch::System {};

PortWatch::PortWatch(const PortNumbers& /*numbers*/, std::function<void()> stir) {
    stir = nullptr; // nobody is ever told
}

PortWatch::~PortWatch() = default;

} // namespace qvm
