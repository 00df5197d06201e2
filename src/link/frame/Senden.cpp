#include "SeriellesProtokoll.h"

#include <algorithm>

namespace qvm {
namespace {

/// Progress of the two bars at each addressed telegram.
constexpr int ProgressReserve = 5;
constexpr int SecondStep = 4;
constexpr int SecondMaximum = 27;

/// Indexes 7 to 10 of an addressed telegram.
constexpr std::uint8_t HeaderMark1 = 0x33;
constexpr std::uint8_t HeaderMark2 = 0x88;

bool Bereit(Link& link) {
    const SerialPort& port = link.kern.Welt.Port;
    if (!port.IsOpen() && !port.Open(link.PortNummer)) {
        return false;
    }
    port.SetRts(true);
    return true;
}

void Fortschritt_Zaehlen(ProgressState& bars) {
    ++bars.TelegramCounter;
    if (bars.TelegramCounter > bars.ProgressMaximum - ProgressReserve) {
        bars.TelegramCounter = 0;
    }
    bars.ProgressValue = bars.TelegramCounter;
    bars.SecondProgress += SecondStep;
    if (bars.SecondProgress > SecondMaximum) {
        bars.SecondProgress = 0;
    }
}

std::uint16_t Modusbyte(std::uint8_t mode) {
    return mode == 1 || mode == 2 ? mode : std::uint16_t{0};
}

/// Closes the telegram with its checksum and writes it, stuffed, in one piece.
void Ausgeben(Link& link, TraceFrame::Direction way) {
    const auto length = static_cast<std::size_t>(link.TxBuffer[1] & 0xFF);
    link.TxBuffer[length + 1] = Frame_Pruefsumme_Tx(link);
    std::array<std::uint8_t, 257> frame{};
    for (std::size_t n = 0; n < length + 2; ++n) {
        frame[n] = static_cast<std::uint8_t>(link.TxBuffer[n]);
    }
    const auto bytes = std::span<const std::uint8_t>(frame).first(length + 2);
    if (link.Protokoll) {
        link.Protokoll({.Way = way, .Bytes = bytes});
    }
    link.TxWire.clear();
    Stopfen(bytes, link.TxWire);
    link.kern.Welt.Port.Write(link.TxWire);
    Ueberschreiben(frame);
}

void Kopfbytes(Link& link, std::uint8_t length, std::uint8_t code) {
    link.TxBuffer[0] = StartByte;
    link.TxBuffer[1] = length;
    link.TxBuffer[2] = code;
}

} // namespace

bool Telegramm_Senden(Link& link) {
    if (!Bereit(link)) {
        return false;
    }
    Fortschritt_Zaehlen(link.Lauf.Progress);
    std::copy(link.TargetAddress.begin(), link.TargetAddress.end(), link.TxBuffer.begin() + 3);
    link.TxBuffer[7] = link.DeviceClassByte;
    link.TxBuffer[8] = Modusbyte(link.AddressMode);
    link.TxBuffer[9] = HeaderMark1;
    link.TxBuffer[10] = HeaderMark2;
    link.Hooks.Telegramm_Geht();
    link.AnswerDue = static_cast<std::uint8_t>(link.TxBuffer[2]);
    Ausgeben(link, TraceFrame::Direction::Sent);
    link.Hooks.Fortschritt();
    return true;
}

bool Telegramm_Roh_Senden(Link& link) {
    if (!Bereit(link)) {
        return false;
    }
    link.AnswerDue = 0;
    Ausgeben(link, TraceFrame::Direction::SentRaw);
    return true;
}

void Telegramm_Kopf(Link& link, std::uint8_t length, std::uint8_t code) {
    Kopfbytes(link, length, code);
    std::fill_n(link.TxBuffer.begin() + 3, 4, std::uint16_t{1});
    std::fill_n(link.TxBuffer.begin() + 7, 4, std::uint16_t{2});
    link.TxBuffer[11] = 1;
    link.TxBuffer[12] = 0;
}

bool Telegramm_Kopf2(Link& link, std::uint8_t length, std::uint8_t code) {
    Kopfbytes(link, length, code);
    link.TxBuffer[11] = 1;
    link.TxBuffer[12] = 0;
    link.TxBuffer[13] = 0;
    link.TxBuffer[14] = link.TelegrammParam1;
    link.TxBuffer[15] = link.TelegrammParam2;
    return Telegramm_Senden(link);
}

} // namespace qvm
