// The players on real GStreamer, without a sound card: a 1 kHz tone is played
// through the adapter into a WAV file (QUINTARA_AUDIO_SINK) and measured.
// Volume, balance and speed must come out as the console's numbers say;
// the states must be told in order, on the thread that pumps the player; a
// file that can't be played must be told once and leave the player not ready.

#include <gst/gst.h>
#include <gtest/gtest.h>
#include <poll.h>

#include <chrono>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>
#include <vector>

#include "platform/media/gst_media_player.h"

namespace q::test {
namespace {

namespace fs = std::filesystem;
constexpr int kRate = 44100;
constexpr double kToneAmplitude = 0.25;

void put16(std::ofstream& f, uint16_t v) { f.write(reinterpret_cast<const char*>(&v), 2); }
void put32(std::ofstream& f, uint32_t v) { f.write(reinterpret_cast<const char*>(&v), 4); }

// A stereo 16-bit tone of 1 kHz, the same on both channels.
void writeTone(const fs::path& path, double secondsLong) {
  const uint32_t frames = uint32_t(secondsLong * kRate);
  std::ofstream f(path, std::ios::binary);
  f.write("RIFF", 4);
  put32(f, 36 + frames * 4);
  f.write("WAVEfmt ", 8);
  put32(f, 16);
  put16(f, 1);
  put16(f, 2);
  put32(f, kRate);
  put32(f, kRate * 4);
  put16(f, 4);
  put16(f, 16);
  f.write("data", 4);
  put32(f, frames * 4);
  for (uint32_t i = 0; i < frames; ++i) {
    const auto s =
        int16_t(std::lround(32767 * kToneAmplitude * std::sin(2 * M_PI * 1000 * i / kRate)));
    put16(f, uint16_t(s));
    put16(f, uint16_t(s));
  }
}

struct Recording {
  int channels = 0, rate = 0;
  std::vector<std::vector<double>> samples;  // per channel, -1..1
  double seconds() const { return samples.empty() ? 0 : double(samples[0].size()) / rate; }
  // The tone's frequency, from the zero crossings of the left channel.
  double frequency() const {
    const auto& s = samples.at(0);
    int crossings = 0;
    for (size_t i = 1; i < s.size(); ++i) crossings += (s[i - 1] < 0) != (s[i] < 0);
    return crossings / 2.0 / seconds();
  }
  // RMS level of a channel in dB full scale, over the middle of the recording.
  double levelDb(int ch) const {
    const auto& s = samples.at(size_t(ch));
    const size_t from = s.size() / 10, to = s.size() - s.size() / 10;
    double sum = 0;
    for (size_t i = from; i < to; ++i) sum += s[i] * s[i];
    return 10 * std::log10(sum / double(to - from) + 1e-30);
  }
};

// Reads what wavenc wrote: integer PCM of 16 or 32 bits, or 32-bit float.
Recording readWav(const fs::path& path) {
  std::ifstream f(path, std::ios::binary);
  std::vector<char> b((std::istreambuf_iterator<char>(f)), {});
  Recording r;
  auto u16 = [&](size_t at) { return uint16_t(uint8_t(b[at]) | uint8_t(b[at + 1]) << 8); };
  auto u32 = [&](size_t at) { return uint32_t(u16(at) | uint32_t(u16(at + 2)) << 16); };
  int format = 0, bits = 0;
  for (size_t at = 12; at + 8 <= b.size();) {
    const std::string id(&b[at], 4);
    const size_t size = u32(at + 4);
    if (id == "fmt ") {
      format = u16(at + 8);
      r.channels = u16(at + 10);
      r.rate = int(u32(at + 12));
      bits = u16(at + 22);
    } else if (id == "data" && r.channels > 0) {
      const size_t bytes = bits / 8, end = std::min(b.size(), at + 8 + size);
      r.samples.assign(size_t(r.channels), {});
      for (size_t p = at + 8; p + bytes * size_t(r.channels) <= end;)
        for (int c = 0; c < r.channels; ++c, p += bytes) {
          double v = 0;
          if (format == 3 && bits == 32) {
            float x;
            std::memcpy(&x, &b[p], 4);
            v = x;
          } else if (bits == 16) {
            v = int16_t(u16(p)) / 32768.0;
          } else if (bits == 32) {
            v = int32_t(u32(p)) / 2147483648.0;
          }
          r.samples[size_t(c)].push_back(v);
        }
      break;
    }
    at += 8 + size + (size & 1);
  }
  return r;
}

// One second of a test tone, encoded by GStreamer's LAME element.
bool encodeMp3(const fs::path& out) {
  if (!gst_init_check(nullptr, nullptr, nullptr)) return false;
  const std::string line =
      "audiotestsrc num-buffers=44 ! lamemp3enc ! filesink location=" + out.string();
  GstElement* pipe = gst_parse_launch(line.c_str(), nullptr);
  if (!pipe) return false;
  gst_element_set_state(pipe, GST_STATE_PLAYING);
  GstBus* bus = gst_element_get_bus(pipe);
  GstMessage* m = gst_bus_timed_pop_filtered(bus, 10 * GST_SECOND,
                                             GstMessageType(GST_MESSAGE_EOS | GST_MESSAGE_ERROR));
  const bool ok = m && GST_MESSAGE_TYPE(m) == GST_MESSAGE_EOS;
  if (m) gst_message_unref(m);
  gst_object_unref(bus);
  gst_element_set_state(pipe, GST_STATE_NULL);
  gst_object_unref(pipe);
  return ok && fs::file_size(out) > 0;
}

class GstPlayerTest : public ::testing::Test {
 protected:
  GstPlayerTest()
      : dir_(fs::temp_directory_path() / ("quintara-gst-" + std::to_string(::getpid()))) {
    fs::create_directories(dir_);
    writeTone(dir_ / "tone.wav", 1.0);
  }
  ~GstPlayerTest() override {
    unsetenv(GstMediaPlayer::kSinkVariable);
    std::error_code ec;
    fs::remove_all(dir_, ec);
  }

