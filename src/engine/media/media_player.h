#pragma once
// One media player as the console drives it (the two players WMP(0), WMP(1)).
// The desk and the headless console on the real clock play through
// GStreamer; tests and a virtual-clock run use the silent player, which keeps
// what it is given, loads nothing and is never ready.
//
// A real player opens its medium in the background: the ready flag comes
// true, the play state changes and failures are told later, always on the
// console's own thread, through the events below.

#include <functional>
#include <string>

#include "engine/controls/listeners.h"

namespace q {

class MediaPlayer {
 public:
  virtual ~MediaPlayer() = default;

  virtual void setFileName(const std::string& path) = 0;
  virtual std::string fileName() const = 0;
  // True when the medium is ready to play.
  virtual bool ready() const = 0;
  // 0 stopped, 1 paused, 2 playing.
  virtual int playState() const = 0;
  virtual void play() = 0;
  virtual void pause() = 0;
  virtual void stop() = 0;
  // Hundredths of a decibel: 0 full, -3060 the lowest the console sets.
  virtual void setVolume(int v) = 0;
  virtual int volume() const = 0;
  // -2000 left .. 0 centre .. +2000 right.
  virtual void setBalance(int b) = 0;
  virtual int balance() const = 0;
  virtual void setRate(double r) = 0;
  virtual double rate() const = 0;
  virtual void setVisible(bool v) = 0;
  virtual bool visible() const = 0;

  // Where the sound goes, as the settings name it; the player's own default when empty.
  virtual void setAudioSink(const std::string& description) { (void)description; }
  // Where the medium stands and how long it is, in seconds; 0 when unknown.
  virtual double position() const { return 0; }
  virtual double length() const { return 0; }

  // Raised with the old and the new play state.
  std::function<void(int oldState, int newState)> onPlayStateChange;
  // The medium could not be opened or played: why, in the operator's words.
  std::function<void(const std::string& reason)> onFailure;
  // Views: something shown changed (medium, state, ready, position).
  Listeners<> viewChanged;
};

// Keeps every property it is given and plays nothing.
class SilentMediaPlayer : public MediaPlayer {
 public:
  void setFileName(const std::string& p) override {
    file_ = p;
    viewChanged.notify();
  }
  std::string fileName() const override { return file_; }
  bool ready() const override { return false; }
  int playState() const override { return 0; }
  void play() override {}
  void pause() override {}
  void stop() override {}
  void setVolume(int v) override { volume_ = v; }
  int volume() const override { return volume_; }
  void setBalance(int b) override { balance_ = b; }
  int balance() const override { return balance_; }
  void setRate(double r) override { rate_ = r; }
  double rate() const override { return rate_; }
  void setVisible(bool v) override {
    visible_ = v;
    viewChanged.notify();
  }
  bool visible() const override { return visible_; }

 private:
  std::string file_;
  int volume_ = 0, balance_ = 0;
  double rate_ = 1;
  bool visible_ = false;
};

}  // namespace q
