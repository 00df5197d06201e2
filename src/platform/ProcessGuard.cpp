#include "ProcessGuard.h"

#include <sys/resource.h>
#ifdef __linux__
#include <sys/prctl.h>
#endif

namespace qvm {

bool Memory_Protect() {
    constexpr rlimit none{.rlim_cur = 0, .rlim_max = 0};
    const bool noCore = ::setrlimit(RLIMIT_CORE, &none) == 0;
#ifdef __linux__
    return ::prctl(PR_SET_DUMPABLE, 0, 0, 0, 0) == 0 && noCore;
#else
    return noCore;
#endif
}

} // namespace qvm
