#include "platform/media/gst_player_worker.h"

#include <gst/gst.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <filesystem>
#include <mutex>
#include <utility>

namespace q {

namespace {

constexpr auto kPositionEvery = std::chrono::milliseconds(250);
// playbin's flags: sound only, with its own volume. A video file plays its sound.
constexpr guint kPlayAudio = 0x2, kPlaySoftVolume = 0x10;
// Speed without a jump in pitch, then the balance. Each later form leaves
// out a piece a machine may lack: the player then plays without it.
const char* const kFilters[] = {
    "audioconvert ! scaletempo ! audioconvert ! audiopanorama name=pan method=simple ! "
    "audioconvert",
    "audioconvert ! audiopanorama name=pan method=simple ! audioconvert",
};

std::string gstStartFailure() {
  static std::once_flag once;
  static std::string failure;
  std::call_once(once, [] {
    GError* err = nullptr;
    if (!gst_init_check(nullptr, nullptr, &err)) {
      failure = std::string("GStreamer can't start: ") + (err ? err->message : "unknown error");
      if (err) g_error_free(err);
    }
  });
  return failure;
}

GstBusSyncReply onBus(GstBus*, GstMessage* m, gpointer self) {
  static_cast<GstPlayerWorker*>(self)->posted(m);
  return GST_BUS_DROP;
}

// A file the console can't even open is told before GStreamer is asked.
std::string fileProblem(const std::string& path) {
  std::error_code ec;
  if (!std::filesystem::exists(path, ec)) return "the file can't be found";
  if (std::filesystem::is_directory(path, ec)) return "it is a folder, not a sound file";
  if (::access(path.c_str(), R_OK) != 0) return "the file can't be read";
  return {};
}

double seconds(gint64 ns) { return ns > 0 ? double(ns) / double(GST_SECOND) : 0.0; }

}  // namespace

std::string describeGstError(unsigned domain, int code, const std::string& message) {
  if (domain == GST_STREAM_ERROR) {
    if (code == GST_STREAM_ERROR_CODEC_NOT_FOUND)
      return "no decoder for its format is installed (" + message + ")";
    if (code == GST_STREAM_ERROR_TYPE_NOT_FOUND || code == GST_STREAM_ERROR_WRONG_TYPE)
      return "it is no sound file the console can play";
    if (code == GST_STREAM_ERROR_DECODE || code == GST_STREAM_ERROR_DEMUX)
      return "the file is damaged (" + message + ")";
  }
  if (domain == GST_CORE_ERROR && code == GST_CORE_ERROR_MISSING_PLUGIN)
    return "a part of GStreamer it needs is not installed (" + message + ")";
  if (domain == GST_RESOURCE_ERROR) {
    if (code == GST_RESOURCE_ERROR_NOT_FOUND) return "the file can't be found";
    if (code == GST_RESOURCE_ERROR_OPEN_READ || code == GST_RESOURCE_ERROR_READ)
      return "the file can't be read";
    if (code == GST_RESOURCE_ERROR_OPEN_WRITE || code == GST_RESOURCE_ERROR_OPEN_READ_WRITE ||
        code == GST_RESOURCE_ERROR_BUSY)
      return "the sound output can't be opened (" + message + ")";
  }
  return message;
}

GstPlayerWorker::GstPlayerWorker()
    : wakeFd_(eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC)), thread_([this] { run(); }) {}

GstPlayerWorker::~GstPlayerWorker() {
  PlayerCommand quit;
  quit.kind = PlayerCommand::Kind::Quit;
  send(std::move(quit));
  if (thread_.joinable()) thread_.join();
  for (GstMessage* m : messages_) gst_message_unref(m);
  if (wakeFd_ >= 0) ::close(wakeFd_);
}

void GstPlayerWorker::send(PlayerCommand c) {
  {
    std::lock_guard lock(mutex_);
    commands_.push_back(std::move(c));
  }
  wake_.notify_one();
}

