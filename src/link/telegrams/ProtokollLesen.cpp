#include "LayoutSuche.h"
#include "Protokoll.h"
#include "ProtokollNetz.h"
#include "Text.h"
#include "Zusammen.h"

#include <algorithm>
#include <array>
#include <optional>

namespace qvm {
namespace {

using Way = TraceFrame::Direction;
using Bytes = std::span<const std::uint8_t>;

/// The bytes of one line, and which of them it hides.
struct Zeilenbytes {
    std::vector<std::uint8_t> Bytes;
    std::vector<bool> Hidden;
    bool AnyHidden = false;

    void Anhaengen(std::uint8_t byte, bool hidden) {
        Bytes.push_back(byte);
        Hidden.push_back(hidden);
        AnyHidden = AnyHidden || hidden;
    }
};

/// A frame found in a line, unstuffed, and how many bytes of the line it took.
struct Fund {
    Way Direction;
    std::vector<std::uint8_t> Frame;
    std::size_t Used;
};

bool Ist_Trennzeichen(char c) {
    return c == ' ' || c == '\t' || c == ',' || c == ';' || c == ':' || c == '-';
}

/// Takes the bytes of one word, or says what is wrong with it.
std::string Wort_Lesen(std::string_view word, Zeilenbytes& out) {
    std::string_view digits = word;
    if (digits.size() > 2 && digits[0] == '0' && (digits[1] == 'x' || digits[1] == 'X')) {
        digits.remove_prefix(2);
    }
    if (digits.size() == 1) {
        const std::int64_t value = HexWert(digits);
        if (value >= 0) {
            out.Anhaengen(static_cast<std::uint8_t>(value), false);
            return {};
        }
    }
    if (digits.size() % 2 != 0) {
        return Zusammen({"'", word.substr(0, 20), "' is no row of hexadecimal bytes"});
    }
    for (std::size_t n = 0; n < digits.size(); n += 2) {
        const std::string_view pair = digits.substr(n, 2);
        const std::int64_t value = HexWert(pair);
        if (value < 0 && pair != "**") {
            return Zusammen({"'", pair, "' is no hexadecimal byte"});
        }
        out.Anhaengen(static_cast<std::uint8_t>(std::max<std::int64_t>(value, 0)), value < 0);
    }
    return {};
}

std::string Bytes_Lesen(std::string_view text, Zeilenbytes& out) {
    std::size_t at = 0;
    while (at < text.size()) {
        if (Ist_Trennzeichen(text[at])) {
            ++at;
            continue;
        }
        std::size_t end = at;
        while (end < text.size() && !Ist_Trennzeichen(text[end])) {
            ++end;
        }
        if (std::string fault = Wort_Lesen(text.substr(at, end - at), out); !fault.empty()) {
            return fault;
        }
        at = end;
    }
    return {};
}

/// The frame at the beginning of `bytes` if its checksum stands where this direction has it. `stuffed`: a 0x02 behind
/// the length byte is followed by a 0x00 that does not count.
std::optional<Fund> Rahmen_Lesen(Bytes bytes, Way way, bool stuffed) {
    if (bytes.size() < 3 || bytes[0] != StartByte || bytes[1] == 0) {
        return std::nullopt;
    }
    const std::size_t sumIndex = std::size_t{bytes[1]} + (way == Way::Sent ? 1 : 2);
    std::vector<std::uint8_t> frame(bytes.begin(), bytes.begin() + 2);
    std::size_t at = 2;
    while (frame.size() <= sumIndex && at < bytes.size()) {
        frame.push_back(bytes[at]);
        ++at;
        if (stuffed && frame.back() == StartByte) {
            if (at >= bytes.size() || bytes[at] != 0) {
                return std::nullopt;
            }
            ++at;
        }
    }
    // A frame whose only 0x02 is the checksum reads the same either way, but for the 0x00 behind it.
    if (!stuffed && frame.back() == StartByte && at < bytes.size() && bytes[at] == 0) {
        ++at;
    }
    if (frame.size() != sumIndex + 1 || Pruefsumme(Bytes(frame).first(std::size_t{bytes[1]} + 1)) != frame.back()) {
        return std::nullopt;
    }
    return Fund{way, std::move(frame), at};
}

/// The same for a frame of the network path, whose length is a word and whose index 1 goes out unstuffed. The byte that
/// closes a reply is not stuffed either.
std::optional<Fund> Net_Lesen(Bytes bytes, Way way, bool stuffed) {
    const bool sent = way == Way::Sent;
    std::vector<std::uint8_t> frame;
    std::size_t at = 0;
    std::size_t size = 0;
    if (bytes.size() <= NetzPayload || bytes[0] != StartByte || !Net_Rahmen(bytes)) {
        return std::nullopt;
    }
    while (at < bytes.size() && frame.size() < BufferSize && (size == 0 || frame.size() < size)) {
        frame.push_back(bytes[at]);
        ++at;
        if (frame.size() == NetzKopf::Code.Offset + std::size_t{1}) {
            size = Net_Groesse(frame, sent);
        }
        const bool closing = !sent && frame.size() == size;
        if (stuffed && frame.size() > 2 && frame.back() == StartByte && !closing) {
            if (at >= bytes.size() || bytes[at] != 0) {
                return std::nullopt;
            }
            ++at;
        }
    }
    if (!Net_Passt(frame, sent)) {
        return std::nullopt;
    }
    return Fund{way, std::move(frame), at};
}

/// Indexes 9 to 13 of every addressed telegram.
constexpr std::array<std::uint8_t, 5> HeaderMarks{0x33, 0x88, 1, 0, 0};

/// How likely a frame is what it was found to be. A checksum alone fits by chance, and always fits one place further on
/// behind bytes like AA 55; so what takes all bytes counts most, and then what the layouts say.
int Rang(const Fund& found, std::size_t available) {
    const bool sent = found.Direction == Way::Sent;
    const int whole = found.Used == available ? 4 : 0;
    if (Net_Rahmen(found.Frame) && Net_Passt(found.Frame, sent)) {
        return whole + (sent ? 2 : 3);
    }
    const Layout* layout = Layout_Suchen(sent, found.Frame);
    if (layout == nullptr || !Festwerte_Passen(*layout, found.Frame)) {
        return whole;
    }
    const bool marked = sent && (layout->How == Build::Raw ||
                                 std::equal(HeaderMarks.begin(), HeaderMarks.end(), found.Frame.begin() + 9));
    return whole + (marked ? 2 : 1);
}

/// The likeliest frame at the beginning of `bytes`, as it stands or stuffed, in one of the directions.
std::optional<Fund> Rahmen_Suchen(Bytes bytes, std::span<const Way> ways) {
    std::optional<Fund> best;
    int bestRank = -1;
    for (const bool stuffed : {false, true}) {
        for (const Way way : ways) {
            for (const auto read : {Rahmen_Lesen, Net_Lesen}) {
                auto found = read(bytes, way, stuffed);
                const int rank = found ? Rang(*found, bytes.size()) : -1;
                if (rank > bestRank) {
                    best = std::move(found);
                    bestRank = rank;
                }
            }
        }
    }
    return best;
}

std::optional<Way> Richtung_Lesen(std::string_view& line) {
    if (line.empty() || (line[0] != '>' && line[0] != '<')) {
        return std::nullopt;
    }
    const Way way = line[0] == '>' ? Way::Sent : Way::Received;
    line.remove_prefix(1);
    return way;
}

class Leser {
public:
    void Zeile(std::string_view line, int number) {
        number_ = number;
        line = line.substr(0, line.find_first_of("|\r"));
        line = Trim(line);
        if (line.empty() || line[0] == '#') {
            return;
        }
        const std::optional<Way> way = Richtung_Lesen(line);
        Zeilenbytes bytes;
        if (std::string fault = Bytes_Lesen(line, bytes); !fault.empty()) {
            Fehler(std::move(fault));
        } else if (way) {
            Eine(*way, bytes);
        } else {
            Mehrere(bytes);
        }
    }

