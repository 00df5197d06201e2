#include "Book.h"

#include "Destinations.h"

#include <QAbstractTextDocumentLayout>
#include <QBuffer>
#include <QDir>
#include <QImage>
#include <QPageLayout>
#include <QPainter>
#include <QPdfWriter>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextList>
#include <QTextTable>

#include <algorithm>
#include <cmath>

namespace qvm::manual {
namespace {

// All lengths are in 96ths of an inch, the text's own pixels.
constexpr double PageWidth = 210 / 25.4 * 96, PageHeight = 297 / 25.4 * 96, Margin = 20 / 25.4 * 96;
// Whole numbers: the layout cuts off what is less than a 64th, and a page more would add to it.
constexpr double TextWidth = 642, TextHeight = 951;
constexpr double PointsPerPixel = 72.0 / 96;
constexpr int Resolution = 1200, LetterSize = 14;
constexpr double PictureScale = 0.75, HighestPicture = 480;
constexpr double LowestHeading = 0.86; ///< of a page; below it a heading goes to the next one
constexpr double Touching = 0.5;
constexpr int CellPadding = 5, ColumnGap = 14;
constexpr int EntrySize = 13, EntryHeight = 20, ContentsTop = 110;

QFont letters(int size, bool bold = false) {
    QFont font(QStringList{QStringLiteral("Noto Sans"), QStringLiteral("DejaVu Sans")});
    font.setPixelSize(size);
    font.setBold(bold);
    font.setStyleStrategy(QFont::PreferNoShaping); // a ligature is not found by who searches for its letters
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

/// Finds the pictures, and what is missing of them.
class Text : public QTextDocument {
public:
    Text(QString pictures, QStringList& faults) : pictures_(std::move(pictures)), faults_(faults) {}

protected:
    QVariant loadResource(int type, const QUrl& name) override {
        if (type != ImageResource) {
            return {};
        }
        const QImage picture(QDir(pictures_).filePath(name.toString()));
        if (picture.isNull()) {
            faults_ += QStringLiteral("no picture ") + name.toString();
        }
        return picture;
    }

private:
    QString pictures_;
    QStringList& faults_;
};

void fitPictures(QTextDocument& text) {
    for (QTextBlock block = text.begin(); block.isValid(); block = block.next()) {
        for (auto part = block.begin(); !part.atEnd(); ++part) {
            const QTextFragment fragment = part.fragment();
            if (!fragment.charFormat().isImageFormat()) {
                continue;
            }
            QTextImageFormat format = fragment.charFormat().toImageFormat();
            const auto picture = text.resource(QTextDocument::ImageResource, format.name()).value<QImage>();
            if (picture.isNull()) {
                continue;
            }
            const double scale =
                std::min({PictureScale, TextWidth / picture.width(), HighestPicture / picture.height()});
            format.setWidth(picture.width() * scale);
            format.setHeight(picture.height() * scale);
            QTextCursor cursor(&text);
            cursor.setPosition(fragment.position());
            cursor.setPosition(fragment.position() + fragment.length(), QTextCursor::KeepAnchor);
            cursor.setCharFormat(format);
            QTextBlockFormat room = block.blockFormat();
            room.setTopMargin(8);
            room.setBottomMargin(12);
            cursor.setBlockFormat(room);
            break; // the block's parts have changed; a picture stands alone in its own
        }
    }
}

void styleHeading(QTextBlock& block) {
    const int level = block.blockFormat().headingLevel();
    QTextCursor cursor(block);
    QTextBlockFormat format = block.blockFormat();
    format.setTopMargin(level == 1 ? 0 : 18);
    format.setBottomMargin(level == 1 ? 14 : 6);
    if (level == 1 && block.position() > 0) {
        format.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
    }
    cursor.setBlockFormat(format);
    cursor.select(QTextCursor::BlockUnderCursor);
    QTextCharFormat letter; // instead of what Markdown gives, a factor that outweighs all sizes
    letter.setFont(letters(level == 1 ? 26 : level == 2 ? 18 : 15, true));
    cursor.setCharFormat(letter);
}

/// Paragraphs of the running text stand apart. One before a chapter would take its distance along to the next page.
void styleParagraphs(QTextDocument& text) {
    for (QTextBlock block = text.begin(); block.isValid(); block = block.next()) {
        QTextCursor cursor(block);
        if (block.blockFormat().headingLevel() == 0 && block.next().blockFormat().headingLevel() != 1 &&
            cursor.currentTable() == nullptr) {
            QTextBlockFormat format;
            format.setBottomMargin(block.textList() == nullptr ? 7 : 3);
            cursor.mergeBlockFormat(format);
        }
    }
}

/// Columns stand so far apart that a reader of the bare text does not take two cells for one line.
void partColumns(const QTextTable& table) {
    for (int row = 0; row < table.rows(); ++row) {
        for (int column = 0; column < table.columns(); ++column) {
            QTextTableCell cell = table.cellAt(row, column);
            QTextTableCellFormat format = cell.format().toTableCellFormat();
            format.setPadding(CellPadding);
            format.setRightPadding(ColumnGap);
            cell.setFormat(format);
        }
    }
}

void styleTables(QTextDocument& text) {
    for (QTextFrame* frame : text.rootFrame()->childFrames()) {
        if (auto* table = qobject_cast<QTextTable*>(frame)) {
            QTextTableFormat format = table->format();
            format.setWidth(QTextLength(QTextLength::PercentageLength, 100));
            format.setBorderCollapse(true);
            format.setBorder(0.5);
            format.setBorderBrush(QColor(0xB0B0B0));
            format.setCellPadding(CellPadding);
            format.setTopMargin(6);
            format.setBottomMargin(10);
            table->setFormat(format);
            partColumns(*table);
        }
    }
}

std::vector<QTextBlock> headingsOf(const QTextDocument& text) {
    std::vector<QTextBlock> blocks;
    for (QTextBlock block = text.begin(); block.isValid(); block = block.next()) {
        if (block.blockFormat().headingLevel() > 0) {
            blocks.push_back(block);
        }
    }
    return blocks;
}

double topOf(const QTextDocument& text, const QTextBlock& block) {
    // Lengths of the layout are whole 64ths: the top of a page may lie a little before it.
    return text.documentLayout()->blockBoundingRect(block).top() + Touching;
}

/// A change leaves what stands behind it without lines until it is asked for all anew.
void layOutAnew(QTextDocument& text) {
    text.markContentsDirty(0, text.characterCount());
    text.pageCount();
}

/// A heading is not parted from what it stands over.
void keepHeadings(QTextDocument& text) {
    for (const QTextBlock& block : headingsOf(text)) {
        if (std::fmod(topOf(text, block), TextHeight) > LowestHeading * TextHeight) {
            QTextBlockFormat format = block.blockFormat();
            format.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
            QTextCursor(block).setBlockFormat(format);
            layOutAnew(text);
        }
    }
}

/// Where in its block the line stands that begins the next page; 0 if the block ends on its page.
int pageEndIn(const QTextDocument& text, const QTextBlock& block) {
    const double top = topOf(text, block);
    const QTextLayout& lines = *block.layout();
    for (int n = 1; n < lines.lineCount(); ++n) {
        const double before = top + lines.lineAt(n - 1).y();
        if (std::floor((top + lines.lineAt(n).y()) / TextHeight) > std::floor(before / TextHeight)) {
            return lines.lineAt(n).textStart();
        }
    }
    return 0;
}

/// A paragraph becomes two where a page ends in it: of one the layout draws the last line before a page once more on
/// that page, where nobody sees it and whoever copies the text finds it.
void partParagraphs(QTextDocument& text) {
    for (QTextBlock block = text.begin(); block.isValid(); block = block.next()) {
        const int end = block.blockFormat().headingLevel() > 0 ? 0 : pageEndIn(text, block);
        if (end == 0) {
            continue;
        }
        QTextBlockFormat first, rest;
        rest.setTopMargin(0);
        rest.setPageBreakPolicy(QTextFormat::PageBreak_Auto);
        QTextCursor cursor(&text);
        cursor.setPosition(block.position() + end);
        cursor.insertBlock();
        cursor.mergeBlockFormat(rest);
        if (cursor.currentList() != nullptr) {
            cursor.currentList()->remove(cursor.block()); // keeps its distance from the edge, without a mark of its own
        }
        first.setBottomMargin(0);
        cursor.movePosition(QTextCursor::PreviousBlock);
        cursor.mergeBlockFormat(first);
        layOutAnew(text);
    }
}

void layOut(QTextDocument& text, const QString& markdown) {
    text.setDocumentMargin(0);
    text.setUseDesignMetrics(true);
    text.setDefaultFont(letters(LetterSize));
    text.setMarkdown(markdown);
    for (QTextBlock& block : headingsOf(text)) {
        styleHeading(block);
    }
    styleParagraphs(text);
    styleTables(text);
    fitPictures(text);
    text.setPageSize(QSizeF(TextWidth, TextHeight));
    layOutAnew(text);
    keepHeadings(text);
    partParagraphs(text);
}

/// Where each heading stands; pages of the contents are counted already.
std::vector<Place> placesOf(const QTextDocument& text, const Source& source, int before, QStringList& faults) {
    std::vector<Place> places;
    const std::vector<QTextBlock> blocks = headingsOf(text);
    if (blocks.size() != source.Headings.size()) {
        faults += QStringLiteral("a heading is no heading of its own, or inside something else");
        return {};
    }
    for (std::size_t n = 0; n < blocks.size(); ++n) {
        const double top = topOf(text, blocks[n]);
        const int page = static_cast<int>(top / TextHeight);
        const double y = PageHeight - Margin - (top - page * TextHeight);
        places.push_back({source.Headings[n].Destination, blocks[n].text(), source.Headings[n].Level, before + page,
                          y * PointsPerPixel});
    }
    return places;
}

int contentsPages(std::size_t entries) {
    const int first = static_cast<int>((TextHeight - ContentsTop) / EntryHeight);
    const int others = static_cast<int>(TextHeight / EntryHeight);
    const int rest = std::max(0, static_cast<int>(entries) - first);
    return 1 + (rest + others - 1) / others;
}

void drawEntry(QPainter& painter, double top, const Place& place) {
    const bool chapter = place.Level == 1;
    painter.setFont(letters(EntrySize, chapter));
    const QFontMetricsF metrics(painter.font());
    const double left = Margin + (place.Level - 1) * 18;
    const QString number = QString::number(place.Page + 1);
    const QRectF line(left, top, PageWidth - Margin - left, EntryHeight);
    painter.drawText(line, Qt::AlignLeft | Qt::AlignVCenter, place.Title);
    // Dots that are letters lead a reader of the bare text from the title to its number, too.
    const QString dot = QStringLiteral(" .");
    const double room = line.width() - metrics.horizontalAdvance(place.Title + number) - 4;
    const QString dots = dot.repeated(static_cast<int>(room / metrics.horizontalAdvance(dot)));
    painter.drawText(line.adjusted(metrics.horizontalAdvance(place.Title), 0, 0, 0), Qt::AlignLeft | Qt::AlignVCenter,
                     dots);
    painter.drawText(line, Qt::AlignRight | Qt::AlignVCenter, number);
}

void drawFoot(QPainter& painter, const QString& title, int page) {
    painter.setFont(letters(11));
    const QRectF line(Margin, PageHeight - Margin - 10, TextWidth, 20);
    painter.drawText(line, Qt::AlignLeft | Qt::AlignVCenter, title);
    painter.drawText(line, Qt::AlignRight | Qt::AlignVCenter, QString::number(page + 1));
}

void drawContents(QPainter& painter, QPdfWriter& paper, const BookParts& parts, const std::vector<Place>& places) {
    painter.setFont(letters(30, true));
    painter.drawText(QRectF(Margin, Margin, TextWidth, 50), Qt::AlignLeft, parts.Title);
    painter.setFont(letters(18, true));
    painter.drawText(QRectF(Margin, Margin + ContentsTop - 40, TextWidth, 30), Qt::AlignLeft, parts.Contents);
    int page = 0;
    double top = ContentsTop;
    for (const Place& place : places) {
        if (top + EntryHeight > TextHeight) {
            drawFoot(painter, parts.Title, page++);
            paper.newPage();
            top = 0;
        }
        drawEntry(painter, Margin + top, place);
        top += EntryHeight;
    }
    drawFoot(painter, parts.Title, page);
}

void drawPage(QPainter& painter, QTextDocument& text, int page) {
    painter.save();
    painter.translate(Margin, Margin - page * TextHeight);
    QAbstractTextDocumentLayout::PaintContext context;
    // What only touches the page belongs to a neighbour.
    context.clip = QRectF(0, page * TextHeight, TextWidth, TextHeight).adjusted(0, Touching, 0, -Touching);
    context.palette.setColor(QPalette::Text, Qt::black);
    painter.setClipRect(context.clip);
    text.documentLayout()->draw(&painter, context);
    painter.restore();
}

QByteArray drawBook(QTextDocument& text, const BookParts& parts, const std::vector<Place>& places, int before) {
    QBuffer file;
    file.open(QIODevice::WriteOnly);
    QPdfWriter paper(&file);
    paper.setTitle(parts.Title);
    paper.setCreator(QStringLiteral("QVM 7702"));
    paper.setResolution(Resolution);
    paper.setPageLayout(QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Portrait, QMarginsF()));
    QPainter painter(&paper);
    painter.setRenderHint(QPainter::LosslessImageRendering);
    painter.scale(Resolution / 96.0, Resolution / 96.0);
    drawContents(painter, paper, parts, places);
    for (int page = 0; page < text.pageCount(); ++page) {
        paper.newPage();
        drawPage(painter, text, page);
        drawFoot(painter, parts.Title, before + page);
    }
    painter.end();
    return file.data();
}

} // namespace

QByteArray makeBook(const Source& source, const BookParts& parts, QStringList& faults) {
    faults += source.Faults;
    Text text(parts.Pictures, faults);
    layOut(text, source.Markdown);
    const int before = contentsPages(source.Headings.size());
    const std::vector<Place> places = placesOf(text, source, before, faults);
    if (!faults.isEmpty()) {
        faults.removeDuplicates();
        return {};
    }
    const QByteArray pdf = withDestinations(drawBook(text, parts, places, before), places);
    if (pdf.isEmpty()) {
        faults += QStringLiteral("destinations cannot be entered");
    }
    return pdf;
}

} // namespace qvm::manual
