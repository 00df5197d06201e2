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
    Adapter, ///< AdapterPicture of F6; of F2's Picture1 any id but 0
    Channel, ///< ChannelPicture of F13
    State,   ///< StatePicture of F9
    List,    ///< ListPicture of F91
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

/// True when the palette is light on dark.
bool isDark(const QPalette& palette);

} // namespace qvm::ui
