// The report of the history view: the lines that it shows.

#include "F7Fixture.h"
#include "PdfTexte.h"

namespace qvm::test {
namespace {

using ::testing::Contains;
using ::testing::IsEmpty;
using ::testing::Not;

struct F7_Bericht : F7Fixture {
    static constexpr const char* Target = "/out/events.pdf";

    void Save(ReportWay way = ReportWay::Pdf) { view.F7_Bericht_Click(ReportKind::Events, way); }
    std::vector<std::string> Saved() {
        world.DialogAnswers.emplace_back(Target);
        world.Answers.push_back({.Text = std::string("Der Bericht wurde gespeichert: ") + Target});
        Save();
        return PdfTexte(world.Disk.Files[Target]);
    }
};

TEST_F(F7_Bericht, has_every_line_of_the_file_below_its_name) {
    Show("Anna\t05.03.2026\t10:30\tCode\r\nBert\t04.03.2026\t08:15\tE-Key\r\n\t\t\tBattery\r\n");
    const auto texts = Saved();
    for (const char* wanted :
         {"H.HST", "Anna", "05.03.2026", "10:30", "Code", "Bert", "04.03.2026", "08:15", "E-Key", "Battery"}) {
        EXPECT_THAT(texts, Contains(wanted));
    }
}

TEST_F(F7_Bericht, of_a_longer_file_says_how_much_of_it_is_shown) {
    std::string bytes;
    for (int n = 1; n <= 2030; ++n) {
        bytes += "N" + std::to_string(n) + "\t05.03.2026\t10:30\tX\r\n";
    }
    Show(bytes);
    const auto texts = Saved();
    EXPECT_THAT(texts, Contains("N2024"));
    EXPECT_THAT(texts, Not(Contains("N2025")));
    EXPECT_THAT(texts, Contains(testing::HasSubstr("2024 / 2030")));
}

TEST_F(F7_Bericht, is_grey_and_does_nothing_without_a_line) {
    Show("");
    EXPECT_FALSE(view.Berichte.Sichern.Enabled());
    Save();
    EXPECT_THAT(world.Dialogs, IsEmpty());
    Show("Anna\t05.03.2026\t10:30\tCode\r\n");
    EXPECT_TRUE(view.Berichte.Sichern.Enabled());
    world.Answers.push_back({.Text = "*"});
    view.F7_Oeffnen("/q/HIST/missing.HST");
    EXPECT_FALSE(view.Berichte.Sichern.Enabled());
}

TEST_F(F7_Bericht, does_nothing_while_the_search_stands_over_the_window) {
    Show("Anna\t05.03.2026\t10:30\tCode\r\n");
    view.Toolbar1_ButtonClick("Suchen");
    Save();
    Save(ReportWay::Printer);
    EXPECT_THAT(world.Dialogs, IsEmpty());
}

TEST_F(F7_Bericht, that_cannot_be_written_is_told_and_leaves_the_file_as_it_was) {
    Show("Anna\t05.03.2026\t10:30\tCode\r\n");
    world.Disk.Files[Target] = "older";
    world.Disk.FailAt = world.Disk.Operations + 1;
    world.DialogAnswers.emplace_back(Target);
    world.Answers.push_back({.Text = Wort(kern, Word::ReportNotSaved, {Target})});
    Save();
    EXPECT_EQ(world.Disk.Files[Target], "older");
}

} // namespace
} // namespace qvm::test
