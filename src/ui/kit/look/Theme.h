#pragma once

#include "Controls.h"

#include <QColor>
#include <QIcon>
#include <QPalette>
#include <QPixmap>
#include <QString>

#include <string_view>

/// The one place for colours, icons and pictures.
namespace qvm::ui {

/// Which window's table a picture id belongs to.
enum class PictureSet {
    None,
    Adapter,   ///< AdapterPicture of F6; of F2's Picture1 any id but 0
    Channel,   ///< ChannelPicture of F13
    State,     ///< StatePicture of F9
    List,      ///< ListPicture of F91
    RunEnd,    ///< RunSign of F9
    Verdict,   ///< VerdictPicture of the check of the PC
    Finger,    ///< FingerPicture of F5
    Enrolment, ///< EnrolmentPicture of F51
    Lock,      ///< LockPicture of F12
};

/// The icon of a tool bar key, "PROG" for one; of an unknown key an empty icon.
QIcon toolIcon(std::string_view key);

/// One of the program's own drawings by its file name without ending, "calendar" for one. It takes the colour of the
/// palette's text whenever it is painted, so that it stays readable when the palette changes.
/// `ink`: the palette's role whose colour it takes.
QIcon ownIcon(const QString& name, QPalette::ColorRole ink = QPalette::WindowText);

/// The icon of the program's windows.
QIcon programIcon();

/// The picture of a set; an empty icon for id 0 and for ids that the set does not know.
QIcon pictureIcon(PictureSet set, int id);

/// A colour that carries a meaning, exactly as the models have it.
QColor exactColour(Colour colour);

/// The link light: a round lamp of this colour with a rim that stands out on every palette. `size` in device
/// independent pixels.
QPixmap lampPixmap(Colour colour, int size, qreal devicePixelRatio);

/// How a cell's background is meant. Neutral tones come from the palette, every other colour is exact.
enum class CellTone { Plain, Action, Hover, Exact };
CellTone cellTone(Colour background);

/// The background of a cell; `alternate`: the darker stripe of a plain row.
QColor cellBackground(Colour background, bool alternate, const QPalette& palette);

/// How a row stands out: the mouse is over it, it is the current one (paler without the keyboard), or it belongs to a
/// selected block.
enum class RowTint { None, Hover, PaleCurrent, Current, Block };

/// A neutral background with the tint of its row.
QColor tinted(const QColor& ground, RowTint tint, const QPalette& palette);

/// The text of a cell: black is the palette's text on a neutral background, and whatever reads best on an exact one;
/// every other colour is exact, but goes as far towards the palette's text as it needs to be seen on a cell that can be
/// clicked.
QColor cellForeground(Colour foreground, Colour background, const QPalette& palette);

/// The text of a cell in a colour of its own, on a neutral ground as it is painted: the colour, as far towards the
/// palette's text as it needs to be read. A sign, which is one character, needs less.
QColor cellInk(Colour foreground, const QColor& ground, const QPalette& palette, bool sign);

/// The text of a label: black is the palette's text; every other colour goes as far towards it as it needs to be read.
QColor labelForeground(Colour foreground, const QColor& text, const QColor& ground);

/// True when the palette is light on dark.
bool isDark(const QPalette& palette);

/// How far apart two colours are in brightness, 1 to 21; what shines through is mixed with `b`. Source: Web Content
/// Accessibility Guidelines 2.1, which ask for 4.5 between a text and its ground.
qreal contrast(const QColor& a, const QColor& b);

/// The ink of a text that stands back behind others: mixed from the text's and the ground's colour, with a contrast of
/// 4.5 at least unless the text itself has less.
QColor weakText(const QColor& text, const QColor& ground);

/// The colour as it is, or moved towards `text` as far as a contrast of `enough` to `ground` needs.
QColor legible(const QColor& colour, const QColor& ground, const QColor& text, qreal enough);

/// A desktop's palette made legible: weak texts and texts on the selection have a contrast of 4.5 at least, texts of
/// disabled controls 3, where text and ground themselves are so far apart. What has enough stays as it is.
QPalette legiblePalette(const QPalette& palette);

} // namespace qvm::ui
