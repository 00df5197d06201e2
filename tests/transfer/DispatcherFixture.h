#pragma once

#include "Antwort_Verteilen.h"
#include "Laufschritte.h"
#include "VirtualPlatform.h"

#include <cstdint>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace qvm::test {

/// A session with a device, on an open port that remembers the telegrams. Boxes are answered.
struct DispatcherFixture : ::testing::Test {
    VirtualPlatform world;
    Kern kern{world.World};
    Link link{kern};
    Programmierlauf run{link};
    /// The step that the last reply led to; nullptr for none.
    void (*Step)(Programmierlauf&) = nullptr;
    std::vector<std::string> Told; ///< texts of the boxes since the reply

    DispatcherFixture() {
        link.PortNummer = 1;
        kern.Config.RadioChannel = "7";
        Port_Oeffnen(link, 1);
        link.Lauf.Chain.Phase = RunPhase::Open;
        world.World.ShowMessage = [this](const Message& message) {
            Told.push_back(message.Text);
            return Answer::Ok;
        };
    }

    /// The device replies: code, then the bytes from index 3 on.
    void Reply(std::uint8_t code, std::vector<std::uint8_t> bytes = {}) {
        Told.clear();
        world.Written.clear();
        auto& rx = link.Rx;
        rx.RxBuffer.fill(0);
        rx.RxBuffer[0] = 0x02;
        // The byte behind the last summed one is a reply byte, too.
        rx.RxBuffer[1] = static_cast<std::uint8_t>(2 + bytes.size());
        rx.RxBuffer[2] = code;
        for (std::size_t n = 0; n < bytes.size(); ++n) {
            rx.RxBuffer[3 + n] = bytes[n];
        }
        rx.RxLength = rx.RxBuffer[1];
        rx.FrameSize = rx.RxLength + 2;
        const ReplyRow* row = Antwort_Annehmen(run);
        Step = row != nullptr ? row->Step : nullptr;
        if (row != nullptr) {
            row->Step(run);
        }
    }
    /// A reply whose byte 14 is `status`.
    void ReplyStatus(std::uint8_t code, std::uint8_t status) {
        Reply(code, {1, 1, 1, 1, 0x0A, 0x0B, 0x0C, 0x0D, 0, 0, 0, status});
    }

    /// Codes of the telegrams sent since the reply, taken off the wire by hand.
    std::vector<int> Sent() const {
        std::vector<int> codes;
        const auto& w = world.Written;
        std::size_t at = 0;
        while (at + 2 < w.size()) {
            codes.push_back(w[at + 2]);
            const std::size_t length = w[at + 1];
            std::size_t index = 2;
            at += 2;
            while (index <= length + 1 && at < w.size()) {
                at += w[at] == 0x02 ? 2 : 1;
                ++index;
            }
        }
        return codes;
    }
    /// Byte `index` of the first telegram sent (none of those looked at holds 0x02 before it).
    int SentByte(std::size_t index) const { return index < world.Written.size() ? world.Written[index] : -1; }
};

} // namespace qvm::test
