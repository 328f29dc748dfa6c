// The desk's process: builds the console with the Qt side of the outside
// world (clock, dialogs, players), puts the desk on screen and runs the event
// loop. All console logic is in the engine; this file wires and starts.

#include "gui/app.h"

#include <unistd.h>
#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QPointer>
#include <QScopeGuard>
#include <QSocketNotifier>
#include <QTimer>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <filesystem>

#include "engine/controls/cell_grid.h"
#include "engine/core/console.h"
#include "engine/remote/web_remote_place.h"
#include "gui/desk/desk_context.h"
#include "gui/desk/desk_options.h"
#include "gui/desk/desk_palette.h"
#include "gui/desk/desk_player.h"
#include "gui/desk/desk_surface.h"
#include "gui/desk/form1.h"
#include "gui/desk/open_file.h"
#include "gui/desk/splash_screen.h"
#include "gui/guarded_application.h"
#include "gui/osc_pump.h"
#include "gui/print/qt_page_printer.h"
#include "gui/qt_background_work.h"
#include "gui/qt_dialogs.h"
#include "gui/remote_port.h"
#include "gui/timer_driver.h"
#include "gui/views/window_host.h"
#include "gui/web_remote_server.h"
#include "platform/dmx_devices.h"
#include "platform/media/gst_media_player.h"
#include "platform/midi/rtmidi_ports.h"
#include "platform/missing_services.h"
#include "platform/osc/lo_osc_port.h"
#include "platform/process/posix_process_launcher.h"
#include "platform/program_folder.h"

