// A small book is made, and read with the tools of another PDF library.
#include "Book.h"

#include "Destinations.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QPdfWriter>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>

namespace qvm::manual {
namespace {

class ManualBook : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        static int count = 1;
        static char name[] = "test_manual";
        static char* arguments[] = {name, nullptr};
        qputenv("QT_QPA_PLATFORM", "offscreen");
        static QGuiApplication application(count, arguments);
    }

    QByteArray make(const QString& text) {
        return makeBook(readSource(text), {.Title = "House", .Contents = "What is in it", .Pictures = folder_.path()},
                        Faults);
    }
    QString outputOf(const QString& program, const QStringList& options, const QByteArray& pdf) {
        QFile file(folder_.filePath("book.pdf"));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(pdf) == pdf.size());
        file.close();
        QProcess process;
        process.start(program, QStringList(options) << file.fileName());
        EXPECT_TRUE(process.waitForFinished()) << "poppler-utils is missing";
        EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
        EXPECT_EQ(process.readAllStandardError(), "");
        return QString::fromUtf8(process.readAllStandardOutput());
    }
    /// The text as it is read: of a page, from 1, or of all.
    std::string wordsOf(const QByteArray& pdf, int page = 0) { return linesOf(pdf, page).simplified().toStdString(); }
    QString linesOf(const QByteArray& pdf, int page) {
        QStringList options{"-q"};
        if (page > 0) {
            options << "-f" << QString::number(page) << "-l" << QString::number(page);
        }
        QFile file(folder_.filePath("book.pdf"));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(pdf) == pdf.size());
        file.close();
        QProcess process;
        process.start("pdftotext", options << file.fileName() << "-");
        EXPECT_TRUE(process.waitForFinished()) << "poppler-utils is missing";
        return QString::fromUtf8(process.readAllStandardOutput());
    }
    static std::string withoutDots(const std::string& text) {
        return QString::fromStdString(text).remove(" .").toStdString();
    }
    void paint(const QString& name, int width, int height) {
        QImage picture(width, height, QImage::Format_RGB32);
        picture.fill(Qt::blue);
        EXPECT_TRUE(picture.save(folder_.filePath(name)));
    }

    QStringList Faults;

private:
    QTemporaryDir folder_;
};

const QString Small = "# Doors {#doors}\n\nOne *two* three.\n\n## Cellar {#cellar}\n\n"
                      "| Four | five |\n|---|---|\n| six | seven |\n\n1. eight\n2. nine\n\n# Keys {#keys}\n\nTen.\n";

TEST_F(ManualBook, is_read_in_the_order_in_which_it_was_written) {
    const QByteArray pdf = make(Small);
    ASSERT_EQ(Faults, QStringList());
    EXPECT_EQ(withoutDots(wordsOf(pdf, 1)), "House What is in it Doors 2 Cellar 2 Keys 3 House 1");
    EXPECT_EQ(wordsOf(pdf, 2), "Doors One two three. Cellar Four five six seven 1. eight 2. nine House 2");
    EXPECT_EQ(wordsOf(pdf, 3), "Keys Ten. House 3");
}

TEST_F(ManualBook, keeps_letters_with_marks) {
    const std::string marks = "L’été, où ça naît : « œuf », Ë, ï, ß, „Ö“, ‘ij’";
    EXPECT_EQ(wordsOf(make(QString::fromStdString("# Clés {#keys}\n\n" + marks + '\n')), 2),
              "Clés " + marks + " House 2");
}

TEST_F(ManualBook, does_not_end_a_line_before_a_space_that_does_not_break) {
    QString text = "# Doors {#doors}\n\n";
    for (int n = 0; n < 200; ++n) { // words of many lengths, so that some line ends at each place
        text += QString("a").repeated(1 + n % 7) + QChar(QChar::Nbsp) + "; ";
    }
    const QString lines = linesOf(make(text + '\n'), 2);
    EXPECT_EQ(lines.count(';'), 200);
    EXPECT_GT(lines.count('\n'), 10);
    EXPECT_FALSE(lines.contains("\n;")) << lines.toStdString();
}

TEST_F(ManualBook, has_a_destination_for_each_heading) {
    const QString told = outputOf("pdfinfo", {"-dests"}, make(Small)).simplified();
    EXPECT_TRUE(told.contains(QRegularExpression("2 \\[ XYZ +0 +\\d+ +null *\\] \"cellar\""))) << told.toStdString();
    EXPECT_TRUE(told.contains(QRegularExpression("2 \\[ XYZ +0 +785 +null *\\] \"doors\""))) << told.toStdString();
    EXPECT_TRUE(told.contains(QRegularExpression("3 \\[ XYZ +0 +785 +null *\\] \"keys\""))) << told.toStdString();
}

TEST_F(ManualBook, is_of_a4_and_has_an_outline) {
    const QByteArray pdf = make(Small);
    EXPECT_TRUE(outputOf("pdfinfo", {}, pdf).contains(QRegularExpression("Pages: +3\n[^$]*\\(A4\\)")));
    const QByteArray cellar = "/Title <feff00430065006c006c00610072>";
    EXPECT_EQ(pdf.count(cellar), 1);
    EXPECT_TRUE(pdf.contains("/PageMode /UseOutlines"));
}

