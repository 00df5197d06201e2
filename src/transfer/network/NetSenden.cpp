#include "NetSchritte.h"
#include "Stelle.h"
#include "Text.h"

#include <algorithm>
#include <vector>

namespace qvm {
namespace {

constexpr int CipherBlock = 16;
constexpr int ShortestTimeout = 4000;
constexpr int HandlerDelay = 10;
constexpr int BarStep = 6, BarWrap = 36;

void Block_Verschluesseln(const Netzlauf& run, int at) {
    std::array<std::uint8_t, CipherBlock> block{};
    auto words = run.link.TxBuffer.begin() + at;
    std::transform(words, words + CipherBlock, block.begin(),
                   [](std::uint16_t word) { return static_cast<std::uint8_t>(word); });
    run.kern.Welt.encryptData(block, run.TransferKey.Bytes());
    std::copy(block.begin(), block.end(), words);
}

/// Enciphers the payload in place, block by block. Each 129th byte, the checksum of a full group, stays plain. The
/// checksum of a shorter last group belongs to its bytes; what they leave below a block stays plain. Gives the length,
/// which the start of a history reading changes.
int Verschluesseln(Netzlauf& run, int length) {
    if (run.link.TxBuffer[NetzKopf::Code.Offset] == NetzCode::HistoryStart) {
        Net_Feld(run.link, NetzKopf::Length, NetzHistorie::StartLengthWord);
        Block_Verschluesseln(run, NetzPayload);
        return NetzHistorie::StartLengthWord;
    }
    for (int group = NetzPayload; group < length; group += NetzGroupStep) {
        const int end = std::min(group + NetzGroup, length);
        for (int at = group; at + CipherBlock <= end; at += CipherBlock) {
            Block_Verschluesseln(run, at);
        }
    }
    return length;
}

bool Bereit(const Link& link) {
    const SerialPort& port = link.kern.Welt.Port;
    if (!port.IsOpen() && !port.Open(link.PortNummer)) {
        return false;
    }
    port.SetRts(true);
    return true;
}

std::string Sendelog_Pfad(const Kern& kern) {
    return kern.HistPfad() + "H_20100701_192030_LOCK.txt";
}

/// The record of what goes out. It lives as long as the transmit step and is never read back.
class Sendelog {
public:
    explicit Sendelog(const Kern& kern) : files_(kern.Welt.Files), path_(Sendelog_Pfad(kern)) {}
    ~Sendelog() { files_.Remove(path_); }
    Sendelog(const Sendelog&) = delete;
    Sendelog& operator=(const Sendelog&) = delete;

    void Schreiben(std::span<const std::uint8_t> wire) const {
        std::string text = "***********************\r\n";
        for (const std::uint8_t byte : wire) {
            text.append(Ziffern(byte)).append("\r\n");
        }
        files_.Append(path_, text);
    }

private:
    const FileStore& files_;
    std::string path_;
};

/// Lets events go on until a reply is there, the time is over, or the row is no longer the same.
void Abwarten(const Netzlauf& run, int timeoutMs, unsigned number) {
    const Platform& world = run.kern.Welt;
    const std::int64_t start = world.Milliseconds();
    Timer wake(run.kern.Welt);
    wake.Ticked = [&wake] { wake.Stop(); };
    while (run.Number == number && run.link.UsbDone != UsbDoneMark) {
        const std::int64_t left = timeoutMs - (world.Milliseconds() - start);
        if (left <= 0) {
            return;
        }
        if (!wake.Running()) {
            wake.Start(static_cast<int>(left));
        }
        world.ProcessEvents();
    }
}

/// One telegram as it goes out: unstuffed for the trace, stuffed for the line.
struct Sendung {
    std::vector<std::uint8_t> Frame, Wire;