namespace q {

namespace {

constexpr int kSplashMs = 2500;
constexpr int kScreenshotSettleMs = 700;  // a few output ticks: the live display is drawn
constexpr double kScreenshotZoom = 1.5;

int signalPipe[2] = {-1, -1};

// Ctrl-C or a service manager's stop ends the desk as the end of the loop
// does: the settings are written and the interface is stopped.
void watchSignals(QObject* parent) {
  if (::pipe(signalPipe) != 0) return;
  struct sigaction sa {};
  sa.sa_handler = [](int) {
    const char b = 1;
    [[maybe_unused]] auto n = ::write(signalPipe[1], &b, 1);
  };
  sigemptyset(&sa.sa_mask);
  sigaction(SIGINT, &sa, nullptr);
  sigaction(SIGTERM, &sa, nullptr);
  auto* n = new QSocketNotifier(signalPipe[0], QSocketNotifier::Read, parent);
  QObject::connect(n, &QSocketNotifier::activated, qApp, [] { QCoreApplication::exit(0); });
}

bool wantsScreenshot(int argc, char** argv) {
  for (int i = 1; i < argc; ++i)
    if (!std::strcmp(argv[i], "--screenshot")) return true;
  return false;
}

// Opens a window as the operator would: its menu entry or control.
void openAsTheOperator(Console& console, const std::string& window) {
  const WindowEntry* e = WindowCatalogue::entry(window);
  if (!e) return;
  if (e->opener == "FaderCFG") {  // a right press on a strip's selector
    console.form1.FaderCFG(kFirstStrip).mouseDown(MouseButton::Right);
    return;
  }
  Control* opener = console.registry.find(std::string(e->opener));
  if (!opener) return;
  // A pane of a grid opens its window with a double click on its first row.
  if (dynamic_cast<CellGrid*>(opener)) {
    opener->mouseDown({MouseButton::Left, 10, 10});
    opener->dblClick({MouseButton::Left, 10, 10});
    return;
  }
  opener->click();
}

int saveScreenshot(QWidget& widget, const std::string& file) {
  const QPixmap shot = widget.grab();
  if (shot.isNull() || !shot.save(QString::fromStdString(file), "PNG")) {
    std::fprintf(stderr, "quintara: cannot write the picture %s\n", file.c_str());
    return 1;
  }
  return 0;
}

// Said once on the desk's status line, which stays hidden on a machine that lacks nothing.
// What the machine lacks, and an OSC socket that could not be opened.
void tellMissingServices(gui::Form1& form, const ServicesFound& found, const Console& console) {
  QStringList lines;
  for (const std::string& line : missingServiceNews(found)) lines << QString::fromStdString(line);
  if (console.osc.failed()) lines << QString::fromStdString(console.osc.status());
  form.showNotices(lines);
}

// The web remote, where the settings or --web put it; the desk says where
// the page is and, beyond loopback, the PIN the page must give.
std::unique_ptr<gui::WebRemoteServer> startWebRemote(Console& console, gui::QtDialogs& dialogs,
                                                     gui::Form1& form, const std::string& option) {
  WebRemotePlace place = readWebRemotePlace(console.settings.ini(), console.hasSwitch("-default"));
  if (!option.empty() && !parseWebRemotePlace(option, place)) {
    std::fprintf(stderr, "quintara: --web takes [ADDRESS:]PORT, not %s\n", option.c_str());
    return nullptr;
  }
  if (!place.on()) return nullptr;
  auto web = std::make_unique<gui::WebRemoteServer>(console, dialogs);
  std::string error;
  if (!web->listen(place.address, quint16(place.port), error)) {
    std::fprintf(stderr, "quintara: the web remote can't listen: %s\n", error.c_str());
    form.showNotices({QStringLiteral("Web remote off: ") + QString::fromStdString(error)});
    return nullptr;
  }
  form.showNotices({web->notice()});
  return web;
}

}  // namespace

int runDesk(int argc, char** argv) {
  // A picture of the desk needs no screen.
  if (wantsScreenshot(argc, argv) && !std::getenv("QT_QPA_PLATFORM"))
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
  gui::GuardedApplication app(argc, argv);
  QApplication::setApplicationName("Quintara");
  QApplication::setOrganizationName("Quintara");
  const gui::DeskOptions opt = gui::parseDeskOptions(argc, argv);
  if (!opt.error.empty()) {
    std::fprintf(stderr, "quintara: %s\n", opt.error.c_str());
    return 1;
  }
  const bool screenshot = !opt.screenshot.empty();
  const std::string home = opt.home.empty() ? programFolder() : opt.home;
  std::error_code ec;
  std::filesystem::create_directories(home, ec);
  // A file named on the command line is opened as the operator would drop it,
  // from wherever the desk was started.
  const std::string file =
      opt.file.empty()
          ? std::string()
          : QFileInfo(QString::fromStdString(opt.file)).absoluteFilePath().toStdString();

  SteadyClock clock;
  gui::QtDialogs dialogs;
  // The players play through GStreamer; their news is taken in the desk's loop below.
  GstMediaPlayer player0, player1;
  ConsoleHost host;
  host.clock = &clock;
  host.dialogs = &dialogs;
  host.homeDir = home;
  host.commandLine = opt.commandLine;
  host.players[0] = &player0;
  host.players[1] = &player1;
  host.devices = &realDevices();
  PosixProcessLauncher processes;
  host.processes = &processes;
  gui::QtPagePrinter printer(gui::QtPagePrinter::Target::DefaultPrinter);
  host.printer = &printer;
  RtMidiInPort midiIn;
  RtMidiOutPort midiOut;
  host.midiIn = &midiIn;
  host.midiOut = &midiOut;
  LoOscPort osc;
  host.osc = &osc;
  gui::QtBackgroundWork background;
  host.background = &background;
  Console console(host);
  // A menu choice or a widget event that fails is told like a failed tick.
  app.onFailure = [&console](const std::string& failure) { console.failures.report(failure); };
  const auto unhook = qScopeGuard([&app] { app.onFailure = nullptr; });
  console.look.shippedSkinDirs.insert(console.look.shippedSkinDirs.begin(),
                                      sharedDataDir() + "/skins");

  gui::DeskContext ctx(console);
  console.look.setPicture(&ctx.sheet);
  gui::TimerDriver driver(console.scheduler);
  gui::Form1 form(ctx);
  if (screenshot)
    form.setZoomOverride(opt.zoom > 0 ? opt.zoom : kScreenshotZoom);
  else if (opt.zoom > 0)
    form.setZoomOverride(opt.zoom);
  dialogs.setParent(&form);
  watchSignals(&app);
  new gui::PlayerPump(player0, &form);
  new gui::PlayerPump(player1, &form);
  // MIDI arrives on RtMidi's thread; the console takes it on its own, here.
  if (midiIn.wakeFd() >= 0) {
    auto* midi = new QSocketNotifier(midiIn.wakeFd(), QSocketNotifier::Read, &app);
    QObject::connect(midi, &QSocketNotifier::activated, &app, [&midiIn] { midiIn.pump(); });
  }
  new gui::OscPump(osc, dialogs, &app);

  gui::SplashScreen* splash = nullptr;
  if (!screenshot && !console.hasSwitch("-nosplash")) {
    splash = new gui::SplashScreen;
    QObject::connect(splash, &gui::SplashScreen::dismissed, &form, [&console, &form] {
      console.dismissSplash();
      form.raise();
      form.activateWindow();
    });
    splash->show();
    app.processEvents();
    // A box shown while the desk starts must not stand behind the splash.
    dialogs.beforeShow = [s = QPointer<gui::SplashScreen>(splash)] {
      if (s) s->close();
    };
  }
  // Boxes and choosers wear the skin's colours (the desk's dark ones until
  // the skin is read), and follow a change of skin.
  gui::applySkinPalette(ctx.sheet.image());
  const int skinListener =
      console.look.addListener([&ctx] { gui::applySkinPalette(ctx.sheet.image()); });
  const auto unlisten = qScopeGuard([&] { console.look.removeListener(skinListener); });
  dialogs.lastShow = [&console] { return console.form1.mnuRecent(0).caption(); };
  console.start();
  tellMissingServices(form, {midiIn.systemPresent(), soundOutputPresent()}, console);
  if (splash) {
    QPointer<gui::SplashScreen> s(splash);
    QTimer::singleShot(kSplashMs, &form, [s, &console] {
      if (s) s->close();
      console.dismissSplash();
    });
    QObject::connect(&form, &gui::Form1::closing, &form, [s] {
      if (s) s->close();
    });
  }
  if (!file.empty()) {
    gui::openAsDropped(console, file);
    form.desk().repaintAll();
  }

  std::unique_ptr<gui::RemotePort> port;
  if (!opt.listen.empty()) {
    port = std::make_unique<gui::RemotePort>(console, dialogs);
    std::string error;
    if (!port->listen(opt.listen, error))
      std::fprintf(stderr, "quintara: the remote port can't listen: %s\n", error.c_str());
    QObject::connect(port.get(), &gui::RemotePort::consoleClosed, &form, &QWidget::close);
  }

  std::unique_ptr<gui::WebRemoteServer> web = startWebRemote(console, dialogs, form, opt.web);

  if (screenshot) {
    int result = 1;
    if (!opt.window.empty()) openAsTheOperator(console, opt.window);
    QTimer::singleShot(kScreenshotSettleMs, &form, [&] {
      QWidget* shown =
          opt.window.empty() ? static_cast<QWidget*>(&form) : form.windows().viewOf(opt.window);
      if (!shown) {
        std::fprintf(stderr, "quintara: the desk has no window %s\n", opt.window.c_str());
        QCoreApplication::exit(0);
        return;
      }
      result = saveScreenshot(*shown, opt.screenshot);
      QCoreApplication::exit(0);
    });
    app.exec();
    return result;
  }
  const int status = app.exec();
  if (!console.closed()) console.unload();
  return status;
}

}  // namespace q
