#include "ProtokollNetz.h"

#include "Text.h"
#include "Zusammen.h"

#include <algorithm>

namespace qvm {
namespace {

using Bytes = std::span<const std::uint8_t>;

/// Behind a reply's payload: the checksum and the closing byte.
constexpr std::size_t ReplyEnd = 2;

std::span<const NetzName> Namen(bool sent) {
    return sent ? std::span<const NetzName>(NetzTelegramme) : std::span<const NetzName>(NetzAntworten);
}

const NetzName* Suchen(Bytes frame, bool sent) {
    if (frame.size() <= NetzKopf::Code.Offset) {
        return nullptr;
    }
    const auto names = Namen(sent);
    const auto found = std::find_if(names.begin(), names.end(),
                                    [&](const NetzName& name) { return name.Code == frame[NetzKopf::Code.Offset]; });
    return found != names.end() ? &*found : nullptr;
}

bool Mit_Pruefsumme(Bytes frame) {
    const std::uint8_t code = frame[NetzKopf::Code.Offset];
    return code != NetzCode::HistoryBlock && code != NetzCode::HistoryLast && code != NetzCode::NotReached;
}

/// Of a reply of the right size.
bool Summe_Stimmt(Bytes frame) {
    const std::size_t sum = frame.size() - ReplyEnd;
    return !Mit_Pruefsumme(frame) || Pruefsumme(frame.first(sum)) == frame[sum];
}

} // namespace

bool Net_Rahmen(Bytes frame) {
    return frame.size() > NetzKopf::Mark.Offset && frame[NetzKopf::Mark.Offset] == NetworkCode;
}

std::string_view Net_Name(Bytes frame, bool sent) {
    const NetzName* name = Suchen(frame, sent);
    return name != nullptr ? name->Name : "unknown";
}

std::size_t Net_Geheim_Ab(Bytes frame, TraceFrame::Direction way) {
    const std::size_t end =
        frame.size() - std::min(frame.size(), way == TraceFrame::Direction::Received ? ReplyEnd : 0);
    return end > NetzPayload ? NetzPayload : frame.size();
}

std::size_t Net_Groesse(Bytes frame, bool sent) {
    if (frame.size() < NetworkHeader) {
        return 0;
    }
    const std::size_t length = 256U * frame[NetzKopf::Length.Offset] + frame[NetzKopf::Length.Offset + 1];
    const NetzName* name = Suchen(frame, sent);
    const bool clock = sent && name != nullptr && name->Code == NetzCode::Clock;
    return length + (clock ? 2 : 1);
}

std::string Net_Fehler(Bytes frame, bool sent, bool anyHidden) {
    const std::size_t size = Net_Groesse(frame, sent);
    if (frame.size() != size) {
        return size == 0 ? std::string("too short for a network telegram")
                         : Zusammen({"the length word calls for ", Ziffern(static_cast<std::int64_t>(size)),
                                     " bytes, there are ", Ziffern(std::ssize(frame))});
    }
    const bool summed = !sent && !anyHidden && size > NetzPayload;
    return summed && !Summe_Stimmt(frame) ? "wrong checksum" : "";
}

bool Net_Passt(Bytes frame, bool sent) {
    if (!Net_Rahmen(frame) || frame[0] != StartByte || frame.size() <= NetzPayload ||
        frame.size() != Net_Groesse(frame, sent) || Suchen(frame, sent) == nullptr) {
        return false;
    }
    if (!sent) {
        return frame.size() >= NetzPayload + ReplyEnd && Summe_Stimmt(frame);
    }
    return std::all_of(NetzKopf::Fields.begin(), NetzKopf::Fields.end(), [&](const NetzFeld& field) {
        const Bytes bytes = frame.subspan(field.Offset, field.Width);
        return field.Is != Kind::Fixed ||
               std::all_of(bytes.begin(), bytes.end(), [&](std::uint8_t byte) { return byte == field.Detail; });
    });
}

} // namespace qvm
