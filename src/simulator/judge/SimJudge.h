#pragma once

#include "SimForms.h"

#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace qvm {

/// What can be wrong with a telegram.
enum class Wrong : std::uint8_t {
    Line, ///< bytes that belong to no frame, broken stuffing
    Checksum,
    Code,       ///< no telegram that these devices know
    Length,     ///< not a length of its code
    Header,     ///< one of the fixed bytes
    Order,      ///< not due at this point
    Range,      ///< a field holds what it must not hold
    Unfinished, ///< a session was closed in the middle of the data, as a cancel does it
};
const char* WrongName(Wrong wrong);

struct Judgement {
    Wrong Kind;
    std::uint8_t Code = 0; ///< telegram code, 0 when there is none
    int Telegram = 0;      ///< number of the frame on this line, from 0
    std::string Text;

    bool operator==(const Judgement&) const = default;
};
/// "telegram 12 (0x0E, range): ..."
std::string JudgementText(const Judgement& judgement);

/// Collects what is wrong. Keeps the first `Limit` findings and counts the rest.
class Judge {
public:
    static constexpr std::size_t Limit = 1000;

    void Note(Wrong kind, std::uint8_t code, std::string text);
    void NextTelegram() { ++telegram_; }
    const std::vector<Judgement>& List() const { return list_; }
    int Beyond() const { return beyond_; }
    void Clear();

private:
    std::vector<Judgement> list_;
    int telegram_ = -1;
    int beyond_ = 0;
};

/// Judges code, length, header and the range of every field. Null when the telegram cannot be acted on (unknown code or
/// length). `frame` has a good checksum.
const Form* JudgeForm(std::span<const std::uint8_t> frame, Judge& judge);

/// A byte as "0x2A".
std::string Hex(std::uint8_t byte);
/// Bytes as "2A 00 1F".
std::string HexBytes(std::span<const std::uint8_t> bytes);

} // namespace qvm
