#pragma once
// One media player as the console drives it (the two players WMP(0), WMP(1)).
// The desk plays through GStreamer; tests and the headless console use the
// silent player, which loads nothing and is never ready.

#include <functional>
#include <string>

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

  // Raised with the old and the new play state.
  std::function<void(int oldState, int newState)> onPlayStateChange;
};

// Keeps every property it is given and plays nothing.
class SilentMediaPlayer : public MediaPlayer {
 public:
  void setFileName(const std::string& p) override { file_ = p; }
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
  void setVisible(bool v) override { visible_ = v; }
  bool visible() const override { return visible_; }

 private:
  std::string file_;
  int volume_ = 0, balance_ = 0;
  double rate_ = 1;
  bool visible_ = false;
};

}  // namespace q
