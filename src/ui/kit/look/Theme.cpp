#include "Theme.h"

#include "Pictures.h"
#include "SvgIconEngine.h"
#include "Text.h"

#include <QPainter>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <initializer_list>

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

constexpr std::array<ToolRow, 20> ToolRows{{{"Ende", "exit", "application-exit"},
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
                                            {"Aufsteigend sortieren", "sort", nullptr},
                                            {"CSV-Print", "export", nullptr},
                                            {u8"Öffnen"_w, "open", "document-open"},
                                            {"W95MBX01", "back", "go-previous"},
                                            {"INFO", "info", nullptr},
                                            {"Initial", "calendar", nullptr}}};

struct PictureRow {
    PictureSet Set;
    int Id;
    const char* Name;
};

// The five state pictures count downwards: the first report level, 0x10, shows the fifth.
constexpr std::array<PictureRow, 37> PictureRows{{{PictureSet::Adapter, AdapterPicture::Present, "adapter"},
                                                  {PictureSet::Adapter, AdapterPicture::Absent, "adapter-absent"},
                                                  {PictureSet::Adapter, AdapterPicture::Unusable, "warning"},
                                                  {PictureSet::List, ListPicture::Failed, "failed"},
                                                  {PictureSet::RunEnd, RunSign::Done, "run-done"},
                                                  {PictureSet::RunEnd, RunSign::Attention, "run-attention"},
                                                  {PictureSet::RunEnd, RunSign::Failed, "failed"},
                                                  {PictureSet::Channel, ChannelPicture::Image7, "channel-change"},
                                                  {PictureSet::Channel, ChannelPicture::Image8, "channel-settled"},
                                                  {PictureSet::Enrolment, EnrolmentPicture::Working, "finger"},
                                                  {PictureSet::Enrolment, EnrolmentPicture::Done, "run-done"},
                                                  {PictureSet::Enrolment, EnrolmentPicture::Error, "failed"},
                                                  {PictureSet::Finger, FingerPicture::None, "finger-none"},
                                                  {PictureSet::Finger, FingerPicture::Standard, "finger"},
                                                  {PictureSet::Finger, FingerPicture::Premium, "finger-premium"},
                                                  {PictureSet::Finger, FingerPicture::Off, "finger-off"},
                                                  {PictureSet::Lock, LockPicture::On, "switch-on"},
                                                  {PictureSet::Lock, LockPicture::Off, "switch-off"},
                                                  {PictureSet::Lock, LockPicture::NotApplicable, "switch-none"},
                                                  {PictureSet::Lock, LockPicture::Twice, "warning"},
                                                  {PictureSet::Lock, LockPicture::FirstHeading, "users"},
                                                  {PictureSet::Lock, LockPicture::FirstHeading + 1, "calendar"},
                                                  {PictureSet::Lock, LockPicture::FirstHeading + 2, "lock-clock"},
                                                  {PictureSet::Lock, LockPicture::FirstHeading + 3, "calendar-clock"},
                                                  {PictureSet::Lock, LockPicture::FirstHeading + 4, "clock"},
                                                  {PictureSet::Lock, LockPicture::FirstHeading + 5, "priority"},
                                                  {PictureSet::Lock, LockPicture::FirstHeading + 6, "emi"},
                                                  {PictureSet::Lock, LockPicture::FirstHeading + 7, "channel"},
                                                  {PictureSet::State, StatePicture::Image1, "state-5"},
                                                  {PictureSet::State, StatePicture::Image2, "state-4"},
                                                  {PictureSet::State, StatePicture::Image3, "state-3"},
                                                  {PictureSet::State, StatePicture::Image4, "state-2"},
                                                  {PictureSet::State, StatePicture::Image5, "state-1"},
                                                  {PictureSet::Verdict, VerdictPicture::Good, "run-done"},
                                                  {PictureSet::Verdict, VerdictPicture::Note, "run-attention"},
                                                  {PictureSet::Verdict, VerdictPicture::Fault, "failed"},
                                                  {PictureSet::Verdict, VerdictPicture::Untold, "message-question"}}};

QColor mixed(const QColor& a, const QColor& b, qreal share) {
    return QColor::fromRgbF(static_cast<float>(a.redF() + (b.redF() - a.redF()) * share),
                            static_cast<float>(a.greenF() + (b.greenF() - a.greenF()) * share),
                            static_cast<float>(a.blueF() + (b.blueF() - a.blueF()) * share));
}

/// What each value of a colour's part, 0 to 255, gives of light, 0 to 1.
std::array<qreal, 256> linearParts() {
    std::array<qreal, 256> parts{};
    for (std::size_t n = 0; n < parts.size(); ++n) {
        const qreal part = static_cast<qreal>(n) / 255;
        parts[n] = part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    }
    return parts;
}

