#include "NetSchritte.h"
#include "Stelle.h"

#include <algorithm>
#include <array>

namespace qvm {
namespace {

constexpr std::size_t AddressPlaces = 5, AddressesSent = 4;

/// Units of type 2 take the places 0 and 1, units of type 1 the places 2 to 4, in their order; a unit too many is
/// dropped. A third unit of type 1 has a place, but is not sent.
std::array<const ProgUnit*, AddressPlaces> Unit_Plaetze(const Dataset& dataset) {
    constexpr std::size_t FirstOfType1 = 2;
    std::array<const ProgUnit*, AddressPlaces> places{};
    std::size_t next2 = 0, next1 = FirstOfType1;
    for (const ProgUnit& unit : dataset.Units) {
        if (!unit.UnitPresent) {
            continue;
        }
        if (unit.Type == '2' && next2 < FirstOfType1) {
            places[next2++] = &unit;
        } else if (unit.Type == '1' && next1 < AddressPlaces) {
            places[next1++] = &unit;
        }
    }
    return places;
}

} // namespace

std::vector<std::string> Units_Ohne_Platz(const Dataset& dataset) {
    const auto places = Unit_Plaetze(dataset);
    std::vector<std::string> names;
    for (const ProgUnit& unit : dataset.Units) {
        if (unit.UnitPresent &&
            std::find(places.begin(), places.begin() + AddressesSent, &unit) == places.begin() + AddressesSent) {
            names.push_back(unit.Name);
        }
    }
    return names;
}

void Net_Kopf(Netzlauf& run, int block, int count, int length, std::uint8_t code, int clear) {
    Link& link = run.link;
    std::fill_n(link.TxBuffer.begin(), At(std::clamp(clear + 1, NetzPayload, BufferSize)), std::uint16_t{0});
    Net_Festes(link, NetzKopf::Layout);
    Net_Feld(link, NetzKopf::Block, static_cast<unsigned>(block));
    Net_Feld(link, NetzKopf::Count, static_cast<unsigned>(count));
    Net_Feld(link, NetzKopf::Length, static_cast<unsigned>(length));
    Net_Feld(link, NetzKopf::Serial, link.Lauf.Order.LockAddress);
    const auto places = Unit_Plaetze(run.Daten);
    for (std::size_t n = 0; n < AddressesSent; ++n) {
        const Address address = places[n] != nullptr ? places[n]->Serial : Address{};
        std::copy(address.begin(), address.end(),
                  link.TxBuffer.begin() + NetzKopf::Units.Offset + static_cast<std::ptrdiff_t>(n * sizeof(Address)));
    }
    Net_Feld(link, NetzKopf::Code, code);
}

void Net_Feld(Link& link, const NetzFeld& field, unsigned value, int base) {
    const std::size_t at = At(base + field.Offset);
    if (field.Is == Kind::Word) {
        link.TxBuffer[at] = static_cast<std::uint16_t>(value >> 8U & 0xFFU);
        link.TxBuffer[at + 1] = static_cast<std::uint16_t>(value & 0xFFU);
    } else {
        link.TxBuffer[at] = static_cast<std::uint16_t>(value & 0xFFU);
    }
}

void Net_Feld(Link& link, const NetzFeld& field, std::span<const std::uint8_t> bytes, int base) {
    const std::size_t count = std::min<std::size_t>(bytes.size(), field.Width);
    std::copy_n(bytes.begin(), count, link.TxBuffer.begin() + base + field.Offset);
}

void Net_Feld(Link& link, const NetzFeld& field, std::string_view text, int base) {
    const std::size_t count = std::min<std::size_t>(text.size(), field.Width);
    std::transform(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(count),
                   link.TxBuffer.begin() + base + field.Offset,
                   [](char c) { return static_cast<std::uint16_t>(static_cast<unsigned char>(c)); });
}

void Net_Festes(Link& link, const NetzLayout& layout) {
    for (const NetzFeld& field : layout.Fields) {
        if (field.Is == Kind::Fixed) {
            std::fill_n(link.TxBuffer.begin() + field.Offset, field.Width, std::uint16_t{field.Detail});
        }
    }
}

int Gruppen_Summen(Link& link, int bytes) {
    int at = NetzPayload;
    for (int left = bytes; left > 0; left -= NetzGroup) {
        const int size = std::min(left, NetzGroup);
        link.TxBuffer[At(at + size)] = Bereich_Pruefsumme_Tx(link, size - 1, at);
        at += size + 1;
    }
    return at;
}

void Rahmen_Summe(Link& link, int length) {
    // Over the plain telegram with 0 at index 26, and not renewed when it is enciphered. Whether the adapter sums
    // before or after deciphering is not known; a device that wants the other one needs this called behind
    // Verschluesseln.
    link.TxBuffer[At(length)] = Bereich_Pruefsumme_Tx(link, length - 1, 0);
}

} // namespace qvm
