#pragma once
// Simple, the simple view: one cell per channel in use, showing the column
// under edit. The operator selects cells with the mouse (left picks one,
// right adds or takes away one) and turns the wheel to move all selected
// levels together; the selection can be shifted channel by channel, and the
// grid can be folded away to leave only the wheel. The cells show the table
// as it was when the window came to the front: a wheel turn starts from what
// a cell shows.

#include <array>
#include <cstdint>

#include "engine/controls/picture.h"
#include "engine/controls/window.h"
#include "engine/core/variables.h"
#include "engine/views/channel_cell.h"

namespace q {

class Console;

class Simple : public Window {
 public:
  static constexpr int kRowCells = 30;  // cells in a row of the grid
  static constexpr int kRows = (kChannels + kRowCells - 1) / kRowCells;
  // The window's height unfolded and folded, in twips.
  static constexpr int kUnfoldedHeight = 11865;
  static constexpr int kFoldedHeight = 1800;
  // The wheel's own scale: a unit is a pixel of the desk at its natural size,
  // and the wheel moves a level a unit.
  static constexpr int kWheelWidth = 60;
  static constexpr int kWheelHeight = 90;
  static constexpr int kBandPitch = 6;  // from one strip of the wheel to the next

  explicit Simple(Console& c);

  ChannelCell& Canal(int channel) { return *cells_.at(channel - 1); }
  Label& RowLabel(int row) { return *rowLabels_.at(row); }  // `Label(row)`
  TextBox& Text1;
  Label& btnZero;
  Label& cmdAll;
  Label& cmdNone;
  Label& cmdNext;
  Label& cmdLast;
  Picture& Picture4;  // the wheel
  Lamp& PicDalt;      // its upper end
  Lamp& PicBaix;      // its lower end
  Label& Command1(int i) { return *fold_.at(i); }

  // Takes the cells' captions from the table, when the grid shows.
  void Actualitza();
  void SkinMe();

  void cellDown(int channel, MouseButton b);
  void cellDblClick(int channel);
  void allToZero();
  void selectAll(bool on);
  // Moves the selected channels, with their levels, one channel up (+1) or down (-1).
  void shiftSelection(int step);
  void text1Enter();
  void wheelDown(double y);
  void wheelUp();
  void wheelMove(double y);
  // Command1(i): 0 unfolds the grid, any other folds it.
  void foldClick(int i);

  VBool ShowGrid = kTrue;
  VBool WheelDrag = kFalse;
  int16_t LastWheelY = 0;
  // The window's height in twips, as folding leaves it.
  int heightTwips = kUnfoldedHeight;
  // Where the wheel's strips stand, 0 .. kBandPitch.
  double bandPhase() const { return bandPhase_; }

 private:
  int maxChans() const;
  int levelShown(int channel);
  void showLevel(int channel, int level);
  void selectOnly(int channel);
  void drawWheel();

  Console& c_;
  std::array<ChannelCell*, kChannels> cells_{};
  std::array<Label*, kRows> rowLabels_{};
  std::array<Label*, 2> fold_{};
  double bandPhase_ = 0;
};

}  // namespace q
