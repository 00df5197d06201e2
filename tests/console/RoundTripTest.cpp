#include "ConsoleFiles.h"
#include "Export.h"
#include "Tables.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <rapidcheck.h>

namespace qvm {
namespace {

using namespace test;
using namespace std::string_literals;

/// Export of one directory, import into another one. Nothing when the import had faults.
MemoryFiles Through(MemoryFiles& from) {
    MemoryFiles to;
    std::vector<Finding> faults;
    const std::string document = Export_Erstellen(from.Store(), Dat, faults).dump();
    EXPECT_EQ(test::Faults(document), "");
    EXPECT_TRUE(Import(to, document).Done);
    return to;
}

/// Files as the program writes them, each field and its padding typed by offset.
void Hand_Made(MemoryFiles& disk) {
    std::string user = Put(std::string(419, ' '), 0, "Zo\xEB\0\0\0\0\0\0\0\0\0\0\0\0\0"s);
    user = Put(user, 16, "PB_2008TimB    ");
    user = Put(user, 31, "ADMI");
    user = Put(user, 35, "ABC123    ");
    user = Put(user, 45, "Slot_Nr: 007\0\0\0\0"s);
    user = Put(user, 61, "1 : 2 : 3 : 255"s + std::string(26, '\0'));
    user = Put(user, 195, "FS");
    user = Put(user, 197, "PR812345678"s + std::string(9, '\0') + " ");
    user = Put(user, 218, std::string(200, '-') + " ");
    disk.Files[Dat + "BX10X52WUJ9.UBW"] = std::string(419, ' ') + user + std::string(419, ' ');
    disk.Files[Dat + "RFCHANDIF12.RFX"] = "1  1  5  1  0               ";
    disk.Files[Dat + "RFCHANDIF12.RFX"].resize(45, ' ');
    disk.Files[Dat + "C64UX12H3D.EBW"] =
        Put(std::string(45, ' '), 0, "Tresor"s + std::string(14, '\0') + "OFST0x0100 0A 10 01 X XX ");
    disk.Files[Dat + "CPRT88X3FDA.PRT"] = "5  3  3  3  ";
    disk.Files[Dat + "LSOEMIPART.LMT"] = "XY ";
    disk.Files[Dat + "SBSCLKZU.SB1"] = Put(std::string(55, ' '), 0, "PB_300000000   Nacht");
    disk.Files[Dat + "TX33Y98BSG9.TBW"] = "\x0A"
                                          "00:0023:59"s +
                                          "\0"
                                          "00:0000:00"s;
    disk.Files[Dat + "KL10X49WTTI.CBW"] = "24.12.202626.12.20261" + std::string(21, ' ');
    disk.Files[Dat + "T6WRSSISN.TSD"] = Put(std::string(241, ' '), 0,
                                            "200000000000"
                                            "1170");
    disk.Files[Dat + "COMSETUPADAPTER.ADP"] =
        Put(std::string(48, ' '), 0, "/46/108/1/2     PROGSTATION-1       3 ") + std::string(17, ' ');
    disk.Files[Dat + "PERMSELECT.RFS"] = "05.03.2026\r\n00.0A.10.01\r\nENDE\r\n";
}

TEST(RoundTrip, export_then_import_into_an_empty_directory_gives_the_same_bytes) {
    MemoryFiles from;
    Hand_Made(from);
    const MemoryFiles to = Through(from);
    EXPECT_EQ(to.Files, from.Files);
}

TEST(RoundTrip, zero_bytes_and_blanks_of_padding_read_alike_afterwards) {
    MemoryFiles from;
    from.Files[Dat + "SBSCLKZU.SB1"] = "PB_300000000\0\0\0Nacht"s + std::string(35, '\0');
    MemoryFiles to = Through(from);
    EXPECT_EQ(to.Files[Dat + "SBSCLKZU.SB1"], Put(std::string(55, ' '), 0, "PB_300000000   Nacht"));
}

TEST(RoundTrip, a_second_round_gives_the_same_document) {
    MemoryFiles from;
    Hand_Made(from);
    MemoryFiles to = Through(from);
    std::vector<Finding> faults;
    EXPECT_EQ(Export_Erstellen(from.Store(), Dat, faults), Export_Erstellen(to.Store(), Dat, faults));
}

/// A text of code page 1252 without 0x00 that fits into `width` bytes.
rc::Gen<std::string> Texts(std::size_t width) {
    return rc::gen::map(rc::gen::container<std::vector<int>>(rc::gen::inRange(1, 256)),
                        [width](std::vector<int> bytes) {
                            std::string text;
                            for (const int byte : bytes) {
                                if (text.size() < width) {
                                    text += static_cast<char>(byte);
                                }
                            }
                            return text;
                        });
}

TEST(RoundTrip, every_text_of_every_field_survives) {
    rc::check([] {
        MemoryFiles from;
        for (const RecordLayout* layout : Satztabellen()) {
            std::string record(layout->Length, ' ');
            for (const RecordField& field : layout->Fields) {
                const std::size_t room = field.Padding == Fill::NullTo20 ? 20 : field.Width;
                record = Put(record, field.Offset, *Texts(room));
            }
            from.Files[Dat + std::string(layout->File)] = record;
        }
        MemoryFiles to = Through(from);
        for (const RecordLayout* layout : Satztabellen()) {
            const std::string path = Dat + std::string(layout->File);
            for (const RecordField& field : layout->Fields) {
                RC_ASSERT(Feld_Lesen(to.Files[path], field) == Feld_Lesen(from.Files[path], field));
            }
        }
    });
}

} // namespace
} // namespace qvm
