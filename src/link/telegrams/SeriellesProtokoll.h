#pragma once

#include "Link.h"

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

/// Every telegram of the serial path: builds it in TxBuffer and sends it. Layouts stand in Telegramme.h. Values are
/// taken from the link and its run flags unless given. The result says whether the telegram left (Telegramm_Senden).
namespace qvm {

using TimerRow = std::array<std::uint8_t, 5>;   ///< day, start hour, start minute, end hour, end minute
using HolidayRow = std::array<std::uint8_t, 6>; ///< start day, month, year; end day, month, year

bool TelUnitTrennen_Senden(Link& link);
bool TelVerbinden_Senden(Link& link);
bool TelVerbindenKurz_Senden(Link& link);
bool TelTrennen_Senden(Link& link);
bool TelDatum_Senden(Link& link);   ///< the PC's date
bool TelUhrzeit_Senden(Link& link); ///< the PC's time
bool TelLebenszeichen_Senden(Link& link);
bool TelBenutzerBeginn_Senden(Link& link);
/// `name`: OEM code page, the first 16 characters go out, missing ones as 0x00.
bool TelBenutzerName1_Senden(Link& link, std::string_view name);
bool TelBenutzerName2_Senden(Link& link, std::uint16_t slot, std::string_view name);

/// The parts of TelBenutzerDaten.
struct BenutzerDaten {
    std::uint16_t Slot = 0;
    std::array<std::uint8_t, 5> Code{};
    std::uint8_t TimerSelector = 0;
    std::uint8_t Weighting = 0;
    bool WithId = false;                   ///< long form, L 0x2B
    std::array<std::uint8_t, 4> Id{};      ///< long form only
    std::array<std::uint8_t, 16> IdData{}; ///< long form only
};
bool TelBenutzerDaten_Senden(Link& link, const BenutzerDaten& data);

bool TelCodeAendern_Senden(Link& link, const AdminCodeBytes& oldCode, const AdminCodeBytes& newCode);
bool TelDatenEnde_Senden(Link& link);
/// 0: first record, 2: next record.
bool TelHistorie_Senden(Link& link, std::uint8_t which);
/// Pieces 0, 1, 2 of table A (rows 0 to 7; 8, 9 and six zero rows; zero rows). Rows beyond the table go out as 0.
bool TelSchaltuhrA_Senden(Link& link, std::span<const TimerRow> table, std::uint8_t part);
bool TelSchaltuhrAKurz_Senden(Link& link, std::span<const TimerRow> table);
/// Pieces 0, 1 of table B (rows 0 to 5 and two zero rows; zero rows).
bool TelSchaltuhrB_Senden(Link& link, std::span<const TimerRow> table, std::uint8_t part);
bool TelSchaltuhrBKurz_Senden(Link& link, std::span<const TimerRow> table);
/// Pieces 0, 1, 2: rows 0 to 6, 7 to 13, 14 to 20.
bool TelEinzelFeiertage_Senden(Link& link, std::span<const HolidayRow> table, std::uint8_t part);
bool TelPermFeiertage_Senden(Link& link, std::span<const HolidayRow> table, std::uint8_t part);
bool TelSperrTimerFlag_Senden(Link& link);
bool TelKalenderFlag_Senden(Link& link);
bool TelDatenStart_Senden(Link& link, std::uint8_t option);
/// `channel` 1 to 12; the telegram carries it less 1.
bool TelKanalLesen_Senden(Link& link, int channel);
bool TelKanalSetzen_Senden(Link& link, int channel);
bool TelPrioritaet_Senden(Link& link);
bool TelSchlossModus_Senden(Link& link);
/// `first`, `second`: the two option bytes; `seconds`: listen time, 0 to 64799. The high byte goes out halved eight
/// times, ties to even; what the device makes of odd multiples is not known.
bool TelZeitfenster_Senden(Link& link, std::uint8_t first, std::uint8_t second, int seconds);
/// Masks of slots 1 to 8, 9 to 16, 17 to 24; the telegram carries the third first.
bool TelBenutzerZeitgruppen_Senden(Link& link, std::uint16_t slot, const std::array<std::uint8_t, 3>& masks);
bool TelReaderEinstellung_Senden(Link& link, std::uint8_t level, bool flag);
bool TelUnitEinstellung_Senden(Link& link, const Address& setting);
/// `slice`: template bytes 70 to 98; the weighting overwrites the last of them at index 60.
bool TelBenutzerVorlage_Senden(Link& link, std::uint16_t number, std::string_view name,
                               std::span<const std::uint8_t, 29> slice, std::uint8_t weighting);
bool TelIdDaten1_Senden(Link& link, std::uint8_t groupDigit, const std::array<std::uint8_t, 16>& data);
/// Sent with the present DeviceClassByte; the chain sets 0xC3 for it.
bool TelIdDaten2_Senden(Link& link, std::uint8_t groupDigit, std::uint16_t slot,
                        const std::array<std::uint8_t, 11>& id);
bool TelUnitSchluessel_Senden(Link& link);
bool TelUnitOeffnen_Senden(Link& link, const Address& setting);

struct UnitBlock {
    std::uint16_t Rows = 0; ///< total count
    std::uint16_t Row = 0;  ///< number of this row, from 1
    std::uint8_t Piece = 0; ///< number of the piece within the row, from 0
    std::uint8_t Type = 0;
    std::uint16_t RowAddress = 0;
    std::array<std::uint8_t, 32> Data{}; ///< in the clear; enciphered with SitzungsSchluessel on the way out
};
bool TelUnitBlock_Senden(Link& link, const UnitBlock& block);

bool TelUnitSuche_Senden(Link& link);
bool TelEKeyAktion_Senden(Link& link, std::uint8_t param1, std::uint8_t param2);
/// `oldAdapter`: L 0x0E, as adapters before version 4 want it.
bool TelEKeyLesen_Senden(Link& link, std::uint8_t param1, std::uint8_t param2, bool oldAdapter);
bool TelFingerLoeschen_Senden(Link& link, std::uint8_t slot);
bool TelKarteStart_Senden(Link& link);
bool TelKarteLesen_Senden(Link& link, std::uint8_t block);
bool TelFingerAnlernen_Senden(Link& link, std::uint8_t param1, std::uint8_t param2);
bool TelFingerAbfrage_Senden(Link& link, std::uint8_t param1, std::uint8_t param2);
bool TelUnitVerbinden_Senden(Link& link);
/// First telegram of a card: indexes 14 to 39 are `head`, then at most five rows of four bytes, L = 40 + 4 x rows,
/// whose last byte is `mode`.
bool TelKarteSchreiben_Senden(Link& link, std::span<const std::uint8_t, 26> head,
                              std::span<const std::array<std::uint8_t, 4>> rows, std::uint8_t mode);
/// A following one: 14, 15 are `head`, then the rows' bytes up to L = 4 x count + 16; the last byte is the first one of
/// the row behind.
bool TelKarteFolge_Senden(Link& link, std::span<const std::uint8_t, 2> head, std::span<const std::uint8_t> bytes,
                          int count);

// To the adapter itself, raw.
bool TelAdapterKennung_Senden(Link& link, const std::array<std::uint8_t, 5>& probe);
bool TelAdapterKanal_Senden(Link& link);
bool TelAdapterDaten_Senden(Link& link);
bool TelAdapterName_Senden(Link& link, std::string_view name);
bool TelAdapterZiel_Senden(Link& link, std::uint8_t mode);

/// 16 random bytes, each 1 to 255.
std::array<std::uint8_t, 16> SitzungsSchluessel_Neu(Platform& platform);
/// Five bytes of two digits each: "1" to "9" their value, "0" and "A" 0xA, anything else, and what is missing, `filler`
/// (0xE on every telegram that carries a code).
std::array<std::uint8_t, 5> Code_Packen(std::string_view digits, std::uint8_t filler = 0xE);
/// Six digit values to three bytes, first digit high, a digit 0 as nibble 0xA.
AdminCodeBytes AdminCode_Packen(const std::array<std::uint8_t, 6>& digits);
/// Eight characters to a byte, "X" a 1, first character highest.
std::uint8_t Gruppenmaske(std::string_view eight);
/// "1" 0x0C, "0" 0, "1/2" 6, "1/3" 4, "ADMI" 0x0D, "FS+" 0x0A, anything else 0x0C.
std::uint8_t Wertigkeit(std::string_view right);
/// "090" 0x5A, "130" 0x82, "170" 0xAA, "210" 0xD2, anything else 0xFF.
std::uint8_t Pegelbyte(std::string_view level);

} // namespace qvm
