#include "Protokoll.h"

#include "LayoutSuche.h"
#include "ProtokollNetz.h"
#include "Text.h"
#include "Verbergen.h"
#include "Zusammen.h"

#include <algorithm>

namespace qvm {
namespace {

using Way = TraceFrame::Direction;
using Bytes = std::span<const std::uint8_t>;

bool Gesendet(Way way) {
    return way == Way::Sent || way == Way::SentRaw;
}

std::string Hex(Bytes bytes) {
    std::string text;
    for (const std::uint8_t byte : bytes) {
        text.append(text.empty() ? "" : " ").append(HexText(byte, 2));
    }
    return text;
}

std::string Textwert(Bytes bytes) {
    std::size_t size = bytes.size();
    while (size > 0 && bytes[size - 1] == 0) {
        --size;
    }
    std::string text = "\"";
    for (const std::uint8_t byte : bytes.first(size)) {
        const bool plain = byte >= 0x20 && byte < 0x7F && byte != '"' && byte != '\\' && byte != '|';
        if (plain) {
            text.push_back(static_cast<char>(byte));
        } else {
            text.append("\\x").append(HexText(byte, 2));
        }
    }
    text.push_back('"');
    return text;
}

std::string Zeilenwert(Bytes bytes, std::size_t width) {
    std::string text;
    for (std::size_t n = 0; n < bytes.size(); n += width) {
        text.append(text.empty() ? "" : " / ").append(Hex(bytes.subspan(n, std::min(width, bytes.size() - n))));
    }
    return text;
}

/// A code's digits: nibble 0xA is the digit 0, anything beyond it no digit.
std::string Codewert(Bytes bytes) {
    std::string text;
    for (const std::uint8_t byte : bytes) {
        for (const int nibble : {byte >> 4, byte & 0xF}) {
            text += nibble == 0xA ? '0' : nibble >= 1 && nibble <= 9 ? static_cast<char>('0' + nibble) : '-';
        }
    }
    return text;
}

template <class AnyField>
std::string Feldwert(const AnyField& field, Bytes bytes) {
    switch (field.Is) {
    case Kind::Byte:
        return Ziffern(bytes[0]);
    case Kind::Word:
        return Ziffern(256 * bytes[0] + bytes[1]);
    case Kind::Text:
        return Textwert(bytes);
    case Kind::Rows:
        return Zeilenwert(bytes, field.Detail);
    case Kind::UserCode:
    case Kind::AdminCode:
        return Codewert(bytes);
    case Kind::Bytes:
    case Kind::Fixed:
    case Kind::Secret:
        break;
    }
    return Hex(bytes);
}

/// `AnyField` is Field or NetzFeld.
template <class AnyField>
void Feld_Dekodieren(const AnyField& field, Bytes frame, const std::vector<bool>& hidden, DecodedTelegram& out) {
    const auto first = static_cast<std::size_t>(field.Offset);
    if (field.Width == 0 || first + field.Width > frame.size()) {
        return;
    }
    const Bytes bytes = frame.subspan(first, field.Width);
    const auto from = hidden.begin() + field.Offset;
    DecodedField decoded{.Name = std::string(field.Name), .Bytes = {}, .Text = "hidden"};
    if (std::find(from, from + field.Width, true) == from + field.Width) {
        decoded.Bytes.assign(bytes.begin(), bytes.end());
        decoded.Text = Feldwert(field, bytes);
        decoded.Constant = field.Is == Kind::Fixed && std::all_of(bytes.begin(), bytes.end(), [&](std::uint8_t byte) {
                               return byte == field.Detail;
                           });
    }
    out.Fields.push_back(std::move(decoded));
}

/// Index 1, the size and the checksum against each other. In the PC's frames the sum stands at L + 1, in replies at
/// L + 2, over indexes 0 to L in both.
void Rahmen_Pruefen(const Mitschnitt& frame, const std::vector<bool>& hidden, DecodedTelegram& out) {
    const bool known = std::find(hidden.begin(), hidden.end(), true) == hidden.end();
    if (Net_Rahmen(frame.Bytes)) {
        if (std::string fault = Net_Fehler(frame.Bytes, Gesendet(frame.Way), !known); !fault.empty()) {
            out.Remarks.push_back(std::move(fault));
        }
        return;
    }
    const std::size_t length = frame.Bytes[1];
    const std::size_t sumIndex = length + (Gesendet(frame.Way) ? 1 : 2);
    if (frame.Bytes.size() != sumIndex + 1) {
        out.Remarks.push_back(Zusammen({"the length byte calls for ", Ziffern(static_cast<std::int64_t>(sumIndex) + 1),
                                        " bytes, there are ", Ziffern(std::ssize(frame.Bytes))}));
        return;
    }
    if (known && Pruefsumme(Bytes(frame.Bytes).first(length + 1)) != frame.Bytes[sumIndex]) {
        out.Remarks.emplace_back("wrong checksum");
    }
}

const char* Verlustgrund(RxResult result) {
    switch (result) {
    case RxResult::BadChecksum:
        return "dropped, wrong checksum";
    case RxResult::BadStuffing:
        return "dropped, broken stuffing";
    case RxResult::TooLong:
        return "dropped, too long";
    case RxResult::Pending:
    case RxResult::Frame:
        break;
    }
    return "dropped";
}

void Net_Dekodieren(const Mitschnitt& frame, const std::vector<bool>& hidden, DecodedTelegram& out) {
    const Bytes bytes = frame.Bytes;
    out.Name = std::string(Net_Name(bytes, Gesendet(frame.Way)));
    for (const NetzFeld& field : NetzKopf::Fields) {
        Feld_Dekodieren(field, bytes, hidden, out);
    }
    if (const std::size_t from = Net_Geheim_Ab(bytes, frame.Way); from < bytes.size()) {
        const auto width = static_cast<std::uint16_t>(bytes.size() - from);
        Feld_Dekodieren(NetzFeld{"payload", static_cast<std::uint16_t>(from), width, Kind::Bytes}, bytes, hidden, out);
    }
}

void Seriell_Dekodieren(const Mitschnitt& frame, const std::vector<bool>& hidden, DecodedTelegram& out) {
    const Bytes bytes = frame.Bytes;
    const Layout* layout = Layout_Suchen(Gesendet(frame.Way), bytes);
    if (layout == nullptr) {
        return;
    }
    out.Name = std::string(layout->Name);
    // The checksum is no field of any layout; a frame that ends early must not pass it off as one.
    const Bytes body = bytes.first(bytes.size() - 1);
    if (Gesendet(frame.Way) && layout->How != Build::Raw) {
        for (const Field& field : {Adresskopf::DeviceAddress, Adresskopf::DeviceClass, Adresskopf::Mode}) {
            Feld_Dekodieren(field, body, hidden, out);
        }
    }
    const int shorter = Gesendet(frame.Way) ? Kuerzung(*layout, bytes) : 0;
    for (const Field& field : layout->Fields) {
        Feld_Dekodieren(Feld_Im_Rahmen(*layout, field, shorter), body, hidden, out);
    }
}

} // namespace

Mitschnitt Festhalten(const TraceFrame& frame) {
    return {.Way = frame.Way,
            .Bytes = {frame.Bytes.begin(), frame.Bytes.end()},
            .Hidden = {},
            .Result = frame.Result,
            .Line = 0};
}

DecodedTelegram Dekodieren(const Mitschnitt& frame, Geheimnis secrets) {
    DecodedTelegram out;
    const Bytes bytes = frame.Bytes;
    if (bytes.size() < 3) {
        out.Remarks.emplace_back("too short for a telegram");
        return out;
    }
    const std::vector<bool> hidden = Verborgene(frame, secrets);
    out.Code = bytes[2];
    if (frame.Way == Way::Dropped) {
        out.Remarks.emplace_back(Verlustgrund(frame.Result));
    } else {
        Rahmen_Pruefen(frame, frame.Hidden, out);
    }
    if (Net_Rahmen(bytes)) {
        Net_Dekodieren(frame, hidden, out);
    } else {
        Seriell_Dekodieren(frame, hidden, out);
    }
    return out;
}

std::string Telegramm_Text(const DecodedTelegram& telegram) {
    std::string text = telegram.Name;
    std::string_view separator = ": ";
    for (const DecodedField& field : telegram.Fields) {
        if (!field.Constant) {
            text += Zusammen({separator, field.Name, " ", field.Text});
            separator = ", ";
        }
    }
    for (const std::string& remark : telegram.Remarks) {
        text += Zusammen({" [", remark, "]"});
    }
    return text;
}

std::string Protokoll_Zeile(const TraceFrame& frame, Geheimnis secrets) {
    return Protokoll_Zeile(Festhalten(frame), secrets);
}

std::string Protokoll_Zeile(const Mitschnitt& frame, Geheimnis secrets) {
    const std::vector<bool> hidden = Verborgene(frame, secrets);
    std::string line = Gesendet(frame.Way) ? ">" : "<";
    for (std::size_t n = 0; n < frame.Bytes.size(); ++n) {
        line.append(" ").append(hidden[n] ? std::string("**") : HexText(frame.Bytes[n], 2));
    }
    return line.append(" | ").append(Telegramm_Text(Dekodieren(frame, secrets)));
}

} // namespace qvm