/// Relative luminance, 0 to 1. Source: Web Content Accessibility Guidelines 2.1. Asked for every cell of a grid.
qreal luminance(const QColor& colour) {
    static const std::array<qreal, 256> linear = linearParts();
    const auto part = [](int value) { return linear[static_cast<std::size_t>(value)]; };
    return 0.2126 * part(colour.red()) + 0.7152 * part(colour.green()) + 0.0722 * part(colour.blue());
}

/// A sign of some size, as a cross, needs less contrast than a text.
constexpr qreal EnoughForText = 4.5, EnoughForDisabled = 3, EnoughForSign = 3.2;

/// What shows where `colour` is painted on `ground`.
QColor painted(const QColor& colour, const QColor& ground) {
    const QColor opaque(colour.red(), colour.green(), colour.blue());
    return mixed(ground, opaque, colour.alphaF());
}

/// Disabled texts stand on the grounds of enabled controls, too, and on buttons that a style shades from their colour.
void liftDisabled(QPalette& palette, QPalette::ColorRole text, std::initializer_list<QPalette::ColorRole> grounds) {
    constexpr int Plain = 100, Shaded = 145; // percent; a combo box is the lightest
    const auto lift = [&](const QColor& ground) {
        palette.setColor(QPalette::Disabled, text,
                         legible(palette.color(QPalette::Disabled, text), ground, palette.color(QPalette::Active, text),
                                 EnoughForDisabled));
    };
    for (const QPalette::ColorRole ground : grounds) {
        for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Disabled}) {
            lift(palette.color(group, ground));
            lift(palette.color(group, ground).lighter(ground == QPalette::Button ? Shaded : Plain));
        }
    }
}

/// The selection moves away from its text, as the text is often white already.
void spreadSelection(QPalette& palette, QPalette::ColorGroup group) {
    const QColor text = palette.color(group, QPalette::HighlightedText);
    const QColor ground = palette.color(group, QPalette::Highlight);
    const QColor away = luminance(text) > luminance(ground) ? QColor(Qt::black) : QColor(Qt::white);
    constexpr int Steps = 20;
    QColor seen = ground;
    for (int step = 1; step <= Steps && contrast(text, seen) < EnoughForText; ++step) {
        seen = mixed(ground, away, static_cast<qreal>(step) / Steps);
    }
    palette.setColor(group, QPalette::Highlight, seen);
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

qreal contrast(const QColor& a, const QColor& b) {
    const qreal one = luminance(painted(a, b)) + 0.05;
    const qreal two = luminance(b) + 0.05;
    return std::max(one, two) / std::min(one, two);
}

QColor legible(const QColor& colour, const QColor& ground, const QColor& text, qreal enough) {
    constexpr int Steps = 20;
    const QColor from = painted(colour, ground);
    QColor seen = contrast(colour, ground) < enough ? from : colour;
    for (int step = 1; step <= Steps && contrast(seen, ground) < enough; ++step) {
        // As it is painted, in whole numbers.
        seen = QColor(mixed(from, text, static_cast<qreal>(step) / Steps).rgb());
    }
    return seen;
}

QColor weakText(const QColor& text, const QColor& ground) {
    constexpr qreal Weakest = 0.4; // share of the ground
    return legible(mixed(text, ground, Weakest), ground, text, EnoughForText);
}

QPalette legiblePalette(const QPalette& palette) {
    QPalette better = palette;
    liftDisabled(better, QPalette::WindowText, {QPalette::Window, QPalette::Base});
    liftDisabled(better, QPalette::ButtonText, {QPalette::Button, QPalette::Window});
    liftDisabled(better, QPalette::Text, {QPalette::Base, QPalette::Window});
    for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive}) {
        const QColor ground = better.color(group, QPalette::Base);
        if (contrast(better.color(group, QPalette::PlaceholderText), ground) < EnoughForText) {
            better.setColor(group, QPalette::PlaceholderText, weakText(better.color(group, QPalette::Text), ground));
        }
        spreadSelection(better, group);
    }
    return better;
}

bool isDark(const QPalette& palette) {
    return luminance(palette.color(QPalette::Base)) < luminance(palette.color(QPalette::Text));
}

CellTone cellTone(Colour background) {
    return background == White                ? CellTone::Plain
           : background == CellColour::Action ? CellTone::Action
           : background == CellColour::Hover  ? CellTone::Hover
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

QColor cellInk(Colour foreground, const QColor& ground, const QPalette& palette, bool sign) {
    return legible(exactColour(foreground), QColor(ground.rgb()), palette.color(QPalette::Text),
                   sign ? EnoughForSign : EnoughForText);
}

QColor labelForeground(Colour foreground, const QColor& text, const QColor& ground) {
    return foreground == Black ? text : legible(exactColour(foreground), ground, text, EnoughForText);
}

QColor cellForeground(Colour foreground, Colour background, const QPalette& palette) {
    const CellTone tone = cellTone(background);
    if (foreground != Black) {
        const QColor exact = exactColour(foreground);
        const bool button = tone == CellTone::Action || tone == CellTone::Hover;
        return button ? legible(exact, cellBackground(background, false, palette), palette.color(QPalette::Text),
                                EnoughForSign)
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
