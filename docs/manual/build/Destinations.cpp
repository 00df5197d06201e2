#include "Destinations.h"

#include <QList>
#include <QRegularExpression>

#include <algorithm>

namespace qvm::manual {
namespace {

/// What has to be known of a file to append to it.
struct Frame {
    qint64 Table = -1; ///< where the table of objects stands
    int Size = 0, Root = 0;
    QByteArray Trailer; ///< entries besides /Size, /Root and /Prev
    QByteArray Catalog; ///< entries
    QList<int> Pages;   ///< numbers of their objects
};

qint64 numberBehind(const QByteArray& text, const QByteArray& name) {
    const qsizetype at = text.lastIndexOf(name);
    return at < 0 ? -1 : text.mid(at + name.size(), 40).simplified().split(' ').first().toLongLong();
}

/// What stands between "<<" and ">>" of an object, which must have no further such pair.
QByteArray entries(const QByteArray& pdf, qint64 table, int object) {
    const qsizetype rows = pdf.indexOf('\n', pdf.indexOf('\n', table) + 1) + 1;
    const qsizetype at = pdf.mid(rows + qsizetype{20} * object, 10).toLongLong();
    const QByteArray head = QByteArray::number(object) + " 0 obj";
    if (object <= 0 || at <= 0 || pdf.mid(at, head.size()) != head) {
        return {};
    }
    const qsizetype begin = pdf.indexOf("<<", at), end = pdf.indexOf(">>", at);
    return begin < 0 || end < begin ? QByteArray() : pdf.mid(begin + 2, end - begin - 2).trimmed();
}

Frame frameOf(const QByteArray& pdf) {
    Frame frame;
    frame.Table = numberBehind(pdf, "startxref");
    if (frame.Table <= 0 || pdf.mid(frame.Table, 4) != "xref") {
        return {};
    }
    const qsizetype trailer = pdf.indexOf("trailer", frame.Table);
    const qsizetype begin = pdf.indexOf("<<", trailer), end = pdf.indexOf(">>", trailer);
    if (trailer < 0 || begin < 0 || end < begin) {
        return {};
    }
    QString text = QString::fromLatin1(pdf.mid(begin + 2, end - begin - 2));
    frame.Size = static_cast<int>(numberBehind(text.toLatin1(), "/Size"));
    frame.Root = static_cast<int>(numberBehind(text.toLatin1(), "/Root"));
    text.remove(QRegularExpression(QStringLiteral("/Size\\s+\\d+|/Root\\s+\\d+\\s+0\\s+R")));
    frame.Trailer = text.trimmed().toLatin1();
    frame.Catalog = entries(pdf, frame.Table, frame.Root);
    const QByteArray pages = entries(pdf, frame.Table, static_cast<int>(numberBehind(frame.Catalog, "/Pages")));
    const qsizetype kids = pages.indexOf("/Kids");
    const qsizetype open = pages.indexOf('[', kids), close = pages.indexOf(']', kids);
    if (kids < 0 || open < 0 || close < open) {
        return {};
    }
    const QList<QByteArray> words = pages.mid(open + 1, close - open - 1).simplified().split(' ');
    for (qsizetype n = 0; n + 2 < words.size(); n += 3) {
        frame.Pages += words.at(n).toInt();
    }
    return frame;
}

QByteArray inPdf(const QString& title) {
    QByteArray bytes("\xFE\xFF");
    for (const QChar character : title) {
        bytes += static_cast<char>(character.unicode() >> 8);
        bytes += static_cast<char>(character.unicode() & 0xFF);
    }
    return '<' + bytes.toHex() + '>';
}

QByteArray reference(int object) {
    return QByteArray::number(object) + " 0 R";
}

QByteArray target(const Frame& frame, const Place& place) {
    return '[' + reference(frame.Pages.at(place.Page)) + " /XYZ 0 " + QByteArray::number(place.Y, 'f', 2) + " null]";
}

/// The entry at `n` of the outline; objects of entries begin at `first`, its root stands before them.
QByteArray outlineEntry(const Frame& frame, const std::vector<Place>& places, std::size_t n, int first) {
    const auto object = [first](std::size_t place) { return reference(first + static_cast<int>(place)); };
    const int level = places[n].Level;
    QByteArray text = "<< /Title " + inPdf(places[n].Title) + " /Dest " + target(frame, places[n]);
    std::size_t parent = n;
    while (parent > 0 && places[parent].Level >= level) {
        --parent;
    }
    text += " /Parent " + (places[parent].Level < level ? object(parent) : reference(first - 1));
    for (std::size_t before = n; before-- > 0 && places[before].Level >= level;) {
        if (places[before].Level == level) {
            text += " /Prev " + object(before);
            break;
        }
    }
    std::size_t last = 0, children = 0, next = n + 1;
    for (; next < places.size() && places[next].Level > level; ++next) {
        if (places[next].Level == level + 1) {
            last = next;
            ++children;
        }
    }
    if (next < places.size() && places[next].Level == level) {
        text += " /Next " + object(next);
    }
    if (children > 0) { // closed: the viewer opens it on demand
        text += " /First " + object(n + 1) + " /Last " + object(last) + " /Count -" + QByteArray::number(children);
    }
    return text + " >>";
}

QByteArray outlineRoot(const std::vector<Place>& places, int first) {
    std::size_t last = 0;
    int chapters = 0;
    for (std::size_t n = 0; n < places.size(); ++n) {
        if (places[n].Level == 1) {
            last = n;
            ++chapters;
        }
    }
    return "<< /Type /Outlines /First " + reference(first) + " /Last " + reference(first + static_cast<int>(last)) +
           " /Count " + QByteArray::number(chapters) + " >>";
}

QByteArray nameTree(const Frame& frame, std::vector<Place> places) {
    std::sort(places.begin(), places.end(), [](const Place& a, const Place& b) { return a.Name < b.Name; });
    QByteArray text = "<< /Names [";
    for (const Place& place : places) {
        text += " (" + place.Name.toLatin1() + ") " + target(frame, place);
    }
    return text + " ] >>";
}

} // namespace

QByteArray withDestinations(const QByteArray& pdf, const std::vector<Place>& places) {
    const Frame frame = frameOf(pdf);
    const bool sound = std::all_of(places.begin(), places.end(), [&frame](const Place& place) {
        return place.Page >= 0 && place.Page < frame.Pages.size();
    });
    if (frame.Catalog.isEmpty() || frame.Size <= 0 || places.empty() || places.front().Level != 1 || !sound) {
        return {};
    }
    const int names = frame.Size, outline = names + 1, first = outline + 1;
    QByteArray result = pdf;
    QByteArray table = "xref\n";
    const auto append = [&result, &table](int object, const QByteArray& text, const QByteArray& section) {
        table += section + QByteArray::number(result.size()).rightJustified(10, '0') + " 00000 n \n";
        result += QByteArray::number(object) + " 0 obj\n" + text + "\nendobj\n";
    };
    const QByteArray count = QByteArray::number(static_cast<qint64>(places.size()) + 2);
    append(frame.Root,
           "<< " + frame.Catalog + " /Names << /Dests " + reference(names) + " >> /Outlines " + reference(outline) +
               " /PageMode /UseOutlines >>",
           QByteArray::number(frame.Root) + " 1\n");
    append(names, nameTree(frame, places), QByteArray::number(names) + ' ' + count + '\n');
    append(outline, outlineRoot(places, first), {});
    for (std::size_t n = 0; n < places.size(); ++n) {
        append(first + static_cast<int>(n), outlineEntry(frame, places, n, first), {});
    }
    const QByteArray start = QByteArray::number(result.size());
    return result + table + "trailer\n<< /Size " + QByteArray::number(first + static_cast<int>(places.size())) +
           " /Root " + reference(frame.Root) + " /Prev " + QByteArray::number(frame.Table) + ' ' + frame.Trailer +
           " >>\nstartxref\n" + start + "\n%%EOF\n";
}

} // namespace qvm::manual
