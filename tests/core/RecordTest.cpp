#include "Record.h"

#include "MemoryFiles.h"

#include <array>
#include <cstdint>
#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <string>
#include <string_view>
#include <vector>

namespace qvm {
namespace {

using namespace std::string_literals;

/// One field of each fill.
namespace Probe {
constexpr RecordField Flag{"Flag", 0, 1, Fill::Byte}, Plain{"Plain", 1, 4}, Zeroed{"Zeroed", 5, 4, Fill::Null},
    Mixed{"Mixed", 9, 21, Fill::NullTo20};
constexpr std::array Fields{Flag, Plain, Zeroed, Mixed};
static_assert(sizeof(GapAtField<RecordError(Fields, 30)>) == 1);
} // namespace Probe

/// Three bytes a record, to be counted by eye.
namespace Kurz {
constexpr RecordField Text{"Text", 0, 3};
constexpr std::array Fields{Text};
constexpr RecordLayout Record{"Kurz", "KURZ.DAT", 3, 1, 4, Fields};
} // namespace Kurz

constexpr char Directory[] = "/qvm/DAT/";
constexpr char File[] = "/qvm/DAT/KURZ.DAT";

struct RecordFiles : testing::Test {
    test::MemoryFiles disk;
    FileStore files = disk.Store();
    RecordFile kurz{Kurz::Record};
};

TEST(RecordError, names_the_first_field_that_leaves_a_gap_or_overlaps) {
    constexpr std::array gap{RecordField{"a", 0, 2}, RecordField{"b", 3, 1}};
    constexpr std::array overlap{RecordField{"a", 0, 2}, RecordField{"b", 2, 2}, RecordField{"c", 3, 1}};
    EXPECT_EQ(RecordError(gap, 4), 1);
    EXPECT_EQ(RecordError(overlap, 4), 2);
}

TEST(RecordError, gives_the_number_of_fields_when_the_end_is_missed) {
    constexpr std::array fields{RecordField{"a", 0, 2}, RecordField{"b", 2, 1}};
    EXPECT_EQ(RecordError(fields, 4), 2);
    EXPECT_EQ(RecordError(fields, 3), -1);
}

TEST(RecordError, a_field_without_width_is_an_error) {
    constexpr std::array fields{RecordField{"a", 0, 0}, RecordField{"b", 0, 1}};
    EXPECT_EQ(RecordError(fields, 1), 0);
}

TEST(Feld_Lesen, stops_at_the_first_zero_byte) {
    EXPECT_EQ(Feld_Lesen("\x00 ab\0cRest"s, Probe::Plain), "ab");
}

TEST(Feld_Lesen, strips_blanks_on_both_sides_and_keeps_those_inside) {
    EXPECT_EQ(Feld_Lesen("? a b"s, {"", 0, 5}), "? a b");
    EXPECT_EQ(Feld_Lesen("  a b  "s, {"", 0, 7}), "a b");
    EXPECT_EQ(Feld_Lesen("    "s, {"", 0, 4}), "");
}

TEST(Feld_Lesen, does_not_look_behind_its_field) {
    EXPECT_EQ(Feld_Lesen("xABCDyz"s, Probe::Plain), "ABCD");
}

TEST(Feld_Lesen, a_record_that_ends_inside_the_field_gives_what_it_has) {
    EXPECT_EQ(Feld_Lesen("xAB"s, Probe::Plain), "AB");
    EXPECT_EQ(Feld_Lesen("x"s, Probe::Plain), "");
    EXPECT_EQ(Feld_Lesen(""s, Probe::Mixed), "");
}

TEST(Feld_Roh, gives_the_bytes_as_they_stand_and_zeros_for_those_that_are_missing) {
    EXPECT_EQ(Feld_Roh("x \0b "s, Probe::Plain), " \0b "s);
    EXPECT_EQ(Feld_Roh("xA"s, Probe::Plain), "A\0\0\0"s);
    EXPECT_EQ(Feld_Roh(""s, Probe::Plain), "\0\0\0\0"s);
}

std::string Geschrieben(const RecordField& field, std::string_view text) {
    std::string record(30, '#');
    Feld_Schreiben(record, field, text);
    return record;
}

TEST(Feld_Schreiben, pads_a_plain_field_with_blanks_and_touches_nothing_else) {
    EXPECT_EQ(Geschrieben(Probe::Plain, "ab"), "#ab  #########################"s);
    EXPECT_EQ(Geschrieben(Probe::Plain, ""), "#    #########################"s);
}

TEST(Feld_Schreiben, cuts_a_text_that_is_longer_than_its_field) {
    EXPECT_EQ(Geschrieben(Probe::Plain, "abcdefgh"), "#abcd#########################"s);
    EXPECT_EQ(Geschrieben(Probe::Zeroed, "abcdefgh"), "#####abcd#####################"s);
}

TEST(Feld_Schreiben, pads_a_null_field_with_zeros) {
    EXPECT_EQ(Geschrieben(Probe::Zeroed, "ab"), "#####ab\0\0#####################"s);
}

TEST(Feld_Schreiben, an_empty_text_makes_a_null_field_all_blanks) {
    EXPECT_EQ(Geschrieben(Probe::Zeroed, ""), "#####    #####################"s);
}

TEST(Feld_Schreiben, pads_the_mixed_field_with_zeros_to_20_and_a_blank_behind) {
    EXPECT_EQ(Geschrieben(Probe::Mixed, "10.02.2024"), "#########10.02.2024\0\0\0\0\0\0\0\0\0\0 "s);
}

TEST(Feld_Schreiben, the_last_character_of_the_mixed_field_stays_blank_whatever_the_text) {
    EXPECT_EQ(Geschrieben(Probe::Mixed, "ABCDEFGHIJKLMNOPQRSTUVW"), "#########ABCDEFGHIJKLMNOPQRST "s);
}

TEST(Feld_Schreiben, an_empty_text_makes_the_mixed_field_all_blanks) {
    EXPECT_EQ(Geschrieben(Probe::Mixed, ""), "#########                     "s);
}

TEST(Feld_Schreiben, makes_a_short_record_long_enough) {
    std::string record = "x";
    Feld_Schreiben(record, Probe::Zeroed, "abc");
    EXPECT_EQ(record, "x\0\0\0\0abc\0"s);
}

TEST(Feld_Schreiben, can_copy_from_the_record_that_it_writes) {
    std::string record = "ab";
    Feld_Schreiben(record, Probe::Zeroed, std::string_view(record).substr(0, 2));
    EXPECT_EQ(record, "ab\0\0\0ab\0\0"s);
}

TEST(Feld_Byte, reads_and_writes_one_raw_byte) {
    std::string record(30, '#');
    Feld_Byte_Schreiben(record, Probe::Flag, 0xFF);
    EXPECT_EQ(record, "\xFF#############################"s);
    EXPECT_EQ(Feld_Byte(record, Probe::Flag), 0xFF);
}

TEST(Feld_Byte, a_missing_byte_is_zero_and_is_made_when_written) {
    std::string record;
    EXPECT_EQ(Feld_Byte(record, Probe::Plain), 0);
    Feld_Byte_Schreiben(record, Probe::Plain, 7);
    EXPECT_EQ(record, "\0\x07"s);
}

TEST(Feld, what_is_written_is_read_again) {
    EXPECT_TRUE(rc::check([](const std::vector<std::uint8_t>& raw) {
        std::string text;
        for (const std::uint8_t byte : raw) {
            text += static_cast<char>(byte <= 0x20 ? 'x' : byte); // no zero, no blank to be stripped
        }
        std::string record(30, '#');
        for (const RecordField& field : {Probe::Plain, Probe::Zeroed, Probe::Mixed}) {
            Feld_Schreiben(record, field, text);
        }
        RC_ASSERT(Feld_Lesen(record, Probe::Plain) == text.substr(0, 4));
        RC_ASSERT(Feld_Lesen(record, Probe::Zeroed) == text.substr(0, 4));
        RC_ASSERT(Feld_Lesen(record, Probe::Mixed) == text.substr(0, 20));
        RC_ASSERT(record.size() == 30U);
        RC_ASSERT(record[0] == '#');
    }));
}

TEST(Feld, any_record_can_be_read) {
    EXPECT_TRUE(rc::check([](const std::vector<std::uint8_t>& raw) {
        const std::string record(raw.begin(), raw.end());
        for (const RecordField& field : Probe::Fields) {
            const std::string text = Feld_Lesen(record, field);
            RC_ASSERT(text.size() <= field.Width);
            RC_ASSERT(text.find('\0') == std::string::npos);
            RC_ASSERT(Feld_Roh(record, field).size() == field.Width);
        }
    }));
}

TEST_F(RecordFiles, a_missing_file_holds_nothing) {
    EXPECT_EQ(kurz.Laden(files, Directory), ReadStatus::Missing);
    EXPECT_EQ(kurz.Count(), 0);
    EXPECT_EQ(kurz.Record(1), "\0\0\0"s);
    EXPECT_EQ(kurz.Text(1, Kurz::Text), "");
}

TEST_F(RecordFiles, an_empty_file_holds_nothing) {
    disk.Files[File] = "";
    EXPECT_EQ(kurz.Laden(files, Directory), ReadStatus::Ok);
    EXPECT_EQ(kurz.Count(), 0);
}

TEST_F(RecordFiles, a_file_is_read_in_one_operation) {
    disk.Files[File] = "aaabbbcccddd";
    kurz.Laden(files, Directory);
    EXPECT_EQ(kurz.Count(), 4);
    EXPECT_EQ(kurz.Text(3, Kurz::Text), "ccc");
    EXPECT_EQ(disk.Operations, 1);
}

TEST_F(RecordFiles, a_partial_last_record_counts_as_far_as_it_goes) {
    disk.Files[File] = "aaabb";
    kurz.Laden(files, Directory);
    EXPECT_EQ(kurz.Count(), 2);
    EXPECT_EQ(kurz.Record(2), "bb\0"s);
    EXPECT_EQ(kurz.Text(2, Kurz::Text), "bb");
}

TEST_F(RecordFiles, numbers_outside_the_file_read_as_zeros) {
    disk.Files[File] = "aaa";
    kurz.Laden(files, Directory);
    for (const int n : {-2147483647 - 1, -1, 0, 2, 4097, 2147483647}) {
        EXPECT_EQ(kurz.Record(n), "\0\0\0"s) << n;
        EXPECT_EQ(kurz.Text(n, Kurz::Text), "") << n;
    }
}

TEST_F(RecordFiles, a_read_error_leaves_nothing_of_what_was_loaded_before) {
    disk.Files[File] = "aaa";
    kurz.Laden(files, Directory);
    disk.FailAt = 2;
    EXPECT_EQ(kurz.Laden(files, Directory), ReadStatus::Error);
    EXPECT_EQ(kurz.Count(), 0);
    EXPECT_EQ(disk.Files[File], "aaa");
}

TEST_F(RecordFiles, setting_a_record_keeps_what_lies_around_it) {
    disk.Files[File] = "aaabbbcccTail";
    kurz.Laden(files, Directory);
    kurz.SetRecord(2, "xyz");
    EXPECT_TRUE(kurz.Speichern(files, Directory));
    EXPECT_EQ(disk.Files[File], "aaaxyzcccTail");
}

TEST_F(RecordFiles, records_between_the_end_and_a_new_one_are_zeros) {
    disk.Files[File] = "aaab";
    kurz.Laden(files, Directory);
    kurz.SetRecord(4, "ddd");
    EXPECT_EQ(kurz.Bytes(), "aaab\0\0\0\0\0ddd"s);
}

TEST_F(RecordFiles, a_record_is_cut_or_filled_to_its_length) {
    kurz.SetRecord(1, "abcdef");
    kurz.SetRecord(2, "g");
    EXPECT_EQ(kurz.Bytes(), "abcg\0\0"s);
}

TEST_F(RecordFiles, a_record_number_that_cannot_be_writes_nothing) {
    kurz.SetRecord(1, "aaa");
    for (const int n : {-2147483647 - 1, -1, 0, 4097, 2147483647}) {
        kurz.SetRecord(n, "bbb");
        EXPECT_FALSE(Satz_Schreiben(files, Directory, Kurz::Record, n, "bbb")) << n;
    }
    EXPECT_EQ(kurz.Bytes(), "aaa");
    EXPECT_EQ(disk.Operations, 0);
    EXPECT_TRUE(disk.Files.empty());
}

TEST_F(RecordFiles, a_save_that_fails_leaves_the_old_file) {
    disk.Files[File] = "aaa";
    kurz.Laden(files, Directory);
    kurz.SetRecord(1, "bbb");
    disk.FailAt = 2;
    EXPECT_FALSE(kurz.Speichern(files, Directory));
    EXPECT_EQ(disk.Files[File], "aaa");
    EXPECT_TRUE(kurz.Speichern(files, Directory));
    EXPECT_EQ(disk.Files[File], "bbb");
}

TEST_F(RecordFiles, one_record_is_written_in_place_without_reading_the_file) {
    disk.Files[File] = "aaabbbccc";
    EXPECT_TRUE(Satz_Schreiben(files, Directory, Kurz::Record, 2, "xyz"));
    EXPECT_EQ(disk.Files[File], "aaaxyzccc");
    EXPECT_EQ(disk.Operations, 1);
}

TEST_F(RecordFiles, writing_one_record_makes_the_file) {
    EXPECT_TRUE(Satz_Schreiben(files, Directory, Kurz::Record, 3, "x"));
    EXPECT_EQ(disk.Files[File], "\0\0\0\0\0\0x\0\0"s);
}

TEST_F(RecordFiles, writing_one_record_that_fails_leaves_the_old_file) {
    disk.Files[File] = "aaabbb";
    disk.FailAt = 1;
    EXPECT_FALSE(Satz_Schreiben(files, Directory, Kurz::Record, 1, "xyz"));
    EXPECT_EQ(disk.Files[File], "aaabbb");
}

TEST(RecordFile, whatever_the_file_holds_loading_and_saving_gives_the_same_bytes) {
    EXPECT_TRUE(rc::check([](const std::vector<std::uint8_t>& raw) {
        test::MemoryFiles disk;
        const FileStore files = disk.Store();
        const std::string bytes(raw.begin(), raw.end());
        disk.Files[File] = bytes;
        RecordFile file(Kurz::Record);
        RC_ASSERT(file.Laden(files, Directory) == ReadStatus::Ok);
        std::string joined;
        for (int n = 1; n <= file.Count(); ++n) {
            joined += file.Record(n);
        }
        RC_ASSERT(joined.substr(0, bytes.size()) == bytes);
        RC_ASSERT(file.Speichern(files, Directory));
        RC_ASSERT(disk.Files[File] == bytes);
    }));
}

} // namespace
} // namespace qvm
