#include "platform/missing_services.h"

#include <cstdlib>
#include <filesystem>

namespace fs = std::filesystem;

namespace q {

namespace {

bool present(const fs::path& p) {
  std::error_code ec;
  return fs::exists(p, ec);
}

bool soundServerSocket() {
  if (const char* server = std::getenv("PULSE_SERVER"); server && *server) return true;
  const char* runtime = std::getenv("XDG_RUNTIME_DIR");
  if (!runtime || !*runtime) return false;
  return present(fs::path(runtime) / "pulse" / "native") ||
         present(fs::path(runtime) / "pipewire-0");
}

// ALSA names a card's playback devices /dev/snd/pcmC<card>D<device>p.
bool soundCardPlayback() {
  std::error_code ec;
  for (fs::directory_iterator it("/dev/snd", ec), end; !ec && it != end; it.increment(ec)) {
    const std::string name = it->path().filename().string();
    if (name.starts_with("pcmC") && name.ends_with("p")) return true;
  }
  return false;
}

}  // namespace

bool soundOutputPresent() { return soundServerSocket() || soundCardPlayback(); }

std::vector<std::string> missingServiceNews(const ServicesFound& found) {
  std::vector<std::string> news;
  if (!found.midi)
    news.push_back(
        "No MIDI on this computer (no ALSA sequencer): MIDI surfaces and notes are off.");
  if (!found.sound)
    news.push_back("No sound output on this computer: the players will play in silence.");
  return news;
}

}  // namespace q
