// Renders the program's drawing in the sizes that desktops ask for:
//
//   IconsErzeugen DRAWING NAME FOLDER   writes FOLDER/<n>x<n>/apps/NAME.png and FOLDER/scalable/apps/NAME.svg

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

#include <array>
#include <cstdio>

namespace {

constexpr std::array<int, 9> Sizes{16, 22, 24, 32, 48, 64, 128, 256, 512};

bool render(QSvgRenderer& drawing, int size, const QString& path) {
    QImage picture(size, size, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    drawing.render(&painter);
    painter.end();
    return QDir().mkpath(QFileInfo(path).path()) && picture.save(path, "PNG");
}

bool copy(const QString& from, const QString& to) {
    QFile::remove(to);
    return QDir().mkpath(QFileInfo(to).path()) && QFile::copy(from, to);
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 4) {
        std::fputs("IconsErzeugen DRAWING NAME FOLDER\n", stderr);
        return 2;
    }
    const QString source = QString::fromLocal8Bit(argv[1]), name = QString::fromLocal8Bit(argv[2]),
                  folder = QString::fromLocal8Bit(argv[3]);
    QSvgRenderer drawing(source);
    bool good = drawing.isValid();
    for (const int size : Sizes) {
        good = good && render(drawing, size, QStringLiteral("%1/%2x%2/apps/%3.png").arg(folder).arg(size).arg(name));
    }
    good = good && copy(source, folder + QStringLiteral("/scalable/apps/") + name + QStringLiteral(".svg"));
    if (!good) {
        std::fprintf(stderr, "%s cannot be made into icons\n", argv[1]);
    }
    return good ? 0 : 1;
}
