#pragma once

#include "VirtualCredentials.h"
#include "WorldCard.h"
#include "WorldCodecs.h"

#include <string>
#include <vector>

/// What is laid on the desk, in the world file.
namespace qvm::world {

/// At most `Most` bytes as hexadecimal digits.
struct ShortHex {
    std::vector<std::uint8_t>& Value;
    std::size_t Most;
    static constexpr bool Required = false;

    std::string Load(const Json& json) {
        std::vector<std::uint8_t> bytes;
        if (!HexText{bytes}.Load(json).empty() || bytes.size() > Most) {
            return ": must be hexadecimal digits, two a byte, of at most " + std::to_string(Most) + " bytes";
        }
        Value = std::move(bytes);
        return {};
    }
    Json Save() const { return Value.empty() ? Json() : HexText{Value}.Save(); }
};

/// Like it, and written even where it is empty: what is missing would be the usual steps.
struct StepHex : ShortHex {
    Json Save() const { return HexText{Value}.Save(); }
};

inline constexpr int LongestDeskWait = 3600000;

template <typename Archive>
void CredentialFields(Archive& archive, Credential& credential) {
    archive("kind", Keyword<Credential::Kind, 3>{credential.What, {"key", "transponder", "finger"}});
    archive("delay_ms", Number<int>{credential.DelayMs, 0, LongestDeskWait});
    archive("id", ShortHex{credential.Id, 10});
    archive("data", HexBytesField<16>{credential.Data});
    archive("slot", Number<std::uint8_t>{credential.Slot, 0, 255, false, true});
    archive("steps", StepHex{{credential.Steps, 64}});
    archive("step_ms", Number<int>{credential.StepMs, 0, LongestDeskWait});
    archive("template", ShortHex{credential.Template, 4096});
    archive("piece_bytes", Number<int>{credential.PieceBytes, 1, 240});
}

template <typename Archive>
void DeskFields(Archive& archive, VirtualDesk& desk) {
    archive("patience_ms", Number<int>{desk.PatienceMs, 0, LongestDeskWait});
    archive("presented", List<Credential>{desk.Presented});
    archive("freed", HexText{desk.Freed});
    archive("card", MaybeCard{desk.Writer.Card});
    archive("card_results", ShortHex{desk.Writer.Results, 64});
    archive("card_taken_after", Number<int>{desk.Writer.TakenAfter, 0, 64, false, true});
}

} // namespace qvm::world
