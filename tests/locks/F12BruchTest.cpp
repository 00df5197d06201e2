// Each file operation of a save fails once: every file is the old or the new one.

#include "F12_Speichern.h"
#include "LocksFixture.h"

namespace qvm {
namespace {

struct Bruchstelle : test::LocksFixture {
    const std::vector<const char*> order{Locks, Priorities, Emi, Bindings, LockAdapters, Doors};
    std::map<std::string, std::string> before, after;

    Bruchstelle() {
        for (const char* file : order) {
            before[file] = std::string(20000, 'o');
        }
        files = before;
        grid.SetText(1, 1, "Tor");
        EXPECT_TRUE(F12_Speichern(kern, table));
        after = files;
        for (const char* file : order) {
            EXPECT_NE(after[file], before[file]) << file;
        }
    }

    /// Saves from the old files on, with operation `n` failing.
    bool Bricht_Bei(int n, bool fromThere) {
        files = before;
        table.LockDirty = true;
        disk.Operations = 0;
        disk.FailAt = n;
        disk.FailFromThere = fromThere;
        return F12_Speichern(kern, table);
    }
};

TEST_F(Bruchstelle, a_failure_while_reading_leaves_all_six_files_as_they_were) {
    for (int n = 1; n <= 6; ++n) {
        EXPECT_FALSE(Bricht_Bei(n, false)) << n;
        EXPECT_EQ(files, before) << n;
        EXPECT_TRUE(table.LockDirty) << n;
    }
}

TEST_F(Bruchstelle, a_failure_while_writing_leaves_all_six_files_as_they_were) {
    for (int n = 7; n <= 12; ++n) {
        EXPECT_FALSE(Bricht_Bei(n, false)) << n;
        EXPECT_EQ(files, before) << n;
        EXPECT_TRUE(table.LockDirty) << n;
    }
}

TEST_F(Bruchstelle, a_failure_while_writing_the_first_files_there_have_been_leaves_none) {
    before.clear();
    for (int n = 7; n <= 12; ++n) {
        EXPECT_FALSE(Bricht_Bei(n, false)) << n;
        EXPECT_EQ(files, before) << n;
    }
}

TEST_F(Bruchstelle, a_disk_that_is_gone_while_writing_leaves_the_files_before_it_new_and_the_others_old) {
    for (std::size_t written = 0; written < 6; ++written) {
        EXPECT_FALSE(Bricht_Bei(static_cast<int>(written) + 7, true)) << written;
        for (std::size_t file = 0; file < order.size(); ++file) {
            EXPECT_EQ(files[order[file]], (file < written ? after : before)[order[file]]) << written << file;
        }
        EXPECT_TRUE(table.LockDirty) << written;
    }
}

TEST_F(Bruchstelle, without_a_failure_twelve_operations_make_all_six_new) {
    EXPECT_TRUE(Bricht_Bei(13, false));
    EXPECT_EQ(disk.Operations, 12);
    EXPECT_EQ(files, after);
}

TEST_F(Bruchstelle, a_save_of_one_file_leaves_the_old_or_the_new_one) {
    using Save = bool (*)(Kern&, const LockTable&);
    const std::vector<Save> saves{Tuereinstellung_Speichern,   Prioritaet_Speichern,     Emi_Speichern,
                                  SchlossZeitGruppe_Speichern, SchlossAdapter_Speichern, Tuermodus_Speichern};
    for (std::size_t n = 0; n < saves.size(); ++n) {
        for (const int operation : {1, 2}) {
            files = before;
            disk.Operations = 0;
            disk.FailAt = operation;
            EXPECT_FALSE(saves[n](kern, table)) << order[n] << operation;
            EXPECT_EQ(files, before) << order[n] << operation;
        }
        disk.Operations = 0;
        disk.FailAt = 3;
        EXPECT_TRUE(saves[n](kern, table)) << order[n];
        EXPECT_EQ(files[order[n]], after[order[n]]) << order[n];
    }
}

} // namespace
} // namespace qvm
