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

/// What an import of the directory's own export did to it.
ImportReport Into_Itself(MemoryFiles& disk) {
    std::vector<Finding> faults;
    const std::string document = Export_Erstellen(disk.Store(), Dat, faults).dump();
    EXPECT_EQ(test::Faults(document), "");
    return Import(disk, document);
}

/// Sound files, padded in every other way than the program pads them.
void Padded_Otherwise(MemoryFiles& disk) {
    // Two templates far apart, zeros between.
    std::string templates(3028 * 4, '\0');
    templates = Put(templates, 0, "1    PR800000001          0 1 2 255");
    disk.Files[Dat + "TEmpTCD0UPK.FSD"] = Put(templates, 3028 * 3, "2    PR812345678\0\0"s);
    disk.Files[Dat + "COMSETUPADAPTER.ADP"] = Put(std::string(65 * 20, ' '), 0, "/1/2/3/4"s + std::string(57, '\0'));
    disk.Files[Dat + "SBSCLKZU.SB1"] =
        Put(std::string(55 * 200, ' '), 0, "PB_300000000\0\xFF\0Nacht\0old"s + std::string(31, '\0'));
    // 15 slots of 11 bytes are read, as many bytes stand behind them.
    std::string slots;
    for (int n = 0; n < 15; ++n) {
        slots += "\x01" + std::string(10, ' ');
    }
    disk.Files[Dat + "TX33Y98BSG9.TBW"] = slots + "beyond\0them"s;
    disk.Files[Dat + "ObJNR09DAT.OBN"] = "05.03.2026\n4\n5";
    disk.Files[Dat + "CHEUSB25C.I_2"] = "SET       \r\n1\r\n\r\n\r\n\r\n6\r\nmore\r\nand more";
    disk.Files[Dat + "PERMSELECT.RFS"] = "";
}

TEST(RoundTrip, export_then_import_into_the_same_directory_changes_no_byte_and_writes_nothing) {
    for (const auto& fill : {Hand_Made, Padded_Otherwise}) {
        MemoryFiles disk;
        fill(disk);
        const auto before = disk.Files;
        const ImportReport report = Into_Itself(disk);
        EXPECT_TRUE(report.Done);
        EXPECT_EQ(disk.Files, before);
        EXPECT_TRUE(report.Replaced.empty());
        EXPECT_EQ(report.Unchanged.size(), before.size());
        EXPECT_EQ(report.Backup, "");
    }
}

TEST(RoundTrip, a_change_of_one_field_leaves_all_other_bytes_of_the_file) {
    MemoryFiles disk;
    Padded_Otherwise(disk);
    const std::string path = Dat + "SBSCLKZU.SB1";
    std::string& held = disk.Files[path];
    held.replace(55, 55, held.substr(0, 55));
    std::string expected = held;
    Import(disk, Document("LockGroupRecord",
                          R"([{"record":1,"GroupId":"PB_300000000","GroupName":"Nacht"},
                              {"record":2,"GroupId":"PB_300000000","GroupName":"Tag"}])"));
    expected.replace(55 + 15, 40, "Tag" + std::string(37, ' '));
    EXPECT_EQ(disk.Files[path], expected);
}

TEST(RoundTrip, what_stands_behind_the_last_record_that_is_read_stays_there) {
    MemoryFiles disk;
    const std::string path = Dat + "LSOEMIPART.LMT";
    disk.Files[path] = std::string(200, 'X') + "behind";
    Import(disk, Document("LockEmiRecord", R"([{"record":2,"Emi":"Y"}])"));
    EXPECT_EQ(disk.Files[path], " Y" + std::string(198, ' ') + "behind");
}

TEST(RoundTrip, a_shorter_table_makes_a_file_without_more_behind_it_shorter) {
    MemoryFiles disk;
    const std::string path = Dat + "KL10X49WTTI.CBW";
    disk.Files[path] = std::string(21 * 41, ' ');
    Import(disk, R"({"format":"qvm7702-export","version":1,"counts":{"CalendarEntry":20},
                     "tables":{"CalendarEntry":[{"record":2,"Kind":"1"}]}})");
    EXPECT_EQ(disk.Files[path], Put(std::string(21 * 20, ' '), 21 * 2 - 1, "1"));
}