std::vector<PlayerReport> GstPlayerWorker::take() {
  uint64_t n;
  [[maybe_unused]] auto r = ::read(wakeFd_, &n, sizeof n);
  std::lock_guard lock(mutex_);
  return std::exchange(reports_, {});
}

void GstPlayerWorker::posted(GstMessage* m) {
  switch (GST_MESSAGE_TYPE(m)) {
    case GST_MESSAGE_ERROR:
    case GST_MESSAGE_EOS:
    case GST_MESSAGE_ASYNC_DONE:
    case GST_MESSAGE_DURATION_CHANGED:
      break;
    default:
      gst_message_unref(m);
      return;
  }
  {
    std::lock_guard lock(mutex_);
    messages_.push_back(m);
  }
  wake_.notify_one();
}

void GstPlayerWorker::report(PlayerReport r) {
  r.generation = generation_;
  {
    std::lock_guard lock(mutex_);
    reports_.push_back(std::move(r));
  }
  const uint64_t one = 1;
  [[maybe_unused]] auto n = ::write(wakeFd_, &one, sizeof one);
}

void GstPlayerWorker::run() {
  auto lastPosition = std::chrono::steady_clock::now();
  std::unique_lock lock(mutex_);
  for (;;) {
    auto due = [this] { return !commands_.empty() || !messages_.empty(); };
    if (pollingPosition())
      wake_.wait_until(lock, lastPosition + kPositionEvery, due);
    else
      wake_.wait(lock, due);
    std::deque<PlayerCommand> commands = std::exchange(commands_, {});
    std::deque<GstMessage*> messages = std::exchange(messages_, {});
    lock.unlock();
    bool quit = false;
    for (GstMessage* m : messages) {
      handle(m);
      gst_message_unref(m);
    }
    for (const PlayerCommand& c : commands) {
      if (c.kind == PlayerCommand::Kind::Quit) quit = true;
      if (!quit) handle(c);
    }
    if (quit) {
      teardown();
      return;
    }
    const auto now = std::chrono::steady_clock::now();
    if (pollingPosition() && now - lastPosition >= kPositionEvery) {
      reportPosition();
      lastPosition = now;
    }
    lock.lock();
  }
}

void GstPlayerWorker::handle(const PlayerCommand& c) {
  using K = PlayerCommand::Kind;
  switch (c.kind) {
    case K::Load:
      load(c);
      return;
    case K::Unload:
      teardown();
      generation_ = c.generation;
      return;
    case K::Volume:
      gain_ = std::clamp(c.value, 0.0, 10.0);
      if (pipeline_) g_object_set(pipeline_, "volume", gain_, nullptr);
      return;
    case K::Pan:
      panValue_ = std::clamp(c.value, -1.0, 1.0);
      if (pan_) g_object_set(pan_, "panorama", float(panValue_), nullptr);
      return;
    case K::Rate:
      setRate(c.value);
      return;
    default:
      break;
  }
  // Play, pause and stop belong to the medium they were given for.
  if (c.generation != generation_) return;
  if (c.kind == K::Play) play();
  if (c.kind == K::Pause) pause();
  if (c.kind == K::Stop) stop();
}