  // Pumps the player as the console's loop does until cond holds; false after the time limit.
  static bool pumpUntil(GstMediaPlayer& p, const std::function<bool()>& cond, int limitMs = 10000) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(limitMs);
    while (!cond()) {
      if (std::chrono::steady_clock::now() > end) return false;
      pollfd fd{p.wakeFd(), POLLIN, 0};
      if (::poll(&fd, 1, 50) > 0) p.pump();
    }
    return true;
  }

  // Plays the tone to its end into a WAV file, with the player set up by `setup`.
  Recording record(const std::string& name, const std::function<void(GstMediaPlayer&)>& setup) {
    const fs::path out = dir_ / (name + ".wav");
    setenv(GstMediaPlayer::kSinkVariable, ("wavenc ! filesink location=" + out.string()).c_str(),
           1);
    {
      GstMediaPlayer p;
      std::vector<int> states;
      p.onPlayStateChange = [&](int, int s) { states.push_back(s); };
      setup(p);
      p.setFileName((dir_ / "tone.wav").string());
      EXPECT_TRUE(pumpUntil(p, [&] { return p.ready(); })) << name;
      p.play();
      EXPECT_TRUE(pumpUntil(p, [&] { return states == std::vector<int>{2, 0}; })) << name;
    }
    return readWav(out);
  }

