#include "SeriellesProtokoll.h"
#include "TelegrammBau.h"
#include "TelegrammeUnit.h"

#include <algorithm>

/// Telegrams to wireless units, to card and enrolment devices, and to the adapter itself.
namespace qvm {
namespace {

constexpr std::size_t CipherBlock = 16;

/// Enciphers the 32 data bytes of a unit block in TxBuffer, in two blocks. What the cipher answers is not looked at.
void Block_Daten_Verschluesseln(Link& link) {
    const auto data = link.TxBuffer.begin() + TelUnitBlock::Data.Offset;
    for (std::size_t half = 0; half < TelUnitBlock::Data.Width; half += CipherBlock) {
        std::array<std::uint8_t, CipherBlock> block{};
        const auto from = data + static_cast<std::ptrdiff_t>(half);
        std::transform(from, from + CipherBlock, block.begin(),
                       [](std::uint16_t word) { return static_cast<std::uint8_t>(word); });
        link.kern.Welt.encryptData(block, link.Lauf.SitzungsSchluessel.Bytes());
        std::copy(block.begin(), block.end(), from);
    }
}

} // namespace

bool TelUnitEinstellung_Senden(Link& link, const Address& setting) {
    Telegramm_Beginnen(link, TelUnitEinstellung::Telegram);
    Feld_Setzen(link, TelUnitEinstellung::Setting, setting);
    return Telegramm_Abschicken(link, TelUnitEinstellung::Telegram);
}

bool TelUnitSchluessel_Senden(Link& link) {
    Telegramm_Beginnen(link, TelUnitSchluessel::Telegram);
    Feld_Setzen(link, TelUnitSchluessel::Key, link.Lauf.SitzungsSchluessel);
    return Telegramm_Abschicken(link, TelUnitSchluessel::Telegram);
}

bool TelUnitOeffnen_Senden(Link& link, const Address& setting) {
    Telegramm_Beginnen(link, TelUnitOeffnen::Telegram);
    Feld_Setzen(link, TelUnitOeffnen::Setting, setting);
    return Telegramm_Abschicken(link, TelUnitOeffnen::Telegram);
}

bool TelUnitBlock_Senden(Link& link, const UnitBlock& block) {
    using namespace TelUnitBlock;
    Telegramm_Beginnen(link, Telegram);
    Feld_Setzen(link, Rows, block.Rows);
    Feld_Setzen(link, Row, block.Row);
    Feld_Setzen(link, Piece, block.Piece);
    Feld_Setzen(link, Type, block.Type);
    Feld_Setzen(link, TelUnitBlock::Address, block.RowAddress);
    Feld_Setzen(link, Data, block.Data);
    Feld_Setzen(link, Sum, Bereich_Pruefsumme_Tx(link, Sum.Offset - 1 - SumStart, SumStart));
    Block_Daten_Verschluesseln(link);
    return Telegramm_Abschicken(link, Telegram);
}

bool TelUnitSuche_Senden(Link& link) {
    const Address address = link.TargetAddress;
    const std::uint8_t mode = link.AddressMode;
    link.TargetAddress = {};
    link.AddressMode = 1;
    const bool sent = Leer_Abschicken(link, TelUnitSuche::Telegram);
    link.TargetAddress = address;
    link.AddressMode = mode;
    return sent;
}

bool TelUnitVerbinden_Senden(Link& link) {
    Telegramm_Beginnen(link, TelUnitVerbinden::Telegram);
    Feld_Setzen(link, TelUnitVerbinden::AdminCode, link.Lauf.Order.AdminCode);
    return Telegramm_Abschicken(link, TelUnitVerbinden::Telegram);
}

bool TelEKeyAktion_Senden(Link& link, std::uint8_t param1, std::uint8_t param2) {
    return Parameter_Abschicken(link, TelEKeyAktion::Telegram, param1, param2);
}

bool TelEKeyLesen_Senden(Link& link, std::uint8_t param1, std::uint8_t param2, bool oldAdapter) {
    return Parameter_Abschicken(link, oldAdapter ? TelEKeyLesenAlt::Telegram : TelEKeyLesen::Telegram, param1, param2);
}

bool TelFingerLoeschen_Senden(Link& link, std::uint8_t slot) {
    return Parameter_Abschicken(link, TelFingerLoeschen::Telegram, slot, 1);
}

bool TelFingerAnlernen_Senden(Link& link, std::uint8_t param1, std::uint8_t param2) {
    return Parameter_Abschicken(link, TelFingerAnlernen::Telegram, param1, param2);
}

bool TelFingerAbfrage_Senden(Link& link, std::uint8_t param1, std::uint8_t param2) {
    return Parameter_Abschicken(link, TelFingerAbfrage::Telegram, param1, param2);
}

bool TelKarteStart_Senden(Link& link) {
    return Leer_Abschicken(link, TelKarteStart::Telegram);
}

bool TelKarteLesen_Senden(Link& link, std::uint8_t block) {
    return Wert_Abschicken(link, TelKarteLesen::Telegram, TelKarteLesen::Block, block);
}

bool TelKarteSchreiben_Senden(Link& link, std::span<const std::uint8_t, 26> head,
                              std::span<const std::array<std::uint8_t, 4>> rows, std::uint8_t mode) {
    using namespace TelKarteSchreiben;
    const std::size_t count = std::min<std::size_t>(rows.size(), Rows.Width / Rows.Detail);
    const int length = Rows.Offset + Rows.Detail * static_cast<int>(count);
    Telegramm_Beginnen(link, Telegram, length);
    Ab_Feld_Setzen(link, Telegrams, head);
    auto to = link.TxBuffer.begin() + Rows.Offset;
    for (const std::array<std::uint8_t, 4>& row : rows.first(count)) {
        to = std::copy(row.begin(), row.end(), to);
    }
    *to = mode;
    return Telegramm_Abschicken(link, Telegram);
}

bool TelKarteFolge_Senden(Link& link, std::span<const std::uint8_t, 2> head, std::span<const std::uint8_t> bytes,
                          int count) {
    using namespace TelKarteFolge;
    Telegramm_Beginnen(link, Telegram, Rows.Offset + Rows.Detail * std::clamp(count, 0, Rows.Width / Rows.Detail));
    Ab_Feld_Setzen(link, Telegrams, head);
    Ab_Feld_Setzen(link, Rows, bytes);
    return Telegramm_Abschicken(link, Telegram);
}

bool TelAdapterKennung_Senden(Link& link, const std::array<std::uint8_t, 5>& probe) {
    Telegramm_Beginnen(link, TelAdapterKennung::Telegram);
    Feld_Setzen(link, TelAdapterKennung::Probe, probe);
    return Telegramm_Abschicken(link, TelAdapterKennung::Telegram);
}

bool TelAdapterKanal_Senden(Link& link) {
    Telegramm_Beginnen(link, TelAdapterKanal::Telegram);
    Feld_Setzen(link, TelAdapterKanal::Channel, link.TargetChannel);
    Feld_Setzen(link, TelAdapterKanal::Address, link.TargetAddress);
    return Telegramm_Abschicken(link, TelAdapterKanal::Telegram);
}

bool TelAdapterDaten_Senden(Link& link) {
    return Leer_Abschicken(link, TelAdapterDaten::Telegram);
}

bool TelAdapterName_Senden(Link& link, std::string_view name) {
    Telegramm_Beginnen(link, TelAdapterName::Telegram);
    Feld_Setzen(link, TelAdapterName::AdapterName, name);
    return Telegramm_Abschicken(link, TelAdapterName::Telegram);
}

bool TelAdapterZiel_Senden(Link& link, std::uint8_t mode) {
    Telegramm_Beginnen(link, TelAdapterZiel::Telegram);
    Feld_Setzen(link, TelAdapterZiel::Channel, link.TargetChannel);
    Feld_Setzen(link, TelAdapterZiel::Mode, mode);
    Feld_Setzen(link, TelAdapterZiel::Address, link.TargetAddress);
    return Telegramm_Abschicken(link, TelAdapterZiel::Telegram);
}

} // namespace qvm
