#include "SimAnswers.h"

#include <algorithm>

namespace qvm {

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
