#include "NetzDokument.h"

#include "TelegrammeNetz.h"
#include "Text.h"
#include "Zusammen.h"

namespace qvm {
namespace {

constexpr std::string_view NetworkIntro = R"(
## Network path

Telegrams of code 0x90 between the PC and a network adapter. Index 1 is the block number, which goes out unstuffed, 4..5 the
length word N, 27 the telegram's code. From the PC the bytes 0 to N go out. A block with code 0x14 or 0x16 ends with its
checksum at N, over 0 to N - 1 of the telegram in the clear with 0 at index 26. From the adapter the checksum stands at
N - 1, over 0 to N - 2, and one byte follows that nobody reads; replies with code 0x0C, 0x0D and 0xFF are taken without it.

The payload begins at 32. Behind every 128 bytes of it, and behind what is left in the end, stands a checksum over them. It
is enciphered with the adapter's transfer key in blocks of 16 bytes. Each 129th byte, the checksum of 128 bytes, stays
plain. The checksum of a shorter last group belongs to the group: whole blocks of data and checksum are enciphered, and what
is left below 16 bytes stays plain. So 1193 to 1304 of a full block of code 0x16 are seven enciphered blocks.

| Code | Name | Fields | Note |
|---|---|---|---|
)";

constexpr std::string_view Codes = R"(
A block with code 0x16 carries up to 1263 bytes: the fingerprints one behind the other, each with its head, without regard
to the ends of blocks. Block numbers run on from the data blocks.

The payload of a history block are history records of 22 bytes, which run on from one block to the next. The trace tells the
header of a network telegram and hides the payload.

Replies of the adapter:

| Code | Name | Meaning |
|---|---|---|
)";

std::string Feldtext(const NetzFeld& field) {
    const std::string first = Ziffern(field.Offset);
    const std::string at = field.Width == 1 ? first : Zusammen({first, "..", Ziffern(field.End() - 1)});
    switch (field.Is) {
    case Kind::Fixed:
        return Zusammen({at, " = ", Hex2(field.Detail)});
    case Kind::Word:
        return Zusammen({at, ": ", field.Name, ", high byte first"});
    case Kind::Rows:
        return Zusammen(
            {at, ": ", Ziffern(field.Width / field.Detail), " ", field.Name, " of ", Ziffern(field.Detail), " bytes"});
    case Kind::UserCode:
    case Kind::AdminCode:
    case Kind::Secret:
        return Zusammen({at, ": ", field.Name, " (hidden)"});
    case Kind::Byte:
    case Kind::Text:
    case Kind::Bytes:
        break;
    }
    return Zusammen({at, ": ", field.Name});
}

std::string Zeile(const NetzLayout& layout) {
    std::string fields;
    for (const NetzFeld& field : layout.Fields) {
        fields.append(fields.empty() ? "" : "; ").append(Feldtext(field));
    }
    const std::string code = layout.Code < 0 ? "" : Hex2(static_cast<unsigned>(layout.Code));
    return Zusammen({"| ", code, " | `", layout.Name, "` | ", fields, " | ", layout.Note, " |\n"});
}

} // namespace

std::string Net_Dokument() {
    std::string text(NetworkIntro);
    for (const NetzLayout& layout :
         {NetzKopf::Layout, NetzDaten::Layout, NetzCodeBenutzer::PlainLayout, NetzCodeBenutzer::LongLayout,
          NetzFingerBenutzer::Layout, NetzVorlage::Layout, NetzUhr::Layout, NetzHistorie::Start, NetzHistorie::Next}) {
        text += Zeile(layout);
    }
    text += Codes;
    for (const NetzName& reply : NetzAntworten) {
        text += Zusammen({"| ", Hex2(reply.Code), " | `", reply.Name, "` | ", reply.Meaning, " |\n"});
    }
    return text;
}

} // namespace qvm
