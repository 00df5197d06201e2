#include "TelegrammBau.h"

#include "Stelle.h"

#include <algorithm>

namespace qvm {
namespace {

void Kopf_Schreiben(Link& link, const Layout& layout, std::uint8_t length) {
    if (layout.How == Build::Kopf) {
        Telegramm_Kopf(link, length, layout.Code);
    } else {
        link.TxBuffer[0] = StartByte;
        link.TxBuffer[1] = length;
        link.TxBuffer[2] = layout.Code;
    }
    if (layout.How == Build::Direct) {
        link.TxBuffer[11] = 1;
        link.TxBuffer[12] = 0;
    }
    if (layout.How != Build::Raw) {
        link.TxBuffer[13] = 0;
    }
}

} // namespace

void Telegramm_Beginnen(Link& link, const Layout& layout) {
    Telegramm_Beginnen(link, layout, layout.L);
}

void Telegramm_Beginnen(Link& link, const Layout& layout, int length) {
    const int shortest = layout.Shortest != 0 ? layout.Shortest : layout.L;
    const int last = std::clamp<int>(length, shortest, layout.L);
    Kopf_Schreiben(link, layout, static_cast<std::uint8_t>(last));
    const auto payload = link.TxBuffer.begin() + ErsterIndex(layout);
    std::fill(payload, link.TxBuffer.begin() + last + 1, std::uint16_t{0});
    for (const Field& field : layout.Fields) {
        if (field.Is == Kind::Fixed) {
            std::fill_n(link.TxBuffer.begin() + field.Offset, field.Width, field.Detail);
        }
    }
}

void Feld_Setzen(Link& link, const Field& field, unsigned value) {
    if (field.Width == 2) {
        link.TxBuffer[At(field.Offset)] = static_cast<std::uint16_t>((value >> 8) & 0xFF);
        link.TxBuffer[At(field.Offset + 1)] = static_cast<std::uint16_t>(value & 0xFF);
    } else {
        link.TxBuffer[At(field.Offset)] = static_cast<std::uint16_t>(value & 0xFF);
    }
}

void Feld_Setzen(Link& link, const Field& field, std::span<const std::uint8_t> bytes) {
    std::copy_n(bytes.begin(), std::min<std::size_t>(bytes.size(), field.Width), link.TxBuffer.begin() + field.Offset);
}

void Feld_Setzen(Link& link, const Field& field, std::string_view text) {
    const std::string_view cut = text.substr(0, field.Width);
    std::transform(cut.begin(), cut.end(), link.TxBuffer.begin() + field.Offset,
                   [](char c) { return static_cast<std::uint8_t>(c); });
}

void Ab_Feld_Setzen(Link& link, const Field& field, std::span<const std::uint8_t> bytes) {
    const int room = std::max(0, link.TxBuffer[1] + 1 - field.Offset);
    std::copy_n(bytes.begin(), std::min(bytes.size(), At(room)), link.TxBuffer.begin() + field.Offset);
}

bool Telegramm_Abschicken(Link& link, const Layout& layout) {
    return layout.How == Build::Raw ? Telegramm_Roh_Senden(link) : Telegramm_Senden(link);
}

bool Parameter_Abschicken(Link& link, const Layout& layout, std::uint8_t param1, std::uint8_t param2) {
    link.TelegrammParam1 = param1;
    link.TelegrammParam2 = param2;
    return Telegramm_Kopf2(link, layout.L, layout.Code);
}

bool Wert_Abschicken(Link& link, const Layout& layout, const Field& field, unsigned value) {
    Telegramm_Beginnen(link, layout);
    Feld_Setzen(link, field, value);
    return Telegramm_Abschicken(link, layout);
}

bool Leer_Abschicken(Link& link, const Layout& layout) {
    Telegramm_Beginnen(link, layout);
    return Telegramm_Abschicken(link, layout);
}

} // namespace qvm
