#include "engine/remote/osc_feedback.h"

namespace q {

namespace {
OscMessage text(const char* path, const std::string& s) {
  return {std::string("/quintara/") + path, {OscArg::string(s)}};
}
OscMessage lit(const char* path, bool on) {
  return {std::string("/quintara/") + path, {OscArg::integer(on ? 1 : 0)}};
}
OscMessage level(std::string path, double v) {
  return {"/quintara/" + path, {OscArg::real(float(v))}};
}
}  // namespace

std::vector<OscMessage> feedbackMessages(const ShowState& s) {
  std::vector<OscMessage> out = {
      text("stage/cue", s.stageCue), text("stage/name", s.stageName), text("prog/cue", s.progCue),
      text("prog/name", s.progName), text("nextcue", s.nextCue),      lit("fading", s.fading),
      lit("paused", s.paused),       lit("golamp", s.goLamp),         lit("blackout", s.blackout),
  };
  if (s.fading) out.push_back(level("fade", s.fadeProgress));
  for (int n = 0; n < ShowState::kStrips; ++n)
    out.push_back(level("fader/" + std::to_string(n + 1), s.strips[size_t(n)]));
  out.push_back(level("grandmaster", s.grandMaster));
  out.push_back(level("xfade", s.crossfade));
  return out;
}

void OscFeedback::update(const ShowState& s) {
  for (OscMessage& m : feedbackMessages(s)) offer(std::move(m));
}

void OscFeedback::offer(OscMessage m) {
  auto known = known_.find(m.address);
  if (known != known_.end() && known->second == m) return;
  known_[m.address] = m;
  pending_[m.address] = std::move(m);
}

std::vector<OscMessage> OscFeedback::take(int64_t nowMs) {
  std::vector<OscMessage> due;
  for (auto it = pending_.begin(); it != pending_.end();) {
    auto sent = sentAt_.find(it->first);
    if (sent != sentAt_.end() && nowMs - sent->second < kSpacingMs && nowMs >= sent->second) {
      ++it;
      continue;
    }
    sentAt_[it->first] = nowMs;
    due.push_back(std::move(it->second));
    it = pending_.erase(it);
  }
  return due;
}

void OscFeedback::forget() {
  known_.clear();
  pending_.clear();
}

}  // namespace q
