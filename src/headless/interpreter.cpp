#include "headless/interpreter.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <thread>

#include "engine/controls/handler_scope.h"
#include "engine/core/console.h"
#include "engine/core/scripted_dialogs.h"
#include "headless/properties.h"
#include "headless/words.h"

namespace q {

namespace {
// One day of show time: far beyond any rehearsal, and short enough that a
// mistyped number cannot keep the console ticking for years.
constexpr int64_t kMaxAdvanceMs = 86'400'000;
// A point far beyond any control, yet one that a handler may still turn into
// a whole number of cells or pixels.
constexpr double kMaxPoint = 1e9;

MouseButton mouseButton(const std::string& b) {
  if (b == "left") return MouseButton::Left;
  if (b == "right") return MouseButton::Right;
  throw ScriptError("unknown mouse button " + quoted(b) + " (left or right)");
}

// A word that starts like a number is the point, anything else the button.
bool startsNumber(const std::string& word) {
  const char ch = word[0];
  return (ch >= '0' && ch <= '9') || ch == '-' || ch == '+' || ch == '.';
}

// The rest of a mouse command: `[left|right] [X Y]` (the button only where
// the command takes one). Left and the point 0, 0 where they are left out.
MouseEvent mouseEvent(Words& w, bool withButton) {
  MouseEvent e(MouseButton::Left, 0, 0);
  std::string word;
  if (withButton && Words(w).next(word) && !startsNumber(word))
    e.button = mouseButton(w.need("mouse button"));
  if (Words(w).next(word)) {
    e.x = w.real("X", kMaxPoint);
    e.y = w.real("Y", kMaxPoint);
  }
  w.end();
  return e;
}
}  // namespace

namespace {
// One or two hexadecimal digits: a byte.
uint8_t hexByte(const std::string& word) {
  unsigned value = 0;
  const auto [end, ec] = std::from_chars(word.data(), word.data() + word.size(), value, 16);
  if (word.empty() || word.size() > 2 || ec != std::errc{} || end != word.data() + word.size())
    throw ScriptError("not a hexadecimal byte: " + word);
  return uint8_t(value);
}
}  // namespace

const std::map<std::string, Interpreter::Verb> Interpreter::verbs_ = {
    {"down", &Interpreter::mouseDown},    {"up", &Interpreter::mouseUp},
    {"press", &Interpreter::press},       {"click", &Interpreter::click},
    {"dblclick", &Interpreter::dblClick}, {"set", &Interpreter::set},
    {"type", &Interpreter::type},         {"key", &Interpreter::key},
    {"enter", &Interpreter::enter},       {"keydown", &Interpreter::keyDown},
    {"keyup", &Interpreter::keyUp},       {"midi", &Interpreter::midi},
    {"sysex", &Interpreter::sysex},       {"drop", &Interpreter::drop},
    {"answer", &Interpreter::answer},     {"load", &Interpreter::load},
    {"save", &Interpreter::save},         {"advance", &Interpreter::advance},
    {"tick", &Interpreter::tick},         {"quit", &Interpreter::quit},
    {"get", &Interpreter::get},           {"dmx", &Interpreter::dmx},
    {"move", &Interpreter::move},         {"activate", &Interpreter::activate},
    {"close", &Interpreter::close},
};

Interpreter::Interpreter(Console& console, ScriptedDialogs& dialogs, VirtualClock* clock,
                         std::ostream& out)
    : c_(console), dialogs_(dialogs), clock_(clock), out_(out) {
  // Boxes are printed the moment they open, between the lines of whatever command opened them.
  dialogs_.onShow = [this](const std::string& line) { print(line); };
}

Interpreter::~Interpreter() { dialogs_.onShow = nullptr; }

void Interpreter::print(const std::string& line) { out_ << line << '\n'; }

bool Interpreter::execute(const std::string& rawLine, int lineNo) {
  if (rawLine.size() > kMaxLineBytes) {
    lineTooLong(lineNo);
    return false;
  }
  std::string line = rawLine;
  if (!line.empty() && line.back() == '\r') line.pop_back();  // a script saved with CR LF
  Words w(line);
  std::string verb;
  if (!w.next(verb) || verb[0] == '#') return true;
  // One line is one operator gesture: a window it unloads outlives it.
  HandlerScope scope;
  // Whatever a handler throws, the console goes on with the next line.
  try {
    run(verb, w);
  } catch (const ScriptError& e) {
    lineError(lineNo, e.what());
    return false;
  } catch (const std::exception& e) {
    lineError(lineNo, clipped(verb, 64) + " failed: " + clipped(e.what(), 200));
    return false;
  } catch (...) {
    lineError(lineNo, clipped(verb, 64) + " failed");
    return false;
  }
  out_.flush();
  return true;
}

void Interpreter::lineTooLong(int lineNo) {
  lineError(lineNo, "line too long (more than " + std::to_string(kMaxLineBytes) + " bytes)");
}

void Interpreter::lineError(int lineNo, const std::string& reason) {
  print("ERROR line " + std::to_string(lineNo) + ": " + reason);
  ++errors_;
  out_.flush();
}

void Interpreter::run(const std::string& verb, Words& w) {
  auto it = verbs_.find(verb);
  if (it == verbs_.end()) throw ScriptError("unknown command " + quoted(verb));
  (this->*(it->second))(w);
}

Control& Interpreter::control(const std::string& name) {
  Control* ctl = c_.registry.find(name);
  if (!ctl) throw ScriptError("unknown control " + quoted(name));
  return *ctl;
}

Control* Interpreter::target(Words& w) {
  Control& ctl = control(w.need("control"));
  // As on the desk, a disabled control takes no mouse, key or drop.
  return ctl.enabled() ? &ctl : nullptr;
}

// --- acting -----------------------------------------------------------------

void Interpreter::mouseDown(Words& w) {
  Control* ctl = target(w);
  const MouseEvent e = mouseEvent(w, true);
  if (!ctl) return;
  held_[ctl->name()] = e.button;
  ctl->mouseDown(e);
}

void Interpreter::mouseUp(Words& w) {
  Control& ctl = control(w.need("control"));
  const MouseEvent e = mouseEvent(w, true);
  held_.erase(ctl.name());  // released, whether or not the control takes it
  if (ctl.enabled()) ctl.mouseUp(e);
}

void Interpreter::press(Words& w) {
  Control* ctl = target(w);
  const MouseEvent e = mouseEvent(w, true);
  if (!ctl) return;
  const std::string name = ctl->name();
  held_.erase(name);
  ctl->mouseDown(e);
  // The down handler may have locked the key or closed its window.
  if (c_.registry.peek(name) != ctl || !ctl->enabled()) return;
  ctl->mouseUp(e);
  if (c_.registry.peek(name) == ctl) ctl->click();
}

void Interpreter::click(Words& w) {
  Control* ctl = target(w);
  w.end();
  if (ctl) ctl->click();
}

void Interpreter::dblClick(Words& w) {
  Control* ctl = target(w);
  const MouseEvent e = mouseEvent(w, false);
  if (ctl) ctl->dblClick(e);
}

void Interpreter::move(Words& w) {
  Control* ctl = target(w);
  const double x = w.real("X", kMaxPoint);
  const double y = w.real("Y", kMaxPoint);
  w.end();
  if (!ctl) return;
  auto it = held_.find(ctl->name());
  ctl->mouseMove(MouseEvent(it == held_.end() ? MouseButton::None : it->second, x, y));
}

Window* Interpreter::window(const std::string& name, bool load) {
  if (name == c_.form1.name()) return &c_.form1;
  if (!WindowCatalogue::entry(name)) throw ScriptError("unknown window " + quoted(name));
  if (!load) return c_.windows.find(name);
  if (!c_.windows.canMake(name)) throw ScriptError("the window " + name + " cannot be opened");
  return &c_.windows.load(name);
}

void Interpreter::activate(Words& w) {
  const std::string name = w.need("window");
  w.end();
  Window* win = window(name, true);
  // Brought to the front from another window: shown if it was hidden.
  win->setVisible(true);
  win->activate();
}

void Interpreter::close(Words& w) {
  const std::string name = w.need("window");
  Window* win = window(name, false);
  w.end();
  if (win == &c_.form1) {
    c_.queryClose();  // the main window asks first, as `quit` does
    return;
  }
  // A window that is not loaded has no close box to press.
  if (win) win->closeBox();
}

void Interpreter::set(Words& w) {
  const std::string name = w.need("control");
  Control& ctl = control(name);
  const int64_t value = w.number("value", INT32_MIN, INT32_MAX);
  w.end();
  if (!ctl.enabled()) return;
  if (!ctl.setValue(static_cast<int>(value)))
    throw ScriptError("cannot set " + name + " to " + std::to_string(value));
}

void Interpreter::type(Words& w) {
  const std::string name = w.need("control");
  auto* box = dynamic_cast<TextBox*>(&control(name));
  if (!box) throw ScriptError(name + " is not a text box");
  std::string text = w.rest();
  if (box->enabled()) box->setText(std::move(text));
}

void Interpreter::key(Words& w) {
  Control* ctl = target(w);
  const int code = static_cast<int>(w.number("key code", 0, 255));
  w.end();
  if (ctl) ctl->keyPress(code);
}

void Interpreter::enter(Words& w) {
  Control* ctl = target(w);
  w.end();
  if (ctl) ctl->keyPress(13);
}

void Interpreter::keyDown(Words& w) {
  const int code = static_cast<int>(w.number("key code", 0, 255));
  w.end();
  c_.keyboard.keyDown(code);
}

void Interpreter::keyUp(Words& w) {
  const int code = static_cast<int>(w.number("key code", 0, 255));
  w.end();
  c_.keyboard.keyUp(code);
}

void Interpreter::midi(Words& w) {
  // Three bytes, as the port hands them over; the MIDI input decides what they mean.
  const int status = static_cast<int>(w.number("MIDI status", 0, 255));
  const int data1 = static_cast<int>(w.number("MIDI data", 0, 255));
  const int data2 = static_cast<int>(w.number("MIDI data", 0, 255));
  w.end();
  c_.midi.messageIn(status, data1, data2);
}

void Interpreter::sysex(Words& w) {
  // Hexadecimal bytes from F0 on, as the port hands a system-exclusive
  // message over; what they mean (or that they are broken) is the console's to find.
  std::vector<uint8_t> bytes;
  std::string word;
  while (w.next(word)) {
    if (bytes.size() == MidiMessage::kSysexLimit)
      throw ScriptError("SysEx longer than " + std::to_string(MidiMessage::kSysexLimit) + " bytes");
    bytes.push_back(hexByte(word));
  }
  if (bytes.empty() || bytes.front() != 0xF0) throw ScriptError("SysEx must begin with F0");
  c_.midi.sysexIn(bytes);
}

void Interpreter::drop(Words& w) {
  const std::string name = w.need("drop target");
  if (name == "Form1") {
    c_.files.dropOnForm1(w.rest());
    return;
  }
  Control& ctl = control(name);
  const std::string path = w.rest();
  if (ctl.enabled()) ctl.drop(path, MouseButton::Left);
}

void Interpreter::answer(Words& w) { dialogs_.queueAnswer(w.rest()); }

void Interpreter::load(Words& w) {
  const std::string kind = w.need("file kind");
  if (!c_.files.load(kind, w.rest())) throw ScriptError("unknown file kind " + quoted(kind));
}

void Interpreter::save(Words& w) {
  const std::string kind = w.need("file kind");
  if (!c_.files.save(kind, w.rest())) throw ScriptError("unknown file kind " + quoted(kind));
}

void Interpreter::advance(Words& w) {
  const int64_t ms = w.number("milliseconds", 0, kMaxAdvanceMs);
  w.end();
  if (clock_)
    c_.scheduler.advance(*clock_, ms);
  else if (waitRealTime)
    waitRealTime(ms);
  else
    sleepRun(ms);
}

void Interpreter::sleepRun(int64_t ms) {
  Scheduler& s = c_.scheduler;
  const int64_t end = s.now() + ms;
  for (;;) {
    s.runDue();
    const int64_t now = s.now();
    if (now >= end || c_.closed()) return;
    const int64_t next = s.nextDue();
    const int64_t until = next < 0 ? end : std::clamp(next, now, end);
    std::this_thread::sleep_for(std::chrono::milliseconds(until - now));
  }
}

void Interpreter::tick(Words& w) {
  const std::string name = w.need("timer");
  auto* timer = dynamic_cast<Timer*>(&control(name));
  if (!timer) throw ScriptError(name + " is not a timer");
  w.end();
  timer->tick();
}

void Interpreter::quit(Words& w) {
  w.end();
  c_.queryClose();
}

// --- looking ----------------------------------------------------------------

std::string Interpreter::valueOf(const std::string& expr) {
  if (auto v = c_.names.get(expr)) return *v;
  const size_t open = expr.find('(');
  if (open != std::string::npos && c_.names.knows(expr.substr(0, open)))
    throw ScriptError("index out of range: " + quoted(expr));
  if (auto v = playerProperty(c_, expr)) return *v;
  // Before the registry, which would load the window to find a control of that name.
  if (auto v = windowVisible(c_, expr)) return *v;
  if (Control* ctl = c_.registry.find(expr)) return ctl->value();
  const size_t dot = expr.rfind('.');
  if (dot != std::string::npos && dot > 0)
    if (Control* ctl = c_.registry.find(expr.substr(0, dot)))
      return controlProperty(*ctl, expr.substr(dot + 1), expr);
  throw ScriptError("unknown name " + quoted(expr));
}

void Interpreter::get(Words& w) {
  const std::string name = w.need("name");
  w.end();
  print(name + " = " + valueOf(name));
}

void Interpreter::dmx(Words& w) {
  std::string word;
  int64_t from = 1, to = kChannels;
  Words probe = w;
  if (probe.next(word)) {
    from = w.number("first slot", 1, kChannels);
    if (probe.next(word)) to = w.number("last slot", from, kChannels);
  }
  w.end();
  std::string line = "DMX " + std::to_string(from) + "-" + std::to_string(to) + ":";
  for (int64_t slot = from; slot <= to; ++slot)
    line += " " + std::to_string(c_.v.DMXData[slot - 1]);
  print(line);
}

}  // namespace q
