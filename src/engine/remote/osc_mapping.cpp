#include "engine/remote/osc_mapping.h"

#include <charconv>
#include <cmath>

#include "engine/remote/show_control.h"

namespace q {

namespace {
using Result = OscMapping::Result;

// A path part made of digits only: the strip, channel or cue it names.
bool wholeNumber(std::string_view s, int& n) {
  if (s.empty() || s.size() > 6) return false;
  for (char ch : s)
    if (ch < '0' || ch > '9') return false;
  return std::from_chars(s.data(), s.data() + s.size(), n).ec == std::errc{};
}

// "fader/3" gives "fader" and "3"; the rest after the second part in `rest`.
std::string_view part(std::string_view& path) {
  const size_t slash = path.find('/');
  const std::string_view first = path.substr(0, slash);
  path = slash == std::string_view::npos ? std::string_view{} : path.substr(slash + 1);
  return first;
}

bool oneNumber(const OscMessage& m, double& value) {
  if (m.args.size() != 1 || !m.args[0].isNumber() || !std::isfinite(m.args[0].number)) return false;
  value = m.args[0].number;
  return true;
}
}  // namespace

Result OscMapping::handle(const OscMessage& m) {
  ++received_;
  Result r = Result::Ignored;
  const std::string_view address = m.address;
  if (address.starts_with(kPrefix)) r = dispatch(address.substr(kPrefix.size()), m);
  if (r == Result::Ignored) ++ignored_;
  return r;
}

Result OscMapping::dispatch(std::string_view path, const OscMessage& m) {
  if (path == "go") return press(m, &ShowControl::go);
  if (path == "back") return press(m, &ShowControl::back);
  if (path == "pause") return press(m, &ShowControl::pause);
  if (path == "cut") return press(m, &ShowControl::cut);
  if (path == "grandmaster") return level(m, [this](double v) { return control_.grandMaster(v); });
  if (path == "xfade") return level(m, [this](double v) { return control_.crossfade(v); });
  if (path == "blackout") {
    double v = 0;
    if (!oneNumber(m, v) || (v != 0 && v != 1)) return Result::Ignored;
    control_.blackout(v == 1);
    return Result::Done;
  }
  if (path == "direct") {
    if (m.args.size() != 1 || m.args[0].type != OscArg::Type::String ||
        m.args[0].text.size() > kMaxDirectText)
      return Result::Ignored;
    control_.direct(m.args[0].text);
    return Result::Done;
  }
  const std::string_view kind = part(path);
  int n = 0;
  if (!wholeNumber(part(path), n)) return Result::Ignored;
  if (kind == "fader" && path.empty())
    return level(m, [this, n](double v) { return control_.fader(n, v); });
  if (kind == "chan" && path.empty())
    return level(m, [this, n](double v) { return control_.channel(n, v); });
  if (kind == "cue" && path == "load") {
    // The cue is loaded on the press, as a button's let-go must not load it twice.
    const Result r = press(m, nullptr);
    if (r != Result::Done) return r;
    return control_.loadCue(n) ? Result::Done : Result::Ignored;
  }
  return Result::Ignored;
}

// A button on a control surface sends 1 when pressed and 0 when let go; a
// plain trigger sends no argument. Either presses once.
Result OscMapping::press(const OscMessage& m, void (ShowControl::*key)()) {
  double v = 1;
  if (!m.args.empty() && !oneNumber(m, v)) return Result::Ignored;
  if (v == 0) return Result::Released;
  if (key) (control_.*key)();
  return Result::Done;
}

Result OscMapping::level(const OscMessage& m, auto&& apply) {
  double v = 0;
  if (!oneNumber(m, v) || !apply(v)) return Result::Ignored;
  return Result::Done;
}

}  // namespace q
