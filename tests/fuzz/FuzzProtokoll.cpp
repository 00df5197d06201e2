#include "Protokoll.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

using namespace qvm;

/// Any text as a trace: every frame read can be shown, hidden and open, and what is shown reads back as the same bytes.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const TraceText trace = Protokoll_Lesen({reinterpret_cast<const char*>(data), size});
    for (const Mitschnitt& frame : trace.Frames) {
        Protokoll_Zeile(frame);
        const bool open = frame.Hidden.empty();
        const TraceText again = Protokoll_Lesen(Protokoll_Zeile(frame, Geheimnis::Zeigen));
        if (open && (again.Frames.size() != 1 || !again.Errors.empty())) {
            std::abort();
        }
    }
    // The same bytes as one frame, in each direction.
    for (const auto way : {TraceFrame::Direction::Sent, TraceFrame::Direction::SentRaw, TraceFrame::Direction::Received,
                           TraceFrame::Direction::Dropped}) {
        Mitschnitt frame;
        frame.Way = way;
        frame.Bytes.assign(data, data + size);
        Protokoll_Zeile(frame);
        Protokoll_Zeile(frame, Geheimnis::Zeigen);
    }
    return 0;
}
