#pragma once

#include "VirtualCard.h"

#include <array>
#include <cstdint>
#include <vector>

/// What people lay on the readers of the desk. Plain data: a test reads and writes it directly.
namespace qvm {

struct Credential {
    enum class Kind : std::uint8_t { Key, Transponder, Finger };
    Kind What = Kind::Key;
    int DelayMs = 500; ///< from the request, or from when it is laid there, to the reader's first frame

    // Keys and transponders.
    std::vector<std::uint8_t> Id{}; ///< 4 bytes of a key, 10 of a transponder; what is missing is 0
    std::array<std::uint8_t, 16> Data{};
    std::uint8_t Slot = 0; ///< of a transponder; from 128 on the unit says that the slot is in use

    // Fingers.
    std::vector<std::uint8_t> Steps{0x0C, 0x0D, 0x0E, 0x26, 0x27, 0x0A}; ///< step codes; the template comes before 0x0A
    int StepMs = 300;                                                    ///< from one frame to the next
    std::vector<std::uint8_t> Template{};
    int PieceBytes = 64; ///< of the template in one frame, 1 to 240

    bool operator==(const Credential&) const = default;
};

/// The readers of the desk, whichever adapter they belong to, and what is going to be presented to them.
struct VirtualDesk {
    std::vector<Credential> Presented; ///< the first that fits a request is taken out
    int PatienceMs = 10000;            ///< a request that nothing is presented to is given up then; 0: never
    std::vector<std::uint8_t> Freed;   ///< slots that the program had the unit free
    VirtualCardWriter Writer;
};

} // namespace qvm
