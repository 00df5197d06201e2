#include "TelegrammDokument.h"

#include "NetzDokument.h"
#include "Telegramme.h"
#include "Text.h"
#include "Zusammen.h"

namespace qvm {
namespace {

constexpr std::string_view Intro = R"(# Telegrams

This file is generated from the layouts in `src/link` and compared with them in a test. Set `QVM_WRITE_DOCS=1` and run
`test_link` to write it anew.

All numbers at a field are frame indexes: 0 is the start byte 0x02, 1 the length L, 2 the code. L is the index of the last
payload byte. On the line every 0x02 from index 2 on is followed by one 0x00, the checksum included; the checksum is taken
before that.

- From the PC the checksum stands at L + 1 and covers 0 to L.
- From the device it stands at L + 2 and covers 0 to L; the byte at L + 1 lies outside the sum.
- The checksum doubles with end-around carry, modulo 255, before it adds a byte; 255 stays 255.

Header of an addressed telegram: 3..6 address, 7 device class (0x11), 8 address mode (0, 1 or 2), 9 = 0x33, 10 = 0x88,
11 = 1, 12 = 0, 13 = 0.

How a telegram is made: *Kopf* and *direct* are addressed telegrams, *Kopf2* is one whose payload is at most two
parameters, *raw* goes to the adapter itself and has no address header. "hidden" fields hold codes, keys,
identifications and fingerprints; the trace shows neither them nor the checksum of their frame unless it is asked to.
)";

std::string Stellen(const Field& field) {
    const std::string first = Ziffern(field.Offset);
    return field.Width == 1 ? first : Zusammen({first, "..", Ziffern(field.End() - 1)});
}

std::string Feldtext(const Field& field) {
    std::string text = Stellen(field);
    switch (field.Is) {
    case Kind::Fixed:
        return Zusammen({text, " = ", Hex2(field.Detail)});
    case Kind::Word:
        return Zusammen({text, ": ", field.Name, ", high byte first"});
    case Kind::Rows: {
        const int rows = (field.Width + field.Detail - 1) / field.Detail;
        return Zusammen({text, ": ", Ziffern(rows), " ", field.Name, " of ", Ziffern(field.Detail), " bytes"});
    }
    case Kind::UserCode:
    case Kind::AdminCode:
    case Kind::Secret:
        return Zusammen({text, ": ", field.Name, " (hidden)"});
    case Kind::Byte:
    case Kind::Text:
    case Kind::Bytes:
        break;
    }
    return Zusammen({text, ": ", field.Name});
}

std::string Felderliste(const Layout& layout) {
    std::string text;
    for (const Field& field : layout.Fields) {
        text.append(text.empty() ? "" : "; ").append(Feldtext(field));
    }
    return text.empty() ? "none" : text;
}

std::string_view Machart(Build how) {
    switch (how) {
    case Build::Kopf:
        return "Kopf";
    case Build::Kopf2:
        return "Kopf2";
    case Build::Direct:
        return "direct";
    case Build::Raw:
        return "raw";
    case Build::Reply:
        break;
    }
    return "";
}

std::string Laengentext(const Layout& layout) {
    if (layout.Shortest == 0) {
        return Hex2(layout.L);
    }
    return Zusammen(
        {Hex2(layout.Shortest), " to ", Hex2(layout.L), ", a row each ", Ziffern(Zeilenfeld(layout).Detail)});
}

std::string Sendezeile(const Layout& layout) {
    return Zusammen({"| ", Hex2(layout.Code), " | `", layout.Name, "` | ", Laengentext(layout), " | ",
                     Machart(layout.How), " | ", Felderliste(layout), " | ", layout.Note, " |\n"});
}

std::string Antwortzeile(const Layout& layout) {
    return Zusammen({"| ", Hex2(layout.Code), " | `", layout.Name, "` | ",
                     layout.Fields.empty() ? std::string("any") : Hex2(layout.L), " | ", Felderliste(layout), " | ",
                     layout.Note, " |\n"});
}

} // namespace

std::string Telegramm_Dokument() {
    std::string text(Intro);
    text += "\n## From the PC\n\n| Code | Name | L | Made | Payload | Note |\n|---|---|---|---|---|---|\n";
    for (const Layout& layout : Telegramme()) {
        text += Sendezeile(layout);
    }
    text +=
        "\n## From the device\n\nOnly the bytes that the program reads. L is the smallest with which all of them lie "
        "inside the frame.\n\n| Code | Name | L | Fields | Note |\n|---|---|---|---|---|\n";
    for (const Layout& layout : Antworten()) {
        if (layout.Name != QuittungName) {
            text += Antwortzeile(layout);
        }
    }
    text += "\n`RpQuittung`, a plain acknowledge of which only the code is read:\n";
    std::size_t column = 0;
    for (const std::uint8_t code : QuittungCodes) {
        const bool last = column + 1 == QuittungCodes.size();
        text += Zusammen({column % 14 == 0 ? "\n" : " ", Hex2(code), last ? "." : ","});
        ++column;
    }
    text += "\n";
    text += Net_Dokument();
    return text;
}

} // namespace qvm
