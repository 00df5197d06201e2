// Where lines and pictures of a book stand on the paper: read with the tools of another PDF library, words by their
// boxes, pictures by what is painted.
#include "Book.h"

#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QImage>
#include <QMap>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <algorithm>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace qvm::manual {
namespace {

// In points. What a page has for text ends above its foot.
constexpr double Top = 56, Bottom = 842 - 55, Left = 56, Right = 595 - 56;
constexpr double Foot = 842 - 70; ///< below it nothing but the foot may begin
constexpr int Dots = 144;         ///< of an inch, in the pictures of pages
constexpr double DotsOfPoint = Dots / 72.0;

struct Word {
    std::string Text;
    int Page = 0;
    QRectF Box{}; ///< in points from the page's corner
};

class ManualLayout : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        static int count = 1;
        static char name[] = "test_manual";
        static char* arguments[] = {name, nullptr};
        qputenv("QT_QPA_PLATFORM", "offscreen");
        if (QCoreApplication::instance() == nullptr) {
            static QGuiApplication application(count, arguments);
        }
    }

    void Make(const QString& text) {
        QStringList faults;
        const QByteArray pdf =
            makeBook(readSource(text), {.Title = "House", .Contents = "In it", .Pictures = At("")}, faults);
        EXPECT_EQ(faults, QStringList());
        QFile file(At("book.pdf"));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(pdf) == pdf.size());
        file.close();
        ReadWords();
        Run("pdftoppm", {"-r", QString::number(Dots), At("book.pdf"), At("page")});
        const QStringList names = QDir(At("")).entryList({"page-*.ppm"}, QDir::Files, QDir::Name);
        for (const QString& name : names) {
            Pages.push_back(QImage(At(name)).convertToFormat(QImage::Format_RGB32));
        }
    }
    void Paint(const QString& name, int width, int height) {
        QImage picture(width, height, QImage::Format_RGB32);
        picture.fill(Qt::blue);
        EXPECT_TRUE(picture.save(At(name)));
    }
    /// How often the word stands in the book.
    int Count(const std::string& text) const {
        return static_cast<int>(
            std::count_if(Words.begin(), Words.end(), [&text](const Word& word) { return word.Text == text; }));
    }
    void EachWordIsWithinItsPage() const {
        for (const Word& word : Words) {
            const bool foot = word.Box.top() > Foot && (word.Text == "House" || word.Text == std::to_string(word.Page));
            EXPECT_TRUE(foot || (word.Box.top() >= Top - 1 && word.Box.bottom() <= Bottom)) << Said(word);
            EXPECT_TRUE(word.Box.left() >= Left && word.Box.right() <= Right) << Said(word);
        }
    }
    /// A capital or a digit is half as high as a line: of a line that is cut less is to be seen.
    void EachWordIsSeenWhole() const {
        static const QRegularExpression high("[A-Z0-9]");
        for (const Word& word : Words) {
            if (QString::fromStdString(word.Text).contains(high)) {
                EXPECT_GE(InkRows(word), 0.45 * word.Box.height() * DotsOfPoint) << Said(word);
            }
        }
    }
    void NoTwoWordsOverlap() const {
        for (std::size_t n = 0; n < Words.size(); ++n) {
            for (std::size_t other = n + 1; other < Words.size() && Words[other].Page == Words[n].Page; ++other) {
                const QRectF both = Words[n].Box & Words[other].Box;
                EXPECT_TRUE(both.height() < 4 || both.width() < 1) << Said(Words[n]) << " and " << Said(Words[other]);
            }
        }
    }
    void EveryPageIsSound() const {
        EachWordIsWithinItsPage();
        EachWordIsSeenWhole();
        NoTwoWordsOverlap();
    }
    /// As many pictures as there are, each whole and with nothing on it or under it.
    void EachPictureIsWholeAndAlone(int wanted, QSizeF points) const {
        int found = 0;
        for (std::size_t page = 0; page < Pages.size(); ++page) {
            for (const QRect& place : PicturesOf(Pages[page])) {
                ++found;
                EXPECT_NEAR(place.width(), points.width() * DotsOfPoint, 2) << "page " << page + 1;
                EXPECT_NEAR(place.height(), points.height() * DotsOfPoint, 2) << "page " << page + 1;
                for (const Word& word : Words) {
                    const QRectF box(word.Box.topLeft() * DotsOfPoint, word.Box.size() * DotsOfPoint);
                    EXPECT_FALSE(word.Page == static_cast<int>(page) + 1 && box.intersects(place)) << Said(word);
                }
            }
        }
        EXPECT_EQ(found, wanted);
    }

    std::vector<Word> Words;
    std::vector<QImage> Pages;

