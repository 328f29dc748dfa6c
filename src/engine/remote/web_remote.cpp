#include "engine/remote/web_remote.h"

#include <algorithm>

#include "engine/core/console.h"
#include "engine/playback/cue_function_table.h"
#include "engine/playback/cue_record.h"
#include "engine/remote/show_control.h"
#include "engine/remote/show_state.h"

namespace q {

namespace {
constexpr size_t kLongestMessage = 4096;
constexpr size_t kLongestCommand = 256;
// The row GO fades to: the one in Prog when it is a memory cue; otherwise
// the fade clock passes rows until it meets one (from an empty Prog, the
// first GO plays row 1). 0 when none is left, or none near: a long run of
// other rows is not searched on every look.
long rowGoPlays(const Variables& v, long row) {
  constexpr long kLookAhead = 1000;
  const long from = std::max(row, 0L);
  for (long r = from; r <= v.CueCount && r < from + kLookAhead; ++r)
    if (r >= 1 && cellIsFunction(cueCell(v, r, cue::kFunction), CueFunction::MemoryCue)) return r;
  return 0;
}

}  // namespace

WebRemote::WebRemote(Console& c) : c_(c), check_(c) { c_.registry.add(webPin_); }

WebRemote::~WebRemote() {
  check_.off();
  c_.registry.remove(webPin_);
}

void WebRemote::lock(RemotePin pin) {
  pin_ = std::move(pin);
  webPin_.setCaption(pin_.pin());
}

WebRemote::Client WebRemote::newClient() const {
  Client client;
  client.admitted = !pin_.needed();
  return client;
}

std::string WebRemote::greeting(const Client& client, int64_t nowMs) const {
  return client.admitted ? std::string() : pinRequest(false, nowMs);
}

std::string WebRemote::pinRequest(bool wrong, int64_t nowMs) const {
  return JsonWriter()
      .text("t", "pin")
      .flag("wrong", wrong)
      .number("waitMs", double(pin_.waitMs(nowMs)))
      .done();
}

static std::string refused(std::string_view why) {
  return JsonWriter().text("t", "refused").text("why", why).done();
}

bool WebRemote::withinRate(Client& client, int64_t nowMs) {
  const double elapsed = double(std::max<int64_t>(0, nowMs - client.lastMessageMs)) / 1000.0;
  client.lastMessageMs = nowMs;
  client.tokens = std::min(kBurst, client.tokens + elapsed * kPerSecond);
  if (client.tokens < 1) {
    ++client.dropped;
    return false;
  }
  client.tokens -= 1;
  return true;
}

std::string WebRemote::receive(Client& client, std::string_view message, int64_t nowMs,
                               bool deskBusy) {
  if (!withinRate(client, nowMs)) return {};
  const std::optional<JsonObject> o = readJsonObject(message, kLongestMessage);
  if (!o) return {};
  if (const std::string* given = jsonText(*o, "pin")) return tryPin(client, *given, nowMs);
  if (!client.admitted) return pinRequest(false, nowMs);
  const std::string* what = jsonText(*o, "do");
  if (!what) return {};
  if (deskBusy) return refused("a dialog is open on the desk");
  return act(*what, *o);
}

std::string WebRemote::tryPin(Client& client, const std::string& given, int64_t nowMs) {
  if (client.admitted) return JsonWriter().text("t", "admitted").done();
  switch (pin_.attempt(given, nowMs)) {
    case RemotePin::Answer::Right:
      client.admitted = true;
      return JsonWriter().text("t", "admitted").done();
    case RemotePin::Answer::Wrong:
      return pinRequest(true, nowMs);
    case RemotePin::Answer::TooSoon:
      break;
  }
  return pinRequest(false, nowMs);
}

std::string WebRemote::act(const std::string& what, const JsonObject& o) {
  ShowControl control(c_);
  const std::optional<double> level = jsonNumber(o, "level");
  const std::optional<double> channel = jsonNumber(o, "channel");
  bool done = true;
  if (what == "go") {
    control.go();
  } else if (what == "back") {
    control.back();
  } else if (what == "pause") {
    control.pause();
  } else if (what == "direct") {
    const std::string* text = jsonText(o, "text");
    if (!text || text->size() > kLongestCommand) return refused("no command");
    control.direct(*text);
    return JsonWriter().text("t", "direct").text("text", c_.direct.Direct.text()).done();
  } else if (what == "gm") {
    done = level && control.grandMaster(*level);
  } else if (what == "check") {
    // Whole channels only: 12.5 is no channel.
    done = channel && level && *channel == double(int(*channel)) &&
           check_.check(int(*channel), *level);
  } else if (what == "checkStep") {
    const std::optional<double> delta = jsonNumber(o, "delta");
    done = delta && (*delta == 1 || *delta == -1) && check_.step(int(*delta));
  } else if (what == "checkLevel") {
    done = level && check_.setLevel(*level);
  } else if (what == "checkOff") {
    check_.off();
  } else {
    return refused("unknown action");
  }
  return done ? std::string() : refused("out of range");
}

std::string WebRemote::stateText() {
  const ShowState s = readShowState(c_);
  const Variables& v = c_.v;
  const long row = rowGoPlays(v, c_.memories.nextCue());
  const bool rowShown = row >= 1;
  JsonWriter w;
  w.text("t", "state");
  w.open("stage").text("cue", s.stageCue).text("name", s.stageName).close();
  w.open("prog").text("cue", s.progCue).text("name", s.progName).close();
  w.open("next")
      .number("row", rowShown ? double(row) : 0)
      .text("cue", rowShown ? toText(cueCell(v, row, cue::kNumber)) : "")
      .text("name", rowShown ? toText(cueCell(v, row, cue::kName)) : "")
      .close();
  w.flag("fading", s.fading).flag("paused", s.paused).number("progress", s.fadeProgress);
  w.flag("go", s.goLamp).flag("blackout", s.blackout).number("gm", s.grandMaster);
  w.open("check")
      .flag("on", check_.on())
      .number("channel", check_.channel())
      .number("level", check_.level())
      .close();
  w.number("channels", v.MaxChans);
  return w.done();
}

}  // namespace q
