#include "Bilderpruefung.h"

#include <QDir>
#include <QFileInfo>
#include <QImage>
#include <QSet>

#include <algorithm>
#include <cstdlib>
#include <iterator>

namespace qvm::test {
namespace {

constexpr int FewestColours = 24;         ///< smoothed letters alone have more
constexpr int SmallestSide = 20;          ///< of a menu with one entry
constexpr QSize WidestWindow{2520, 1980}; ///< nine tenths of the display that docs/screenshots.sh makes

const char* const Windows[] = {"F1",
                               "F2",
                               "F2-red",
                               "F2-yellow",
                               "F2-file",
                               "F2-calendars",
                               "F2-clocks",
                               "F3",
                               "F3-month",
                               "F3-list",
                               "F3-delete",
                               "F4",
                               "F4-info",
                               "F4-slots",
                               "F4-days",
                               "F4-time",
                               "F4-delete",
                               "F41",
                               "F41-info",
                               "F41-slots",
                               "F5",
                               "F5-block",
                               "F5-editor",
                               "F5-list",
                               "F5-rights",
                               "F5-scrolled",
                               "F5-extras",
                               "F7-extras",
                               "F5-marking",
                               "F5-reports",
                               "F5-delete",
                               "F5-key",
                               "F5-learn",
                               "F5-search",
                               "F5-finger",
                               "F51",
                               "F51-error",
                               "F51-done",
                               "F6",
                               "F6-editor",
                               "F6-manual",
                               "F60",
                               "F60-object",
                               "F7",
                               "F7-found",
                               "F8",
                               "F9",
                               "F9-cancelled",
                               "F9-finished",
                               "F9-list",
                               "F10",
                               "F10-month",
                               "F11",
                               "F11-list",
                               "F11-month",
                               "F12",
                               "F12-block",
                               "F12-editor",
                               "F12-list",
                               "F12-priority",
                               "F12-serial",
                               "F12-extras",
                               "F12-reports",
                               "F12-delete",
                               "F12-read",
                               "F13",
                               "F13-marked",
                               "F14",
                               "F15",
                               "F16",
                               "F17",
                               "F18",
                               "F19",
                               "F19-none",
                               "F20",
                               "F20-editor",
                               "F20-serial",
                               "F20-searching",
                               "F20-delete",
                               "F20-read",
                               "F20-scan",
                               "F20-moved",
                               "F91",
                               "F91-running",
                               "F92",
                               "MessageBox",
                               "MessageBox-two-lines",
                               "MessageBox-about"};
/// The names of the languages, and of keys and transponders, are the same in each.
const char* const WithoutWords[] = {"F15", "F5-learn"};

/// A size and a palette in which the pictures are taken.
struct Look {
    int Percent;
    const char* Palette;
    bool Dark;
};

constexpr Look Looks[] = {{100, "breeze-light", false}, {100, "breeze-dark", true},   {100, "adwaita-dark", true},
                          {100, "high-contrast", true}, {200, "breeze-light", false}, {200, "breeze-dark", true}};

QString pathOf(const QString& folder, const char* language, const Look& look, const QString& window) {
    return QStringLiteral("%1/%2-%3-%4/%5.png")
        .arg(folder, QLatin1String(language), QString::number(look.Percent), QLatin1String(look.Palette), window);
}

bool hasColours(const QImage& image, int fewest) {
    QSet<QRgb> colours;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            colours.insert(image.pixel(x, y));
            if (colours.size() >= fewest) {
                return true;
            }
        }
    }
    return false;
}

int brightnessOf(const QImage& image) {
    const QImage one =
        image.convertToFormat(QImage::Format_RGB32).scaled(1, 1, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    return qGray(one.pixel(0, 0));
}

void checkOne(const QString& folder, const char* language, const Look& look, const QString& window,
              QStringList& faults) {
    const QString path = pathOf(folder, language, look, window);
    const QImage image(path);
    if (image.width() < SmallestSide || image.height() < SmallestSide) {
        faults += path + QStringLiteral(": missing or too small");
        return;
    }
    if (!hasColours(image, FewestColours)) {
        faults += path + QStringLiteral(": empty");
    }
    if ((brightnessOf(image) < 128) != look.Dark) {
        faults += path + QStringLiteral(": not of its palette");
    }
    const QImage plain(pathOf(folder, language, {100, look.Palette, look.Dark}, window));
    const QSize expected = (plain.size() * look.Percent / 100).boundedTo(WidestWindow);
    // Text of twice the size is not to the pixel twice as wide.
    if (std::abs(image.width() - expected.width()) > expected.width() / 8 ||
        std::abs(image.height() - expected.height()) > expected.height() / 8) {
        faults += path + QStringLiteral(": not of the expected size");
    }
}

/// The windows that must be there, and those that are there besides.
QStringList windowsOf(const QString& folder) {
    QStringList windows;
    for (const char* window : Windows) {
        windows += QLatin1String(window);
    }
    const QFileInfo first(pathOf(folder, "Deutsch", Looks[0], windows.first()));
    for (const QFileInfo& picture : first.dir().entryInfoList({QStringLiteral("*.png")})) {
        windows += picture.completeBaseName();
    }
    windows.removeDuplicates();
    return windows;
}

} // namespace

QStringList checkPictures(const QString& folder) {
    QStringList faults;
    for (const QString& window : windowsOf(folder)) {
        for (const char* language : {"Deutsch", "English"}) {
            for (const Look& look : Looks) {
                checkOne(folder, language, look, window, faults);
            }
        }
        const QImage german(pathOf(folder, "Deutsch", Looks[0], window));
        const QImage english(pathOf(folder, "English", Looks[0], window));
        const bool wordless = std::any_of(std::begin(WithoutWords), std::end(WithoutWords),
                                          [&](const char* name) { return window == QLatin1String(name); });
        if (!wordless && german == english) {
            faults += window + QStringLiteral(": the same in both languages");
        }
    }
    return faults;
}

} // namespace qvm::test
