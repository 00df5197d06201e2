#include "Frame.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

using namespace qvm;

/// Any bytes through the serial automaton: the indexes stay in the buffer, and a frame that was taken has its sum.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Empfaenger rx;
    for (std::size_t n = 0; n < size; ++n) {
        const RxResult result = Empfang_Seriell(rx, data[n]);
        if (rx.RxIndex < 0 || rx.RxIndex >= BufferSize || rx.RxState < 0 || rx.RxState > 2) {
            std::abort();
        }
        if (result != RxResult::Frame) {
            continue;
        }
        const auto length = static_cast<std::size_t>(rx.RxLength);
        if (rx.FrameSize != rx.RxLength + 2 || rx.RxLength < 1 || rx.RxBuffer[0] != StartByte ||
            rx.RxBuffer[1] != length || Pruefsumme(std::span(rx.RxBuffer).first(length + 1)) != rx.RxSum) {
            std::abort();
        }
    }
    return 0;
}
