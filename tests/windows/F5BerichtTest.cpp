// The reports of the user window: as it shows the users, saved as PDF, with a clear outcome whatever happens.

#include "F5Fixture.h"
#include "PdfTexte.h"

#include <algorithm>

namespace qvm::test {
namespace {

struct F5_Bericht : F5Fixture {
    static constexpr const char* File = "/out/report.pdf";
    static constexpr const char* Slots = "/q/DAT/TX33Y98BSG9.TBW";

    void SetUp() override {
        files.Lock(1, "Tor", SerialS);
        files.Lock(2, "Keller", SerialS);
        files.Group(3, "Putzdienst", "X---------", "PB_3");
        files.User(1, {.Name = "Bert", .Code = "918273", .Group = "PB_3", .Marks = {{1, 'X'}, {2, 'X'}}});
        files.User(2, {.Name = "Anna", .Code = "222222", .KeyId = "1 : 2 : 3 : 4", .Marks = {{2, 'X'}}});
        Open();
    }
    bool Enabled(ReportKind kind) {
        const auto& entries = Window().Berichte.Berichte;
        return std::find_if(entries.begin(), entries.end(),
                            [kind](const ReportEntry& entry) { return entry.Kind == kind; })
            ->Entry.Enabled();
    }
    void ExpectSaved() {
        world.DialogAnswers.emplace_back(File);
        world.Answers.push_back({.Text = std::string("Der Bericht wurde gespeichert: ") + File});
    }
    void ExpectNoData() {
        world.Answers.push_back({.Text = "Der Bericht ist nicht m\xF6glich, weil Daten daf\xFCr nicht gelesen werden "
                                         "konnten oder besch\xE4"
                                         "digt sind."});
    }
    /// Saves a report, and gives its texts.
    std::vector<std::string> Saved(ReportKind kind) {
        ExpectSaved();
        Window().F5_Bericht_Click(kind, ReportWay::Pdf);
        return PdfTexte(world.Disk.Files[File]);
    }
    static bool Has(const std::vector<std::string>& texts, std::string_view wanted) {
        return std::find(texts.begin(), texts.end(), wanted) != texts.end();
    }
};

TEST_F(F5_Bericht, of_people_has_the_table_as_it_is_shown_and_no_code) {
    Enter(4, UserColumn::Name, "Cora"); // not saved
    Enter(3, UserColumn::Name, "Anni");
    const auto texts = Saved(ReportKind::People);
    EXPECT_EQ(world.Dialogs.back().Title, "Benutzer und ihre Schl\xF6sser");
    EXPECT_EQ(world.Dialogs.back().Filter, "PDF (*.pdf)|*.pdf|");
    EXPECT_FALSE(world.Dialogs.back().Appends);
    for (const char* wanted : {"Benutzer und ihre Schl\xF6sser", "Bert", "Anni", "Cora", "E-Key", "1 Tor, 2 Keller"}) {
        EXPECT_TRUE(Has(texts, wanted)) << wanted;
    }
    EXPECT_FALSE(Has(texts, "Anna"));
    EXPECT_EQ(world.Disk.Files[File].find("918273"), std::string::npos);
    EXPECT_EQ(world.Shown.back().Sign, Icon::Information);
    EXPECT_TRUE(Window().Tabelle.UserDirty);
}

TEST_F(F5_Bericht, of_doors_is_about_the_user_of_the_current_row) {
    Go(3, UserColumn::Name);
    const auto texts = Saved(ReportKind::Doors);
    EXPECT_TRUE(Has(texts, "Benutzer 2: Anna"));
    EXPECT_TRUE(Has(texts, "Keller"));
    EXPECT_FALSE(Has(texts, "Tor"));
}

TEST_F(F5_Bericht, a_receipt_is_about_the_user_of_the_current_row) {
    Go(3, UserGrid::ColumnOf(1));
    const auto texts = Saved(ReportKind::Receipt);
    EXPECT_TRUE(Has(texts, "Empfangsbest\xE4tigung"));
    EXPECT_TRUE(Has(texts, "Benutzer 2: Anna"));
    EXPECT_TRUE(Has(texts, "Unterschrift"));
}

TEST_F(F5_Bericht, is_grey_and_does_nothing_where_no_user_stands) {
    EXPECT_TRUE(Enabled(ReportKind::Doors));
    Go(4, UserColumn::Name);
    EXPECT_TRUE(Enabled(ReportKind::People));
    EXPECT_FALSE(Enabled(ReportKind::Doors));
    EXPECT_FALSE(Enabled(ReportKind::Receipt));
    Window().F5_Bericht_Click(ReportKind::Doors, ReportWay::Pdf);
    Window().F5_Bericht_Click(ReportKind::Receipt, ReportWay::Pdf);
    EXPECT_TRUE(world.Dialogs.empty());
    Enter(4, UserColumn::Name, "Cora");
    Go(4, UserColumn::Name);
    EXPECT_TRUE(Enabled(ReportKind::Receipt));
}

TEST_F(F5_Bericht, of_an_empty_table_is_grey_until_somebody_stands_in_it) {
    world.Answers.push_back({.Text = "L232", .Reply = Answer::Yes});
    Press("Neu");
    EXPECT_FALSE(Enabled(ReportKind::People));
    Window().F5_Bericht_Click(ReportKind::People, ReportWay::Pdf);
    EXPECT_TRUE(world.Dialogs.empty());
    Window().F5_Undo_Click();
    EXPECT_TRUE(Enabled(ReportKind::People));
}

TEST_F(F5_Bericht, a_cancelled_dialog_writes_nothing_and_says_nothing) {
    world.DialogAnswers.emplace_back(std::nullopt);
    Window().F5_Bericht_Click(ReportKind::People, ReportWay::Pdf);
    EXPECT_TRUE(world.Shown.empty());
    EXPECT_FALSE(world.Disk.Files.contains(File));
}

TEST_F(F5_Bericht, a_file_that_cannot_be_written_is_told_and_stays_as_it_was) {
    world.Disk.Files[File] = "older";
    world.DialogAnswers.emplace_back(File);
    world.Answers.push_back(
        {.Text = std::string("Der Bericht konnte nicht gespeichert werden. Die Datei ist, wie sie war: ") + File});
    Break(1, true);
    Window().F5_Bericht_Click(ReportKind::People, ReportWay::Pdf);
    EXPECT_EQ(world.Disk.Files[File], "older");
    EXPECT_EQ(world.Shown.back().Sign, Icon::Exclamation);
    world.Disk.FailFromThere = false;
    EXPECT_TRUE(Has(Saved(ReportKind::People), "Bert"));
}

TEST_F(F5_Bericht, of_an_incomplete_table_is_refused) {
    Window().Tabelle.LoadFailed = true;
    for (const ReportKind kind : {ReportKind::People, ReportKind::Doors, ReportKind::Receipt}) {
        ExpectNoData();
        Window().F5_Bericht_Click(kind, ReportWay::Pdf);
    }
    EXPECT_TRUE(world.Dialogs.empty());
}

TEST_F(F5_Bericht, a_receipt_with_damaged_times_is_refused_and_the_others_are_not) {
    world.Disk.Files[Slots] = "\x7F"
                              "07:0018:00"; // no such day
    ExpectNoData();
    Window().F5_Bericht_Click(ReportKind::Receipt, ReportWay::Pdf);
    Break(1, false); // nor can it be read
    ExpectNoData();
    Window().F5_Bericht_Click(ReportKind::Receipt, ReportWay::Pdf);
    EXPECT_TRUE(world.Dialogs.empty());
    EXPECT_TRUE(Has(Saved(ReportKind::Doors), "Tor"));
}

TEST_F(F5_Bericht, does_nothing_while_the_window_waits_for_a_device) {
    Window().Fenster.Enabled = false;
    Window().F5_Bericht_Click(ReportKind::People, ReportWay::Pdf);
    EXPECT_TRUE(world.Dialogs.empty());
}

} // namespace
} // namespace qvm::test
