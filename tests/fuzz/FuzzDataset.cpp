// Arbitrary bytes in every data file that the assembly reads, laid over an installation that reaches every step.

#include "Dataset.h"
#include "Kern.h"
#include "VirtualPlatform.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <string>

namespace {

using namespace qvm;

constexpr std::array<const char*, 10> Names{"BX10X52WUJ9.UBW",  "TEmpTCD0UPK.FSD", "TX33Y98BSG9.TBW", "TIMGRP33T7.PBG",
                                            "TIMGRP44T8_S.SBS", "SBSCLKZU.SB1",    "KL10X49WTTI.CBW", "T6WRSSISN.TSD",
                                            "CPRT88X3FDA.PRT",  "LSOEMIPART.LMT"};
constexpr std::array<std::size_t, 10> RecordLengths{419, 3028, 11, 71, 66, 55, 21, 241, 12, 1};
constexpr std::size_t LargestFile = 65536;

using Files = std::array<std::string, 10>;

void Put(std::string& file, std::size_t at, std::string_view bytes) {
    file.resize(std::max(file.size(), at + bytes.size()), ' ');
    file.replace(at, bytes.size(), bytes);
}

Files Installation() {
    Files files;
    for (std::size_t n = 0; n < files.size(); ++n) {
        files[n].assign(RecordLengths[n] * 4, ' ');
    }
    for (std::size_t user = 0; user < 4; ++user) {
        const std::size_t at = user * 419;
        Put(files[0], at, "Somebody");
        Put(files[0], at + 16, user < 2 ? "PB_2008TimA" : "PB_7");
        Put(files[0], at + 45, "Slot_Nr: 007");
        Put(files[0], at + 61, "#7-ID#1:2:3:4:5:6:7:8:9:10");
        Put(files[0], at + 195, "FSPR1001");
        Put(files[0], at + 218, user % 2 == 0 ? "XXXX" : "FFFF");
    }
    Put(files[1], 5, "1001");
    Put(files[1], 26, "6 : 0 : 1 : 2 : 3 : 4 : ");
    Put(files[2], 0,
        "\x08"
        "08:0017:30");
    Put(files[3], 43, "X-X-X-----");
    Put(files[3], 56, "PB_7");
    Put(files[4], 43, "X-X-X");
    Put(files[4], 51, "PB_9");
    Put(files[5], 0, "PB_9");
    Put(files[6], 0, "01.05.202602.05.20260");
    Put(files[6], 21 * std::size_t{21}, "24.12. - -26.12. - - ");
    Put(files[7], 0, "310000173059100");
    Put(files[7], 46, "01 60 00 01 1");
    return files;
}

void Require(bool held) {
    if (!held) {
        std::abort();
    }
}

/// Commands of four bytes (file, offset in two, how many bytes follow) and their bytes; a file number beyond the last
/// cuts the file off there.
void Overwrite(Files& files, const std::uint8_t* data, std::size_t size) {
    while (size >= 4) {
        std::string& file = files[data[0] % files.size()];
        const bool cut = data[0] >= 128;
        const std::size_t at = data[1] * std::size_t{256} + data[2];
        const std::size_t count = std::min<std::size_t>(data[3], size - 4);
        if (cut) {
            file.resize(std::min(file.size(), at));
        } else if (at + count <= LargestFile) {
            Put(file, at, {reinterpret_cast<const char*>(data + 4), count});
        }
        data += 4 + count;
        size -= 4 + count;
    }
}

std::string Hex(std::uint8_t byte) {
    constexpr std::string_view Digits = "0123456789abcdef";
    return {Digits[byte >> 4U], Digits[byte & 15U]};
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 6) {
        return 0;
    }
    static const Files base = Installation();
    Files files = base;
    Overwrite(files, data + 6, size - 6);

    test::VirtualPlatform pc;
    pc.World.ShowMessage = [](const Message&) { return Answer::Ok; };
    for (std::size_t n = 0; n < files.size(); ++n) {
        pc.Disk.Files[std::string("/DAT/") + Names[n]] = files[n];
    }
    Kern kern(pc.World);
    kern.AppPath = "/";
    Dataset dataset;
    LockRow row;
    row.Number = data[0] % 5;
    row.Name = (data[1] & 1U) != 0 ? "Some" : "Door";
    row.Serial = Hex(data[2]) + "." + Hex(data[3]) + "." + Hex(data[4]) + "." + Hex(data[5]);
    row.PersonTimers = (data[1] & 2U) != 0 ? "X" : "";
    row.Calendars = (data[1] & 4U) != 0 ? "X" : "";
    const auto variant = (data[1] & 8U) != 0 ? DatasetVariant::Network : DatasetVariant::Direct;

    const int status = Datensatz_Laden(kern, dataset, row, variant);
    Require(status == 0 || status == 13 || (status >= 92 && status <= 95));
    Require(dataset.Slots.size() <= 250 && static_cast<int>(dataset.Slots.size()) <= dataset.MaxUser);
    Require(dataset.ListenSeconds >= 0 && dataset.ListenSeconds <= 64799);
    for (const ProgSlot& slot : dataset.Slots) {
        Require(!slot.Name.empty() && slot.Name.size() <= 16 && slot.Template.size() <= 1000);
        (void)Schluessel_Zerlegen(slot.TransponderA);
        (void)Dezimalwerte(slot.TransponderB, 16);
        (void)Timer_Auswahl(dataset.Values.TimerMode, slot);
    }
    return 0;
}
