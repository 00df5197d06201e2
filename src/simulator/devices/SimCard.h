#pragma once

#include "SimJudge.h"
#include "VirtualCard.h"

#include <array>
#include <cstdint>
#include <span>
#include <vector>

namespace qvm {

/// Codes of the card telegrams.
namespace CardCode {
inline constexpr std::uint8_t Write = 0x6F, Battery = 0x72, Read = 0x73;
}
/// A telegram for the card writer. Code 0x6F alone is the adapter's own as well, raw then.
constexpr bool IsCard(std::uint8_t code) {
    return code == CardCode::Write || code == CardCode::Battery || code == CardCode::Read;
}
/// Sub-codes of the answer to a writing.
namespace CardResult {
inline constexpr std::uint8_t Second = 1, Third = 2, Written = 0xD1, Failed = 0xD4;
}

/// What the card writer does with its telegrams. It decodes by places of its own.
class CardWriter {
public:
    /// The answer to a telegram of CardCode; it is judged. A writing counts only when all its parts came in order.
    std::vector<std::uint8_t> Take(VirtualCardWriter& writer, std::span<const std::uint8_t> frame, Judge& judge);
    /// A writing half done is forgotten.
    void Forget() { due_ = 0; }

private:
    static constexpr std::size_t Places = 28;

    std::uint8_t Written(std::span<const std::uint8_t> frame, VirtualCard& card, Judge& judge);
    std::uint8_t TakeHead(std::span<const std::uint8_t> frame, VirtualCard& card, Judge& judge);
    std::uint8_t TakeMore(std::span<const std::uint8_t> frame, VirtualCard& card, Judge& judge);
    void TakeRows(std::span<const std::uint8_t> bytes, std::size_t first);
    std::uint8_t Done(VirtualCard& card, Judge& judge);

    std::array<std::array<std::uint8_t, 4>, Places> rows_{};
    std::array<std::uint8_t, 26> head_{}; ///< words 14 to 39 of the first telegram
    std::uint8_t mode_ = 0;
    int due_ = 0; ///< part that must come next; 0: a first one
};

} // namespace qvm
