#include "AbbruchSignal.h"

#include <initializer_list>
#include <pthread.h>

namespace qvm {

AbbruchSignal::AbbruchSignal() {
    sigemptyset(&wanted_);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGQUIT}) {
        sigaddset(&wanted_, signal);
    }
    pthread_sigmask(SIG_BLOCK, &wanted_, &before_);
}

AbbruchSignal::~AbbruchSignal() {
    // What is still pending has been meant for the run, which is over.
    Anzahl();
    pthread_sigmask(SIG_SETMASK, &before_, nullptr);
}

int AbbruchSignal::Anzahl() {
    const timespec now{};
    while (sigtimedwait(&wanted_, nullptr, &now) > 0) {
        ++count_;
    }
    return count_;
}

} // namespace qvm
