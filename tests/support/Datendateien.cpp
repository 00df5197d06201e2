#include "Datendateien.h"

#include <algorithm>
#include <cstddef>

namespace qvm::test {
namespace {

std::string Two(int value) {
    return {static_cast<char>('0' + value / 10 % 10), static_cast<char>('0' + value % 10)};
}

/// Records that the program's windows leave in a file that they write as a whole.
std::size_t Records(const std::string& file) {
    if (file == "BX10X52WUJ9.UBW") {
        return 250;
    }
    if (file == "TX33Y98BSG9.TBW") {
        return 15;
    }
    if (file == "TIMGRP33T7.PBG" || file == "TIMGRP44T8_S.SBS") {
        return 8;
    }
    if (file == "KL10X49WTTI.CBW") {
        return 41;
    }
    const bool ofLocks = file == "C64UX12H3D.EBW" || file == "CPRT88X3FDA.PRT" || file == "LSOEMIPART.LMT" ||
                         file == "SBSCLKZU.SB1" || file == "LOCKCLASSCOMX.CMB";
    return ofLocks ? 200 : 0;
}

/// A file without contents: blanks, and slots that are off.
std::string Leer(const std::string& file, std::size_t length) {
    std::string bytes;
    for (std::size_t n = 0; n < Records(file); ++n) {
        bytes += file == "TX33Y98BSG9.TBW" ? std::string(1, '\0') + "00:0000:00" : std::string(length, ' ');
    }
    return bytes;
}

} // namespace

void Datendateien::Put(const std::string& file, std::size_t length, int record, std::size_t offset, std::size_t width,
                       std::string_view text, char pad) {
    std::string& bytes = File(file);
    if (bytes.empty()) {
        bytes = Leer(file, length);
    }
    const std::size_t start = static_cast<std::size_t>(record - 1) * length;
    if (bytes.size() < start + length) {
        bytes.resize(start + length, ' ');
    }
    const std::string_view given = text.substr(0, width);
    const auto end = std::copy(given.begin(), given.end(), bytes.begin() + static_cast<std::ptrdiff_t>(start + offset));
    std::fill_n(end, width - given.size(), pad);
}

void Datendateien::Lock(int number, std::string_view name, std::string_view serial, std::string_view switches) {
    const std::string f = "C64UX12H3D.EBW";
    Put(f, 45, number, 0, 20, name, '\0');
    Put(f, 45, number, 20, 8, "");
    for (std::size_t n = 0; n < 4; ++n) {
        Put(f, 45, number, 28 + 3 * n, 3, serial.substr(3 * n, 2));
    }
    Put(f, 45, number, 40, 5, switches);
}

void Datendateien::User(int number, const TestUser& user) {
    const std::string f = "BX10X52WUJ9.UBW";
    Put(f, 419, number, 0, 16, user.Name, user.Name.empty() ? ' ' : '\0');
    Put(f, 419, number, 16, 15, user.Group);
    Put(f, 419, number, 31, 4, user.Right);
    Put(f, 419, number, 35, 10, user.Code);
    Put(f, 419, number, 45, 16, user.Label, user.Label.empty() ? ' ' : '\0');
    Put(f, 419, number, 61, 41, user.KeyId, user.KeyId.empty() ? ' ' : '\0');
    Put(f, 419, number, 102, 93, user.KeyData, user.KeyData.empty() ? ' ' : '\0');
    Put(f, 419, number, 195, 2, user.FingerFlag);
    Put(f, 419, number, 197, 21, user.FingerId);
    std::string mask(200, '-');
    for (const auto& [lock, mark] : user.Marks) {
        mask[static_cast<std::size_t>(lock - 1)] = mark;
    }
    Put(f, 419, number, 218, 201, mask);
}

void Datendateien::Template(int record, std::string_view identifier, const std::vector<std::uint8_t>& values) {
    std::string text;
    for (const std::uint8_t value : values) {
        text += text.empty() ? "" : " : ";
        text += std::to_string(value);
    }
    Template(record, identifier, text);
}

void Datendateien::Template(int record, std::string_view identifier, std::string_view text) {
    Put("TEmpTCD0UPK.FSD", 3028, record, 0, 5, "2");
    Put("TEmpTCD0UPK.FSD", 3028, record, 5, 21, identifier);
    Put("TEmpTCD0UPK.FSD", 3028, record, 26, 3000, text);
    Put("TEmpTCD0UPK.FSD", 3028, record, 3026, 2, "0");
}

void Datendateien::Slot(int number, std::uint8_t day, std::string_view from, std::string_view to) {
    Put("TX33Y98BSG9.TBW", 11, number, 0, 1, std::string(1, static_cast<char>(day)));
    Put("TX33Y98BSG9.TBW", 11, number, 1, 5, from);
    Put("TX33Y98BSG9.TBW", 11, number, 6, 5, to);
}

void Datendateien::Group(int number, std::string_view name, std::string_view days, std::string_view id) {
    Put("TIMGRP33T7.PBG", 71, number, 0, 3, std::to_string(number));
    Put("TIMGRP33T7.PBG", 71, number, 3, 40, name);
    Put("TIMGRP33T7.PBG", 71, number, 43, 10, days);
    Put("TIMGRP33T7.PBG", 71, number, 53, 3, "1");
    Put("TIMGRP33T7.PBG", 71, number, 56, 15, id);
}

void Datendateien::LockGroup(int number, std::string_view name, std::string_view days, std::string_view id) {
    Put("TIMGRP44T8_S.SBS", 66, number, 0, 3, std::to_string(number));
    Put("TIMGRP44T8_S.SBS", 66, number, 3, 40, name);
    Put("TIMGRP44T8_S.SBS", 66, number, 43, 5, days);
    Put("TIMGRP44T8_S.SBS", 66, number, 48, 3, "1");
    Put("TIMGRP44T8_S.SBS", 66, number, 51, 15, id);
}

void Datendateien::LockHasGroup(int lock, std::string_view id) {
    Put("SBSCLKZU.SB1", 55, lock, 0, 15, id);
}

void Datendateien::Holiday(int record, std::string_view from, std::string_view to, char kind) {
    Put("KL10X49WTTI.CBW", 21, record, 0, 10, from);
    Put("KL10X49WTTI.CBW", 21, record, 10, 10, to);
    Put("KL10X49WTTI.CBW", 21, record, 20, 1, std::string(1, kind));
}

void Datendateien::Priority(int lock, std::string_view text) {
    Put("CPRT88X3FDA.PRT", 12, lock, 0, 3, text);
}

void Datendateien::Emi(int lock, char state) {
    Put("LSOEMIPART.LMT", 1, lock, 0, 1, std::string(1, state));
}

void Datendateien::Channel(int lock, std::string_view channel, std::string_view target, std::string_view change) {
    Put("RFCHANDIF12.RFX", 15, lock, 0, 3, channel);
    Put("RFCHANDIF12.RFX", 15, lock, 6, 3, target);
    Put("RFCHANDIF12.RFX", 15, lock, 9, 3, change);
}

void Datendateien::Reception(int lock, char mode, char always, char third, int h, int m, int s, char flag,
                             std::string_view level) {
    const std::string f = "T6WRSSISN.TSD";
    Put(f, 241, lock, 0, 1, std::string(1, mode));
    Put(f, 241, lock, 1, 1, std::string(1, always));
    Put(f, 241, lock, 2, 1, std::string(1, third));
    Put(f, 241, lock, 6, 2, Two(h));
    Put(f, 241, lock, 8, 2, Two(m));
    Put(f, 241, lock, 10, 2, Two(s));
    Put(f, 241, lock, 12, 1, std::string(1, flag));
    Put(f, 241, lock, 13, 3, level);
}

void Datendateien::Unit(int lock, int unit, std::string_view name, std::string_view serial, char module,
                        std::string_view number) {
    const std::string f = "T6WRSSISN.TSD";
    const std::size_t at = 16 + 45 * static_cast<std::size_t>(unit - 1);
    Put(f, 241, lock, at, 30, name);
    for (std::size_t n = 0; n < 4; ++n) {
        Put(f, 241, lock, at + 30 + 3 * n, 3, serial.substr(2 * n, 2));
    }
    Put(f, 241, lock, at + 42, 1, std::string(1, module));
    Put(f, 241, lock, at + 43, 2, number);
}

} // namespace qvm::test
