#include "SimNetworkBlock.h"

#include "SimFrame.h"

#include <algorithm>

namespace qvm {

namespace {

constexpr std::size_t CipherBlock = 16;
/// The closing byte of an answer. Nobody tests it; any but the start byte will do.
constexpr std::uint8_t Closing = 0x03;

bool Grouped(std::uint8_t code) {
    return code == Net::Data || code == Net::Fingers;
}

} // namespace

std::span<const std::uint8_t> NetworkTelegram::Body() const {
    const std::span<const std::uint8_t> all = Frame;
    return all.subspan(Net::Payload, all.size() - 1 - Net::Payload);
}

NetworkTelegram PlainNetwork(std::span<const std::uint8_t> frame, const DecipherFunction& decipher,
                             const std::array<std::uint8_t, 16>& key) {
    NetworkTelegram plain{.Frame = {frame.begin(), frame.end()}};
    const auto block = [&](std::size_t at) {
        decipher(std::span<std::uint8_t, CipherBlock>{plain.Frame.data() + at, CipherBlock}, key);
    };
    if (!decipher) {
        return plain;
    }
    const std::size_t sum = plain.Frame.size() - 1;
    if (plain.Code() == Net::HistoryStart && sum >= Net::Payload + CipherBlock) {
        block(Net::Payload);
    }
    for (std::size_t at = Net::Payload; Grouped(plain.Code()) && at < sum; at += Net::Group + 1) {
        const std::size_t bytes = std::min(Net::Group, sum - at);
        for (std::size_t done = 0; done + CipherBlock <= bytes; done += CipherBlock) {
            block(at + done);
        }
    }
    return plain;
}

void JudgeNetworkHeader(const NetworkTelegram& telegram, Judge& judge) {
    struct Fixed {
        std::size_t Index;
        std::uint8_t Value;
    };
    constexpr std::array all{Fixed{26, 1}, Fixed{28, 0xFF}, Fixed{29, 0xFF}, Fixed{30, 0}, Fixed{31, 0}};
    for (const Fixed& fixed : all) {
        if (const std::uint8_t byte = telegram.Frame[fixed.Index]; byte != fixed.Value) {
            judge.Note(Wrong::Header, NetworkMark,
                       "byte " + std::to_string(fixed.Index) + " is " + Hex(byte) + ", not " + Hex(fixed.Value));
        }
    }
    const bool next = telegram.Code() == Net::HistoryMore; // carries the number of the block that came last
    const bool alone = next || !Grouped(telegram.Code());
    if ((alone && telegram.Count() != 1) || telegram.Number() == 0 || (!next && telegram.Number() > telegram.Count())) {
        judge.Note(Wrong::Header, NetworkMark,
                   "block " + std::to_string(telegram.Number()) + " of " + std::to_string(telegram.Count()));
    }
}

std::optional<std::vector<std::uint8_t>> OpenNetworkBlock(const NetworkTelegram& telegram, std::size_t used,
                                                          Judge& judge) {
    std::vector<std::uint8_t> summed = telegram.Frame;
    summed[26] = 0; // the mark is put in behind the sum
    const std::uint8_t sum = summed.back();
    summed.pop_back();
    if (SimSum(summed) != sum) {
        judge.Note(Wrong::Checksum, NetworkMark, "the frame's checksum does not fit the deciphered bytes");
        return std::nullopt;
    }
    std::vector<std::uint8_t> data;
    const auto body = telegram.Body().first(std::min(used, telegram.Body().size()));
    const auto rest = telegram.Body().subspan(body.size());
    if (std::any_of(rest.begin(), rest.end(), [](std::uint8_t byte) { return byte != 0; })) {
        judge.Note(Wrong::Range, NetworkMark, "something stands behind the last checksum");
    }
    for (std::size_t at = 0; at < body.size(); at += Net::Group + 1) {
        const auto group = body.subspan(at, std::min(Net::Group + 1, body.size() - at));
        const auto bytes = group.first(group.size() - 1);
        if (bytes.empty()) {
            judge.Note(Wrong::Length, NetworkMark, "a checksum without a byte before it");
            return std::nullopt;
        }
        if (SimSum(bytes) != group.back()) {
            judge.Note(Wrong::Checksum, NetworkMark,
                       "the inner sum at " + std::to_string(Net::Payload + at + bytes.size()) + " does not fit");
            return std::nullopt;
        }
        data.insert(data.end(), bytes.begin(), bytes.end());
    }
    return data;
}

bool ShortNetworkSumFits(const NetworkTelegram& telegram, std::size_t last, Judge& judge) {
    const auto all = std::span{telegram.Frame}.subspan(Net::Payload);
    std::vector<std::uint8_t> summed(all.begin(), all.begin() + static_cast<std::ptrdiff_t>(last));
    summed.push_back(0);
    if (SimSum(summed) == all[last]) {
        return true;
    }
    judge.Note(Wrong::Checksum, NetworkMark,
               "the inner sum at " + std::to_string(Net::Payload + last) + " does not fit");
    return false;
}

std::vector<std::uint8_t> NetworkAnswer(const NetworkTelegram& to, std::uint8_t number, std::uint8_t code,
                                        std::span<const std::uint8_t> body) {
    std::vector<std::uint8_t> answer(Net::Payload + body.size());
    std::copy_n(to.Frame.begin(), Net::Payload, answer.begin());
    std::copy(body.begin(), body.end(), answer.begin() + Net::Payload);
    answer[1] = number;
    answer[27] = code;
    return answer;
}

std::vector<std::uint8_t> NetworkOnWire(std::vector<std::uint8_t> answer, bool spoilt) {
    const std::size_t length = answer.size() + 1;
    answer[4] = static_cast<std::uint8_t>(length / 256);
    answer[5] = static_cast<std::uint8_t>(length % 256);
    answer.push_back(static_cast<std::uint8_t>(SimSum(answer) ^ (spoilt ? 0x55 : 0)));
    std::vector<std::uint8_t> wire;
    for (std::size_t n = 0; n < answer.size(); ++n) {
        wire.push_back(answer[n]);
        if (n >= 2 && answer[n] == answer[0]) {
            wire.push_back(0);
        }
    }
    wire.push_back(Closing);
    return wire;
}

} // namespace qvm