void GstPlayerWorker::load(const PlayerCommand& c) {
  teardown();
  generation_ = c.generation;
  phase_ = Phase::Loading;
  if (std::string f = gstStartFailure(); !f.empty()) return failed(f);
  if (std::string f = fileProblem(c.path); !f.empty()) return failed(f);
  GError* err = nullptr;
  gchar* uri = gst_filename_to_uri(c.path.c_str(), &err);
  if (!uri) {
    const std::string why = err ? err->message : "it has no usable name";
    if (err) g_error_free(err);
    return failed(why);
  }
  GstElement* sink = gst_parse_bin_from_description(c.sink.c_str(), TRUE, &err);
  if (!sink) {
    const std::string why = "the sound output \"" + c.sink + "\" can't be made" +
                            (err ? std::string(": ") + err->message : std::string());
    if (err) g_error_free(err);
    g_free(uri);
    return failed(why);
  }
  GstElement* filter = nullptr;
  for (const char* f : kFilters) {
    if (err) g_clear_error(&err);
    if ((filter = gst_parse_bin_from_description(f, TRUE, &err))) break;
  }
  if (err) g_clear_error(&err);
  pipeline_ = gst_element_factory_make("playbin", nullptr);
  if (!pipeline_) {
    gst_object_unref(gst_object_ref_sink(sink));
    if (filter) gst_object_unref(gst_object_ref_sink(filter));
    g_free(uri);
    return failed("GStreamer's player is not installed (package gstreamer1.0-plugins-base)");
  }
  g_object_set(pipeline_, "uri", uri, "audio-sink", sink, "flags", kPlayAudio | kPlaySoftVolume,
               "volume", gain_, nullptr);
  g_free(uri);
  if (filter) {
    g_object_set(pipeline_, "audio-filter", filter, nullptr);
    pan_ = gst_bin_get_by_name(GST_BIN(filter), "pan");
    if (pan_) g_object_set(pan_, "panorama", float(panValue_), nullptr);
  }
  GstBus* bus = gst_element_get_bus(pipeline_);
  gst_bus_set_sync_handler(bus, onBus, this, nullptr);
  gst_object_unref(bus);
  // Prerolled in pause: the medium is then ready to start at once.
  if (gst_element_set_state(pipeline_, GST_STATE_PAUSED) == GST_STATE_CHANGE_FAILURE) {
    // The bus has the reason, or will have it; without one this is told instead.
    std::unique_lock lock(mutex_);
    for (GstMessage* m : messages_)
      if (GST_MESSAGE_TYPE(m) == GST_MESSAGE_ERROR) return;
    lock.unlock();
    failed("it can't be opened");
  }
}

// Everything of the last medium goes; its bus is quiet before its messages are dropped.
void GstPlayerWorker::teardown() {
  if (pan_) gst_object_unref(pan_);
  pan_ = nullptr;
  if (pipeline_) {
    gst_element_set_state(pipeline_, GST_STATE_NULL);
    GstBus* bus = gst_element_get_bus(pipeline_);
    gst_bus_set_sync_handler(bus, nullptr, nullptr, nullptr);
    gst_object_unref(bus);
    gst_object_unref(pipeline_);
    pipeline_ = nullptr;
    std::lock_guard lock(mutex_);
    for (GstMessage* m : messages_) gst_message_unref(m);
    messages_.clear();
  }
  phase_ = Phase::Empty;
  state_ = 0;
  playWhenReady_ = false;
  atEnd_ = false;
  appliedRate_ = 1;
}

void GstPlayerWorker::handle(GstMessage* m) {
  if (!pipeline_) return;
  switch (GST_MESSAGE_TYPE(m)) {
    case GST_MESSAGE_ERROR: {
      GError* err = nullptr;
      gchar* debug = nullptr;
      gst_message_parse_error(m, &err, &debug);
      const std::string why =
          err ? describeGstError(err->domain, err->code, err->message) : "it can't be played";
      if (err) g_error_free(err);
      g_free(debug);
      if (phase_ == Phase::Loading || phase_ == Phase::Ready) failed(why);
      return;
    }
    case GST_MESSAGE_ASYNC_DONE:
      // Also after every seek: only the first, the end of the preroll, matters.
      if (phase_ == Phase::Loading) prerolled();
      return;
    case GST_MESSAGE_EOS:
      if (phase_ == Phase::Ready) reachedEnd();
      return;
    case GST_MESSAGE_DURATION_CHANGED:
      if (phase_ == Phase::Ready) reportPosition();
      return;
    default:
      return;
  }
}

