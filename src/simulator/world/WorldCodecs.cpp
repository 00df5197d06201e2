#include "WorldCodecs.h"

#include "Text.h"

namespace qvm::world {

namespace {

int HexDigit(char c) {
    constexpr std::string_view digits = "0123456789ABCDEFabcdef";
    const std::size_t at = digits.find(c);
    return at == std::string_view::npos ? -1 : static_cast<int>(at < 16 ? at : at - 6);
}

/// One character a nibble. A stands for the digit 0 and E for no digit; the others have no meaning to a lock but are
/// kept.
constexpr std::string_view NibbleSigns = "?1234567890BCD-F";

const std::string* TextOf(const Json& json) {
    return json.is_string() ? json.get_ptr<const std::string*>() : nullptr;
}

} // namespace

std::string LoadHex(const Json& json, std::uint8_t* bytes, std::size_t count) {
    const std::string* text = TextOf(json);
    const bool good = text != nullptr && text->size() == 2 * count &&
                      std::all_of(text->begin(), text->end(), [](char c) { return HexDigit(c) >= 0; });
    if (!good) {
        return ": must be " + std::to_string(2 * count) + " hexadecimal digits";
    }
    for (std::size_t n = 0; n < count; ++n) {
        bytes[n] = static_cast<std::uint8_t>(HexDigit((*text)[2 * n]) * 16 + HexDigit((*text)[2 * n + 1]));
    }
    return {};
}

std::string SaveHex(std::span<const std::uint8_t> bytes) {
    std::string text;
    for (const std::uint8_t byte : bytes) {
        text += Hex(byte).substr(2);
    }
    return text;
}

std::string HexText::Load(const Json& json) {
    const std::string* text = TextOf(json);
    if (text == nullptr || text->size() % 2 != 0) {
        return ": must be hexadecimal digits, two a byte";
    }
    std::vector<std::uint8_t> bytes(text->size() / 2);
    std::string fault = LoadHex(json, bytes.data(), bytes.size());
    if (fault.empty()) {
        Value = std::move(bytes);
    }
    return fault;
}

std::string Serial::Load(const Json& json) {
    const std::string* text = TextOf(json);
    DeviceAddress address{};
    bool good = text != nullptr && text->size() == 11;
    for (std::size_t n = 0; good && n < address.size(); ++n) {
        const int high = HexDigit((*text)[3 * n]), low = HexDigit((*text)[3 * n + 1]);
        good = high >= 0 && low >= 0 && (n == 3 || (*text)[3 * n + 2] == '.');
        address[n] = static_cast<std::uint8_t>(good ? high * 16 + low : 0);
    }
    if (!good) {
        return ": must be four hexadecimal bytes joined by points, as \"01.50.0C.10\"";
    }
    Value = address;
    return {};
}

Json Serial::Save() const {
    std::string text;
    for (const std::uint8_t byte : Value) {
        text += (text.empty() ? "" : ".") + Hex(byte).substr(2);
    }
    return text;
}

std::string MaybeSerial::Load(const Json& json) {
    DeviceAddress address{};
    std::string fault = Serial{address}.Load(json);
    if (fault.empty()) {
        Value = address;
    }
    return fault;
}

std::string LoadCode(const Json& json, std::uint8_t* bytes, std::size_t count, bool digitsOnly) {
    const std::string* text = TextOf(json);
    const std::string_view allowed = digitsOnly ? std::string_view{"0123456789"} : NibbleSigns;
    const bool good =
        text != nullptr && text->size() == 2 * count && text->find_first_not_of(allowed) == std::string::npos;
    if (!good) {
        return ": must be " + std::to_string(2 * count) + (digitsOnly ? " digits" : " digits, \"-\" for a missing one");
    }
    for (std::size_t n = 0; n < count; ++n) {
        bytes[n] =
            static_cast<std::uint8_t>(NibbleSigns.find((*text)[2 * n]) * 16 + NibbleSigns.find((*text)[2 * n + 1]));
    }
    return {};
}

std::string SaveCode(std::span<const std::uint8_t> bytes) {
    std::string text;
    for (const std::uint8_t byte : bytes) {
        text += NibbleSigns[byte >> 4];
        text += NibbleSigns[byte & 15];
    }
    return text;
}

std::string LoadName(const Json& json, std::uint8_t* bytes, std::size_t count) {
    const std::string* text = TextOf(json);
    const auto oem = text != nullptr ? Utf8ToOem(*text) : std::nullopt;
    if (!oem || oem->size() > count) {
        return ": must be a text of at most " + std::to_string(count) + " characters of code page 850";
    }
    std::fill_n(bytes, count, std::uint8_t{0});
    std::copy(oem->begin(), oem->end(), bytes);
    return {};
}

std::string SaveName(std::span<const std::uint8_t> bytes) {
    while (!bytes.empty() && bytes.back() == 0) {
        bytes = bytes.first(bytes.size() - 1);
    }
    return OemToUtf8(bytes);
}

std::string Label::Load(const Json& json) {
    const std::string* text = TextOf(json);
    if (text == nullptr) {
        return ": must be a text";
    }
    Value = *text;
    return {};
}

std::string PcText::Load(const Json& json) {
    const std::string* text = TextOf(json);
    if (text == nullptr || !PasstInCp1252(*text) || AusUtf8(*text).size() > Width) {
        return ": must be a text of at most " + std::to_string(Width) + " characters of code page 1252";
    }
    Value = AusUtf8(*text);
    return {};
}

Json PcText::Save() const {
    return NachUtf8(Value);
}

std::string SlotMap::Load(const Json& json) {
    const std::string* text = TextOf(json);
    if (text == nullptr || text->size() != 24 || text->find_first_not_of("X-") != std::string::npos) {
        return ": must be 24 characters, \"X\" or \"-\"";
    }
    std::array<std::uint8_t, 3> masks{};
    for (std::size_t n = 0; n < 24; ++n) {
        if ((*text)[n] == 'X') {
            masks[n / 8] = static_cast<std::uint8_t>(masks[n / 8] | (0x80 >> (n % 8)));
        }
    }
    Value = masks;
    return {};
}

Json SlotMap::Save() const {
    if (!Value) {
        return {};
    }
    std::string text(24, '-');
    for (std::size_t n = 0; n < 24; ++n) {
        if (((*Value)[n / 8] & (0x80 >> (n % 8))) != 0) {
            text[n] = 'X';
        }
    }
    return text;
}

std::string Faults::Load(const Json& json) {
    if (!json.is_array()) {
        return ": must be an array";
    }
    std::vector<SimFault> faults;
    for (std::size_t n = 0; n < json.size(); ++n) {
        const std::string* text = TextOf(json[n]);
        const auto fault = text != nullptr ? FaultFromText(*text) : std::nullopt;
        if (!fault) {
            return "[" + std::to_string(n) + "]: must be a fault, as \"silent@5+\" or \"refuse@3=0x64\"";
        }
        faults.push_back(*fault);
    }
    Value = std::move(faults);
    return {};
}

Json Faults::Save() const {
    Json json = Json::array();
    for (const SimFault& fault : Value) {
        json.push_back(FaultText(fault));
    }
    return json;
}

} // namespace qvm::world