  fs::path dir_;
};

TEST_F(GstPlayerTest, VolumeIsHundredthsOfADecibel) {
  const Recording full = record("full", [](GstMediaPlayer&) {});
  const Recording down = record("down", [](GstMediaPlayer& p) { p.setVolume(-600); });
  ASSERT_EQ(full.channels, 2);
  const double toneDb = 20 * std::log10(kToneAmplitude / std::sqrt(2.0));
  std::printf("level at volume 0: %.2f dBFS (the file holds %.2f); at -600: %.2f dBFS\n",
              full.levelDb(0), toneDb, down.levelDb(0));
  EXPECT_NEAR(full.levelDb(0), toneDb, 0.1);
  EXPECT_NEAR(down.levelDb(0) - full.levelDb(0), -6.0, 0.5);
}

TEST_F(GstPlayerTest, BalanceTakesTheFarSideDownByItsValue) {
  for (int balance : {-2000, 0, 2000}) {
    const Recording r = record("balance" + std::to_string(balance + 2000),
                               [balance](GstMediaPlayer& p) { p.setBalance(balance); });
    ASSERT_EQ(r.channels, 2);
    const double leftOverRight = r.levelDb(0) - r.levelDb(1);
    std::printf("balance %d: left %.2f dBFS, right %.2f dBFS, left/right %.2f dB\n", balance,
                r.levelDb(0), r.levelDb(1), leftOverRight);
    EXPECT_NEAR(leftOverRight, -balance / 100.0, 0.5) << balance;
    EXPECT_NEAR(std::max(r.levelDb(0), r.levelDb(1)),
                20 * std::log10(kToneAmplitude / std::sqrt(2.0)), 0.5);
  }
}

TEST_F(GstPlayerTest, RateTwoPlaysInHalfTheTime) {
  const Recording normal = record("normal", [](GstMediaPlayer&) {});
  const Recording fast = record("fast", [](GstMediaPlayer& p) { p.setRate(2.0); });
  std::printf("duration at rate 1: %.3f s, at rate 2: %.3f s; tone at rate 2: %.0f Hz\n",
              normal.seconds(), fast.seconds(), fast.frequency());
  EXPECT_NEAR(normal.seconds(), 1.0, 0.05);
  EXPECT_NEAR(fast.seconds(), 0.5, 0.05);
  // Faster, not higher: the pitch stays.
  EXPECT_NEAR(fast.frequency(), 1000, 30);
}

TEST_F(GstPlayerTest, StatesAreToldInOrderOnThePumpingThread) {
  writeTone(dir_ / "long.wav", 3.0);
  setenv(GstMediaPlayer::kSinkVariable, "fakesink sync=true", 1);
  GstMediaPlayer p;
  std::vector<std::pair<int, int>> events;
  const auto pumping = std::this_thread::get_id();
  bool elsewhere = false;
  p.onPlayStateChange = [&](int from, int to) {
    events.emplace_back(from, to);
    elsewhere |= std::this_thread::get_id() != pumping;
  };
  p.setFileName((dir_ / "long.wav").string());
  EXPECT_FALSE(p.ready());  // it opens in the background
  ASSERT_TRUE(pumpUntil(p, [&] { return p.ready(); }));
  EXPECT_NEAR(p.length(), 3.0, 0.05);
  p.play();
  ASSERT_TRUE(pumpUntil(p, [&] { return p.playState() == 2; }));
  ASSERT_TRUE(pumpUntil(p, [&] { return p.position() > 0.2; }));
  p.pause();
  ASSERT_TRUE(pumpUntil(p, [&] { return p.playState() == 1; }));
  p.play();
  ASSERT_TRUE(pumpUntil(p, [&] { return p.playState() == 2; }));
  p.stop();
  ASSERT_TRUE(pumpUntil(p, [&] { return p.playState() == 0; }));
  const std::vector<std::pair<int, int>> expected = {{0, 2}, {2, 1}, {1, 2}, {2, 0}};
  EXPECT_EQ(events, expected);
  EXPECT_FALSE(elsewhere);
  EXPECT_TRUE(p.ready());  // stopped, and ready to play again at once
  // A new medium stops the player at once.
  p.play();
  ASSERT_TRUE(pumpUntil(p, [&] { return p.playState() == 2; }));
  p.setFileName((dir_ / "tone.wav").string());
  EXPECT_EQ(p.playState(), 0);
  EXPECT_FALSE(p.ready());
}

TEST_F(GstPlayerTest, PlaysMp3) {
  // An MP3 made here by GStreamer's own encoder, where the machine has it.
  setenv(GstMediaPlayer::kSinkVariable, "fakesink", 1);
  const fs::path mp3 = dir_ / "tone.mp3";
  if (!encodeMp3(mp3)) GTEST_SKIP() << "no MP3 encoder here";
  GstMediaPlayer p;
  std::vector<int> states;
  p.onPlayStateChange = [&](int, int s) { states.push_back(s); };
  p.setFileName(mp3.string());
  ASSERT_TRUE(pumpUntil(p, [&] { return p.ready(); }));
  p.play();
  EXPECT_TRUE(pumpUntil(p, [&] { return states == std::vector<int>{2, 0}; }));
}

TEST_F(GstPlayerTest, AFileThatCantBePlayedIsToldOnceAndLeavesThePlayerNotReady) {
  setenv(GstMediaPlayer::kSinkVariable, "fakesink", 1);
  std::ofstream(dir_ / "notes.txt") << "this is no sound\n";
  struct Case {
    std::string file, reason;
  };
  for (const Case& c :
       {Case{(dir_ / "missing.wav").string(), "the file can't be found"},
        Case{(dir_ / "notes.txt").string(), "it is no sound file the console can play"},
        Case{dir_.string(), "it is a folder, not a sound file"}}) {
    GstMediaPlayer p;
    std::vector<std::string> told;
    p.onFailure = [&](const std::string& why) { told.push_back(why); };
    p.setFileName(c.file);
    ASSERT_TRUE(pumpUntil(p, [&] { return !told.empty(); })) << c.file;
    pumpUntil(
        p, [] { return false; }, 300);
    EXPECT_EQ(told, std::vector<std::string>{c.reason}) << c.file;
    EXPECT_FALSE(p.ready());
    p.play();
    pumpUntil(
        p, [] { return false; }, 200);
    EXPECT_EQ(p.playState(), 0);
  }
}

TEST_F(GstPlayerTest, ASinkThatCantBeMadeIsTold) {
  setenv(GstMediaPlayer::kSinkVariable, "nosuchsink", 1);
  GstMediaPlayer p;
  std::string told;
  p.onFailure = [&](const std::string& why) { told = why; };
  p.setFileName((dir_ / "tone.wav").string());
  ASSERT_TRUE(pumpUntil(p, [&] { return !told.empty(); }));
  EXPECT_NE(told.find("the sound output \"nosuchsink\" can't be made"), std::string::npos) << told;
}

TEST_F(GstPlayerTest, TheSinkComesFromTheEnvironmentThenTheSettingThenTheDesktop) {
  GstMediaPlayer p;
  EXPECT_EQ(p.sinkDescription(), "autoaudiosink");
  p.setAudioSink("alsasink device=hw:1");
  EXPECT_EQ(p.sinkDescription(), "alsasink device=hw:1");
  setenv(GstMediaPlayer::kSinkVariable, "fakesink", 1);
  EXPECT_EQ(p.sinkDescription(), "fakesink");
}

}  // namespace
}  // namespace q::test
