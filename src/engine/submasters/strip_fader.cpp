// What a strip's fader and flash key do, by the strip's function word.

#include <algorithm>

#include "engine/core/console.h"
#include "engine/submasters/function_words.h"
#include "engine/submasters/submaster_bank.h"

namespace q {

namespace {
uint8_t levelOf(int position) { return uint8_t(255 - position); }
}  // namespace

void SubmasterBank::faderChange(int n) {
  MainWindow& f = c_.form1;
  const int position = f.Fader(n).position();
  f.SLevel(n).setCaption(percentText(position));
  applyWord(n, f.stripWord(n), position);
  c_.midi.echo(n, position);
  c_.v.MixDirty = kTrue;
}

// The fader of a speed strip is not inverted: its top is the fastest.
void SubmasterBank::applyWord(int n, StripWord word, int p) {
  Variables& v = c_.v;
  switch (word) {
    case StripWord::Mp0:
    case StripWord::Mp1:
      c_.WMP(word == StripWord::Mp0 ? 0 : 1).setVolume(p * -12);
      break;
    case StripWord::Sub:
    case StripWord::Inv:
    case StripWord::Byp:
      v.SubLevel[n - kFirstStrip] = levelOf(p);
      break;
    case StripWord::Sma:
      v.SubMasterLevel = levelOf(p);
      break;
    case StripWord::Sp1:
    case StripWord::Sp2:
      c_.chasers.setSpeed(word == StripWord::Sp1 ? 0 : 1, p);
      break;
    case StripWord::Lv1:
      v.FX1Level = levelOf(p);
      break;
    case StripWord::Lv2:
      v.FX2Level = levelOf(p);
      break;
    case StripWord::A0b:
    case StripWord::A1b:
      // Centre at position 127; the bottom gives 2016 (2015.7 rounded).
      c_.WMP(word == StripWord::A0b ? 0 : 1)
          .setBalance(int(roundHalfEven(p / 127.0 * 2000.0 - 2000.0)));
      break;
    case StripWord::A0p:
      // Held at 245 so that the rate never reaches 0.
      v.Player1Rate = (255.0 - std::min(p, 245)) / 127.0;
      c_.WMP(0).setRate(v.Player1Rate);
      break;
    case StripWord::A1p:
      // The second player's rate is kept in single precision.
      v.Player2Rate = float((255.0 - std::min(p, 245)) / 127.0);
      c_.WMP(1).setRate(v.Player2Rate);
      break;
    case StripWord::Mid:
      v.MidiLevel = levelOf(p);
      break;
    case StripWord::None:
      break;
  }
}

void SubmasterBank::flashDown(int n, MouseButton b) {
  MainWindow& f = c_.form1;
  f.Flash(n).setPicture("imgFLASH");
  const StripWord word = f.stripWord(n);
  const bool media = word == StripWord::Mp0 || word == StripWord::Mp1;
  if (b == MouseButton::Left) {
    if (media) {
      playPause(word == StripWord::Mp0 ? 0 : 1);
    } else if (isLevelFlashWord(word)) {
      // One byte for all strips: two flashes held together share it.
      c_.v.FlashHeldLevel = uint8_t(f.Fader(n).position());
      f.Fader(n).setPosition(0);
    }
  } else if (b == MouseButton::Right) {
    if (media) {
      loadKey(word == StripWord::Mp0 ? 0 : 1);
      f.Flash(n).setPicture("");
    } else if (isLevelFlashWord(word)) {
      // A latch: the release does not undo it.
      f.Fader(n).setPosition(f.Fader(n).position() != 255 ? 255 : 0);
    }
  }
}

void SubmasterBank::flashUp(int n, MouseButton b) {
  MainWindow& f = c_.form1;
  const bool left = b == MouseButton::Left;
  if (left && f.stripWord(n) == StripWord::Sub) f.Fader(n).setPosition(c_.v.FlashHeldLevel);
  f.Flash(n).setPicture("");
  if (!left) return;
  const StripWord word = f.stripWord(n);
  if (isLevelFlashWord(word)) {
    f.Fader(n).setPosition(c_.v.FlashHeldLevel);
  } else if (word == StripWord::Sp1 || word == StripWord::Sp2) {
    // The flash of a speed strip is its chaser's start/stop key.
    c_.chasers.runToggle(word == StripWord::Sp1 ? 0 : 1);
  }
}

void SubmasterBank::playPause(int player) {
  MediaPlayer& p = c_.WMP(player);
  const int state = p.playState();
  if (state == 0 || state == 1)
    p.play();
  else
    p.pause();
}

// The shared chooser keeps the filter its last user gave it; only the name
// is emptied, so a cancel loads nothing.
void SubmasterBank::loadKey(int player) {
  CommonDialog& d = c_.CDialog1;
  d.FileName = "";
  d.ShowOpen();
  if (!d.FileName.empty()) c_.WMP(player).setFileName(d.FileName);
}

}  // namespace q
