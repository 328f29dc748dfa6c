#pragma once
// A media player of the console on GStreamer's playbin. The console's side of
// it lives on the console thread: it keeps what the console gave it (file
// name, volume, balance, speed, visible) and what the player last reported
// (ready, play state, position, length). The GStreamer side runs on a worker
// thread of its own; its news waits until the host calls pump() on the
// console thread, when wakeFd() is readable (QSocketNotifier on the desk,
// poll() in the headless runner).
//
// Where the sound goes is a GStreamer sink description: the environment
// variable QUINTARA_AUDIO_SINK when it is set, else the [Setup] AudioSink
// setting, else the desktop's own output (autoaudiosink). To record what the
// players play, for instance: QUINTARA_AUDIO_SINK="wavenc ! filesink location=/tmp/out.wav".

#include <deque>
#include <memory>
#include <string>

#include "engine/media/media_player.h"
#include "platform/media/gst_player_worker.h"

namespace q {

class GstMediaPlayer : public MediaPlayer {
 public:
  GstMediaPlayer();
  ~GstMediaPlayer() override;

  void setFileName(const std::string& path) override;
  std::string fileName() const override { return file_; }
  bool ready() const override { return ready_; }
  int playState() const override { return state_; }
  void play() override;
  void pause() override;
  void stop() override;
  void setVolume(int v) override;
  int volume() const override { return volume_; }
  void setBalance(int b) override;
  int balance() const override { return balance_; }
  void setRate(double r) override;
  double rate() const override { return rate_; }
  void setVisible(bool v) override;
  bool visible() const override { return visible_; }
  void setAudioSink(const std::string& description) override { sinkSetting_ = description; }
  double position() const override { return position_; }
  double length() const override { return length_; }

  // Readable while news of the player waits for pump().
  int wakeFd() const;
  // On the console thread: takes the player's news and raises its events.
  void pump();
  // The sink the next medium plays to.
  std::string sinkDescription() const;

  static constexpr const char* kSinkVariable = "QUINTARA_AUDIO_SINK";
  static constexpr const char* kDefaultSink = "autoaudiosink";

 private:
  void apply(const PlayerReport& r);
  void setState(int s);
  void command(PlayerCommand::Kind kind, double value = 0);

  std::unique_ptr<GstPlayerWorker> worker_;
  std::deque<PlayerReport> pending_;
  uint64_t generation_ = 0;
  std::string file_, sinkSetting_;
  bool ready_ = false, visible_ = false;
  int state_ = 0, volume_ = 0, balance_ = 0;
  double rate_ = 1, position_ = 0, length_ = 0;
};

}  // namespace q
