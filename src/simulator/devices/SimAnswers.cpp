#include "SimAnswers.h"

#include "SimRanges.h"

#include <algorithm>

namespace qvm {

DeviceReply InManner(Answering how, const std::function<DeviceReply()>& turn) {
    switch (how) {
    case Answering::Never:
        return {};
    case Answering::Refusing:
        return {.Bytes = RefusalReply(Refusal::NotAccepted)};
    case Answering::Well:
    case Answering::Poorly:
        break;
    }
    DeviceReply reply = turn();
    reply.Garbled = how == Answering::Poorly;
    return reply;
}

DeviceReply StatusReply(std::uint8_t code, const DeviceAddress& serial, std::uint8_t status) {
    DeviceReply reply{.Bytes = Acknowledge(code, serial, 14)};
    reply.Bytes[14] = status;
    return reply;
}

std::uint8_t LoginStatus(std::uint8_t forced, const std::array<std::uint8_t, 3>& code,
                         std::span<const std::uint8_t> frame) {
    if (forced != 0) {
        return forced;
    }
    return std::equal(code.begin(), code.end(), frame.begin() + 14) ? StatusAccepted : StatusWrongCode;
}

std::uint8_t ChangeCode(std::uint8_t forced, std::array<std::uint8_t, 3>& code, std::span<const std::uint8_t> frame) {
    const auto oldCode = frame.subspan(16, 3), newCode = frame.subspan(21, 3);
    if (forced != 0) {
        return forced;
    }
    if (!std::equal(code.begin(), code.end(), oldCode.begin())) {
        return StatusWrongCode;
    }
    if (!RangeFault({.Name = "", .First = 0, .Last = 2, .How = Check::AdminCode}, newCode).empty()) {
        return StatusBadNewCode;
    }
    std::copy(newCode.begin(), newCode.end(), code.begin());
    return StatusAccepted;
}

DeviceReply ChannelReply(Step step, std::span<const std::uint8_t> frame, const DeviceAddress& serial, int asked,
                         int& channel, Judge& judge) {
    const std::uint8_t wanted = frame[14];
    if (wanted != asked) {
        judge.Note(Wrong::Range, frame[2], "another channel than asked for before");
    }
    if (step == Step::ChannelAct) { // nothing comes back for it
        return {};
    }
    DeviceReply reply{.Bytes = Acknowledge(frame[2], serial)};
    if (wanted < 12) {
        channel = reply.NewChannel = wanted + 1;
    }
    return reply;
}

} // namespace qvm
