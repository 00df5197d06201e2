#include "Theme.h"

#include "F13.h"
#include "F6.h"
#include "F9.h"
#include "F91.h"
#include "SvgIconEngine.h"
#include "Text.h"

#include <QPainter>

#include <algorithm>
#include <array>
#include <cmath>

// The drawings lie in a static library, from which the linker would drop them unasked.
static void initDrawings() {
    Q_INIT_RESOURCE(icons);
}

namespace qvm::ui {
namespace {

void loadDrawings() {
    static const bool loaded = (initDrawings(), true);
    static_cast<void>(loaded);
}

struct ToolRow {
    std::string_view Key;
    const char* Name;  ///< of the program's own drawing
    const char* Theme; ///< name in an installed icon theme, or null where only the drawing fits
};

constexpr std::array<ToolRow, 17> ToolRows{{{"Ende", "exit", "application-exit"},
                                            {"EYE", "eye", nullptr},
                                            {"636I259", "calendar", nullptr},
                                            {"Schaltuhr", "clock", nullptr},
                                            {"x1504", "users", nullptr},
                                            {"Neu", "channel", nullptr},
                                            {"GastCard", "guestcard", nullptr},
                                            {"PROG", "program", nullptr},
                                            {"lock4", "lock", nullptr},
                                            {u8"Zurück"_w, "back", "go-previous"},
                                            {"Speichern", "save", "document-save"},
                                            {"Prog.", "program-list", nullptr},
                                            {"SaveHistory", "history", nullptr},
                                            {"Suchen", "search", "edit-find"},
                                            {u8"Öffnen"_w, "open", "document-open"},
                                            {"W95MBX01", "back", "go-previous"},
                                            {"INFO", "info", nullptr}}};

struct PictureRow {
    PictureSet Set;
    int Id;
    const char* Name;
};

// The five state pictures count downwards: the first report level, 0x10, shows the fifth.
constexpr std::array<PictureRow, 11> PictureRows{{{PictureSet::Adapter, AdapterPicture::Present, "adapter"},
                                                  {PictureSet::Adapter, AdapterPicture::Absent, "adapter-absent"},
                                                  {PictureSet::Adapter, AdapterPicture::Unusable, "warning"},
                                                  {PictureSet::List, ListPicture::Failed, "failed"},
                                                  {PictureSet::Channel, ChannelPicture::Image7, "channel-change"},
                                                  {PictureSet::Channel, ChannelPicture::Image8, "channel-settled"},
                                                  {PictureSet::State, StatePicture::Image1, "state-5"},
                                                  {PictureSet::State, StatePicture::Image2, "state-4"},
                                                  {PictureSet::State, StatePicture::Image3, "state-3"},
                                                  {PictureSet::State, StatePicture::Image4, "state-2"},
                                                  {PictureSet::State, StatePicture::Image5, "state-1"}}};

QColor mixed(const QColor& a, const QColor& b, qreal share) {
    return QColor::fromRgbF(static_cast<float>(a.redF() + (b.redF() - a.redF()) * share),
                            static_cast<float>(a.greenF() + (b.greenF() - a.greenF()) * share),
                            static_cast<float>(a.blueF() + (b.blueF() - a.blueF()) * share));
}

/// Relative luminance, 0 to 1. Source: Web Content Accessibility Guidelines 2.1.
qreal luminance(const QColor& colour) {
    const auto linear = [](qreal part) {
        return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) + 0.0722 * linear(colour.blueF());
}

/// 1 to 21. Source: as above.
qreal contrast(const QColor& a, const QColor& b) {
    const qreal one = luminance(a) + 0.05;
    const qreal two = luminance(b) + 0.05;
    return std::max(one, two) / std::min(one, two);
}

/// The colour, mixed with as much of `text` as a sign of some size needs to be told from its ground.
QColor legible(const QColor& colour, const QColor& ground, const QColor& text) {
    constexpr qreal Enough = 3.2;
    constexpr int Steps = 10;
    QColor seen = colour;
    for (int step = 1; step <= Steps && contrast(seen, ground) < Enough; ++step) {
        seen = mixed(colour, text, static_cast<qreal>(step) / Steps);
    }
    return seen;
}

} // namespace

QIcon ownIcon(const QString& name, QPalette::ColorRole ink) {
    loadDrawings();
    const QString path = QStringLiteral(":/icons/%1.svg").arg(name);
    return QIcon(new SvgIconEngine(path, ink));
}

QIcon toolIcon(std::string_view key) {
    for (const ToolRow& row : ToolRows) {
        if (row.Key == key) {
            const QIcon own = ownIcon(QString::fromLatin1(row.Name));
            return row.Theme == nullptr ? own : QIcon::fromTheme(QString::fromLatin1(row.Theme), own);
        }
    }
    return {};
}

QIcon programIcon() {
    loadDrawings();
    return QIcon(QStringLiteral(":/icons/program-icon.svg"));
}

QIcon pictureIcon(PictureSet set, int id) {
    for (const PictureRow& row : PictureRows) {
        if (row.Set == set && row.Id == id) {
            return ownIcon(QString::fromLatin1(row.Name));
        }
    }
    return {};
}

QColor exactColour(Colour colour) {
    return {static_cast<int>(colour & 0xFF), static_cast<int>((colour >> 8) & 0xFF),
            static_cast<int>((colour >> 16) & 0xFF)};
}

QPixmap lampPixmap(Colour colour, int size, qreal devicePixelRatio) {
    const int pixels = qRound(size * devicePixelRatio);
    QPixmap lamp(pixels, pixels);
    lamp.setDevicePixelRatio(devicePixelRatio);
    lamp.fill(Qt::transparent);
    QPainter painter(&lamp);
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor light = exactColour(colour);
    painter.setPen(QPen(light.darker(220), 1.5));
    painter.setBrush(light);
    painter.drawEllipse(QRectF(1.5, 1.5, size - 3.0, size - 3.0));
    return lamp;
}

bool isDark(const QPalette& palette) {
    return luminance(palette.color(QPalette::Base)) < luminance(palette.color(QPalette::Text));
}

CellTone cellTone(Colour background) {
    return background == White               ? CellTone::Plain
           : background == F13::ActionColour ? CellTone::Action
           : background == F13::HoverColour  ? CellTone::Hover
                                             : CellTone::Exact;
}

QColor cellBackground(Colour background, bool alternate, const QPalette& palette) {
    const QColor base = palette.color(QPalette::Base);
    const QColor text = palette.color(QPalette::Text);
    switch (cellTone(background)) {
    case CellTone::Exact:
        return exactColour(background);
    case CellTone::Action:
        return mixed(base, text, isDark(palette) ? 0.16 : 0.07);
    case CellTone::Hover:
        return mixed(mixed(base, text, 0.12), palette.color(QPalette::Highlight), 0.3);
    default:
        return alternate ? mixed(base, text, isDark(palette) ? 0.055 : 0.035) : base;
    }
}

QColor tinted(const QColor& ground, RowTint tint, const QPalette& palette) {
    const auto towards = [&](qreal light, qreal dark) {
        return mixed(ground, palette.color(QPalette::Active, QPalette::Highlight), isDark(palette) ? dark : light);
    };
    switch (tint) {
    case RowTint::Hover:
        return towards(0.07, 0.13);
    case RowTint::PaleCurrent:
        return towards(0.11, 0.18);
    case RowTint::Current:
        return towards(0.18, 0.28);
    case RowTint::Block:
        return towards(0.3, 0.42);
    default:
        return ground;
    }
}

QColor cellForeground(Colour foreground, Colour background, const QPalette& palette) {
    const CellTone tone = cellTone(background);
    if (foreground != Black) {
        const QColor exact = exactColour(foreground);
        const bool button = tone == CellTone::Action || tone == CellTone::Hover;
        return button ? legible(exact, cellBackground(background, false, palette), palette.color(QPalette::Text))
                      : exact;
    }
    if (tone != CellTone::Exact) {
        return palette.color(QPalette::Text);
    }
    // Black and white contrast equally at this luminance.
    constexpr qreal Middle = 0.179;
    return luminance(exactColour(background)) > Middle ? QColor(Qt::black) : QColor(Qt::white);
}

} // namespace qvm::ui
