#include "Frame.h"

#include "Stelle.h"

#include <algorithm>

namespace qvm {
namespace {

/// Length of the header that the network automaton reads before it knows the frame's length.
constexpr int NetworkCodeIndex = 2;
constexpr int NetworkStepIndex = 27;

/// Stores one body byte at the write position by the stuffing rule. False when the stuffing is broken; the frame is
/// lost then, and the automaton stands in state 0.
bool Ablegen(Empfaenger& rx, std::uint8_t byte) {
    const std::size_t at = At(rx.RxIndex);
    rx.RxBuffer[at] = Rx_Entstopfen(rx, rx.RxLastByte, byte);
    const bool whole = rx.RxState != 0;
    rx.RxLastByte = byte;
    ++rx.RxIndex;
    return whole;
}

void Startbyte_Suchen(Empfaenger& rx, std::uint8_t byte) {
    rx.RxIndex = 0;
    if (byte == StartByte) {
        rx.RxBuffer[0] = byte;
        rx.RxLastByte = byte;
        rx.RxIndex = 1;
        rx.RxState = 1;
    }
}

/// True when the write position cannot be one of this automaton at this point: the other one began the frame. The
/// automaton is back in state 0 then.
bool Fremder_Zustand(Empfaenger& rx, int first, int last) {
    if (rx.RxIndex >= first && rx.RxIndex <= last && last < BufferSize) {
        return false;
    }
    rx.Ruecksetzen();
    return true;
}

/// Takes the checksum out of index `sumIndex` and compares it with the sum of everything up to `last`.
RxResult Abschliessen(Empfaenger& rx, int sumIndex, int last, int size) {
    rx.RxSum = rx.RxBuffer[At(sumIndex)];
    rx.RxBuffer[At(sumIndex)] = 0;
    rx.Ruecksetzen();
    const std::span<const std::uint8_t> summed(rx.RxBuffer.data(), At(last + 1));
    if (Pruefsumme(summed) != rx.RxSum) {
        return RxResult::BadChecksum;
    }
    rx.FrameSize = size;
    return RxResult::Frame;
}

RxResult Seriell_Koerper(Empfaenger& rx, std::uint8_t byte) {
    const bool serialLength = rx.RxLength >= 1 && rx.RxLength <= 0xFF;
    if (Fremder_Zustand(rx, 2, serialLength ? rx.RxLength + 2 : 0)) {
        return RxResult::TooLong;
    }
    const bool stuffed = rx.RxLastByte == StartByte && byte == 0;
    if (rx.RxIndex < rx.RxLength + 2 || stuffed) {
        return Ablegen(rx, byte) ? RxResult::Pending : RxResult::BadStuffing;
    }
    if (!Ablegen(rx, byte)) {
        return RxResult::BadStuffing;
    }
    return Abschliessen(rx, rx.RxLength + 2, rx.RxLength, rx.RxLength + 2);
}

RxResult Netzwerk_Kopf(Empfaenger& rx, std::uint8_t byte) {
    if (Fremder_Zustand(rx, 1, NetworkHeader - 1)) {
        return RxResult::TooLong;
    }
    if (rx.RxLastByte == StartByte && byte == 0) {
        // The stuffed 0x00 vanishes. It must be remembered, or a 0x00 behind it would vanish, too.
        rx.RxLastByte = 0;
        return RxResult::Pending;
    }
    rx.RxBuffer[At(rx.RxIndex)] = byte;
    rx.RxLastByte = byte;
    ++rx.RxIndex;
    if (rx.RxIndex < NetworkHeader) {
        return RxResult::Pending;
    }
    rx.RxLength = 256 * rx.RxBuffer[4] + rx.RxBuffer[5];
    if (rx.RxLength >= BufferSize) {
        rx.Ruecksetzen();
        return RxResult::TooLong;
    }
    rx.RxState = 2;
    return RxResult::Pending;
}

bool Ohne_Pruefsumme(const Empfaenger& rx) {
    const std::uint8_t step = rx.RxBuffer[NetworkStepIndex];
    return rx.RxLength >= NetworkStepIndex && rx.RxBuffer[NetworkCodeIndex] == NetworkCode &&
           (step == 0x0C || step == 0x0D || step == 0xFF);
}

RxResult Netzwerk_Koerper(Empfaenger& rx, std::uint8_t byte) {
    if (Fremder_Zustand(rx, NetworkHeader, std::max(rx.RxLength, NetworkHeader))) {
        return RxResult::TooLong;
    }
    const bool stuffed = rx.RxLastByte == StartByte && byte == 0;
    if (rx.RxIndex < rx.RxLength || stuffed) {
        return Ablegen(rx, byte) ? RxResult::Pending : RxResult::BadStuffing;
    }
    rx.RxBuffer[At(rx.RxIndex)] = byte;
    if (Ohne_Pruefsumme(rx)) {
        rx.RxSum = rx.RxBuffer[At(rx.RxLength - 1)];
        rx.FrameSize = rx.RxLength + 1;
        rx.Ruecksetzen();
        return RxResult::Frame;
    }
    if (rx.RxLength <= NetworkHeader) {
        rx.Ruecksetzen();
        return RxResult::BadChecksum;
    }
    return Abschliessen(rx, rx.RxLength - 1, rx.RxLength - 2, rx.RxLength + 1);
}

} // namespace

std::uint8_t Rx_Entstopfen(Empfaenger& rx, std::uint8_t previous, std::uint8_t current) {
    if (previous != StartByte) {
        return current;
    }
    if (current == 0) {
        --rx.RxIndex;
        return StartByte;
    }
    rx.Ruecksetzen();
    return 0;
}

RxResult Empfang_Seriell(Empfaenger& rx, std::uint8_t byte) {
    switch (rx.RxState) {
    case 0:
        Startbyte_Suchen(rx, byte);
        return RxResult::Pending;
    case 1:
        if (byte == 0) {
            rx.Ruecksetzen();
            return RxResult::Pending;
        }
        rx.RxLength = byte;
        rx.RxBuffer[1] = byte;
        rx.RxLastByte = byte;
        rx.RxIndex = 2;
        rx.RxState = 2;
        return RxResult::Pending;
    case 2:
        return Seriell_Koerper(rx, byte);
    default:
        rx.RxState = 0;
        return RxResult::Pending;
    }
}

RxResult Empfang_Netzwerk(Empfaenger& rx, std::uint8_t byte) {
    switch (rx.RxState) {
    case 0:
        Startbyte_Suchen(rx, byte);
        return RxResult::Pending;
    case 1:
        return Netzwerk_Kopf(rx, byte);
    case 2:
        return Netzwerk_Koerper(rx, byte);
    default:
        rx.RxState = 0;
        return RxResult::Pending;
    }
}

void Stopfen(std::span<const std::uint8_t> bytes, std::vector<std::uint8_t>& wire) {
    for (std::size_t n = 0; n < bytes.size(); ++n) {
        wire.push_back(bytes[n]);
        // The start byte and the length byte go out as they are.
        if (n > 1 && bytes[n] == StartByte) {
            wire.push_back(0);
        }
    }
}

} // namespace qvm
