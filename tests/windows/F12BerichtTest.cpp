// The reports of the lock window: who has which of the locks that it shows, with a clear outcome whatever happens.

#include "F12Fixture.h"
#include "PdfTexte.h"
#include "Seiten.h"

#include <algorithm>

namespace qvm::test {
namespace {

struct F12_Bericht : F12Fixture {
    static constexpr const char* Target = "/out/report.pdf";

    void SetUp() override {
        files.Lock(1, "Tor", "00.0A.10.01", "X X X");
        files.Lock(2, "Keller", "00.0A.10.02", "X X X");
        files.User(1, {.Name = "Bert", .Code = "918273", .Marks = {{1, 'X'}, {2, 'X'}}});
        files.User(2, {.Name = "Anna", .Code = "222222", .Marks = {{2, 'X'}}});
        Open();
    }
    std::vector<std::string> Saved(ReportKind kind) {
        world.DialogAnswers.emplace_back(Target);
        world.Answers.push_back({.Text = std::string("Der Bericht wurde gespeichert: ") + Target});
        Window().F12_Bericht_Click(kind, ReportWay::Pdf);
        return PdfTexte(world.Disk.Files[Target]);
    }
    static bool Has(const std::vector<std::string>& texts, std::string_view wanted) {
        return std::find(texts.begin(), texts.end(), wanted) != texts.end();
    }
    bool Enabled(ReportKind kind) {
        const auto& entries = Window().Berichte.Berichte;
        return std::find_if(entries.begin(), entries.end(),
                            [kind](const ReportEntry& entry) { return entry.Kind == kind; })
            ->Entry.Enabled();
    }
};

TEST_F(F12_Bericht, of_persons_is_about_the_lock_of_the_current_row) {
    Go(1, LockColumn::Serial);
    const auto texts = Saved(ReportKind::Persons);
    EXPECT_TRUE(Has(texts, "Bert"));
    EXPECT_FALSE(Has(texts, "Anna"));
    EXPECT_EQ(world.Disk.Files[Target].find("918273"), std::string::npos);
}

TEST_F(F12_Bericht, calls_a_lock_as_the_window_does_before_it_is_saved) {
    Window().FGK12_Eintragen(2, LockColumn::Name, "Gew\xF6lbe");
    Go(2, LockColumn::Name);
    const auto texts = Saved(ReportKind::Persons);
    EXPECT_TRUE(std::any_of(texts.begin(), texts.end(),
                            [](const std::string& text) { return text.find("Gew\xF6lbe") != std::string::npos; }));
    EXPECT_TRUE(Has(texts, "Anna"));
    EXPECT_TRUE(Has(Saved(ReportKind::People), "1 Tor, 2 Gew\xF6lbe"));
    EXPECT_TRUE(Window().Tabelle.LockDirty);
}

TEST_F(F12_Bericht, is_grey_and_does_nothing_where_no_lock_stands) {
    Go(3, LockColumn::Name);
    EXPECT_TRUE(Enabled(ReportKind::People));
    EXPECT_FALSE(Enabled(ReportKind::Persons));
    Window().F12_Bericht_Click(ReportKind::Persons, ReportWay::Pdf);
    EXPECT_TRUE(world.Dialogs.empty());
}

TEST_F(F12_Bericht, of_users_that_cannot_be_read_is_refused) {
    world.Disk.Files["/q/DAT/BX10X52WUJ9.UBW"].resize(100); // no whole record
    Break(1, true);
    ExpectWord(Word::ReportNoData);
    Window().F12_Bericht_Click(ReportKind::People, ReportWay::Pdf);
    EXPECT_TRUE(world.Dialogs.empty());
}

TEST_F(F12_Bericht, does_nothing_while_another_window_stands_over_this_one) {
    Window().Fenster.Enabled = false;
    Window().F12_Bericht_Click(ReportKind::People, ReportWay::Pdf);
    EXPECT_TRUE(world.Dialogs.empty());
}

TEST_F(F12_Bericht, is_printed_where_there_is_something_to_print_with) {
    Window().F12_Bericht_Click(ReportKind::People, ReportWay::Printer);
    EXPECT_EQ(Window().Berichte.Drucken.Text(), "");
    std::vector<std::string> printed;
    PrintResult result = PrintResult::Printed;
    world.World.PrintPages = [&](const ReportPages& pages) {
        for (const PageText& text : pages.Pages.at(0).Texts) {
            printed.push_back(text.Text);
        }
        return result;
    };
    Window().Texte_Setzen();
    EXPECT_EQ(Window().Berichte.Drucken.Text(), "Drucken");
    Window().F12_Bericht_Click(ReportKind::People, ReportWay::Printer);
    EXPECT_TRUE(Has(printed, "Bert"));
    result = PrintResult::Cancelled;
    Window().F12_Bericht_Click(ReportKind::People, ReportWay::Printer);
    EXPECT_TRUE(world.Shown.empty());
    result = PrintResult::Failed;
    world.Answers.push_back({.Text = "Der Bericht konnte nicht gedruckt werden."});
    Window().F12_Bericht_Click(ReportKind::People, ReportWay::Printer);
    EXPECT_EQ(world.Shown.back().Sign, Icon::Exclamation);
    EXPECT_TRUE(world.Dialogs.empty());
}

} // namespace
} // namespace qvm::test
