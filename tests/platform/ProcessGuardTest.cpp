#include "ProcessGuard.h"

#include <gtest/gtest.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace qvm {
namespace {

TEST(Memory_Protect_Test, a_process_writes_no_core_and_nobody_may_look_into_it) {
    // In a child: there is no way back.
    const pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        // Another test may have changed its user, which closes the memory as well.
        const bool before = ::prctl(PR_SET_DUMPABLE, 1, 0, 0, 0) == 0;
        const bool done = Memory_Protect();
        rlimit core{};
        const bool none = ::getrlimit(RLIMIT_CORE, &core) == 0 && core.rlim_cur == 0 && core.rlim_max == 0;
        ::_exit(before && done && none && ::prctl(PR_GET_DUMPABLE, 0, 0, 0, 0) == 0 ? 0 : 1);
    }
    int status = -1;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_EQ(status, 0);
}

} // namespace
} // namespace qvm
