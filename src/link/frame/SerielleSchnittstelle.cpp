#include "Link.h"

#include <algorithm>

namespace qvm {
namespace {

/// The checksum step for a single further byte, so that words need no copy.
unsigned Weiter(unsigned sum, unsigned byte) {
    sum *= 2;
    sum = sum > 255 ? sum - 255 : sum;
    sum += byte;
    return sum > 255 ? sum - 255 : sum;
}

template <class Buffer>
std::uint8_t Bereich(const Buffer& buffer, int count, int start) {
    const int first = std::clamp(start, 0, BufferSize);
    const int last = count < 0 ? -1 : std::min(count, BufferSize) + first;
    unsigned sum = 0;
    for (int n = first; n <= last && n < BufferSize; ++n) {
        sum = Weiter(sum, buffer[static_cast<std::size_t>(n)] & 0xFFU);
    }
    return static_cast<std::uint8_t>(sum);
}

/// Shows a received frame to the trace: `index` bytes of the buffer, and the byte that ended it.
void Protokollieren(const Link& link, bool network, int index, std::uint8_t byte, RxResult result) {
    std::array<std::uint8_t, BufferSize + 1> bytes{};
    const auto size = static_cast<std::size_t>(std::clamp(index, 0, BufferSize));
    std::copy_n(link.Rx.RxBuffer.begin(), size, bytes.begin());
    bytes[size] = byte;
    const bool whole = result == RxResult::Frame || result == RxResult::BadChecksum;
    if (network && whole && link.Rx.RxLength > NetworkHeader && size > 0) {
        bytes[size - 1] = link.Rx.RxSum;
    }
    link.Protokoll({.Way = result == RxResult::Frame ? TraceFrame::Direction::Received : TraceFrame::Direction::Dropped,
                    .Bytes = std::span(bytes).first(size + 1),
                    .Result = result});
}

void Netzwerk_Fertig(Link& link, RxResult result) {
    link.UsbArmed = 0;
    if (result != RxResult::Frame) {
        return;
    }
    link.UsbDone = UsbDoneMark;
    Rufen(link.Netzwerk_Antwort);
}

} // namespace

Link::Link(Kern& kernel) : kern(kernel), Timer10(kernel.Welt) {
    // Two bytes for each index of the longest telegram: no telegram makes the line buffer grow.
    TxWire.reserve(std::size_t{2} * 258);
    Timer10.Ticked = [this] {
        TickSum += Timer10.Interval();
        if (TickSum > 30000) {
            TickSum = 0;
        }
    };
    kern.Welt.Port.OnByte([this](std::uint8_t byte) { Empfang_Byte(*this, byte); });
}

Link::~Link() {
    kern.Welt.Port.OnByte([](std::uint8_t) {});
}

std::span<const std::uint8_t> Link::RxFrame() const {
    return std::span(Rx.RxBuffer).first(static_cast<std::size_t>(std::clamp(Rx.FrameSize, 0, BufferSize)));
}

std::uint8_t Link::RxByte(int index) const {
    return index >= 0 && index < Rx.FrameSize ? Rx.RxBuffer[static_cast<std::size_t>(index)] : std::uint8_t{0};
}

std::uint8_t Link::ReplyByte(int index) const {
    const auto at = static_cast<std::size_t>(index);
    return index >= 0 && at < Reply.size() ? Reply[at] : std::uint8_t{0};
}

void Empfang_Byte(Link& link, std::uint8_t byte) {
    const bool network = link.UsbArmed == UsbArmedMark;
    const int index = link.Rx.RxIndex;
    const RxResult result = network ? Empfang_Netzwerk(link.Rx, byte) : Empfang_Seriell(link.Rx, byte);
    if (result == RxResult::Pending) {
        return;
    }
    if (link.Protokoll) {
        Protokollieren(link, network, index, byte, result);
    }
    const bool whole = result == RxResult::Frame || result == RxResult::BadChecksum;
    if (network && whole) {
        Netzwerk_Fertig(link, result);
    } else if (result == RxResult::Frame) {
        const std::uint8_t code = link.Rx.RxBuffer[2];
        ++link.Dispatching;
        if (!link.Hooks.Antwort_Gekommen || link.Hooks.Antwort_Gekommen()) {
            Adapter_Antwort(link, code);
        }
        --link.Dispatching;
        if (link.ForgetFrame) {
            Empfang_Vergessen(link);
        }
    }
}

void Geheimnisse_Vergessen(Link& link) {
    link.Lauf.Order.AdminCode.Loeschen();
    link.Lauf.List.Wish.AdminCode.Loeschen();
    link.Lauf.SitzungsSchluessel.Loeschen();
    Ueberschreiben(link.TxBuffer);
    Vergessen(link.TxWire);
    Empfang_Vergessen(link);
}

void Empfang_Vergessen(Link& link) {
    link.ForgetFrame = link.Dispatching > 0;
    if (!link.ForgetFrame && link.Rx.RxIndex == 0) {
        Ueberschreiben(link.Rx.RxBuffer);
    }
}

bool Port_Oeffnen(Link& link, int number) {
    const SerialPort& port = link.kern.Welt.Port;
    if (port.IsOpen()) {
        port.Close();
    }
    link.PortNummer = number;
    return port.Open(number);
}

bool Port_Neu(Link& link) {
    return Port_Oeffnen(link, link.PortNummer);
}

std::uint8_t Frame_Pruefsumme_Tx(const Link& link) {
    return Bereich(link.TxBuffer, link.TxBuffer[1] & 0xFF, 0);
}

std::uint8_t Frame_Pruefsumme_Rx(const Link& link, int count) {
    return Bereich(link.Rx.RxBuffer, count, 0);
}

std::uint8_t Bereich_Pruefsumme_Tx(const Link& link, int count, int start) {
    return Bereich(link.TxBuffer, count, start);
}

std::uint8_t Bereich_Pruefsumme_Rx(const Link& link, int count, int start) {
    return Bereich(link.Rx.RxBuffer, count, start);
}

} // namespace qvm
