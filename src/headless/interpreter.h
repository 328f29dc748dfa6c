#pragma once
// The command language: one line, one operator action or one look at the
// console. Every verb goes through the same control handlers and engine entry
// points the desk uses, so a script rehearses exactly what an operator would
// do. Shared by the headless runner and the desk's remote port.

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <ostream>
#include <string>

namespace q {

class Console;
class Control;
class ScriptedDialogs;
class VirtualClock;
class Window;
class Words;
enum class MouseButton;

class Interpreter {
 public:
  // The longest line taken, in bytes: far above any command, and a bound on
  // what one line may cost.
  static constexpr size_t kMaxLineBytes = 64 * 1024;

  // clock: the virtual clock `advance` moves, or null when the console runs on real time.
  Interpreter(Console& console, ScriptedDialogs& dialogs, VirtualClock* clock, std::ostream& out);
  ~Interpreter();
  Interpreter(const Interpreter&) = delete;
  Interpreter& operator=(const Interpreter&) = delete;

  // Runs one line; false when it printed an ERROR line. lineNo is for that line.
  bool execute(const std::string& line, int lineNo);
  // The ERROR line for a line too long to be read, which the reader dropped.
  void lineTooLong(int lineNo);
  int errorCount() const { return errors_; }

  // Real time only: how `advance MS` lets MS milliseconds pass. By default it
  // sleeps until each tick falls due and delivers it; the desk runs its event loop instead.
  std::function<void(int64_t ms)> waitRealTime;

 private:
  using Verb = void (Interpreter::*)(Words&);
  void run(const std::string& verb, Words& w);

  void mouseDown(Words& w);
  void mouseUp(Words& w);
  void press(Words& w);
  void click(Words& w);
  void dblClick(Words& w);
  void move(Words& w);
  void activate(Words& w);
  void close(Words& w);
  void set(Words& w);
  void type(Words& w);
  void key(Words& w);
  void enter(Words& w);
  void keyDown(Words& w);
  void keyUp(Words& w);
  void midi(Words& w);
  void sysex(Words& w);
  void drop(Words& w);
  void answer(Words& w);
  void load(Words& w);
  void save(Words& w);
  void advance(Words& w);
  void tick(Words& w);
  void quit(Words& w);
  void get(Words& w);
  void dmx(Words& w);

  Control& control(const std::string& name);
  // The control an operator event goes to; null when it is disabled and so takes no events.
  Control* target(Words& w);
  // The window a command names: the main window or one of the catalogue's.
  // load: loaded first if needed; else null when it is not loaded.
  Window* window(const std::string& name, bool load);
  std::string valueOf(const std::string& name);
  void sleepRun(int64_t ms);
  void print(const std::string& line);
  // Prints the ERROR line of a line and counts it.
  void lineError(int lineNo, const std::string& reason);

  Console& c_;
  ScriptedDialogs& dialogs_;
  VirtualClock* clock_;
  std::ostream& out_;
  int errors_ = 0;
  // The button of the last `down` on each control that no `up` has released
  // yet: a move over it carries that button, as a captured mouse does.
  std::map<std::string, MouseButton> held_;
  static const std::map<std::string, Verb> verbs_;
};

}  // namespace q
