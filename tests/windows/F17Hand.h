#pragma once

#include "AntwortRahmen.h"
#include "LockWindows.h"
#include "TransferWindows.h"

#include <cstdint>
#include <string_view>
#include <vector>

namespace qvm::test {

/// The window of a code change over a fixture of windows: its boxes, and what the device says.
template <class Fixture>
struct F17Hand : Fixture {
    F17& Dialog() { return this->programm->Transfer->F17; }
    F18& Box() { return this->programm->Transfer->F18; }
    void Keys(void (F17::*box)(int), std::string_view keys) {
        for (const char key : keys) {
            (Dialog().*box)(static_cast<unsigned char>(key));
        }
    }
    void Say(std::uint8_t code, std::uint8_t status = 0) {
        std::vector<std::uint8_t> payload(12);
        payload[11] = status;
        this->world.Deliver(ReplyWire(code, 0x0D, payload));
        this->world.RunFor(1);
    }
    void Refuse(std::uint8_t reason) {
        this->world.Deliver(ReplyWire(0x69, 0x0D, {reason}));
        this->world.RunFor(1);
    }
};

} // namespace qvm::test