TEST(RoundTrip, a_table_without_a_count_has_as_many_records_as_every_writer_leaves) {
    MemoryFiles disk;
    const std::string path = Dat + "LSOEMIPART.LMT";
    disk.Files[path] = std::string(200, 'X');
    Import(disk, Document("LockEmiRecord", R"([{"record":2,"Emi":"Y"}])"));
    EXPECT_EQ(disk.Files[path], " Y" + std::string(198, ' '));
}

TEST(RoundTrip, a_file_of_single_records_is_never_left_empty) {
    MemoryFiles disk;
    Import(disk, R"({"format":"qvm7702-export","version":1,"counts":{"ChannelRecord":0},
                     "tables":{"ChannelRecord":[],"TemplateRecord":[],"WirelessUnitRecord":[]}})");
    EXPECT_EQ(disk.Files[Dat + "RFCHANDIF12.RFX"], std::string(15, ' '));
    EXPECT_EQ(disk.Files[Dat + "TEmpTCD0UPK.FSD"], std::string(3028, ' '));
    EXPECT_EQ(disk.Files[Dat + "T6WRSSISN.TSD"], std::string(241, ' '));
}

const std::string SoundSettings = "Deutsch\r\n1\r\nUSB-Port3\r\n5\r\n";

/// Good files, exported, for imports over damaged ones of the same names.
std::string Sound_Export(MemoryFiles& disk) {
    disk.Files[Dat + "BX10X52WUJ9.UBW"] = Put(std::string(419 * 250, ' '), 0, "Anna" + std::string(12, '\0'));
    disk.Files[Dat + "EST7CSB29A.I_1"] = SoundSettings;
    disk.Files[Dat + "CHEUSB25C.I_2"] = "SET       \r\n";
    disk.Files[Dat + "SBSCLKZU.SB1"] = Put(std::string(55 * 200, ' '), 15, "ABC");
    std::vector<Finding> faults;
    return Export_Erstellen(disk.Store(), Dat, faults).dump();
}

TEST(RoundTrip, a_good_export_mends_a_damaged_file_that_says_the_same) {
    MemoryFiles sound;
    const std::string document = Sound_Export(sound);
    const auto mends = [&](const std::string& name, const std::string& damaged) {
        MemoryFiles disk;
        disk.Files = sound.Files;
        disk.Files[Dat + name] = damaged;
        const ImportReport report = Import(disk, document);
        EXPECT_EQ(disk.Files[Dat + name], sound.Files[Dat + name]) << name;
        EXPECT_EQ(report.Replaced, std::vector<std::string>{name});
        EXPECT_EQ(disk.Files[report.Backup + name], damaged) << name;
    };
    const std::string users = sound.Files[Dat + "BX10X52WUJ9.UBW"];
    mends("BX10X52WUJ9.UBW", users.substr(0, users.size() - 1));
    mends("EST7CSB29A.I_1", SoundSettings.substr(0, SoundSettings.size() - 2));
    mends("CHEUSB25C.I_2", "SET       \r\n" + std::string(81, ' ') + "\r\n");
    mends("SBSCLKZU.SB1", Put(std::string(55 * 200, ' '), 15, "ABC\0\x01"s));
}

TEST(RoundTrip, lines_behind_those_that_are_read_stay_when_those_are_all_given) {
    MemoryFiles disk;
    const std::string path = Dat + "ObJNR09DAT.OBN";
    const auto lines = [](const std::string& list) {
        return R"({"format":"qvm7702-export","version":1,"lines":{"ObJNR09DAT.OBN":)" + list + "}}";
    };
    disk.Files[path] = "a\n1\n2\nbehind\n";
    Import(disk, lines(R"(["b","1","2"])"));
    EXPECT_EQ(disk.Files[path], "b\r\n1\r\n2\r\nbehind\n");
    Import(disk, lines(R"(["b","1"])"));
    EXPECT_EQ(disk.Files[path], "b\r\n1\r\n");
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
