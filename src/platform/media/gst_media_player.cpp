#include "platform/media/gst_media_player.h"

#include <cstdlib>

#include "engine/media/player_scales.h"

namespace q {

using Kind = PlayerCommand::Kind;

GstMediaPlayer::GstMediaPlayer() : worker_(std::make_unique<GstPlayerWorker>()) {}

GstMediaPlayer::~GstMediaPlayer() = default;

int GstMediaPlayer::wakeFd() const { return worker_->wakeFd(); }

std::string GstMediaPlayer::sinkDescription() const {
  const char* env = std::getenv(kSinkVariable);
  if (env && *env) return env;
  return sinkSetting_.empty() ? kDefaultSink : sinkSetting_;
}

void GstMediaPlayer::command(Kind kind, double value) {
  PlayerCommand c;
  c.kind = kind;
  c.generation = generation_;
  c.value = value;
  worker_->send(std::move(c));
}

// A new medium replaces the old at once: it is not ready until it has opened,
// and a player that was playing has stopped.
void GstMediaPlayer::setFileName(const std::string& path) {
  file_ = path;
  ++generation_;
  ready_ = false;
  position_ = length_ = 0;
  PlayerCommand c;
  c.kind = path.empty() ? Kind::Unload : Kind::Load;
  c.generation = generation_;
  c.path = path;
  c.sink = sinkDescription();
  worker_->send(std::move(c));
  viewChanged.notify();
  setState(0);
}

void GstMediaPlayer::play() { command(Kind::Play); }
void GstMediaPlayer::pause() { command(Kind::Pause); }
void GstMediaPlayer::stop() { command(Kind::Stop); }

void GstMediaPlayer::setVolume(int v) {
  volume_ = v;
  command(Kind::Volume, gainForVolume(v));
}

void GstMediaPlayer::setBalance(int b) {
  balance_ = b;
  command(Kind::Pan, panForBalance(b));
}

void GstMediaPlayer::setRate(double r) {
  rate_ = r;
  command(Kind::Rate, r);
}

void GstMediaPlayer::setVisible(bool v) {
  if (v == visible_) return;
  visible_ = v;
  viewChanged.notify();
}

// News is applied one report at a time from one queue, so that a handler that
// waits on a message box (while the desk pumps again) keeps the order.
void GstMediaPlayer::pump() {
  for (PlayerReport& r : worker_->take()) pending_.push_back(std::move(r));
  while (!pending_.empty()) {
    PlayerReport r = std::move(pending_.front());
    pending_.pop_front();
    if (r.generation == generation_) apply(r);
  }
}

void GstMediaPlayer::apply(const PlayerReport& r) {
  switch (r.kind) {
    case PlayerReport::Kind::Ready:
      ready_ = true;
      length_ = r.length;
      viewChanged.notify();
      return;
    case PlayerReport::Kind::State:
      setState(r.state);
      return;
    case PlayerReport::Kind::Position:
      position_ = r.position;
      if (r.length > 0) length_ = r.length;
      viewChanged.notify();
      return;
    case PlayerReport::Kind::Failed:
      ready_ = false;
      viewChanged.notify();
      if (onFailure) onFailure(r.reason);
      return;
  }
}

void GstMediaPlayer::setState(int s) {
  if (s == state_) return;
  const int old = state_;
  state_ = s;
  viewChanged.notify();
  if (onPlayStateChange) onPlayStateChange(old, s);
}

}  // namespace q
