#include "DatensatzDateien.h"

#include "DatasetFixture.h"

#include <gmock/gmock.h>

namespace qvm::test {
namespace {

using testing::IsEmpty;

/// A lock beside whole files of blanks, by lengths and counts typed by hand.
struct Dateien_Eines_Laufs : DatasetTest {
    struct WholeFile {
        const char* Name;
        std::size_t Length, Count;
    };
    static constexpr WholeFile Always[] = {
        {"C64UX12H3D.EBW", 45, 200},  {"LOCKCLASSCOMX.CMB", 48, 200}, {"SBSCLKZU.SB1", 55, 200},
        {"TIMGRP44T8_S.SBS", 66, 8},  {"BX10X52WUJ9.UBW", 419, 250},  {"TIMGRP33T7.PBG", 71, 8},
        {"CPRT88X3FDA.PRT", 12, 200}, {"LSOEMIPART.LMT", 1, 200},
    };

    Dateien_Eines_Laufs() {
        row.PersonTimers = row.Calendars = "";
        for (const WholeFile& file : Always) {
            files.File(file.Name).assign(file.Length * file.Count, ' ');
        }
    }

    /// The names of the files found, with what is wrong.
    std::vector<std::pair<std::string, FileDamage>> Found() {
        std::vector<std::pair<std::string, FileDamage>> found;
        for (const FileTrouble& trouble : Datensatz_Dateien_Pruefen(kern, row)) {
            EXPECT_EQ(trouble.Fault, FileFault::None);
            found.emplace_back(trouble.File, trouble.Damage);
        }
        return found;
    }
    static auto Only(std::string_view file, FileDamage damage) {
        return testing::ElementsAre(std::pair(std::string(file), damage));
    }
};

TEST_F(Dateien_Eines_Laufs, whole_files_and_missing_ones_are_no_trouble) {
    EXPECT_THAT(Found(), IsEmpty());
    pc.Disk.Files.clear();
    EXPECT_THAT(Found(), IsEmpty());
}

TEST_F(Dateien_Eines_Laufs, each_file_cut_in_the_middle_is_named) {
    for (const WholeFile& file : Always) {
        std::string& bytes = files.File(file.Name);
        const std::string whole = bytes;
        bytes.resize(whole.size() / 2);
        EXPECT_THAT(Found(), Only(file.Name, FileDamage::TooShort)) << file.Name;
        bytes.clear();
        EXPECT_THAT(Found(), Only(file.Name, FileDamage::TooShort)) << file.Name;
        bytes = whole;
    }
}

TEST_F(Dateien_Eines_Laufs, each_file_cut_within_a_record_is_named) {
    for (const WholeFile& file : Always) {
        if (file.Length > 1) {
            std::string& bytes = files.File(file.Name);
            const std::string whole = bytes;
            bytes.resize(whole.size() - 1);
            EXPECT_THAT(Found(), Only(file.Name, FileDamage::CutRecord)) << file.Name;
            bytes = whole;
        }
    }
}

TEST_F(Dateien_Eines_Laufs, a_longer_file_of_an_older_conversion_is_good) {
    files.File("BX10X52WUJ9.UBW").resize(std::size_t{419} * 251, ' ');
    EXPECT_THAT(Found(), IsEmpty());
}

TEST_F(Dateien_Eines_Laufs, files_of_single_records_may_be_short_and_have_gaps_but_not_be_cut) {
    files.File("RFCHANDIF12.RFX").assign(15, '1');
    files.File("T6WRSSISN.TSD").assign(std::size_t{241} * 3, '\0');
    EXPECT_THAT(Found(), IsEmpty());
    files.File("RFCHANDIF12.RFX").assign(14, '1');
    EXPECT_THAT(Found(), Only("RFCHANDIF12.RFX", FileDamage::CutRecord));
}

TEST_F(Dateien_Eines_Laufs, slots_count_only_for_a_lock_that_gets_person_timers) {
    files.File("TX33Y98BSG9.TBW").assign(77, '\0'); // seven of fifteen
    EXPECT_THAT(Found(), IsEmpty());
    row.PersonTimers = "X";
    EXPECT_THAT(Found(), Only("TX33Y98BSG9.TBW", FileDamage::TooShort));
}

TEST_F(Dateien_Eines_Laufs, holidays_count_only_for_a_lock_that_gets_calendars) {
    files.File("KL10X49WTTI.CBW").assign(430, ' '); // half of 41 records
    EXPECT_THAT(Found(), IsEmpty());
    row.Calendars = "X";
    EXPECT_THAT(Found(), Only("KL10X49WTTI.CBW", FileDamage::CutRecord));
    for (const std::size_t records : {0U, 20U, 41U}) {
        files.File("KL10X49WTTI.CBW").assign(records * 21, ' ');
        EXPECT_THAT(Found(), IsEmpty()) << records;
    }
}

TEST_F(Dateien_Eines_Laufs, templates_count_only_for_a_lock_that_a_finger_opens) {
    files.File("TEmpTCD0UPK.FSD").assign(3000, ' ');
    AddFinger(3, "Anna", "Slot_Nr: 001", "800", 2);
    EXPECT_THAT(Found(), IsEmpty());
    row.Number = 2;
    EXPECT_THAT(Found(), Only("TEmpTCD0UPK.FSD", FileDamage::CutRecord));
}

TEST_F(Dateien_Eines_Laufs, a_file_that_cannot_be_read_is_named_with_its_reason) {
    const FileStore good = pc.World.Files;
    pc.World.Files.ReadAll = [good](const std::string& path, std::string& bytes) {
        bytes.clear();
        return path.ends_with("RFCHANDIF12.RFX") ? ReadStatus::Error : good.ReadAll(path, bytes);
    };
    pc.World.Files.LastFault = [] { return FileFault::TooManyOpen; };
    EXPECT_EQ(Datensatz_Dateien_Pruefen(kern, row),
              (std::vector{FileTrouble{.File = "RFCHANDIF12.RFX", .Fault = FileFault::TooManyOpen}}));
}

} // namespace
} // namespace qvm::test
