#pragma once
// A console with a cue list written as a file reader leaves it (every cell
// text), fake players, and the operator's gestures on the transport.

#include <initializer_list>
#include <map>
#include <string>
#include <utility>

#include "engine/playback/cue_record.h"
#include "support/console_fixture.h"
#include "support/fake_media_player.h"

// Cue specs name only the fields a test cares about; the rest keep their defaults.
#pragma GCC diagnostic ignored "-Wmissing-field-initializers"

namespace q::test {

struct CueSpec {
  std::string number;
  std::string function = "1";
  // wait up, up, wait down, down, as typed.
  std::string wu = "0", u = "0", wd = "0", d = "0";
  std::map<int, int> levels;  // channel -> level
  std::string name;
};

class PlaybackFixture : public ConsoleFixture {
 protected:
  PlaybackFixture() {
    players[0] = &player1;
    players[1] = &player2;
  }

  int addCue(const CueSpec& s) {
    Variables& vars = v();
    const auto row = int16_t(++vars.CueCount);
    auto text = [&](int col, const std::string& t) {
      if (!t.empty()) vars.Cues.setCell(row, int16_t(col), t);
    };
    text(cue::kNumber, s.number);
    text(cue::kFunction, s.function);
    text(cue::kWaitUp, s.wu);
    text(cue::kUpTime, s.u);
    text(cue::kWaitDown, s.wd);
    text(cue::kDownTime, s.d);
    text(cue::kName, s.name.empty() ? "Cue " + s.number : s.name);
    for (auto [ch, level] : s.levels) vars.Cues.setCell(row, int16_t(ch), uint8_t(level));
    return row;
  }
  void setCell(int row, int col, const std::string& t) {
    v().Cues.setCell(int16_t(row), int16_t(col), t);
  }

  // A whole click: down, up, then the click event.
  void press(const std::string& name) {
    Control& c = control(name);
    c.mouseDown();
    c.mouseUp();
    c.click();
  }
  void go() { press("GOButton"); }
  void type(const std::string& box, const std::string& text) {
    console().registry.find<TextBox>(box)->setText(text);
  }
  void xfader(int pos) { form1().Xfader.setPosition(pos); }
  // One MemTimer period.
  void tick() { advance(100); }

  std::pair<int, int> levels() { return {v().StageLevel, v().ProgLevel}; }
  int stage(int ch) { return v().chan(ch, kStageColumn); }
  int prog(int ch) { return v().chan(ch, kProgColumn); }
  bool fading() { return form1().MemTimer.isEnabled(); }

  FakeMediaPlayer player1, player2;
};

}  // namespace q::test