    Sendung() = default;
    ~Sendung() {
        Vergessen(Frame);
        Vergessen(Wire);
    }
    Sendung(const Sendung&) = delete;
    Sendung& operator=(const Sendung&) = delete;
};

void Sendung_Bilden(const Link& link, int length, Sendung& out) {
    out.Frame.reserve(At(length + 1));
    std::transform(link.TxBuffer.begin(), link.TxBuffer.begin() + length + 1, std::back_inserter(out.Frame),
                   [](std::uint16_t word) { return static_cast<std::uint8_t>(word); });
    out.Wire.reserve(2 * out.Frame.size());
    Stopfen(out.Frame, out.Wire);
}

/// Two writes, and no pause between groups: 3000 turns of an empty loop, the pause that there once was, are
/// microseconds.
void Schreiben(Netzlauf& run, const Sendung& out) {
    const std::span<const std::uint8_t> wire = out.Wire;
    run.Begun = true;
    run.LastTraffic = run.kern.Welt.Milliseconds();
    run.kern.Welt.Port.Write(wire.first(1));
    Net_Scharf(run);
    run.kern.Welt.Port.Write(wire.subspan(1));
    if (run.link.Protokoll) {
        run.link.Protokoll({.Way = TraceFrame::Direction::Sent, .Bytes = out.Frame});
    }
}

/// How the tries ended.
enum class SendEnd { Reply, Silence, NoPort, Overtaken };

SendEnd Versuche(Netzlauf& run, const Sendung& out, bool wait, int timeoutMs, int tries) {
    const unsigned number = run.Number;
    const Sendelog log(run.kern);
    for (int n = 0; n < std::max(tries, 1); ++n) {
        if (!Bereit(run.link)) {
            return SendEnd::NoPort;
        }
        log.Schreiben(out.Wire);
        Schreiben(run, out);
        if (!wait) {
            run.link.UsbDone = UsbDoneMark;
            return SendEnd::Reply;
        }
        Abwarten(run, std::max(timeoutMs, ShortestTimeout), number);
        if (run.Number != number) {
            return SendEnd::Overtaken;
        }
        if (run.link.UsbDone == UsbDoneMark) {
            return SendEnd::Reply;
        }
    }
    return SendEnd::Silence;
}

} // namespace

void Sendelog_Entfernen(const Kern& kern) {
    kern.Welt.Files.Remove(Sendelog_Pfad(kern));
}

bool Net_Telegramm_Senden(Netzlauf& run, int length, bool wait, int timeoutMs, int tries) {
    if (run.Sending || length < NetzPayload || length >= BufferSize) {
        return false;
    }
    // Once for all tries: the cipher works in place. The bytes are kept, as a wait may let others use the buffer.
    const int sent = Verschluesseln(run, length);
    Net_Feld(run.link, NetzKopf::Sent, 1);
    Sendung out;
    Sendung_Bilden(run.link, sent, out);
    run.Runde.Stop();
    run.Antworten.clear();
    Net_Balken(run);

    run.Sending = true;
    const SendEnd end = Versuche(run, out, wait, timeoutMs, tries);
    if (end == SendEnd::Overtaken) {
        return true;
    }
    run.Sending = false;
    if (end == SendEnd::Reply) {
        run.Timer3.Start(HandlerDelay);
    } else if (end == SendEnd::Silence && run.kern.Welt.Port.IsOpen()) {
        Net_Stillstand(run, NetStandstill::NoReply);
    } else {
        Net_Stillstand(run, run.Begun ? NetStandstill::PortLost : NetStandstill::NoPort);
    }
    return end != SendEnd::NoPort;
}

bool Net_Block_Senden(Netzlauf& run, int length) {
    Rahmen_Summe(run.link, length);
    return Net_Telegramm_Senden(run, length, true, 3000, 4);
}

void Net_Balken(Netzlauf& run) {
    run.BarValue = run.BarValue >= BarWrap ? BarStep : run.BarValue + BarStep;
    run.Ansicht.Balken(NetzBarMaximum, run.BarValue, true);
}

} // namespace qvm
