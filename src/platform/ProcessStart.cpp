#include "ProcessStart.h"

#include <csignal>
#include <fcntl.h>
#include <initializer_list>
#include <unistd.h>

namespace qvm {

void Process_Start() {
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
    for (const int handle : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        if (::fcntl(handle, F_GETFD) < 0) {
            // The lowest number that is free: this one. It stays open.
            [[maybe_unused]] const int taken = ::open("/dev/null", O_RDONLY);
        }
    }
}

} // namespace qvm
