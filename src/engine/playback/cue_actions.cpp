#include "engine/playback/cue_actions.h"

#include <climits>
#include <cmath>

#include "engine/core/console.h"
#include "engine/playback/cue_record.h"

namespace q {

namespace {

// A value the player or timer property can take: rounded like every whole
// number the console stores, or nothing when it would not fit in 32 bits.
std::optional<long> toLong(double x) {
  if (!(x >= INT_MIN && x <= INT_MAX)) return std::nullopt;
  return roundHalfEven(x);
}

// The number in an action's parameter cell; nothing for an empty cell, which
// leaves the setting as it is, and nothing for text that is no number.
std::optional<double> parameter(Console& c, long row, int column) {
  Value cell = cueCell(c.v, row, column);
  if (isEmpty(cell)) return std::nullopt;
  return numberOf(cell);
}

// Whether an action cell asks for this action: compared by numeric value.
template <class Action>
bool asks(const Value& cell, Action a) {
  return cellEquals(cell, int(a));
}

void playerAction(Console& c, long row, int player) {
  const Value cell = cueCell(c.v, row, player == 0 ? cue::kPlayer1Action : cue::kPlayer2Action);
  MediaPlayer& p = c.WMP(player);
  if (asks(cell, cue::PlayerAction::Play)) {
    if (p.ready()) p.play();
  } else if (asks(cell, cue::PlayerAction::Stop)) {
    p.stop();
  } else if (asks(cell, cue::PlayerAction::Pause)) {
    if (p.ready()) p.pause();
  }
}

void chaserAction(Console& c, long row, int chaser) {
  const Value cell = cueCell(c.v, row, chaser == 0 ? cue::kChaser1Action : cue::kChaser2Action);
  if (asks(cell, cue::ChaserAction::Start)) {
    c.form1.FXTimer[chaser]->setRunning(true);
    c.form1.FXbutton[chaser]->setPicture("ImgLedOn");
  } else if (asks(cell, cue::ChaserAction::Stop)) {
    c.form1.FXTimer[chaser]->setRunning(false);
    c.form1.FXbutton[chaser]->setPicture("");
  }
}

// Volume in hundredths of a decibel: 255 is 0, 0 is -3060.
void playerVolume(Console& c, long row, int player) {
  auto v = parameter(c, row, player == 0 ? cue::kPlayer1Volume : cue::kPlayer2Volume);
  if (!v) return;
  if (auto vol = toLong((255 - *v) * -12)) c.WMP(player).setVolume(int(*vol));
}

// Balance: 127 is the centre (0), 0 is -2000.
void playerBalance(Console& c, long row, int player) {
  auto v = parameter(c, row, player == 0 ? cue::kPlayer1Balance : cue::kPlayer2Balance);
  if (!v) return;
  if (auto bal = toLong(*v / 127 * 2000 - 2000)) c.WMP(player).setBalance(int(*bal));
}

// A level beyond 0..255 cannot be a chaser's level: the cell is passed over
// and the chaser keeps the level it had.
void chaserLevel(Console& c, long row, int chaser) {
  auto v = parameter(c, row, chaser == 0 ? cue::kChaser1Level : cue::kChaser2Level);
  if (!v) return;
  const long level = roundHalfEven(*v);
  if (level < 0 || level > 255) return;
  (chaser == 0 ? c.v.FX1Level : c.v.FX2Level) = uint8_t(level);
}

// Speed law of the chasers: 255 steps every 1 ms, 0 every 1276 ms. A speed
// that would give no positive interval is passed over.
void chaserSpeed(Console& c, long row, int chaser) {
  auto v = parameter(c, row, chaser == 0 ? cue::kChaser1Speed : cue::kChaser2Speed);
  if (!v) return;
  auto ms = toLong((255 - *v) * 5 + 1);
  if (!ms || *ms < 1) return;
  c.form1.FXTimer[chaser]->setInterval(int(*ms));
}

}  // namespace

void runCueActions(Console& c, long row) {
  playerAction(c, row, 0);
  playerAction(c, row, 1);
  chaserAction(c, row, 0);
  chaserAction(c, row, 1);
  playerVolume(c, row, 0);
  playerVolume(c, row, 1);
  playerBalance(c, row, 0);
  playerBalance(c, row, 1);
  chaserLevel(c, row, 0);
  chaserSpeed(c, row, 0);
  chaserLevel(c, row, 1);
  chaserSpeed(c, row, 1);
}

}  // namespace q
