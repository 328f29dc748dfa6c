#pragma once
// The fixed layout of the desk: where every control of the main window lies
// on the skin, in skin pixels. A fader's track is the skin under the fader
// and an unlit button is the skin under the button, so a skin is drawn for
// this layout and the layout places the controls on it. The skin tool draws
// the default skin from this table; the desk places its widgets by it.

#include <string>
#include <vector>

#include "engine/look/skin_pieces.h"

namespace q::look {

// The part of the skin the desk shows; the spare parts lie to its right.
inline constexpr int kDeskWidth = 768;
inline constexpr int kDeskHeight = 594;

enum class ItemKind {
  StripFader,   // a strip's fader, 22 x 220
  MasterFader,  // SMaster or Xfader, 31 x 222
  Button,       // an image that shows a pressed or lit piece, or nothing
  Lamp,         // an image that only shows (no mouse)
  Label,        // a caption the console writes
  TextBox,      // a text the operator types
  Picture,      // a drawing surface (live display, times graph)
  ScrollBar,    // horizontal scroll bar
  Player,       // the state of a media player
  Panel,        // skin only: a panel of the desk
  Title,        // skin only: a panel's title
  Caption,      // skin only: a small caption beside a control
};

// What the skin draws under a button or lamp when it shows no picture.
enum class Face { None, LongKey, GoKey, SquareKey, Selector, FlashKey, LedBar, Well };

enum class Align { Left, Center, Right };

struct DeskItem {
  std::string control;  // console name; empty for skin-only items
  ItemKind kind = ItemKind::Panel;
  PixelRect rect;
  std::string caption;  // text drawn on the item (keys, titles) or shown before a label has one
  Face face = Face::None;
  int fontPx = 9;  // text height in skin pixels
  Align align = Align::Center;
  bool bold = false;
};

const std::vector<DeskItem>& deskLayout();
// The item of a control by its console name; null when the desk has no place for it.
const DeskItem* findItem(const std::string& control);

// A strip's column on the desk, strips 3..22.
int stripLeft(int strip);

}  // namespace q::look
