#pragma once
// The colours of the desk's skin for everything Qt draws itself: message
// boxes, input boxes, file, font and colour choosers, menus, the status line.
// A dark skin gives dark boxes with light text, so a box that opens in a dark
// theatre is no white flash beside the desk.

#include <QImage>
#include <QPalette>

namespace q::gui {

// The skin's ground colour (the colour most of its panels are painted in),
// with text, fields and buttons that read on it, and the desk's amber for
// the selection. A missing skin gives the desk's default dark colours.
QPalette paletteFromSkin(const QImage& skin);

// Makes the skin's palette the whole application's, on the Fusion style (the
// one style that draws every part from the palette).
void applySkinPalette(const QImage& skin);

}  // namespace q::gui
