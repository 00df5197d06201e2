#pragma once

#include <cstdint>
#include <span>
#include <string_view>

/// How a telegram is declared: once, as a table of fields whose offsets and widths check each other. Builders, trace
/// and generated document take their indexes from these tables and from nowhere else.
namespace qvm {

enum class Kind : std::uint8_t {
    Byte,      ///< a number
    Word,      ///< a number of two bytes, high byte first
    Text,      ///< one byte a character, OEM code page in telegrams to locks; 0x00 behind the end
    Bytes,     ///< bytes shown in hexadecimal
    Rows,      ///< rows of `Detail` bytes each; a width that is no multiple cuts the last row
    Fixed,     ///< every byte is `Detail`
    UserCode,  ///< a user's code, five bytes or a part of them; hidden in the trace
    AdminCode, ///< the administrator code; hidden in the trace
    Secret,    ///< a key, an identification or a fingerprint, shown as Bytes are; hidden in the trace
};

struct Field {
    std::string_view Name;
    std::uint8_t Offset; ///< frame index of the first byte
    std::uint8_t Width = 1;
    Kind Is = Kind::Byte;
    std::uint8_t Detail = 0; ///< Rows: bytes a row; Fixed: the value

    constexpr int End() const { return Offset + Width; }
};

constexpr bool Geheim(Kind kind) {
    return kind == Kind::UserCode || kind == Kind::AdminCode || kind == Kind::Secret;
}

/// Who writes the header of a telegram, or that the frame is a reply.
enum class Build : std::uint8_t {
    Kopf,   ///< Telegramm_Kopf, then addressed transmit
    Kopf2,  ///< Telegramm_Kopf2, which writes two parameters and transmits
    Direct, ///< the builder itself, indexes 11 to 13 = 1, 0, 0, then addressed transmit
    Raw,    ///< raw transmit, indexes 3 to L are the telegram's own
    Reply,  ///< from the device
};

inline constexpr int PayloadIndex = 14;
inline constexpr int RawPayloadIndex = 3;

/// What the header of an addressed telegram tells; indexes 9 to 13 are the same in all of them.
namespace Adresskopf {
inline constexpr Field DeviceAddress{"address", 3, 4, Kind::Bytes}, DeviceClass{"device class", 7};
inline constexpr Field Mode{"mode", 8};
} // namespace Adresskopf

struct Layout {
    std::string_view Name;
    std::uint8_t Code; ///< index 2
    /// Index 1: the last payload byte. In a reply, the smallest value with which every field lies inside the frame.
    std::uint8_t L;
    Build How;
    std::span<const Field> Fields;
    /// A telegram whose rows vary in number has every length from here to L in steps of a row; the fields behind the
    /// rows move forward. 0: only L.
    std::uint8_t Shortest = 0;
    std::string_view Note = {}; ///< what the fields cannot say, for the document
    /// Of a reply whose secret bytes vary in number: where they begin. 0: they are fields.
    std::uint8_t SecretFrom = 0;
};

constexpr int ErsterIndex(const Layout& layout) {
    return layout.How == Build::Raw || layout.How == Build::Reply ? RawPayloadIndex : PayloadIndex;
}

/// The field of kind Rows; one of width 0 when the layout has none.
constexpr Field Zeilenfeld(const Layout& layout) {
    for (const Field& field : layout.Fields) {
        if (field.Is == Kind::Rows) {
            return field;
        }
    }
    return {{}, 0, 0};
}

/// True when a frame with `length` at index 1 can be of this layout.
constexpr bool LaengePasst(const Layout& layout, int length) {
    if (layout.How == Build::Reply || length == layout.L) {
        return true;
    }
    if (layout.Shortest == 0 || length < layout.Shortest || length > layout.L) {
        return false;
    }
    const Field rows = Zeilenfeld(layout);
    return rows.Detail != 0 && (layout.L - length) % rows.Detail == 0;
}

/// Index of the first field that misfits: in a telegram, one that does not begin where the one before it ends, the
/// number of fields when they do not end at L; in a reply, one that overlaps the one before it, the number of fields
/// when L is not the smallest that holds them. -1 when all is well.
constexpr int LayoutError(const Layout& layout) {
    int at = ErsterIndex(layout);
    int index = 0;
    for (const Field& field : layout.Fields) {
        const bool fits = layout.How == Build::Reply ? field.Offset >= at : field.Offset == at;
        const bool shaped = field.Width > 0 && (field.Is != Kind::Word || field.Width == 2) &&
                            (field.Is != Kind::Rows || field.Detail > 0);
        if (!fits || !shaped) {
            return index;
        }
        at = field.End();
        ++index;
    }
    // A reply's bytes go up to L + 1; one without fields has at least the length 1.
    const int length = layout.How != Build::Reply ? at - 1 : layout.Fields.empty() ? 1 : at - 2;
    const bool shrinks = layout.Shortest == 0 || (LaengePasst(layout, layout.Shortest) &&
                                                  layout.L - layout.Shortest <= Zeilenfeld(layout).Width);
    return length == layout.L && shrinks ? -1 : index;
}

/// Every telegram of the PC, and every reply. A code can stand for several layouts.
std::span<const Layout> Telegramme();
std::span<const Layout> Antworten();

} // namespace qvm
