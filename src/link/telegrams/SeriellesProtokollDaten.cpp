#include "SeriellesProtokoll.h"
#include "TelegrammBau.h"
#include "TelegrammeDaten.h"

#include <algorithm>

/// Telegrams of the tables and of the users.
namespace qvm {
namespace {

/// Rows of table A that its parts begin with, and how many rows each of them has.
struct PartRows {
    std::size_t First;
    std::size_t Count;
};
constexpr std::array<PartRows, 2> PartsA{PartRows{0, 8}, PartRows{8, 2}};
constexpr std::array<PartRows, 1> PartsB{PartRows{0, 6}};
constexpr std::size_t HolidayRowsPerPart = 7;

/// `count` rows of the table from row `first` on into the field. The field cuts what does not fit.
template <std::size_t Width>
void Zeilen_Setzen(Link& link, const Field& field, std::span<const std::array<std::uint8_t, Width>> table,
                   PartRows rows) {
    const auto end = link.TxBuffer.begin() + field.End();
    auto to = link.TxBuffer.begin() + field.Offset;
    for (std::size_t n = rows.First; n < std::min(rows.First + rows.Count, table.size()) && to < end; ++n) {
        const auto room = static_cast<std::size_t>(end - to);
        to = std::copy_n(table[n].begin(), std::min(room, Width), to);
    }
}

template <std::size_t Parts>
bool Schaltuhr(Link& link, const Layout& layout, const Field& rows, const Field& partField,
               std::span<const TimerRow> table, std::uint8_t part, const std::array<PartRows, Parts>& parts) {
    Telegramm_Beginnen(link, layout);
    if (part < parts.size()) {
        Zeilen_Setzen(link, rows, table, parts[part]);
    }
    Feld_Setzen(link, partField, part);
    return Telegramm_Abschicken(link, layout);
}

bool Feiertage(Link& link, const Layout& layout, const Field& rows, const Field& partField,
               std::span<const HolidayRow> table, std::uint8_t part) {
    Telegramm_Beginnen(link, layout);
    Feld_Setzen(link, partField, part);
    Zeilen_Setzen(link, rows, table, {HolidayRowsPerPart * part, HolidayRowsPerPart});
    return Telegramm_Abschicken(link, layout);
}

void Benutzer_Setzen(Link& link, const BenutzerDaten& data) {
    Feld_Setzen(link, TelBenutzerDaten::UserSlot, data.Slot);
    Feld_Setzen(link, TelBenutzerDaten::Code, data.Code);
    Feld_Setzen(link, TelBenutzerDaten::TimerSelector, data.TimerSelector);
    Feld_Setzen(link, TelBenutzerDaten::Weighting, data.Weighting);
    Feld_Setzen(link, TelBenutzerDaten::WithId, data.WithId ? 1U : 0U);
}

} // namespace

bool TelSchaltuhrA_Senden(Link& link, std::span<const TimerRow> table, std::uint8_t part) {
    return Schaltuhr(link, TelSchaltuhrA::Telegram, TelSchaltuhrA::Rows, TelSchaltuhrA::Part, table, part, PartsA);
}

bool TelSchaltuhrAKurz_Senden(Link& link, std::span<const TimerRow> table) {
    Telegramm_Beginnen(link, TelSchaltuhrAKurz::Telegram);
    Zeilen_Setzen(link, TelSchaltuhrAKurz::Rows, table, PartsA[0]);
    return Telegramm_Abschicken(link, TelSchaltuhrAKurz::Telegram);
}

bool TelSchaltuhrB_Senden(Link& link, std::span<const TimerRow> table, std::uint8_t part) {
    return Schaltuhr(link, TelSchaltuhrB::Telegram, TelSchaltuhrB::Rows, TelSchaltuhrB::Part, table, part, PartsB);
}

bool TelSchaltuhrBKurz_Senden(Link& link, std::span<const TimerRow> table) {
    Telegramm_Beginnen(link, TelSchaltuhrBKurz::Telegram);
    Zeilen_Setzen(link, TelSchaltuhrBKurz::Rows, table, PartsB[0]);
    return Telegramm_Abschicken(link, TelSchaltuhrBKurz::Telegram);
}

bool TelEinzelFeiertage_Senden(Link& link, std::span<const HolidayRow> table, std::uint8_t part) {
    return Feiertage(link, TelEinzelFeiertage::Telegram, TelEinzelFeiertage::Rows, TelEinzelFeiertage::Part, table,
                     part);
}

bool TelPermFeiertage_Senden(Link& link, std::span<const HolidayRow> table, std::uint8_t part) {
    return Feiertage(link, TelPermFeiertage::Telegram, TelPermFeiertage::Rows, TelPermFeiertage::Part, table, part);
}

bool TelBenutzerBeginn_Senden(Link& link) {
    return Leer_Abschicken(link, TelBenutzerBeginn::Telegram);
}

bool TelBenutzerName1_Senden(Link& link, std::string_view name) {
    Telegramm_Beginnen(link, TelBenutzerName1::Telegram);
    Feld_Setzen(link, TelBenutzerName1::UserName, name);
    return Telegramm_Abschicken(link, TelBenutzerName1::Telegram);
}

bool TelBenutzerName2_Senden(Link& link, std::uint16_t slot, std::string_view name) {
    Telegramm_Beginnen(link, TelBenutzerName2::Telegram);
    Feld_Setzen(link, TelBenutzerName2::UserSlot, slot);
    Feld_Setzen(link, TelBenutzerName2::UserName, name);
    return Telegramm_Abschicken(link, TelBenutzerName2::Telegram);
}

bool TelBenutzerDaten_Senden(Link& link, const BenutzerDaten& data) {
    if (!data.WithId) {
        Telegramm_Beginnen(link, TelBenutzerDaten::Telegram);
        Benutzer_Setzen(link, data);
        return Telegramm_Abschicken(link, TelBenutzerDaten::Telegram);
    }
    Telegramm_Beginnen(link, TelBenutzerDatenLang::Telegram);
    Benutzer_Setzen(link, data);
    Feld_Setzen(link, TelBenutzerDatenLang::Id, data.Id);
    Feld_Setzen(link, TelBenutzerDatenLang::IdData, data.IdData);
    return Telegramm_Abschicken(link, TelBenutzerDatenLang::Telegram);
}

bool TelBenutzerZeitgruppen_Senden(Link& link, std::uint16_t slot, const std::array<std::uint8_t, 3>& masks) {
    Telegramm_Beginnen(link, TelBenutzerZeitgruppen::Telegram);
    Feld_Setzen(link, TelBenutzerZeitgruppen::UserSlot, slot);
    Feld_Setzen(link, TelBenutzerZeitgruppen::TimerBits3, masks[2]);
    Feld_Setzen(link, TelBenutzerZeitgruppen::TimerBits2, masks[1]);
    Feld_Setzen(link, TelBenutzerZeitgruppen::TimerBits1, masks[0]);
    return Telegramm_Abschicken(link, TelBenutzerZeitgruppen::Telegram);
}

bool TelBenutzerVorlage_Senden(Link& link, std::uint16_t number, std::string_view name,
                               std::span<const std::uint8_t, 29> slice, std::uint8_t weighting) {
    Telegramm_Beginnen(link, TelBenutzerVorlage::Telegram);
    Feld_Setzen(link, TelBenutzerVorlage::Number, number);
    Feld_Setzen(link, TelBenutzerVorlage::UserName, name);
    Feld_Setzen(link, TelBenutzerVorlage::Slice, slice);
    Feld_Setzen(link, TelBenutzerVorlage::Weighting, weighting);
    return Telegramm_Abschicken(link, TelBenutzerVorlage::Telegram);
}

bool TelIdDaten1_Senden(Link& link, std::uint8_t groupDigit, const std::array<std::uint8_t, 16>& data) {
    Telegramm_Beginnen(link, TelIdDaten1::Telegram);
    Feld_Setzen(link, TelIdDaten1::GroupDigit, groupDigit);
    Feld_Setzen(link, TelIdDaten1::Data, data);
    return Telegramm_Abschicken(link, TelIdDaten1::Telegram);
}

bool TelIdDaten2_Senden(Link& link, std::uint8_t groupDigit, std::uint16_t slot,
                        const std::array<std::uint8_t, 11>& id) {
    Telegramm_Beginnen(link, TelIdDaten2::Telegram);
    Feld_Setzen(link, TelIdDaten2::GroupDigit, groupDigit);
    Feld_Setzen(link, TelIdDaten2::UserSlot, slot);
    Feld_Setzen(link, TelIdDaten2::Id, id);
    return Telegramm_Abschicken(link, TelIdDaten2::Telegram);
}

} // namespace qvm
