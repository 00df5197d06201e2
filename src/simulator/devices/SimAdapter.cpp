#include "SimAdapter.h"

#include "SimFrame.h"
#include "TransferTabelle.h"

#include <algorithm>

namespace qvm {

namespace {

constexpr std::uint8_t IdentificationLength = 0x0F, CompleteRecord = 0x2E, NameLength = 0x1C;
constexpr std::size_t AddressIndex = 3, NameIndex = 8, NameWidth = 20, KeyIndex = 30;
constexpr std::ptrdiff_t ProbeIndex = 3;

/// The name with its rest filled with blanks.
void PutName(const VirtualAdapter& adapter, std::vector<std::uint8_t>& reply) {
    for (std::size_t n = 0; n < NameWidth; ++n) {
        reply[NameIndex + n] = n < adapter.Name.size() ? static_cast<std::uint8_t>(adapter.Name[n]) : std::uint8_t{' '};
    }
}

/// Disguised by the last probe, so that the key itself never crosses the line.
void PutKey(const VirtualAdapter& adapter, std::vector<std::uint8_t>& reply) {
    for (std::size_t n = 0; n < adapter.Key.size(); ++n) {
        const TransferPlatz& place = TransferTabelle[n];
        reply[KeyIndex + n] = static_cast<std::uint8_t>(adapter.Key[n] ^ adapter.Probe[place.Probe] ^ place.Constant);
    }
}

std::vector<std::uint8_t> WithAddress(const VirtualAdapter& adapter, std::uint8_t code, std::uint8_t length) {
    std::vector<std::uint8_t> reply = NewReply(code, length);
    std::copy(adapter.Address.begin(), adapter.Address.end(), reply.begin() + AddressIndex);
    return reply;
}

std::vector<std::uint8_t> Rename(VirtualAdapter& adapter, std::span<const std::uint8_t> frame) {
    adapter.Name.clear();
    for (const std::uint8_t byte : frame.subspan(3, NameWidth)) {
        if (byte == 0) {
            break;
        }
        adapter.Name.push_back(static_cast<char>(byte));
    }
    std::vector<std::uint8_t> reply = WithAddress(adapter, 0x6D, NameLength);
    PutName(adapter, reply);
    return reply;
}

} // namespace

AdapterReply TakeAdapterTelegram(VirtualAdapter& adapter, std::span<const std::uint8_t> frame) {
    AdapterReply answer;
    switch (frame[2]) {
    case 0x68:
        std::copy_n(frame.begin() + ProbeIndex, adapter.Probe.size(), adapter.Probe.begin());
        answer.Bytes = WithAddress(adapter, 0x68, IdentificationLength);
        answer.Bytes[AdapterVersionIndex] = adapter.Version;
        break;
    case 0x6B: // goes to the channel and says nothing
    case 0x6F:
        answer.Channel = !adapter.Enrolment() && frame[3] >= 1 && frame[3] <= 12 ? frame[3] : 0;
        break;
    case 0x6C:
        answer.Bytes = WithAddress(adapter, 0x6C, CompleteRecord);
        PutName(adapter, answer.Bytes);
        PutKey(adapter, answer.Bytes);
        break;
    case 0x6D:
        answer.Bytes = Rename(adapter, frame);
        break;
    default:
        break;
    }
    return answer;
}

} // namespace qvm