TEST_F(ManualBook, counts_the_pages_of_a_long_list_of_chapters) {
    QString text;
    for (int n = 1; n <= 60; ++n) {
        text += QString("# Chapter%1 {#c%1}\n\nText%1.\n\n").arg(n);
    }
    const QByteArray pdf = make(text);
    EXPECT_THAT(withoutDots(wordsOf(pdf, 2)), ::testing::HasSubstr("Chapter59 61 Chapter60 62 House 2"));
    EXPECT_EQ(wordsOf(pdf, 3), "Chapter1 Text1. House 3");
    EXPECT_EQ(wordsOf(pdf, 62), "Chapter60 Text60. House 62");
    EXPECT_TRUE(outputOf("pdfinfo", {"-dests"}, pdf).contains(QRegularExpression("62 \\[[^\\n]*\"c60\"")));
}

TEST_F(ManualBook, shows_pictures_and_names_one_that_is_missing) {
    paint("wide.png", 3000, 400);
    const QString text = "# Doors {#doors}\n\n![wide](wide.png)\n\nBelow.\n";
    const QByteArray pdf = make(text);
    EXPECT_EQ(Faults, QStringList());
    EXPECT_TRUE(pdf.contains("/Width 3000"));
    EXPECT_EQ(wordsOf(pdf, 2), "Doors Below. House 2");
    EXPECT_TRUE(make(text + "\n![other](other.png)\n").isEmpty());
    EXPECT_EQ(Faults, QStringList("no picture other.png"));
}

TEST_F(ManualBook, does_not_part_a_heading_from_its_text) {
    QString text = "# Doors {#doors}\n\n";
    for (int n = 0; n < 60; ++n) { // so that some heading falls on the end of a page
        text += QString("Line.\n\n## Part%1 {#p%1}\n\nText%1.\n\n").arg(n);
    }
    const QByteArray pdf = make(text);
    for (int page = 4; page < 12; ++page) {
        EXPECT_THAT(wordsOf(pdf, page), ::testing::Not(::testing::ContainsRegex("Part[0-9]+ House")));
    }
}

TEST_F(ManualBook, holds_the_words_of_a_paragraph_once_where_a_page_ends_in_it) {
    for (const char* mark : {"", "- "}) {
        QString text = QString("# Doors {#doors}\n\n") + mark;
        for (int n = 0; n < 900; ++n) {
            text += QString("word%1 ").arg(n);
        }
        const QByteArray pdf = make(text + "\n\nBehind.\n");
        std::string all = "Doors";
        for (int page = 2; page <= 3; ++page) {
            all += linesOf(pdf, page).remove("Doors").remove(QString("House\n\n%1").arg(page)).toStdString();
        }
        QStringList words = QString::fromStdString(all).simplified().split(' ');
        words.removeAll(QString::fromUtf8("•"));
        ASSERT_EQ(words.size(), 902);
        for (int n = 0; n < 900; ++n) {
            ASSERT_EQ(words.at(n + 1), QString("word%1").arg(n));
        }
    }
}

TEST_F(ManualBook, keeps_the_cells_of_a_row_apart) {
    constexpr int Rows = 12;
    const auto left = [](int n) { return QString("i").repeated(n) + QString(" must %1").arg(n).repeated(5); };
    const auto right = [](int n) { return QString("o").repeated(n) + QString(" shall %1").arg(n).repeated(5); };
    QString text = "# Doors {#doors}\n\n| Says | Do |\n|---|---|\n";
    for (int n = 1; n <= Rows; ++n) { // lines of many lengths, some as wide as their column
        text += "| **" + left(n) + "** | " + right(n) + "|\n";
    }
    const std::string all = wordsOf(make(text), 2);
    for (int n = 1; n <= Rows; ++n) {
        EXPECT_THAT(all, ::testing::HasSubstr(left(n).toStdString()));
        EXPECT_THAT(all, ::testing::HasSubstr(right(n).toStdString()));
    }
}

TEST_F(ManualBook, refuses_headings_without_a_destination_of_their_own) {
    EXPECT_EQ(make("# Doors\n\n## Keys {#keys}\n\n## Locks {#keys}\n"), "");
    EXPECT_EQ(Faults, QStringList({"no destination: # Doors", "a second time: ## Locks {#keys}"}));
}

TEST_F(ManualBook, is_not_appended_to_a_file_of_another_making) {
    EXPECT_EQ(withDestinations("", {{"a", "A", 1, 0, 0}}), "");
    EXPECT_EQ(withDestinations("%PDF-1.4\nstartxref\n4000\n%%EOF", {{"a", "A", 1, 0, 0}}), "");
    QBuffer file;
    file.open(QIODevice::WriteOnly);
    {
        QPdfWriter paper(&file);
        QPainter painter(&paper);
        EXPECT_TRUE(paper.newPage());
    }
    const QByteArray pdf = file.data();
    EXPECT_EQ(withDestinations(pdf, {{"a", "A", 1, 2, 0}}), "") << "two pages are there";
    EXPECT_EQ(withDestinations(pdf, {}), "");
    EXPECT_EQ(withDestinations(pdf, {{"a", "A", 2, 1, 0}}), "") << "no chapter holds it";
    const QByteArray more = withDestinations(pdf, {{"a", "A", 1, 1, 0}});
    EXPECT_TRUE(more.startsWith(pdf));
    EXPECT_EQ(withDestinations(more, {{"a", "A", 1, 1, 0}}), "");
}

} // namespace
} // namespace qvm::manual
