#pragma once
// A media player that records what the console asks of it, as one line per
// call ("play", "stop", "volume -3060", "file a.wav"), with a ready flag the
// test sets.

#include <string>
#include <vector>

#include "engine/media/media_player.h"

namespace q::test {

class FakeMediaPlayer : public SilentMediaPlayer {
 public:
  bool isReady = true;
  std::vector<std::string> calls;

  void setFileName(const std::string& p) override {
    calls.push_back("file " + p);
    SilentMediaPlayer::setFileName(p);
  }
  bool ready() const override { return isReady; }
  void play() override { calls.push_back("play"); }
  void pause() override { calls.push_back("pause"); }
  void stop() override { calls.push_back("stop"); }
  void setVolume(int v) override {
    calls.push_back("volume " + std::to_string(v));
    SilentMediaPlayer::setVolume(v);
  }
  void setBalance(int b) override {
    calls.push_back("balance " + std::to_string(b));
    SilentMediaPlayer::setBalance(b);
  }
};

}  // namespace q::test
