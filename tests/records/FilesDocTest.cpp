// docs/files.md is made from the record layouts. QVM_WRITE_DOCS=1 writes it anew.

#include "AdapterRecord.h"
#include "Inhalt.h"
#include "LockRecords.h"
#include "TimeRecords.h"
#include "UnitRecords.h"
#include "UserRecords.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace qvm {
namespace {

namespace fs = std::filesystem;

struct Entry {
    const RecordLayout& Layout;
    std::string_view Purpose;
};

struct Section {
    std::string_view Title;
    std::vector<Entry> Entries;
};

std::vector<Section> Sections() {
    return {
        {"Users",
         {{UserRecord::Record, "The users: record number = user number. The lock mask has a character for each lock, "
                               "`X` access, `F` access by finger, `-` none, and a blank."},
          {ChannelRecord::Record, "Radio channels: record n serves lock n (`LockChannel`, `LockChange`) and the E-Key "
                                  "of user n (`EKold`, `Ekeychange`). A blank channel means 1."},
          {TemplateRecord::Record, "Fingerprint templates, found by their identifier. A template lies at its slot "
                                   "number + 249; what lies between is 0x00."}}},
        {"Locks",
         {{LockRecord::Record, "The locks: record number = lock number, here and in the five files that follow. A "
                               "switch is `X` or blank."},
          {LockPrioRecord::Record, "Priority `1` to `5`; the three fields behind it always hold `3`."},
          {LockEmiRecord::Record, "EMI state: `X` on, `Y` off, blank not applicable."},
          {LockGroupRecord::Record, "Timer group of the lock. The identifier binds, `-` for none; the name is what was "
                                    "shown when it was saved."},
          {LockAdapterRecord::Record, "The adapter that serves the lock, with the lock's serial."},
          {DoorModeRecord::Record, "Door mode `AA`, `BB` or blank, with the lock's serial and the days from "
                                   "01.01.2000 to the day of setting."},
          {WirelessUnitRecord::Record, "Reception setting and five wireless units of the lock of that number."}}},
        {"Clocks, calendars, offsets",
         {{TimeSlot::Record, "Weekly slots: records 1 to 10 of persons, 11 to 15 of locks. The day is an index into "
                             "the day table, 0 to 10, and 0 is off."},
          {TimeGroup::Record, "Groups of the ten person slots. Records 1 and 2 are fixed and not read, the eighth is "
                              "always empty."},
          {LockTimeGroup::Record, "Groups of the five lock slots. Five are read, the others are always empty."},
          {CalendarEntry::Record, "Holidays: records 1 to 20 single ones, 21 unused, 22 to 41 those of every year, "
                                  "whose kind is blank."},
          {GuestOffset::Record, "Time offsets for guest cards. The identifier, `OFST0x0` and the record number, is "
                                "fixed; a blank one counts as that."}}},
        {"Adapters", {{AdapterRecord::Record, "The adapters by the rows of the port window."}}},
        {"Older forms",
         {{UserRecordV1::Record, "Users before the timer groups. Converted into the next form at the start and then "
                                 "deleted."},
          {UserRecordV2::Record, "Users before the fingerprints. Converted at the start and then deleted."},
          {UnitRecordOld::Record, "Reception settings before the units. Converted at the start and then deleted."}}},
    };
}

std::string_view FillName(Fill fill) {
    switch (fill) {
    case Fill::Blank:
        return "blank";
    case Fill::Null:
        return "0x00";
    case Fill::NullTo20:
        return "0x00 to 20 characters, then blank";
    case Fill::Byte:
        return "one byte, not text";
    }
    return "";
}

void WriteEntry(std::ostream& out, const Entry& entry) {
    const RecordLayout& layout = entry.Layout;
    out << "\n### " << layout.File << "\n\n" << entry.Purpose << "\n\n";
    out << "`" << layout.Name << "`, " << layout.Length << (layout.Length == 1 ? " byte" : " bytes")
        << " a record, records " << layout.First << " to " << layout.Last << ".";
    if (layout.Least > 0) {
        out << " With fewer than " << layout.Least << (layout.EmptyAllowed ? ", but not with none," : "")
            << " a file counts as cut.";
    }
    out << "\n\n";
    out << "| Offset | Width | Field | Fill |\n|---:|---:|---|---|\n";
    for (const RecordField& field : layout.Fields) {
        out << "| " << field.Offset << " | " << field.Width << " | " << field.Name << " | " << FillName(field.Padding)
            << " |\n";
    }
}

std::string Document() {
    std::ostringstream out;
    out << "# Data files\n\n"
           "Generated from the record layouts; do not edit. `QVM_WRITE_DOCS=1 test_records` writes it "
           "anew.\n\n"
           "The files lie in the directory `DAT` of the program. Each is a row of records of one length, numbered\n"
           "from 1, without a head. Text is one byte a character, Windows code page 1252. A reader stops at the\n"
           "first 0x00 of a field and strips blanks on both sides. A writer cuts a text that is too long and fills\n"
           "what is left as the table says; an empty text is all blanks. What a file holds behind its last record\n"
           "stays when the file is saved.\n";
    for (const Section& section : Sections()) {
        out << "\n## " << section.Title << "\n";
        for (const Entry& entry : section.Entries) {
            WriteEntry(out, entry);
        }
    }
    return out.str();
}

TEST(Files_Reference, is_what_the_layouts_say) {
    const fs::path path = fs::path(QVM_SOURCE_DIR) / "docs" / "files.md";
    if (const char* write = std::getenv("QVM_WRITE_DOCS"); write != nullptr && std::string_view(write) == "1") {
        std::ofstream(path, std::ios::binary) << Document();
    }
    EXPECT_EQ(test::Inhalt(path), Document());
}

TEST(Files_Reference, tells_of_every_layout_in_the_sources) {
    std::set<std::string> told;
    for (const Section& section : Sections()) {
        for (const Entry& entry : section.Entries) {
            EXPECT_TRUE(told.insert(std::string(entry.Layout.Name)).second) << entry.Layout.Name << " is told twice";
        }
    }
    const std::regex declaration(R"re(RecordLayout\s+\w+\{"(\w+)")re");
    std::set<std::string> declared;
    for (const auto& file : fs::recursive_directory_iterator(fs::path(QVM_SOURCE_DIR) / "src")) {
        const std::string text = file.path().extension() == ".h" ? test::Inhalt(file.path()) : "";
        for (std::sregex_iterator at(text.begin(), text.end(), declaration), end; at != end; ++at) {
            EXPECT_TRUE(declared.insert((*at)[1]).second) << (*at)[1] << " is declared twice";
        }
    }
    EXPECT_EQ(told, declared);
}

TEST(Files_Reference, a_table_gives_offset_width_and_fill_of_each_field) {
    std::ostringstream out;
    WriteEntry(out, {LockEmiRecord::Record, "EMI."});
    EXPECT_EQ(out.str(), "\n### LSOEMIPART.LMT\n\nEMI.\n\n`LockEmiRecord`, 1 byte a record, records 1 to 200. With "
                         "fewer than 200 a file "
                         "counts as cut.\n\n"
                         "| Offset | Width | Field | Fill |\n|---:|---:|---|---|\n| 0 | 1 | Emi | blank |\n");
}

} // namespace
} // namespace qvm
