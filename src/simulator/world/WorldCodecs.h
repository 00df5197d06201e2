#pragma once

#include "OemText.h"
#include "SimJudge.h"
#include "VirtualSystem.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// One field of the world file and how it is read and written. Each codec refers to the value; `Load` gives the fault
/// as the rest of a sentence that begins with the field's name (": ..." or ".inner: ..."), empty when there is none;
/// what it refuses it leaves as it was. `Save` gives null for a field that is left out.
namespace qvm::world {

using Json = nlohmann::ordered_json;

template <typename Int>
struct Number {
    Int& Value;
    long long Low, High;
    bool Required = false;
    bool OmitZero = false;

    std::string Load(const Json& json) {
        // An unsigned number beyond the signed range must not come out negative.
        const bool fits =
            json.is_number_integer() && (!json.is_number_unsigned() || json.get<std::uint64_t>() <= INT64_MAX);
        const long long value = fits ? json.get<long long>() : Low - 1;
        if (!fits || value < Low || value > High) {
            return ": must be a whole number from " + std::to_string(Low) + " to " + std::to_string(High);
        }
        Value = static_cast<Int>(value);
        return {};
    }
    Json Save() const { return OmitZero && Value == 0 ? Json() : Json(static_cast<long long>(Value)); }
};

/// A number that may be missing, or null.
template <typename Int>
struct MaybeNumber {
    std::optional<Int>& Value;
    long long Low, High;
    static constexpr bool Required = false;

    std::string Load(const Json& json) {
        if (json.is_null()) {
            Value.reset();
            return {};
        }
        Int number{};
        std::string fault = Number<Int>{number, Low, High}.Load(json);
        if (fault.empty()) {
            Value = number;
        }
        return fault;
    }
    Json Save() const { return Value ? Json(static_cast<long long>(*Value)) : Json(); }
};

struct Flag {
    bool& Value;
    static constexpr bool Required = false;

    std::string Load(const Json& json) {
        if (!json.is_boolean()) {
            return ": must be true or false";
        }
        Value = json.get<bool>();
        return {};
    }
    Json Save() const { return Value; }
};

/// One of a few words, in the order of the values.
template <typename Enum, std::size_t N>
struct Keyword {
    Enum& Value;
    std::array<const char*, N> Words;
    static constexpr bool Required = false;

    std::string Load(const Json& json) {
        std::string all;
        for (std::size_t n = 0; n < N; ++n) {
            if (json.is_string() && json.get_ref<const std::string&>() == Words[n]) {
                Value = static_cast<Enum>(n);
                return {};
            }
            all += std::string{n == 0 ? "" : ", "} + Words[n];
        }
        return ": must be one of " + all;
    }
    Json Save() const { return Words[static_cast<std::size_t>(Value)]; }
};

std::string LoadHex(const Json& json, std::uint8_t* bytes, std::size_t count);
std::string SaveHex(std::span<const std::uint8_t> bytes);

/// Bytes as hexadecimal digits; left out when all are zero.
template <std::size_t N>
struct HexBytesField {
    std::array<std::uint8_t, N>& Value;
    static constexpr bool Required = false;

    std::string Load(const Json& json) { return LoadHex(json, Value.data(), N); }
    Json Save() const { return Value == std::array<std::uint8_t, N>{} ? Json() : Json(SaveHex(Value)); }
};

/// Any number of bytes as hexadecimal digits.
struct HexText {
    std::vector<std::uint8_t>& Value;
    static constexpr bool Required = false;

    std::string Load(const Json& json);
    Json Save() const { return SaveHex(Value); }
};

/// Four bytes as "0A.1B.2C.3D".
struct Serial {
    DeviceAddress& Value;
    bool Required = false;

    std::string Load(const Json& json);
    Json Save() const;
};
struct MaybeSerial {
    std::optional<DeviceAddress>& Value;
    static constexpr bool Required = false;

    std::string Load(const Json& json);
    Json Save() const { return Value ? Serial{*const_cast<DeviceAddress*>(&*Value)}.Save() : Json(); }
};

std::string LoadCode(const Json& json, std::uint8_t* bytes, std::size_t count, bool digitsOnly);
std::string SaveCode(std::span<const std::uint8_t> bytes);

/// A packed code as its digits, "-" for a place without a digit; left out when all bytes are zero.
template <std::size_t N>
struct Code {
    std::array<std::uint8_t, N>& Value;
    bool DigitsOnly;
    static constexpr bool Required = false;

    std::string Load(const Json& json) { return LoadCode(json, Value.data(), N, DigitsOnly); }
    Json Save() const { return Value == std::array<std::uint8_t, N>{} ? Json() : Json(SaveCode(Value)); }
};

std::string LoadName(const Json& json, std::uint8_t* bytes, std::size_t count);
std::string SaveName(std::span<const std::uint8_t> bytes);

/// A name in the locks' code page; zeros at its end are left out.
template <std::size_t N>
struct Name {
    std::array<std::uint8_t, N>& Value;
    static constexpr bool Required = false;

    std::string Load(const Json& json) { return LoadName(json, Value.data(), N); }
    Json Save() const { return SaveName(Value); }
};

/// UTF-8 text for people.
struct Label {
    std::string& Value;
    static constexpr bool Required = false;

