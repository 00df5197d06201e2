#include "SimJudge.h"

#include "SimRanges.h"

#include <array>

namespace qvm {

namespace {

/// Byte 7: the class of the device spoken to. One telegram has its own.
constexpr std::uint8_t NormalClass = 0x11, IdentificationClass = 0xC3;

void JudgeHeader(std::span<const std::uint8_t> frame, const Form& form, Judge& judge) {
    const std::uint8_t code = frame[2];
    const bool identification = code == 0x43 && form.Length == 0x1D;
    const std::array<std::uint8_t, 14> want{
        0, 0, 0, 0, 0, 0, 0, identification ? IdentificationClass : NormalClass, 0, 0x33, 0x88, 1, 0, 0};
    for (std::size_t n = 7; n < want.size(); ++n) {
        if (n != 8 && frame[n] != want[n]) {
            judge.Note(Wrong::Header, code,
                       "byte " + std::to_string(n) + " is " + Hex(frame[n]) + ", not " + Hex(want[n]));
        }
    }
    if (frame[8] > 2) {
        judge.Note(Wrong::Header, code, "byte 8, the address mode, is " + Hex(frame[8]) + ", not 0, 1 or 2");
    }
}

} // namespace

const char* WrongName(Wrong wrong) {
    switch (wrong) {
    case Wrong::Line:
        return "line";
    case Wrong::Checksum:
        return "checksum";
    case Wrong::Code:
        return "code";
    case Wrong::Length:
        return "length";
    case Wrong::Header:
        return "header";
    case Wrong::Order:
        return "order";
    case Wrong::Range:
        return "range";
    case Wrong::Unfinished:
        return "unfinished";
    }
    return "?";
}

std::string Hex(std::uint8_t byte) {
    constexpr const char* digits = "0123456789ABCDEF";
    return std::string{"0x"} + digits[byte >> 4] + digits[byte & 15];
}

std::string HexBytes(std::span<const std::uint8_t> bytes) {
    std::string text;
    for (const std::uint8_t byte : bytes) {
        text += (text.empty() ? "" : " ") + Hex(byte).substr(2);
    }
    return text;
}

std::string JudgementText(const Judgement& judgement) {
    return "telegram " + std::to_string(judgement.Telegram) + " (" + Hex(judgement.Code) + ", " +
           WrongName(judgement.Kind) + "): " + judgement.Text;
}

void Judge::Note(Wrong kind, std::uint8_t code, std::string text) {
    if (list_.size() >= Limit) {
        ++beyond_;
        return;
    }
    list_.push_back({.Kind = kind, .Code = code, .Telegram = telegram_ < 0 ? 0 : telegram_, .Text = std::move(text)});
}

void Judge::Clear() {
    list_.clear();
    beyond_ = 0;
}

const Form* JudgeForm(std::span<const std::uint8_t> frame, Judge& judge) {
    const FormChoice choice = FindForm(frame);
    const std::uint8_t code = frame.size() > 2 ? frame[2] : std::uint8_t{0};
    if (choice.Found == nullptr) {
        if (!choice.CodeKnown) {
            judge.Note(Wrong::Code, code, "no telegram of these devices: " + HexBytes(frame));
        } else if (!choice.LengthKnown) {
            judge.Note(Wrong::Length, code, "length " + Hex(frame[1]) + " does not belong to this code");
        } else {
            judge.Note(Wrong::Range, code, "no such part: " + HexBytes(frame));
        }
        return nullptr;
    }
    const Form& form = *choice.Found;
    if (!form.Raw) {
        JudgeHeader(frame, form, judge);
    }
    for (const FormPart& part : form.Parts) {
        const auto bytes =
            frame.subspan(static_cast<std::size_t>(part.First),
                          static_cast<std::size_t>(part.Last) + 1 - static_cast<std::size_t>(part.First));
        if (const std::string fault = RangeFault(part, bytes); !fault.empty()) {
            judge.Note(Wrong::Range, code, std::string{form.Name} + ", " + part.Name + ": " + fault);
        }
    }
    return &form;
}

} // namespace qvm