private:
    QString At(const QString& name) const { return folder_.filePath(name); }
    static std::string Said(const Word& word) {
        return word.Text + " on page " + std::to_string(word.Page) + " at " + std::to_string(word.Box.top());
    }
    static QByteArray Run(const QString& program, const QStringList& options) {
        QProcess process;
        process.start(program, options);
        EXPECT_TRUE(process.waitForFinished(120000)) << "poppler-utils is missing";
        EXPECT_EQ(process.exitCode(), 0);
        return process.readAllStandardOutput();
    }
    void ReadWords() {
        static const QRegularExpression word("<word xMin=\"([\\d.]+)\" yMin=\"([\\d.]+)\" xMax=\"([\\d.]+)\" "
                                             "yMax=\"([\\d.]+)\">(.*?)</word>");
        int page = 0;
        const QString told = QString::fromUtf8(Run("pdftotext", {"-bbox", At("book.pdf"), "-"}));
        for (const QString& line : told.split('\n')) {
            page += line.contains("<page ") ? 1 : 0;
            const QRegularExpressionMatch found = word.match(line);
            if (found.hasMatch()) {
                const auto number = [&found](int n) { return found.captured(n).toDouble(); };
                Words.push_back({found.captured(5).toStdString(), page,
                                 QRectF(QPointF(number(1), number(2)), QPointF(number(3), number(4)))});
            }
        }
    }
    int InkRows(const Word& word) const {
        const QImage& page = Pages.at(static_cast<std::size_t>(word.Page - 1));
        const QRect box = QRectF(word.Box.topLeft() * DotsOfPoint, word.Box.size() * DotsOfPoint).toRect();
        int rows = 0;
        for (int y = box.top(); y <= box.bottom(); ++y) {
            bool ink = false;
            for (int x = box.left(); x <= box.right() && !ink; ++x) {
                ink = page.rect().contains(x, y) && page.pixelColor(x, y).lightness() < 128;
            }
            rows += ink ? 1 : 0;
        }
        return rows;
    }
    /// Rows that hold the colour, one below the other, make a picture.
    static std::vector<QRect> PicturesOf(const QImage& page) {
        std::vector<QRect> places;
        int begins = -1;
        QRect row;
        for (int y = 0; y <= page.height(); ++y) {
            const QRect blue = y < page.height() ? BlueOf(page, y) : QRect();
            if (blue.isValid() && begins < 0) {
                begins = y;
                row = blue;
            } else if (begins >= 0 && blue.isValid()) {
                EXPECT_NEAR(blue.width(), row.width(), 2) << "something stands in a picture";
            } else if (begins >= 0) {
                places.emplace_back(row.left(), begins, row.width(), y - begins);
                begins = -1;
            }
        }
        return places;
    }
    /// From the first to the last blue point of a row; with a gap between them it is not valid.
    static QRect BlueOf(const QImage& page, int y) {
        const auto isBlue = [&](int x) {
            const QColor colour = page.pixelColor(x, y);
            return colour.blue() > 200 && colour.red() < 90 && colour.green() < 90;
        };
        int first = 0;
        while (first < page.width() && !isBlue(first)) {
            ++first;
        }
        int last = first;
        while (last < page.width() && isBlue(last)) {
            ++last;
        }
        return {first, y, last - first, last > first ? 1 : 0};
    }

    QTemporaryDir folder_;
};

TEST_F(ManualLayout, shows_each_line_and_picture_whole_and_once_however_many_there_are) {
    constexpr int Parts = 30;
    Paint("tall.png", 500, 640);
    QString text = "# Doors {#doors}\n\n";
    for (int n = 0; n < Parts; ++n) {
        text += QString("Before%1.\n\n![tall](tall.png)\n\n- Item%1\n\nBehind%1.\n\n## Part%1 {#p%1}\n\nText%1.\n\n")
                    .arg(n);
    }
    Make(text);
    for (int n = 0; n < Parts; ++n) {
        const std::string number = std::to_string(n);
        EXPECT_EQ(Count("Item" + number), 1) << number;
        for (const char* word : {"Before", "Behind", "Text"}) {
            EXPECT_EQ(Count(word + number + "."), 1) << word << number;
        }
        EXPECT_EQ(Count("Part" + number), 2) << number << ": in the list of chapters and as a heading";
    }
    EveryPageIsSound();
    // 480 96ths of an inch are the highest that a picture gets: 360 points, and 500/640 of it wide.
    EachPictureIsWholeAndAlone(Parts, {281.25, 360});
}

TEST_F(ManualLayout, shows_each_line_wherever_a_page_ends_in_paragraphs_lists_and_tables) {
    constexpr int Parts = 60;
    Paint("flat.png", 400, 80);
    QString text = "# Doors {#doors}\n\n";
    std::vector<std::string> all;
    for (int n = 0; n < Parts; ++n) {
        for (int word = 0; word < 7 * (n % 13); ++word) {
            all.push_back("Word" + std::to_string(n) + "x" + std::to_string(word));
            text += QString::fromStdString(all.back()) + ' ';
        }
        text += QString("\n\n- Item%1\n\n| Head%1 | Other%1 |\n|---|---|\n| Cell%1 | Next%1 |\n\n").arg(n);
        text += n % 4 == 0 ? "![flat](flat.png)\n\n" : "";
        for (const char* word : {"Item", "Head", "Other", "Cell", "Next"}) {
            all.push_back(word + std::to_string(n));
        }
    }
    Make(text);
    for (const std::string& word : all) {
        EXPECT_EQ(Count(word), 1) << word;
    }
    EveryPageIsSound();
    EachPictureIsWholeAndAlone(Parts / 4, {225, 45});
}

} // namespace
} // namespace qvm::manual