    std::string Load(const Json& json);
    Json Save() const { return Value; }
};
/// Text of code page 1252, at most `Width` bytes.
struct PcText {
    std::string& Value;
    std::size_t Width;
    static constexpr bool Required = false;

    std::string Load(const Json& json);
    Json Save() const;
};

/// Three masks as 24 characters, "X" for a slot that is set. May be missing.
struct SlotMap {
    std::optional<std::array<std::uint8_t, 3>>& Value;
    static constexpr bool Required = false;

    std::string Load(const Json& json);
    Json Save() const;
};

/// Rows of W bytes as arrays of numbers; zero rows at the end are left out.
template <std::size_t W, std::size_t N>
struct Rows {
    std::array<std::array<std::uint8_t, W>, N>& Value;
    static constexpr bool Required = false;

    std::string Load(const Json& json) {
        if (!json.is_array() || json.size() > N) {
            return ": must be an array of at most " + std::to_string(N) + " rows";
        }
        std::array<std::array<std::uint8_t, W>, N> rows{};
        for (std::size_t row = 0; row < json.size(); ++row) {
            const Json& line = json[row];
            for (std::size_t n = 0; n < W; ++n) {
                const bool good = line.is_array() && line.size() == W && line[n].is_number_integer() &&
                                  Number<std::uint8_t>{rows[row][n], 0, 255}.Load(line[n]).empty();
                if (!good) {
                    return "[" + std::to_string(row) + "]: must be an array of " + std::to_string(W) +
                           " numbers from 0 to 255";
                }
            }
        }
        Value = rows;
        return {};
    }
    Json Save() const {
        std::size_t used = N;
        while (used > 0 && Value[used - 1] == std::array<std::uint8_t, W>{}) {
            --used;
        }
        Json json = Json::array();
        for (std::size_t row = 0; row < used; ++row) {
            json.push_back(Value[row]);
        }
        return json;
    }
};

struct Faults {
    std::vector<SimFault>& Value;
    static constexpr bool Required = false;

    std::string Load(const Json& json);
    Json Save() const;
};

/// Reads the fields of one object and complains about names that are none of them.
class Reader {
public:
    explicit Reader(const Json& json) : json_(json) {}

    template <typename Codec>
    void operator()(const char* name, Codec codec) {
        known_.push_back(name);
        if (!fault_.empty() || !json_.is_object()) {
            return;
        }
        const auto found = json_.find(name);
        if (found == json_.end()) {
            fault_ = codec.Required ? std::string{"."} + name + ": is missing" : std::string{};
            return;
        }
        if (const std::string fault = codec.Load(*found); !fault.empty()) {
            fault_ = std::string{"."} + name + fault;
        }
    }
    /// A name that is written but not read.
    void Ignore(const char* name) { known_.push_back(name); }
    std::string Fault() const {
        if (!json_.is_object()) {
            return ": must be an object";
        }
        if (!fault_.empty()) {
            return fault_;
        }
        for (const auto& item : json_.items()) {
            if (std::find(known_.begin(), known_.end(), item.key()) == known_.end()) {
                return "." + item.key() + ": is not a name known here";
            }
        }
        return {};
    }

private:
    const Json& json_;
    std::vector<std::string_view> known_;
    std::string fault_;
};

class Writer {
public:
    template <typename Codec>
    void operator()(const char* name, const Codec& codec) {
        if (Json value = codec.Save(); !value.is_null()) {
            json_[name] = std::move(value);
        }
    }
    void Ignore(const char*) {}
    Json Take() { return std::move(json_); }

private:
    Json json_ = Json::object();
};

/// An array of records, each described by an overload of `Fields(archive, record)`.
template <typename Record>
struct List {
    std::vector<Record>& Value;
    static constexpr bool Required = false;

    std::string Load(const Json& json) {
        if (!json.is_array()) {
            return ": must be an array";
        }
        std::vector<Record> records;
        for (std::size_t n = 0; n < json.size(); ++n) {
            Record record{};
            Reader reader(json[n]);
            Fields(reader, record);
            if (const std::string fault = reader.Fault(); !fault.empty()) {
                return "[" + std::to_string(n) + "]" + fault;
            }
            records.push_back(std::move(record));
        }
        Value = std::move(records);
        return {};
    }
    Json Save() const {
        Json json = Json::array();
        for (Record& record : Value) {
            Writer writer;
            Fields(writer, record);
            json.push_back(writer.Take());
        }
        return json;
    }
};

/// A record within a record.
template <typename Record>
struct One {
    Record& Value;
    static constexpr bool Required = false;

    std::string Load(const Json& json) {
        Record record = Value;
        Reader reader(json);
        Fields(reader, record);
        std::string fault = reader.Fault();
        if (fault.empty()) {
            Value = std::move(record);
        }
        return fault;
    }
    Json Save() const {
        Writer writer;
        Fields(writer, Value);
        return writer.Take();
    }
};

/// A record that may be missing.
template <typename Record>
struct MaybeOne {
    std::optional<Record>& Value;
    static constexpr bool Required = false;

    std::string Load(const Json& json) {
        Record record{};
        std::string fault = One<Record>{record}.Load(json);
        if (fault.empty()) {
            Value = std::move(record);
        }
        return fault;
    }
    Json Save() const { return Value ? One<Record>{*Value}.Save() : Json(); }
};

} // namespace qvm::world
