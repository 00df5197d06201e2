// What of a grid is painted, and where its texts stand.

#include "GridHeader.h"
#include "GridView.h"
#include "LineCache.h"
#include "OverlayList.h"
#include "Theme.h"
#include "UiFixture.h"

#include <QHeaderView>
#include <QImage>
#include <QPaintEvent>
#include <QPainter>
#include <QTest>

namespace qvm::test {
namespace {

/// What a widget was asked to paint.
class Painting : public QObject {
public:
    explicit Painting(QWidget* on) : QObject(on) { on->installEventFilter(this); }
    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        if (event->type() == QEvent::Paint) {
            Region += static_cast<QPaintEvent*>(event)->region();
        }
        return false;
    }
    QRegion Region;
};

struct Grid_Painting : ::testing::Test {
    Grid grid{41, 12};
    GridSelection cells{grid, GridSelection::Unit::Cells};
    QWidget window;
    ui::GridView view{grid, &window};

    Grid_Painting() {
        view.setBlocks(cells);
        view.setGeometry(0, 0, 600, 500);
        window.resize(600, 500);
        Present(window);
        view.setFocus();
        view.setCurrentCell(3, 2);
        QApplication::processEvents();
    }
    /// The rows of the grid that a key has painted anew.
    std::vector<int> PaintedBy(Qt::Key key, Qt::KeyboardModifiers held = {}) {
        Painting painting(view.viewport());
        QTest::keyClick(&view, key, held);
        for (int n = 0; n < 3; ++n) {
            QApplication::processEvents();
        }
        std::vector<int> rows;
        for (int row = 1; row <= 10; ++row) {
            const QModelIndex first = view.gridModel().cellIndex(row, 0);
            if (painting.Region.intersects(view.visualRect(first) | view.visualRect(first.siblingAtColumn(11)))) {
                rows.push_back(row);
            }
        }
        view.viewport()->removeEventFilter(&painting);
        return rows;
    }
};

TEST_F(Grid_Painting, is_that_of_two_rows_at_an_arrow_key) {
    EXPECT_THAT(PaintedBy(Qt::Key_Down), ::testing::ElementsAre(3, 4));
    EXPECT_THAT(PaintedBy(Qt::Key_Right), ::testing::ElementsAre(4));
}

TEST_F(Grid_Painting, takes_in_a_block_that_begins_and_one_that_falls_together) {
    EXPECT_THAT(PaintedBy(Qt::Key_Down, Qt::ShiftModifier), ::testing::ElementsAre(3, 4));
    EXPECT_THAT(PaintedBy(Qt::Key_Down, Qt::ShiftModifier), ::testing::ElementsAre(4, 5));
    EXPECT_THAT(PaintedBy(Qt::Key_Up), ::testing::ElementsAre(3, 4, 5));
}

TEST(Grid_Header_Painting, keeps_the_letters_of_an_upright_text_apart) {
    Grid grid(5, 3);
    grid.SetText(0, 1, "g\ng\ng\ng");
    QWidget window;
    ui::GridView view(grid, &window, 2);
    view.setUprightHeight(1000);
    view.setGeometry(0, 0, 400, 300);
    window.resize(400, 300);
    Present(window);
    QHeaderView& header = *view.horizontalHeader();
    const int upright = ui::GridHeader::uprightHeight(1000, header.fontMetrics());
    const QRect room(header.sectionViewportPosition(1) + 2, 0, header.sectionSize(1) - 4, upright);
    const QImage image = header.viewport()->grab(room).toImage();
    const QRgb ground = image.pixel(0, 0);
    int letters = 0;
    bool inside = false;
    for (int y = 0; y < image.height(); ++y) {
        bool ink = false;
        for (int x = 0; x < image.width(); ++x) {
            ink = ink || image.pixel(x, y) != ground;
        }
        letters += ink && !inside ? 1 : 0;
        inside = ink;
    }
    EXPECT_EQ(letters, 4);
    EXPECT_FALSE(inside) << "nor does the last one touch the row of texts";
}

TEST_F(Grid_Painting, sets_a_list_off_from_the_cells_that_it_lies_over_on_any_palette) {
    QPalette palette = view.palette();
    palette.setColor(QPalette::Base, Qt::black);
    palette.setColor(QPalette::Window, QColor(0x10, 0x10, 0x10));
    for (const QPalette::ColorRole role : {QPalette::Text, QPalette::WindowText}) {
        palette.setColor(role, Qt::white);
    }
    view.setPalette(palette);
    ListBox model;
    model.Visible = false;
    model.Entries = std::vector<std::string>{"one", "two"};
    ui::OverlayList list(model, view, QStringLiteral("T.List"));
    model.Visible = true;
    QApplication::processEvents();
    const QImage image = list.grab().toImage();
    EXPECT_GE(ui::contrast(image.pixelColor(0, image.height() / 2), Qt::black), 3);
    EXPECT_GE(ui::contrast(image.pixelColor(image.width() / 2, image.height() - 1), Qt::black), 3);
}

TEST_F(Grid_Painting, frames_the_current_cell_so_that_it_is_seen_on_any_palette) {
    QPalette palette = view.palette();
    palette.setColor(QPalette::Base, Qt::black);
    palette.setColor(QPalette::Text, Qt::white);
    palette.setColor(QPalette::Highlight, QColor(0, 0, 60));
    view.setPalette(palette);
    QApplication::processEvents();
    const QImage image = view.viewport()->grab().toImage();
    const QRect cell = view.visualRect(view.gridModel().cellIndex(3, 2));
    EXPECT_GE(ui::contrast(image.pixelColor(cell.left(), cell.center().y()), image.pixelColor(cell.center())), 2.9);
}

/// The box of what is not white.
QRect inked(const QImage& image) {
    QRegion region;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixel(x, y) != 0xFFFFFFFF) {
                region += QRect(x, y, 1, 1);
            }
        }
    }
    return region.boundingRect();
}

TEST(Line_Cache, paints_a_text_where_the_painter_itself_would) {
    ui::LineCache lines;
    const QRect room(20, 10, 160, 30);
    for (const Qt::Alignment across : {Qt::AlignLeft, Qt::AlignHCenter, Qt::AlignRight}) {
        for (const QString& text : {QStringLiteral("Text"), QStringLiteral("X"), QString(60, QLatin1Char('m'))}) {
            QImage cached(200, 50, QImage::Format_RGB32);
            cached.fill(Qt::white);
            QImage plain = cached;
            QPainter onCached(&cached);
            lines.paint(&onCached, room, across | Qt::AlignVCenter, text);
            onCached.end();
            QPainter onPlain(&plain);
            onPlain.drawText(room, static_cast<int>(across | Qt::AlignVCenter) | Qt::TextSingleLine,
                             onPlain.fontMetrics().elidedText(text, Qt::ElideRight, room.width()));
            onPlain.end();
            const QRect a = inked(cached);
            const QRect b = inked(plain);
            EXPECT_FALSE(a.isEmpty());
            EXPECT_LE((a.topLeft() - b.topLeft()).manhattanLength(), 2) << text.toStdString();
            EXPECT_LE((a.bottomRight() - b.bottomRight()).manhattanLength(), 2) << text.toStdString();
        }
    }
}

} // namespace
} // namespace qvm::test
