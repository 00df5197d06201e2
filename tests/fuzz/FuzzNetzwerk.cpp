#include "Frame.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

using namespace qvm;

/// Any bytes through the network automaton. The first byte says how often the serial automaton takes one in between, as
/// the program changes from one to the other at any byte.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Empfaenger rx;
    const std::size_t every = size > 0 ? data[0] : 0;
    for (std::size_t n = 1; n < size; ++n) {
        const bool serial = every != 0 && n % every == 0;
        const RxResult result = serial ? Empfang_Seriell(rx, data[n]) : Empfang_Netzwerk(rx, data[n]);
        if (rx.RxIndex < 0 || rx.RxIndex >= BufferSize || rx.RxState < 0 || rx.RxState > 2) {
            std::abort();
        }
        if (result == RxResult::Frame && (rx.FrameSize < 3 || rx.FrameSize > BufferSize || rx.RxState != 0)) {
            std::abort();
        }
    }
    return 0;
}
