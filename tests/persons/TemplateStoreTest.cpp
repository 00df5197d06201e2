#include "TemplateStore.h"

#include "PersonsFixture.h"
#include "Text.h"

namespace qvm {
namespace {

using test::Blanks;
using test::Nulls;

struct TemplateStore_ : test::Persons {
    /// A template record of 3028 bytes at its number; the file grows as needed.
    void Put(int record, const std::string& identifier, const std::string& text) {
        std::string& file = File(TemplateFile);
        const std::size_t at = static_cast<std::size_t>(record - 1) * 3028;
        if (file.size() < at + 3028) {
            file.resize(at + 3028, '\0');
        }
        file.replace(at, 3028,
                     "2" + Blanks(4) + identifier + Blanks(21 - identifier.size()) + text + Blanks(3000 - text.size()) +
                         "0 ");
    }

    std::optional<std::string> Find(const char* fingerId) {
        TemplateStore store;
        store.Laden(kern);
        return store.Suchen(fingerId);
    }
};

struct Template_Suchen : TemplateStore_ {};

TEST_F(Template_Suchen, finds_the_template_by_its_digits) {
    Put(250, "826543210", "2 : 0 : 17 : ");
    Put(251, "826543299", "1 : 0 : 9 : ");
    EXPECT_EQ(Find("826543210"), "2 : 0 : 17 :");
    EXPECT_EQ(Find("826543299"), "1 : 0 : 9 :");
}

TEST_F(Template_Suchen, finds_the_template_of_a_premium_finger) {
    Put(250, "826543210", "2 : 0 : 17 : ");
    EXPECT_EQ(Find("PR826543210"), "2 : 0 : 17 :");
}

TEST_F(Template_Suchen, only_the_leading_run_of_digits_counts_on_both_sides) {
    Put(250, "8265 rest", "5 : ");
    EXPECT_EQ(Find("8265x99"), "5 :");
    EXPECT_EQ(Find("  8265  "), "5 :");
    EXPECT_EQ(Find("826"), std::nullopt);
    EXPECT_EQ(Find("82654"), std::nullopt);
}

TEST_F(Template_Suchen, an_identifier_without_digits_never_matches) {
    Put(1, "F-826543210", "F-17");
    Put(2, "", "5 : ");
    EXPECT_EQ(Find(""), std::nullopt);
    EXPECT_EQ(Find("PR"), std::nullopt);
    EXPECT_EQ(Find("F-826543210"), std::nullopt);
    EXPECT_EQ(Find("826543210"), std::nullopt);
}

TEST_F(Template_Suchen, the_first_of_equal_identifiers_wins) {
    Put(260, "77", "2 : ");
    Put(255, "77", "1 : ");
    EXPECT_EQ(Find("77"), "1 :");
}

TEST_F(Template_Suchen, looks_at_501_records) {
    Put(501, "501", "1 : ");
    Put(502, "502", "2 : ");
    EXPECT_EQ(Find("501"), "1 :");
    EXPECT_EQ(Find("502"), std::nullopt);
}

TEST_F(Template_Suchen, a_missing_empty_or_unreadable_file_holds_nothing) {
    EXPECT_EQ(Find("1"), std::nullopt);
    File(TemplateFile) = "";
    EXPECT_EQ(Find("1"), std::nullopt);
    Put(1, "1", "1 : ");
    Welt.Disk.FailAt = Welt.Disk.Operations + 1;
    EXPECT_EQ(Find("1"), std::nullopt);
}

TEST_F(Template_Suchen, a_partial_last_record_counts_as_far_as_it_goes) {
    Put(1, "1", "1 : 2 : 3 : ");
    File(TemplateFile).resize(26 + 6);
    EXPECT_EQ(Find("1"), "1 : 2");
    File(TemplateFile).resize(5);
    EXPECT_EQ(Find("1"), std::nullopt);
}

TEST_F(Template_Suchen, a_store_loaded_anew_forgets_what_it_held) {
    TemplateStore store;
    Put(1, "1", "1 : ");
    EXPECT_EQ(store.Laden(kern), ReadStatus::Ok);
    Welt.Disk.Files.erase(TemplateFile);
    EXPECT_EQ(store.Laden(kern), ReadStatus::Missing);
    EXPECT_EQ(store.Suchen("1"), std::nullopt);
}

TEST_F(Template_Suchen, reads_the_file_once_for_250_templates) {
    for (int slot = 1; slot <= 250; ++slot) {
        Put(slot + 249, Ziffern(800000000 + slot), Ziffern(slot) + " : 0 : ");
    }
    TemplateStore store;
    store.Laden(kern);
    for (int slot = 1; slot <= 250; ++slot) {
        ASSERT_EQ(store.Suchen(Ziffern(800000000 + slot)), Ziffern(slot) + " : 0 :");
    }
    EXPECT_EQ(Welt.Disk.Operations, 1);
}

struct Template_Schreiben : TemplateStore_ {};

TEST_F(Template_Schreiben, the_record_byte_for_byte_in_a_fresh_file) {
    EXPECT_TRUE(qvm::Template_Schreiben(kern, 1, 17, "826543210", " 2 : 0 : 17 : "));

    const std::string expected = "17" + Blanks(3) +               //    0 Owner
                                 "826543210" + Blanks(12) +       //    5 Identifier
                                 "2 : 0 : 17 : " + Blanks(2987) + //   26 Template
                                 "0 ";                            // 3026 Spare
    ASSERT_EQ(expected.size(), 3028U);
    EXPECT_EQ(File(TemplateFile), Nulls(249 * 3028) + expected);
}

TEST_F(Template_Schreiben, slot_251_is_record_500_and_is_found) {
    EXPECT_TRUE(qvm::Template_Schreiben(kern, 251, 2, "99", "7 : "));
    EXPECT_EQ(File(TemplateFile).size(), 500U * 3028U);
    EXPECT_EQ(Find("PR99"), "7 :");
}

TEST_F(Template_Schreiben, leaves_the_records_around_it) {
    Put(250, "1", "1 : ");
    Put(251, "2", "2 : ");
    Put(252, "3", "3 : ");
    EXPECT_TRUE(qvm::Template_Schreiben(kern, 2, 2, "22", "22 : "));
    EXPECT_EQ(Find("1"), "1 :");
    EXPECT_EQ(Find("2"), std::nullopt);
    EXPECT_EQ(Find("22"), "22 :");
    EXPECT_EQ(Find("3"), "3 :");
}

TEST_F(Template_Schreiben, cuts_the_template_at_3000_characters) {
    EXPECT_TRUE(qvm::Template_Schreiben(kern, 1, 2, "1", std::string(3001, '7')));
    EXPECT_EQ(File(TemplateFile).substr(249 * 3028 + 26), std::string(3000, '7') + "0 ");
}

TEST_F(Template_Schreiben, refuses_slots_that_do_not_exist) {
    EXPECT_FALSE(qvm::Template_Schreiben(kern, 0, 2, "1", "1 : "));
    EXPECT_FALSE(qvm::Template_Schreiben(kern, 252, 2, "1", "1 : "));
    EXPECT_FALSE(Has(TemplateFile));
}

TEST_F(Template_Schreiben, a_write_that_fails_leaves_the_old_file) {
    Put(250, "1", "1 : ");
    const std::string old = File(TemplateFile);
    Welt.Disk.FailAt = 1;
    EXPECT_FALSE(qvm::Template_Schreiben(kern, 1, 2, "2", "2 : "));
    EXPECT_EQ(File(TemplateFile), old);
    EXPECT_TRUE(qvm::Template_Schreiben(kern, 1, 2, "2", "2 : "));
    EXPECT_EQ(Find("2"), "2 :");
}

// A kill can end a write between two pages of memory; no user has the finger whose template was being written.
TEST_F(Template_Schreiben, the_part_of_a_record_that_a_kill_left_is_not_in_the_way) {
    Put(250, "1", "1 : ");
    Put(251, "2", "2 : ");
    Put(252, "3", "3 : ");
    const std::string before = File(TemplateFile);
    ASSERT_TRUE(qvm::Template_Schreiben(kern, 2, 2, "22", std::string(3000, '7')));
    const std::string after = File(TemplateFile);
    constexpr std::size_t record = 250 * 3028, page = (record / 4096 + 1) * 4096; // within the record
    File(TemplateFile) = after.substr(0, page) + before.substr(page);
    EXPECT_EQ(Find("1"), "1 :");
    EXPECT_EQ(Find("3"), "3 :");
    ASSERT_TRUE(qvm::Template_Schreiben(kern, 2, 2, "23", std::string(3000, '7')));
    EXPECT_EQ(Find("23"), std::string(3000, '7'));
    EXPECT_EQ(Find("22"), std::nullopt);
    EXPECT_EQ(File(TemplateFile).size(), before.size());
}

} // namespace
} // namespace qvm
