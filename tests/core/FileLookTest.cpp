#include "FileLook.h"

#include "MemoryFiles.h"

#include <gtest/gtest.h>
#include <string>

namespace qvm {
namespace {

using namespace std::string_literals;

constexpr RecordField LookName{"Name", 0, 4}, LookMarks{"Marks", 4, 3, Fill::Blank, "XF-"},
    LookDay{"Day", 7, 1, Fill::Byte, "\x01\x02"};
constexpr std::array LookFields{LookName, LookMarks, LookDay};
/// Eight bytes a record; read up to the third, written by two at least.
constexpr RecordLayout LookLayout{"Look", "LOOK.DAT", 8, 1, 3, LookFields, 2};
constexpr RecordLayout Grown{"Look", "LOOK.DAT", 8, 1, 3, LookFields};
constexpr RecordLayout OrEmpty{"Look", "LOOK.DAT", 8, 1, 3, LookFields, 2, true};

const std::string Good = "AnnaX-F\x01";

std::optional<FileTrouble> Damaged(FileDamage damage, int record = 0) {
    return FileTrouble{.File = "LOOK.DAT", .Damage = damage, .Number = record};
}

TEST(Satzdatei_Pruefen, what_a_writer_leaves_is_good) {
    EXPECT_EQ(Satzdatei_Pruefen(LookLayout, Good + Good), std::nullopt);
    EXPECT_EQ(Satzdatei_Pruefen(LookLayout, Good + Good + Good + Good), std::nullopt);
}

TEST(Satzdatei_Pruefen, blanks_and_zeros_fill_any_field_of_text) {
    EXPECT_EQ(Satzdatei_Pruefen(LookLayout, "Al\0 X  \x01"s + "    \0\0\0\x02"s), std::nullopt);
}

TEST(Satzdatei_Pruefen, every_printable_character_and_those_of_older_programs_stand_in_a_text) {
    for (int value = 0x20; value < 0x100; ++value) {
        const std::string record = std::string(4, static_cast<char>(value)) + "---\x01";
        EXPECT_EQ(Satzdatei_Pruefen(LookLayout, Good + record), std::nullopt) << value;
    }
}

TEST(Satzdatei_Pruefen, a_control_character_is_damage_and_named_by_its_record) {
    for (int value = 1; value < 0x20; ++value) {
        std::string record = Good;
        record[3] = static_cast<char>(value);
        EXPECT_EQ(Satzdatei_Pruefen(LookLayout, Good + record), Damaged(FileDamage::BadRecord, 2)) << value;
    }
}

TEST(Satzdatei_Pruefen, a_mark_that_no_writer_makes_is_damage) {
    EXPECT_EQ(Satzdatei_Pruefen(LookLayout, "AnnaXQ-\x01" + Good), Damaged(FileDamage::BadRecord, 1));
}

TEST(Satzdatei_Pruefen, a_byte_that_is_no_value_is_damage_a_blank_and_zero_too) {
    for (const char byte : {'\x03', ' ', '\0'}) {
        std::string record = Good;
        record[7] = byte;
        EXPECT_EQ(Satzdatei_Pruefen(LookLayout, record + Good), Damaged(FileDamage::BadRecord, 1));
    }
}

TEST(Satzdatei_Pruefen, every_length_that_is_no_whole_number_of_records_is_cut) {
    const std::string whole = Good + Good + Good;
    for (std::size_t length = 0; length < whole.size(); ++length) {
        const auto found = Satzdatei_Pruefen(LookLayout, std::string_view(whole).substr(0, length));
        if (length % 8 != 0) {
            EXPECT_EQ(found, Damaged(FileDamage::CutRecord)) << length;
        } else {
            EXPECT_EQ(found, length < 16 ? Damaged(FileDamage::TooShort) : std::nullopt) << length;
        }
    }
}

TEST(Satzdatei_Pruefen, a_file_that_grows_by_single_records_has_one_at_least_and_gaps) {
    EXPECT_EQ(Satzdatei_Pruefen(Grown, ""), Damaged(FileDamage::TooShort));
    EXPECT_EQ(Satzdatei_Pruefen(Grown, Good), std::nullopt);
    constexpr RecordLayout text{"Look", "LOOK.DAT", 4, 1, 3, std::span(&LookName, 1)};
    EXPECT_EQ(Satzdatei_Pruefen(text, "\0\0\0\0Anna"s), std::nullopt);
}

TEST(Satzdatei_Pruefen, a_lost_record_in_a_file_that_is_written_as_a_whole_is_damage) {
    constexpr RecordLayout text{"Look", "LOOK.DAT", 4, 1, 3, std::span(&LookName, 1), 2};
    EXPECT_EQ(Satzdatei_Pruefen(text, "Anna\0\0\0\0"s), Damaged(FileDamage::BadRecord, 2));
}

TEST(Satzdatei_Pruefen, no_record_at_all_is_good_where_a_writer_leaves_that) {
    EXPECT_EQ(Satzdatei_Pruefen(OrEmpty, ""), std::nullopt);
    EXPECT_EQ(Satzdatei_Pruefen(OrEmpty, Good), Damaged(FileDamage::TooShort));
}

TEST(Satzdatei_Pruefen, what_stands_behind_the_last_record_is_nobodys) {
    EXPECT_EQ(Satzdatei_Pruefen(LookLayout, Good + Good + Good + "\x01\x01\x01\x01\x01\x01\x01\x01"), std::nullopt);
}

TEST(Satzdatei_Pruefen, a_missing_file_is_good_and_one_that_cannot_be_read_is_named_with_its_reason) {
    test::MemoryFiles disk;
    FileStore files = disk.Store();
    EXPECT_EQ(Satzdatei_Pruefen(LookLayout, files, "/d/"), std::nullopt);
    disk.Files["/d/LOOK.DAT"] = Good + Good;
    EXPECT_EQ(Satzdatei_Pruefen(LookLayout, files, "/d/"), std::nullopt);
    files.ReadAll = [](const std::string&, std::string&) { return ReadStatus::Error; };
    files.LastFault = [] { return FileFault::LinkLoop; };
    EXPECT_EQ(Satzdatei_Pruefen(LookLayout, files, "/d/"),
              (FileTrouble{.File = "LOOK.DAT", .Fault = FileFault::LinkLoop}));
    files.LastFault = {};
    EXPECT_EQ(Satzdatei_Pruefen(LookLayout, files, "/d/"),
              (FileTrouble{.File = "LOOK.DAT", .Fault = FileFault::Other}));
}

TEST(FileTrouble_English, names_the_file_and_the_reason) {
    EXPECT_EQ(FileTrouble_English({.File = "A.DAT", .Fault = FileFault::Pipe}), "A.DAT: it is a pipe and not a file");
    EXPECT_EQ(FileTrouble_English({.File = "A.DAT", .Damage = FileDamage::BadRecord, .Number = 17}),
              "A.DAT: record 17 holds characters that cannot stand there");
}

} // namespace
} // namespace qvm
