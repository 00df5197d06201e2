#include "Verbergen.h"

#include "LayoutSuche.h"
#include "ProtokollNetz.h"
#include "Telegramme.h"

#include <algorithm>

namespace qvm {
namespace {

using Way = TraceFrame::Direction;
using Bytes = std::span<const std::uint8_t>;

void Ab_Hier(std::vector<bool>& hidden, std::size_t index) {
    std::fill(hidden.begin() + static_cast<std::ptrdiff_t>(std::min(index, hidden.size())), hidden.end(), true);
}

/// Where the secrets of a reply begin; what a device puts behind them is not known, and hidden with them.
std::size_t Geheim_Ab(const Layout& reply) {
    if (reply.SecretFrom != 0) {
        return reply.SecretFrom;
    }
    for (const Field& field : reply.Fields) {
        if (Geheim(field.Is)) {
            return field.Offset;
        }
    }
    return BufferSize;
}

/// Marks the secret fields of every telegram with the frame's code. A device may echo a telegram, so replies are
/// looked at with the same eyes; what the program reads from a reply is not a secret unless it says so itself.
void Felder_Verbergen(Bytes frame, const Layout* reply, std::vector<bool>& hidden) {
    const auto read = [&](std::size_t index) {
        return reply != nullptr && std::any_of(reply->Fields.begin(), reply->Fields.end(), [&](const Field& field) {
                   return index >= field.Offset && index < static_cast<std::size_t>(field.End());
               });
    };
    for (const Layout& layout : Telegramme()) {
        for (const Field& field : layout.Fields) {
            if (layout.Code != frame[2] || !Geheim(field.Is)) {
                continue;
            }
            for (std::size_t n = field.Offset; n < static_cast<std::size_t>(field.End()) && n < frame.size(); ++n) {
                hidden[n] = hidden[n] || !read(n);
            }
        }
    }
}

void Antwort_Verbergen(Bytes bytes, std::vector<bool>& hidden) {
    const Layout* layout = Layout_Suchen(false, bytes);
    // The last byte of a frame is the checksum, no payload.
    const Bytes body = bytes.first(bytes.size() - 1);
    Felder_Verbergen(body, layout, hidden);
    const std::size_t from = layout != nullptr ? Geheim_Ab(*layout) : std::size_t{PayloadIndex};
    if (from < body.size()) {
        Ab_Hier(hidden, from);
    }
}

void Telegramm_Verbergen(Bytes bytes, std::vector<bool>& hidden) {
    if (Layout_Suchen(true, bytes) == nullptr) {
        Ab_Hier(hidden, PayloadIndex);
    } else {
        Felder_Verbergen(bytes, nullptr, hidden);
    }
}

} // namespace

std::vector<bool> Verborgene(const Mitschnitt& frame, Geheimnis secrets) {
    const Bytes bytes = frame.Bytes;
    std::vector<bool> hidden(bytes.size());
    std::copy_n(frame.Hidden.begin(), std::min(frame.Hidden.size(), hidden.size()), hidden.begin());
    if (secrets == Geheimnis::Zeigen || bytes.size() < 3) {
        return hidden;
    }
    if (frame.Way == Way::Dropped) {
        Ab_Hier(hidden, RawPayloadIndex);
    } else if (Net_Rahmen(bytes)) {
        Ab_Hier(hidden, Net_Geheim_Ab(bytes, frame.Way));
    } else if (frame.Way == Way::Received) {
        Antwort_Verbergen(bytes, hidden);
    } else {
        Telegramm_Verbergen(bytes, hidden);
    }
    if (std::find(hidden.begin(), hidden.end(), true) != hidden.end()) {
        hidden.back() = true;
    }
    return hidden;
}

} // namespace qvm
