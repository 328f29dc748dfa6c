#pragma once
// The console: one object that owns the shared state, the timers, the main
// window and every subsystem for the life of the process. The desk, the
// headless runner and the tests each build one, giving it the outside world
// through the interfaces in ConsoleHost.

#include <memory>
#include <string>

#include "engine/chasers/chaser_engine.h"
#include "engine/controls/registry.h"
#include "engine/core/background_work.h"
#include "engine/core/common_dialog.h"
#include "engine/core/dialogs.h"
#include "engine/core/failure_box.h"
#include "engine/core/live_display.h"
#include "engine/core/main_window.h"
#include "engine/core/mixer.h"
#include "engine/core/named_values.h"
#include "engine/core/printer.h"
#include "engine/core/process_launcher.h"
#include "engine/core/scheduler.h"
#include "engine/core/settings.h"
#include "engine/core/variables.h"
#include "engine/core/window_catalogue.h"
#include "engine/input/direct_command.h"
#include "engine/input/keyboard_control.h"
#include "engine/input/keypad.h"
#include "engine/input/midi_control.h"
#include "engine/interfaces/interface_layer.h"
#include "engine/look/look.h"
#include "engine/look/skin_colors.h"
#include "engine/media/media_player.h"
#include "engine/media/player_keys.h"
#include "engine/playback/cue_functions.h"
#include "engine/playback/fade_times.h"
#include "engine/playback/memories.h"
#include "engine/playback/times_graph.h"
#include "engine/playback/transport.h"
#include "engine/remote/osc_link.h"
#include "engine/showfiles/show_files.h"
#include "engine/showfiles/show_snapshots.h"
#include "engine/submasters/submaster_bank.h"

namespace q {

// The outside world as the console sees it. Every pointer may be null: the
// console then uses a silent stand-in, so a missing device never stops it.
struct ConsoleHost {
  Clock* clock = nullptr;
  Dialogs* dialogs = nullptr;
  // The program's own folder: settings, clipboard files, skins.
  std::string homeDir;
  // The whole command line, searched for "-nosplash" and "-default".
  std::string commandLine;
  // The two media players WMP(0), WMP(1).
  MediaPlayer* players[2] = {nullptr, nullptr};
  // The output adapters: FTDI chips, serial ports, OLA. Null finds no device.
  DeviceFactory* devices = nullptr;
  // Starts the programs that cues name; without it such a cue shows an error.
  ProcessLauncher* processes = nullptr;
  // The MIDI input and output ports; none means no MIDI device.
  MidiInPort* midiIn = nullptr;
  MidiOutPort* midiOut = nullptr;
  // The OSC socket; none means no OSC.
  OscPort* osc = nullptr;
  // The printer of the cue list; none shows a message instead of printing.
  Printer* printer = nullptr;
  // Where long files are read while the console goes on; none reads them in
  // place (the virtual clock, where every run must come out the same).
  BackgroundWork* background = nullptr;
};

class Console {
  // Declared first: everything below is built from the host.
  std::unique_ptr<Dialogs> fallbackDialogs_;
  std::unique_ptr<MediaPlayer> fallbackPlayers_[2];
  ConsoleHost host_;

 public:
  explicit Console(ConsoleHost host);
  ~Console();
  Console(const Console&) = delete;
  Console& operator=(const Console&) = delete;

  const ConsoleHost& host() const { return host_; }
  Dialogs& dialogs() { return *host_.dialogs; }
  const std::string& homeDir() const { return host_.homeDir; }

  // The entry procedure: splash, load of the main window, identity patch.
  void start();
  // The operator closes the main window: asks, and unloads on Yes. True when it closed.
  bool queryClose();
  // The main window's unload sequence: settings written, interface stopped, ports closed.
  void unload();
  bool splashShown() const { return splashShown_; }
  // A click or key on the splash, or the close question, takes it away.
  void dismissSplash();
  // True once the main window has unloaded (the process is to end).
  bool closed() const { return closed_; }
  // The main window's load handler (also run again by the reset).
  void loadForm1();
  // `mnuNew`: RESET DESK.
  void resetDesk();
  // `mnuMaxchans`: the prompt for the number of channels in use.
  void askMaxChans();
  // One tick of DMXTimer: mix if dirty, then send the frame, also when the mix failed.
  void outputTick();
  // Until when an output tick would change nothing: while the mix is clean
  // and the adapter has nothing to take (see Timer::idleUntil).
  int64_t outputIdleUntil() const;
  bool hasSwitch(const std::string& sw) const;

  // The desk hooks its picture work into the load sequence.
  std::function<void()> loadBackground;
  std::function<void()> skinMe;
  // The About window's link and system key; the desk opens and shows them.
  std::function<void()> onOpenDocumentation;
  std::function<void()> onSystemInformation;

  MediaPlayer& WMP(int k) { return *host_.players[k & 1]; }

  Variables v;
  Registry registry;
  NamedValues names;
  Scheduler scheduler;
  // A tick, menu choice or widget event that fails is told here, one box at a time.
  FailureBox failures{*host_.dialogs};
  MainWindow form1;
  // Every other window, loaded on first use; declared before the subsystems
  // that give their factories.
  WindowCatalogue windows{registry};
  Settings settings{*this};
  // The main window's shared file chooser.
  CommonDialog CDialog1{*host_.dialogs};
  // Subsystems, each owning the controls of its own panel, follow here.
  Mixer mixer{*this};
  LiveDisplay liveDisplay{*this};
  SkinColors colors;
  InterfaceLayer interfaces{*this};
  KeyboardControl keyboard{*this};
  MidiControl midi{*this};
  Keypad keypad{*this};
  ShowFiles files{*this};
  ShowSnapshots snapshots{*this};
  // Playback: the times of the coming fade, their graph, the memory panels, the transport.
  FadeTimes fadeTimes{*this};
  TimesGraph timesGraph{*this};
  Memories memories{*this};
  Transport transport{*this};
  // What rows that are no memory cues do; hooks into the memories above.
  CueFunctions cueFunctions{*this};
  // The chasers, the twenty strips and the direct command line.
  ChaserEngine chasers{*this};
  SubmasterBank submasters{*this};
  DirectCommand direct{*this};
  // The skin, the pieces cut from it and the desk's zoom.
  Look look{*this};
  // The players' load and play keys.
  PlayerKeys playerKeys{*this};
  // OSC in and out: the show controller's and the surfaces' way in.
  OscLink osc{*this};

 private:
  void wireMainMenu();
  bool splashShown_ = false;
  bool closed_ = false;
};

}  // namespace q
