// The history view and its search on the screen.

#include "F7Window.h"

#include "F8Window.h"
#include "GridView.h"
#include "Theme.h"
#include "UiFixture.h"
#include "WidgetChecks.h"

#include <QCheckBox>
#include <QClipboard>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <QToolButton>

namespace qvm::test {
namespace {

struct F7_Window : UiFixture {
    std::unique_ptr<ui::F7Window> window;
    std::unique_ptr<ui::F8Window> search;
    ui::GridView* grid = nullptr;

    /// A lock that opens in row 2, a state, a single row and a closing one, then plain events.
    static std::string Bytes(int events = 60) {
        std::string bytes = "00.0A.10.01\r\nAnna\t05.03.2026\t10:30\t\xD6"
                            "ffnen\r\n\t\t\tZustand: Stufe 1\r\nBert\t05.03.2026\t10:31\tEreignis 4\r\n"
                            "Anna\t05.03.2026\t10:32\t\xD6"
                            "ffnen\r\n";
        for (int n = 0; n < events; ++n) {
            bytes += "Carla " + std::to_string(n) + "\t06.03.2026\t07:00\tCode\r\n";
        }
        return bytes;
    }
    void Open(std::string_view language = "Deutsch", const std::string& bytes = Bytes()) {
        Start(language);
        window = std::make_unique<ui::F7Window>(programm->History->F7);
        search = std::make_unique<ui::F8Window>(programm->History->F8, window.get());
        grid = window->findChild<ui::GridView*>(QStringLiteral("F7.FGV"));
        world.Disk.Files["/q/HIST/H.HST"] = bytes;
        programm->History->F7.F7_Oeffnen("/q/HIST/H.HST");
        Present(*window);
    }
    QToolButton* Button(const char* key) {
        return window->findChild<QToolButton*>(QStringLiteral("F7.Toolbar1.") + QString::fromUtf8(key));
    }
    QPlainTextEdit* Hits() { return window->findChild<QPlainTextEdit*>(QStringLiteral("F7.Text1")); }
    QLineEdit* Wanted() { return search->findChild<QLineEdit*>(QStringLiteral("F8.Text1")); }
    QRadioButton* Option(int n) { return search->findChild<QRadioButton*>(QStringLiteral("F8.Option%1").arg(n)); }
    void OpenSearch() {
        Present(*window);
        QTest::keyClick(window.get(), Qt::Key_F, Qt::ControlModifier);
        Present(*search);
    }
    bool RowInSight(int row) { return !grid->cellRect(row, F7Column::Name).isEmpty(); }
};

TEST_F(F7_Window, shows_the_lines_under_their_headings) {
    Open();
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(window->windowTitle(), QStringLiteral("Historie"));
    EXPECT_EQ(window->windowTitle(), grid->accessibleName());
    const auto& model = grid->gridModel();
    EXPECT_EQ(model.rowCount(), 2024);
    EXPECT_EQ(model.headerData(F7Column::Time, Qt::Horizontal, Qt::DisplayRole).toString(), QStringLiteral("Uhrzeit"));
    EXPECT_EQ(model.index(1, F7Column::Event).data().toString(), QString::fromUtf8("Öffnen"));
    EXPECT_EQ(window->findChild<QLabel*>(QStringLiteral("F7.Meldezeile"))->text(),
              QStringLiteral("H.HST   Zeilen: 65"));
}

TEST_F(F7_Window, aligns_its_columns_as_they_are_meant) {
    Open();
    const auto alignment = [this](int column) {
        return grid->gridModel().index(0, column).data(Qt::TextAlignmentRole).value<Qt::Alignment>() &
               Qt::AlignHorizontal_Mask;
    };
    EXPECT_EQ(alignment(F7Column::Number), Qt::AlignRight);
    EXPECT_EQ(alignment(F7Column::Name), Qt::AlignLeft);
    EXPECT_EQ(alignment(F7Column::Date), Qt::AlignHCenter);
    EXPECT_EQ(alignment(F7Column::Time), Qt::AlignHCenter);
    EXPECT_EQ(alignment(F7Column::Event), Qt::AlignLeft);
    EXPECT_GT(grid->columnWidth(F7Column::Name), grid->columnWidth(F7Column::Date));
    EXPECT_GT(grid->columnWidth(F7Column::Date), grid->columnWidth(F7Column::Number));
}

/// The ground of a cell, at its upper right where no text stands.
QColor Ground(ui::GridView& grid, int row, int column) {
    const QRect cell = grid.cellRect(row, column);
    return grid.grab(cell).toImage().pixelColor(cell.width() - 3, 4);
}

void UseColours(const QColor& ground, const QColor& text) {
    QPalette palette;
    palette.setColor(QPalette::Base, ground);
    palette.setColor(QPalette::Text, text);
    QApplication::setPalette(palette);
}

struct F7_Window_Palette : F7_Window {
    QPalette before = QApplication::palette();
    void TearDown() override { QApplication::setPalette(before); }
};

TEST_F(F7_Window_Palette, paints_bands_and_hits_exactly_and_writes_black_on_them_in_light_and_dark) {
    for (const bool dark : {false, true}) {
        UseColours(dark ? QColor(0x20, 0x20, 0x20) : QColor(Qt::white), dark ? QColor(Qt::white) : QColor(Qt::black));
        Open();
        EXPECT_EQ(Ground(*grid, 2, F7Column::Date), QColor(0xC0, 0xC0, 0xC0)) << dark;
        EXPECT_EQ(Ground(*grid, 3, F7Column::Event), QColor(0xC0, 0xC0, 0xC0)) << dark;
        EXPECT_EQ(ui::isDark(grid->palette()), dark);
        EXPECT_EQ(ui::cellForeground(Black, F7::BandColour, grid->palette()), QColor(Qt::black));
        EXPECT_EQ(ui::cellForeground(Black, F7::HitColour, grid->palette()), QColor(Qt::black));
        programm->History->F7.Toolbar1_ButtonClick("Suchen");
        programm->History->F8.Text1.Text = std::string("anna");
        programm->History->F8.Command1_Click();
        Settle();
        EXPECT_EQ(Ground(*grid, 5, F7Column::Name), QColor(0xFF, 0xFF, 0)) << dark;
        search.reset();
        window.reset();
    }
}

TEST_F(F7_Window, fits_its_texts_in_every_language) {
    for (const std::string_view language : Languages) {
        Open(language);
        OpenSearch();
        EXPECT_EQ(allTextsFit(window.get()), QStringList()) << language;
        EXPECT_EQ(allTextsFit(search.get()), QStringList()) << language;
        EXPECT_EQ(unnamedControls(window.get()), QStringList()) << language;
        EXPECT_EQ(unnamedControls(search.get()), QStringList()) << language;
        search.reset();
        window.reset();
    }
}

TEST_F(F7_Window, tab_reaches_the_keys_the_grid_and_the_hits_in_reading_order) {
    Open();
    OpenSearch();
    QTest::keyClicks(Wanted(), QStringLiteral("anna"));
    QTest::keyClick(Wanted(), Qt::Key_Return);
    Present(*window);
    Button("Öffnen")->setFocus();
    EXPECT_EQ(
        tabOrder(window.get()),
        (QStringList{QString::fromUtf8("F7.Toolbar1.Öffnen"), QStringLiteral("F7.Toolbar1.Suchen"),
                     QStringLiteral("F7.Toolbar1.W95MBX01"), QStringLiteral("F7.FGV"), QStringLiteral("F7.Text1")}));
}

TEST_F(F7_Window, bears_an_icon_on_every_key) {
    Open();
    for (const char* key : {"Öffnen", "Suchen", "W95MBX01"}) {
        ASSERT_NE(Button(key), nullptr) << key;
        EXPECT_FALSE(Button(key)->icon().isNull()) << key;
    }
    EXPECT_EQ(Button("W95MBX01")->toolTip(), QString::fromUtf8("Zurück"));
}

TEST_F(F7_Window, searches_by_keyboard_alone) {
    Open();
    OpenSearch();
    EXPECT_FALSE(window->isEnabled());
    EXPECT_TRUE(search->isEnabled());
    EXPECT_TRUE(Wanted()->hasFocus());
    EXPECT_TRUE(Option(1)->isChecked());
    QTest::keyClicks(Wanted(), QStringLiteral("carla 59"));
    QTest::keyClick(Wanted(), Qt::Key_Return);
    Settle();
    EXPECT_FALSE(search->isVisible());
    EXPECT_TRUE(window->isEnabled());
    EXPECT_EQ(grid->currentIndex().row() + 1, 65);
    EXPECT_TRUE(RowInSight(65));
    EXPECT_TRUE(Hits()->isVisible());
    EXPECT_TRUE(Hits()->toPlainText().startsWith(QStringLiteral("Carla 59 ")));
}

TEST_F(F7_Window, brings_a_first_hit_into_sight_with_rows_behind_it) {
    Open("Deutsch", Bytes(1500));
    programm->History->F7.Toolbar1_ButtonClick("Suchen");
    programm->History->F8.Text1.Text = std::string("carla 795"); // row 801
    programm->History->F8.Command1_Click();
    Settle();
    EXPECT_TRUE(RowInSight(801));
    EXPECT_TRUE(RowInSight(810));
    EXPECT_FALSE(RowInSight(1));
}

TEST_F(F7_Window, searches_the_column_that_was_chosen) {
    Open();
    OpenSearch();
    QTest::mouseClick(Option(4), Qt::LeftButton);
    EXPECT_TRUE(programm->History->F8.Option[3].Checked);
    EXPECT_FALSE(programm->History->F8.Option[0].Checked);
    QTest::keyClicks(Wanted(), QStringLiteral("ereignis 4"));
    QTest::mouseClick(search->findChild<QPushButton*>(QStringLiteral("F8.Command1")), Qt::LeftButton);
    EXPECT_EQ(programm->History->F7.FGV.At(4, F7Column::Event).BackColor, 0xFFFFU);
    OpenSearch();
    EXPECT_TRUE(Option(1)->isChecked());
    EXPECT_FALSE(Option(4)->isChecked());
    EXPECT_EQ(Wanted()->text(), QString());
}

TEST_F(F7_Window, gives_the_keyboard_to_the_hits_and_f3_leads_from_one_to_the_next) {
    Open();
    QToolButton* key = Button("Suchen");
    key->setFocus();
    OpenSearch();
    QTest::keyClicks(Wanted(), QStringLiteral("anna"));
    QTest::keyClick(Wanted(), Qt::Key_Return);
    Present(*window);
    EXPECT_TRUE(grid->hasFocus());
    EXPECT_EQ(grid->currentIndex().row() + 1, 2);
    QTest::keyClick(grid, Qt::Key_F3);
    EXPECT_EQ(grid->currentIndex().row() + 1, 5);
    EXPECT_EQ(grid->currentIndex().column(), F7Column::Name);
    auto* status = window->findChild<QLabel*>(QStringLiteral("F7.Meldezeile"));
    EXPECT_EQ(status->text(), QStringLiteral("H.HST   Zeilen: 65   Treffer: 2 / 2"));
    Hits()->setFocus();
    QTest::keyClick(Hits(), Qt::Key_F3, Qt::ShiftModifier);
    EXPECT_EQ(grid->currentIndex().row() + 1, 2);
    EXPECT_TRUE(grid->hasFocus());
    EXPECT_EQ(status->text(), QStringLiteral("H.HST   Zeilen: 65   Treffer: 1 / 2"));
    EXPECT_EQ(Hits()->toolTip(), QString::fromUtf8("F3: nächster Treffer, Umschalt+F3: vorheriger Treffer"));
    EXPECT_EQ(Hits()->accessibleDescription(), Hits()->toolTip());
}

TEST_F(F7_Window, the_choice_of_the_search_is_entered_at_the_chosen_one) {
    Open();
    OpenSearch();
    for (const int chosen : {3, 2}) {
        Option(chosen)->click();
        for (const auto& [start, key] : {std::pair<QWidget*, Qt::Key>{Wanted(), Qt::Key_Backtab},
                                         {search->findChild<QWidget*>(QStringLiteral("F8.Command1")), Qt::Key_Tab}}) {
            QWidget* at = start;
            at->setFocus();
            for (int steps = 0; steps < 5 && qobject_cast<QRadioButton*>(at) == nullptr; ++steps) {
                QTest::keyClick(at, key, key == Qt::Key_Backtab ? Qt::ShiftModifier : Qt::NoModifier);
                at = search->focusWidget();
            }
            EXPECT_EQ(at, Option(chosen));
        }
    }
    QTest::keyClick(Option(2), Qt::Key_Left);
    EXPECT_EQ(search->focusWidget(), Option(1));
    EXPECT_TRUE(programm->History->F8.Option[0].Checked);
}

TEST_F(F7_Window, searches_for_parts_of_a_text_by_keyboard) {
    Open();
    OpenSearch();
    auto* parts = search->findChild<QCheckBox*>(QStringLiteral("F8.Enthaelt"));
    ASSERT_NE(parts, nullptr);
    EXPECT_EQ(parts->text(), QStringLiteral("Auch Teile des Textes finden"));
    EXPECT_FALSE(parts->isChecked());
    parts->setFocus();
    QTest::keyClick(parts, Qt::Key_Space);
    EXPECT_TRUE(programm->History->F8.Enthaelt.Checked);
    QTest::keyClicks(Wanted(), QStringLiteral("a 5"));
    QTest::keyClick(Wanted(), Qt::Key_Return);
    Settle();
    EXPECT_EQ(grid->currentIndex().row() + 1, 11); // Carla 5
    OpenSearch();
    EXPECT_FALSE(parts->isChecked());
}

TEST_F(F7_Window, escape_closes_the_search_then_the_view) {
    Open();
    OpenSearch();
    QTest::keyClick(Wanted(), Qt::Key_Escape);
    EXPECT_FALSE(search->isVisible());
    EXPECT_TRUE(window->isEnabled());
    QTest::keyClick(grid, Qt::Key_Escape);
    EXPECT_FALSE(window->isVisible());
}

TEST_F(F7_Window, cannot_be_closed_under_its_search) {
    Open();
    OpenSearch();
    window->close();
    EXPECT_TRUE(window->isVisible());
    EXPECT_TRUE(search->isVisible());
}

TEST_F(F7_Window, copies_selected_rows_with_tabs_between_the_columns) {
    Open();
    grid->setFocus();
    QTest::keyClick(grid, Qt::Key_Down);
    QTest::keyClick(grid, Qt::Key_Down, Qt::ShiftModifier);
    QTest::keyClick(grid, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(),
              QString::fromUtf8("Anna\t05.03.2026\t10:30\tÖffnen\n\t\t\tZustand: Stufe 1\n"));
}

TEST_F(F7_Window, copies_the_current_row_where_none_is_selected_and_only_lines_of_the_file_where_all_are) {
    Open("Deutsch", "one\r\ntwo\t2\r\n");
    grid->setFocus();
    QTest::keyClick(grid, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("one\t\t\t\n"));
    QTest::keyClick(grid, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(grid, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("one\t\t\t\ntwo\t2\t\t\n"));
}

TEST_F(F7_Window, a_selected_row_is_told_apart_and_its_band_keeps_its_colour) {
    Open();
    const QColor plain = Ground(*grid, 2, F7Column::Name);
    grid->setFocus();
    grid->selectRow(1);
    Settle();
    EXPECT_NE(Ground(*grid, 2, F7Column::Name), plain);
    EXPECT_EQ(Ground(*grid, 2, F7Column::Date), QColor(0xC0, 0xC0, 0xC0));
}

TEST_F(F7_Window, opens_another_file_by_keyboard) {
    Open();
    world.DialogAnswers.emplace_back("/q/HIST/new.HST");
    world.Disk.Files["/q/HIST/new.HST"] = "new\n";
    QTest::keyClick(window.get(), Qt::Key_O, Qt::ControlModifier);
    Settle();
    EXPECT_EQ(grid->gridModel().index(0, F7Column::Name).data().toString(), QStringLiteral("new"));
    EXPECT_EQ(grid->gridModel().index(1, F7Column::Name).data().toString(), QString());
    EXPECT_TRUE(RowInSight(1));
}

} // namespace
} // namespace qvm::test