void GstPlayerWorker::prerolled() {
  phase_ = Phase::Ready;
  if (rate_ != 1) setRate(rate_);
  PlayerReport r;
  r.kind = PlayerReport::Kind::Ready;
  gint64 len = 0;
  if (gst_element_query_duration(pipeline_, GST_FORMAT_TIME, &len)) r.length = seconds(len);
  report(r);
  if (std::exchange(playWhenReady_, false)) play();
}

// A Play given while the medium still opens starts it when it is ready.
void GstPlayerWorker::play() {
  if (phase_ == Phase::Loading) playWhenReady_ = true;
  if (phase_ != Phase::Ready || state_ == 2) return;
  if (std::exchange(atEnd_, false)) seekTo(0);
  if (gst_element_set_state(pipeline_, GST_STATE_PLAYING) == GST_STATE_CHANGE_FAILURE) return;
  reportState(2);
}

void GstPlayerWorker::pause() {
  playWhenReady_ = false;
  if (phase_ != Phase::Ready || state_ != 2) return;
  gst_element_set_state(pipeline_, GST_STATE_PAUSED);
  reportState(1);
  reportPosition();
}

// Stopped is paused at the start: the medium stays ready to play again at once.
void GstPlayerWorker::stop() {
  playWhenReady_ = false;
  if (phase_ != Phase::Ready || state_ == 0) return;
  gst_element_set_state(pipeline_, GST_STATE_PAUSED);
  seekTo(0);
  reportState(0);
  reportPosition();
}

// At the end the player counts as stopped; the pipeline is left as it stands
// (a recording sink has just closed its file) until it is played again.
void GstPlayerWorker::reachedEnd() {
  atEnd_ = true;
  reportState(0);
  PlayerReport r;
  r.kind = PlayerReport::Kind::Position;
  gint64 len = 0;
  if (gst_element_query_duration(pipeline_, GST_FORMAT_TIME, &len)) r.length = seconds(len);
  report(r);
}

// A new speed is a seek from where the medium stands; scaletempo keeps its pitch.
void GstPlayerWorker::setRate(double r) {
  if (!std::isfinite(r) || r <= 0) return;
  rate_ = std::clamp(r, 0.01, 16.0);
  if (phase_ != Phase::Ready || rate_ == appliedRate_) return;
  gint64 at = 0;
  if (!gst_element_query_position(pipeline_, GST_FORMAT_TIME, &at) || at < 0) at = 0;
  appliedRate_ = rate_;
  seekTo(at);
}

void GstPlayerWorker::seekTo(int64_t ns) {
  gst_element_seek(pipeline_, appliedRate_, GST_FORMAT_TIME,
                   GstSeekFlags(GST_SEEK_FLAG_FLUSH | GST_SEEK_FLAG_ACCURATE), GST_SEEK_TYPE_SET,
                   ns, GST_SEEK_TYPE_NONE, GST_CLOCK_TIME_NONE);
}

void GstPlayerWorker::failed(const std::string& reason) {
  const bool wasPlaying = state_ != 0;
  teardown();
  phase_ = Phase::Failed;
  if (wasPlaying) reportState(0);
  PlayerReport r;
  r.kind = PlayerReport::Kind::Failed;
  r.reason = reason;
  report(r);
}

void GstPlayerWorker::reportState(int s) {
  state_ = s;
  PlayerReport r;
  r.kind = PlayerReport::Kind::State;
  r.state = s;
  report(r);
}

void GstPlayerWorker::reportPosition() {
  if (!pipeline_) return;
  PlayerReport r;
  r.kind = PlayerReport::Kind::Position;
  gint64 pos = 0, len = 0;
  if (state_ != 0 && gst_element_query_position(pipeline_, GST_FORMAT_TIME, &pos))
    r.position = seconds(pos);
  if (gst_element_query_duration(pipeline_, GST_FORMAT_TIME, &len)) r.length = seconds(len);
  report(r);
}

}  // namespace q
