#include "SimFault.h"

#include "SimJudge.h"

#include <array>
#include <charconv>

namespace qvm {

namespace {

struct KindName {
    SimFault::Kind What;
    std::string_view Name;
};
constexpr std::array Kinds{
    KindName{SimFault::Kind::Silent, "silent"},   KindName{SimFault::Kind::BadSum, "badsum"},
    KindName{SimFault::Kind::Half, "half"},       KindName{SimFault::Kind::Garbage, "garbage"},
    KindName{SimFault::Kind::Refuse, "refuse"},   KindName{SimFault::Kind::Late, "late"},
    KindName{SimFault::Kind::Doubled, "doubled"}, KindName{SimFault::Kind::Unplug, "unplug"},
    KindName{SimFault::Kind::Block, "block"},     KindName{SimFault::Kind::NotReached, "notreached"},
    KindName{SimFault::Kind::Drop, "drop"},       KindName{SimFault::Kind::Wrong, "wrong"},
    KindName{SimFault::Kind::Instead, "instead"},
};
constexpr int NoContact = 0x64, Disconnected = 0x05, DefaultDelay = 1000, LongestDelay = 3600000;

/// A whole number, "0x" before a hexadecimal one; -1 when the text is anything else or beyond `limit`.
int NumberFrom(std::string_view text, int limit) {
    int base = 10;
    if (text.starts_with("0x") || text.starts_with("0X")) {
        base = 16;
        text.remove_prefix(2);
    }
    int value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value, base);
    const bool whole = error == std::errc{} && end == text.data() + text.size() && !text.starts_with('-');
    return whole && value >= 0 && value <= limit ? value : -1;
}

std::optional<std::vector<std::uint8_t>> BytesFrom(std::string_view text) {
    std::vector<std::uint8_t> bytes;
    if (text.empty() || text.size() % 2 != 0 || text.size() > 512) {
        return std::nullopt;
    }
    for (std::size_t n = 0; n < text.size(); n += 2) {
        const int value = NumberFrom("0x" + std::string{text.substr(n, 2)}, 255);
        if (value < 0) {
            return std::nullopt;
        }
        bytes.push_back(static_cast<std::uint8_t>(value));
    }
    return bytes;
}

bool TakeValue(SimFault& fault, std::optional<std::string_view> text) {
    switch (fault.What) {
    case SimFault::Kind::Refuse:
        fault.Value = text ? NumberFrom(*text, 255) : NoContact;
        return fault.Value >= 0;
    case SimFault::Kind::Wrong:
    case SimFault::Kind::Instead:
        fault.Value = text ? NumberFrom(*text, 255) : Disconnected;
        return fault.Value >= 0;
    case SimFault::Kind::Late:
        fault.Value = text ? NumberFrom(*text, LongestDelay) : DefaultDelay;
        return fault.Value >= 0;
    case SimFault::Kind::Garbage:
        if (text) {
            const auto bytes = BytesFrom(*text);
            fault.Bytes = bytes.value_or(std::vector<std::uint8_t>{});
            return bytes.has_value();
        }
        return true;
    default:
        return !text;
    }
}

} // namespace

const SimFault* FaultAt(const std::vector<SimFault>& faults, int all, int device) {
    for (const SimFault& fault : faults) {
        const int number = fault.CountAll ? all : device;
        if (number >= 0 && (number == fault.Telegram || (fault.AndAllBehind && number > fault.Telegram))) {
            return &fault;
        }
    }
    return nullptr;
}

std::optional<SimFault> FaultFromText(std::string_view text) {
    const std::size_t at = text.find('@');
    if (at == std::string_view::npos) {
        return std::nullopt;
    }
    SimFault fault;
    bool known = false;
    for (const KindName& kind : Kinds) {
        if (kind.Name == text.substr(0, at)) {
            fault.What = kind.What;
            known = true;
        }
    }
    std::string_view number = text.substr(at + 1);
    std::optional<std::string_view> value;
    if (const std::size_t equals = number.find('='); equals != std::string_view::npos) {
        value = number.substr(equals + 1);
        number = number.substr(0, equals);
    }
    if (number.starts_with('#')) {
        fault.CountAll = true;
        number.remove_prefix(1);
    }
    if (number.ends_with('+')) {
        fault.AndAllBehind = true;
        number.remove_suffix(1);
    }
    fault.Telegram = NumberFrom(number, 1000000000);
    if (!known || fault.Telegram < 0 || !TakeValue(fault, value)) {
        return std::nullopt;
    }
    return fault;
}

std::string FaultText(const SimFault& fault) {
    std::string text;
    for (const KindName& kind : Kinds) {
        if (kind.What == fault.What) {
            text = kind.Name;
        }
    }
    text +=
        "@" + std::string{fault.CountAll ? "#" : ""} + std::to_string(fault.Telegram) + (fault.AndAllBehind ? "+" : "");
    if (fault.What == SimFault::Kind::Refuse || fault.WrongReply()) {
        text += "=" + Hex(static_cast<std::uint8_t>(fault.Value));
    } else if (fault.What == SimFault::Kind::Late) {
        text += "=" + std::to_string(fault.Value);
    } else if (fault.What == SimFault::Kind::Garbage) {
        text += "=";
        for (const std::uint8_t byte : fault.Bytes) {
            text += Hex(byte).substr(2);
        }
    }
    return text;
}

} // namespace qvm
