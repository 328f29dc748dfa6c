#include "engine/views/simple_view.h"

#include <algorithm>
#include <cmath>

#include "engine/core/console.h"
#include "engine/core/value.h"
#include "engine/views/edit_column.h"

namespace q {

namespace {
constexpr int kWheelBack = 0x1B1E23;

// A strip is lit brightest across the middle of the wheel and fades towards
// its ends, so the flat picture reads as a drum turning under the finger.
int stripColour(double y) {
  const double t = std::clamp(y / Simple::kWheelHeight, 0.0, 1.0);
  const double lit = std::sin(t * 3.14159265358979);
  const int grey = int(std::lround(0x30 + lit * (0x9A - 0x30)));
  return grey << 16 | grey << 8 | std::min(255, grey + 12);
}

// A level or channel number typed or shown as text, held to a range before
// it becomes a whole number.
long wholeIn(double x, long low, long high) {
  if (!(x >= double(low))) return low;  // also NaN
  if (x > double(high)) return high;
  return std::clamp(roundHalfEven(x), low, high);
}

// The wheel's position is kept in 16 bits, as the mouse gave it.
int16_t wheelY(double y) { return int16_t(wholeIn(y, INT16_MIN, INT16_MAX)); }
}  // namespace

Simple::Simple(Console& c)
    : Window(c.registry, "Simple"),
      Text1(add<TextBox>("Text1", "1")),
      btnZero(add<Label>("btnZero", "All to zero")),
      cmdAll(add<Label>("cmdAll", "All")),
      cmdNone(add<Label>("cmdNone", "None")),
      cmdNext(add<Label>("cmdNext", "Next")),
      cmdLast(add<Label>("cmdLast", "Last")),
      Picture4(add<Picture>("Picture4")),
      PicDalt(add<Lamp>("PicDalt")),
      PicBaix(add<Lamp>("PicBaix")),
      c_(c) {
  setCaption("Simple");
  for (int ch = 1; ch <= kChannels; ++ch) {
    ChannelCell& cell = *(cells_[ch - 1] = &add<ChannelCell>(indexed("Canal", ch)));
    cell.onMouseDown = [this, ch](const MouseEvent& e) { cellDown(ch, e.button); };
    cell.onDblClick = [this, ch](const MouseEvent&) { cellDblClick(ch); };
  }
  for (int r = 0; r < kRows; ++r)
    rowLabels_[r] = &add<Label>(indexed("Label", r), std::to_string(r * kRowCells + 1));
  fold_[0] = &add<Label>(indexed("Command1", 0), "Show grid");
  fold_[1] = &add<Label>(indexed("Command1", 1), "Hide grid");
  for (int i = 0; i < 2; ++i) fold_[i]->onClick = [this, i] { foldClick(i); };
  btnZero.onClick = [this] { allToZero(); };
  cmdAll.onClick = [this] { selectAll(true); };
  cmdNone.onClick = [this] { selectAll(false); };
  cmdNext.onClick = [this] { shiftSelection(+1); };
  cmdLast.onClick = [this] { shiftSelection(-1); };
  Text1.onKeyPress = [this](int& key) {
    if (key != 13) return;
    key = 0;
    text1Enter();
  };
  Picture4.width = kWheelWidth;
  Picture4.height = kWheelHeight;
  Picture4.backColor = kWheelBack;
  Picture4.onMouseDown = [this](const MouseEvent& e) { wheelDown(e.y); };
  Picture4.onMouseUp = [this](const MouseEvent&) { wheelUp(); };
  Picture4.onMouseMove = [this](const MouseEvent& e) { wheelMove(e.y); };
  drawWheel();

  // The load: only the channels in use, and the rows that hold them.
  const int used = c_.v.MaxChans;
  for (int ch = 1; ch <= kChannels; ++ch)
    if (ch > used) Canal(ch).setVisible(false);
  for (int r = 1; r < kRows; ++r)
    if (used < r * kRowCells + 1) RowLabel(r).setVisible(false);
  Command1(0).setVisible(false);
  SkinMe();
  onActivate = [this] { Actualitza(); };
}

int Simple::maxChans() const { return std::clamp<int>(c_.v.MaxChans, 0, kChannels); }

// What a cell shows, read as a number; a blank cell reads 0.
int Simple::levelShown(int channel) {
  return int(wholeIn(leadingNumber(Canal(channel).caption()), 0, 255));
}

void Simple::showLevel(int channel, int level) {
  Canal(channel).setCaption(level > 0 ? std::to_string(level) : "");
  storeEditLevel(c_.v, channel, uint8_t(level));
}

void Simple::Actualitza() {
  if (ShowGrid == kFalse) return;
  Variables& v = c_.v;
  v.ChannelsRefreshing = kTrue;
  for (int ch = 1; ch <= maxChans(); ++ch) {
    const uint8_t level = editLevel(v, ch);
    Canal(ch).setCaption(level ? std::to_string(level) : "");
  }
  v.ChannelsRefreshing = kFalse;
}

void Simple::SkinMe() { backColor = c_.colors.SkinBackColor; }

void Simple::selectOnly(int channel) {
  for (int ch = 1; ch <= maxChans(); ++ch) Canal(ch).select(false);
  Canal(channel).select(true);
}

void Simple::cellDown(int channel, MouseButton b) {
  if (b == MouseButton::Left) {
    Text1.setText(std::to_string(channel));
    selectOnly(channel);
  } else if (b == MouseButton::Right) {
    Canal(channel).select(!Canal(channel).selected());
  }
}

// Off goes to full and anything else to off; the cell shows selected while it is up.
void Simple::cellDblClick(int channel) {
  const int level = levelShown(channel) <= 0 ? 255 : 0;
  Canal(channel).select(level > 0);
  showLevel(channel, level);
  c_.v.MixDirty = kTrue;
}

void Simple::allToZero() {
  auto batch = c_.v.ChanTable.changes.batch();
  for (int ch = 1; ch <= maxChans(); ++ch) showLevel(ch, 0);
  c_.v.MixDirty = kTrue;
}

void Simple::selectAll(bool on) {
  for (int ch = 1; ch <= maxChans(); ++ch) Canal(ch).select(on);
}

// The pass runs against the move, so that no channel lands on one still to
// move. A selected channel at the end has nowhere to go and stays.
void Simple::shiftSelection(int step) {
  const int last = maxChans();
  Variables& v = c_.v;
  {
    auto batch = v.ChanTable.changes.batch();
    auto move = [&](int ch) {
      if (!Canal(ch).selected()) return;
      ChannelCell& to = Canal(ch + step);
      to.select(true);
      to.setCaption(Canal(ch).caption());
      storeEditLevel(v, ch + step, editLevel(v, ch));
      Canal(ch).select(false);
      Canal(ch).setCaption("");
      storeEditLevel(v, ch, 0);
    };
    if (step > 0)
      for (int ch = last - 1; ch >= 1; --ch) move(ch);
    else
      for (int ch = 2; ch <= last; ++ch) move(ch);
  }
  const long current = wholeIn(leadingNumber(Text1.text()), -1, kChannels + 1) + step;
  Text1.setText(std::to_string(step > 0 ? std::min<long>(current, last) : std::max(current, 1L)));
  v.MixDirty = kTrue;
}

// Any text picks a channel: not a number is 1, and a number is held to the channels in use.
void Simple::text1Enter() {
  const int last = std::max(1, maxChans());
  const auto typed = parseNumber(Text1.text());
  const long channel = typed ? wholeIn(*typed, 1, last) : 1;
  Text1.setText(std::to_string(channel));
  selectOnly(int(channel));
}

void Simple::wheelDown(double y) {
  WheelDrag = kTrue;
  LastWheelY = wheelY(y);
}

void Simple::wheelUp() { WheelDrag = kFalse; }

// Moving up raises the selected levels by the distance moved. The new level
// starts from what the cell shows, so a turn past an end holds there and a
// turn back moves at once.
void Simple::wheelMove(double y) {
  if (WheelDrag == kFalse) return;
  const int16_t at = wheelY(y);
  const int moved = at - LastWheelY;
  {
    auto batch = c_.v.ChanTable.changes.batch();
    for (int ch = 1; ch <= maxChans(); ++ch)
      if (Canal(ch).selected()) showLevel(ch, std::clamp(levelShown(ch) - moved, 0, 255));
  }
  bandPhase_ = std::fmod(bandPhase_ + moved, double(kBandPitch));
  if (bandPhase_ < 0) bandPhase_ += kBandPitch;
  drawWheel();
  LastWheelY = at;
  c_.v.MixDirty = kTrue;
}

void Simple::foldClick(int i) {
  if (i != 0) {
    heightTwips = kFoldedHeight;
    ShowGrid = kFalse;
    Command1(0).setVisible(true);
  } else {
    heightTwips = kUnfoldedHeight;
    ShowGrid = kTrue;
    Actualitza();
    Command1(0).setVisible(false);
  }
}

// The strips across the wheel, wrapping at its ends as they follow the mouse.
void Simple::drawWheel() {
  Picture4.cls();
  for (double y = bandPhase_; y < kWheelHeight; y += kBandPitch)
    Picture4.line(0, y, kWheelWidth, y, stripColour(y));
  Picture4.refresh();
}

}  // namespace q
