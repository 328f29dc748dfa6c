#include "engine/remote/msc.h"

#include <charconv>

#include "engine/remote/show_control.h"

namespace q {

namespace {
constexpr uint8_t kSysexStart = 0xF0, kSysexEnd = 0xF7;
constexpr uint8_t kUniversalRealTime = 0x7F, kShowControl = 0x02;
constexpr uint8_t kLighting = 0x01, kAllTypes = 0x7F;
constexpr uint8_t kGo = 0x01, kStop = 0x02, kResume = 0x03, kReset = 0x0A;
// F0 7F device 02 format command
constexpr size_t kHeader = 6;

bool isCueText(std::span<const uint8_t> s) {
  int points = 0;
  for (uint8_t b : s) {
    if (b == '.')
      ++points;
    else if (b < '0' || b > '9')
      return false;
  }
  return points <= 1 && !s.empty() && s.front() != '.' && s.back() != '.';
}
}  // namespace

std::optional<MscCommand> parseMsc(std::span<const uint8_t> m, int deviceId) {
  if (m.size() < kHeader + 1 || m.front() != kSysexStart || m.back() != kSysexEnd)
    return std::nullopt;
  if (m[1] != kUniversalRealTime || m[3] != kShowControl) return std::nullopt;
  if (m[2] != deviceId && m[2] != kMscAllCall) return std::nullopt;
  if (m[4] != kLighting && m[4] != kAllTypes) return std::nullopt;
  const std::span<const uint8_t> data = m.subspan(kHeader, m.size() - kHeader - 1);
  for (uint8_t b : data)
    if (b > 0x7F) return std::nullopt;  // a status byte inside: a broken message
  MscCommand c;
  switch (m[5]) {
    case kGo:
      c.kind = MscCommand::Kind::Go;
      break;
    case kStop:
      c.kind = MscCommand::Kind::Stop;
      break;
    case kResume:
      c.kind = MscCommand::Kind::Resume;
      break;
    case kReset:
      c.kind = MscCommand::Kind::Reset;
      return c;
    default:
      return std::nullopt;
  }
  // The cue number runs to the first 00 (a list and a path may follow: this
  // console has one list, so they are read past).
  size_t end = 0;
  while (end < data.size() && data[end] != 0) ++end;
  const std::span<const uint8_t> cue = data.first(end);
  if (!cue.empty() && !isCueText(cue)) return std::nullopt;
  if (c.kind == MscCommand::Kind::Go) c.cue.assign(cue.begin(), cue.end());
  return c;
}

bool applyMsc(ShowControl& control, const MscCommand& command) {
  switch (command.kind) {
    case MscCommand::Kind::Go: {
      if (!command.cue.empty()) {
        double number = 0;
        const char* first = command.cue.data();
        const char* last = first + command.cue.size();
        if (std::from_chars(first, last, number).ptr != last || !control.loadCue(number))
          return false;
      }
      control.go();
      return true;
    }
    case MscCommand::Kind::Stop:
      control.stop();
      return true;
    case MscCommand::Kind::Resume:
      control.resume();
      return true;
    case MscCommand::Kind::Reset:
      return control.reset();
  }
  return false;
}

}  // namespace q