    TraceText Text;

private:
    void Fehler(std::string text) { Text.Errors.push_back({number_, std::move(text)}); }

    void Nehmen(Way way, std::vector<std::uint8_t> frame, std::vector<bool> hidden = {}) {
        Text.Frames.push_back({.Way = way,
                               .Bytes = std::move(frame),
                               .Hidden = std::move(hidden),
                               .Result = RxResult::Frame,
                               .Line = number_});
    }

    /// A trace line holds one frame. It is taken as it stands; what is wrong with it, its decoding tells.
    void Eine(Way way, const Zeilenbytes& line) {
        if (line.Bytes.size() < 3 || line.Bytes[0] != StartByte) {
            Fehler("no frame: it would begin with 02, a length and a code");
            return;
        }
        const auto found = line.AnyHidden ? std::nullopt : Rahmen_Suchen(line.Bytes, std::array{way});
        if (found && found->Used == line.Bytes.size()) {
            Nehmen(way, found->Frame);
        } else {
            Nehmen(way, line.Bytes, line.AnyHidden ? line.Hidden : std::vector<bool>{});
        }
    }

    void Mehrere(const Zeilenbytes& line) {
        if (line.AnyHidden) {
            Fehler("hidden bytes need a > or < before the frame");
            return;
        }
        const Bytes bytes = line.Bytes;
        std::size_t skipped = 0;
        std::size_t frames = 0;
        for (std::size_t at = 0; at < bytes.size();) {
            if (auto found = Rahmen_Suchen(bytes.subspan(at), std::array{Way::Sent, Way::Received})) {
                at += found->Used;
                ++frames;
                Nehmen(found->Direction, std::move(found->Frame));
            } else {
                ++at;
                ++skipped;
            }
        }
        if (frames == 0) {
            Fehler(Zusammen({"no frame with a good checksum in ", Ziffern(std::ssize(bytes)), " bytes"}));
        } else if (skipped > 0) {
            Fehler(Zusammen({Ziffern(static_cast<std::int64_t>(skipped)), " bytes belong to no frame"}));
        }
    }

    int number_ = 0;
};

} // namespace

TraceText Protokoll_Lesen(std::string_view text) {
    Leser reader;
    int number = 0;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        reader.Zeile(text.substr(0, end), ++number);
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return std::move(reader.Text);
}

} // namespace qvm
