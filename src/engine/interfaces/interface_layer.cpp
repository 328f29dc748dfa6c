#include "engine/interfaces/interface_layer.h"

#include <cstdlib>
#include <iostream>

#include "engine/core/console.h"
#include "engine/interfaces/dmxusbpro_driver.h"
#include "engine/interfaces/ftdi_frame_sender.h"
#include "engine/interfaces/interface_list.h"
#include "engine/interfaces/ola_output.h"
#include "engine/interfaces/output_lamp.h"
#include "engine/interfaces/refreshrate.h"
#include "engine/interfaces/serial_link.h"
#include "engine/interfaces/vendor_adapters.h"
#include "engine/interfaces/widget_output.h"

namespace q {

namespace {
// The widget's trace goes to standard error when QUINTARA_WIDGET_TRACE is set.
std::function<void(const std::string&)> widgetTrace() {
  const char* on = std::getenv("QUINTARA_WIDGET_TRACE");
  if (!on || !*on || std::string(on) == "0") return {};
  return [](const std::string& line) { std::cerr << line << "\n"; };
}
}  // namespace

InterfaceLayer::InterfaceLayer(Console& c) : c_(c), lamp_(c.form1.add<OutputLamp>("OutputLamp")) {
  ola_ = std::make_unique<OlaOutput>(OlaOutput::Hooks{
      [this] { return c_.scheduler.now(); }, [this](const std::string& text) { notice(text); },
      [this] { return factory().wireThread(); }, [this] { factory().prepareWireThread(); }});
  // The Velleman takes each channel from inside the mix, as the mix makes it.
  c_.mixer.perChannelOutput = [this](int channel, uint8_t value) {
    velleman().setData(channel, value);
  };
  c_.form1.menu("mnuInterface").onClick = [this] { openSetupWindow(); };
  c_.windows.setFactory("Refreshrate", [this] { return std::make_unique<Refreshrate>(c_); });
  c_.names.add("OlaUniverse", [this] { return std::to_string(OlaUniverse); });
  c_.names.add("OlaPort", [this] { return std::to_string(OlaPort); });
  c_.names.add("WidgetPort", [this] { return WidgetPort; });
  c_.names.add("ContinuousOutput", [this] { return ContinuousOutput ? "1" : "0"; });
}

InterfaceLayer::~InterfaceLayer() = default;

DeviceFactory& InterfaceLayer::factory() {
  return c_.host().devices ? *c_.host().devices : fallbackFactory_;
}

// ---- the three dispatches --------------------------------------------------

void InterfaceLayer::startDMX() { start(c_.v.InterfaceType); }

void InterfaceLayer::stopDMX() { stop(c_.v.InterfaceType); }

void InterfaceLayer::start(int type) {
  Variables& v = c_.v;
  heldFrame_.reset();
  switch (interfaceEntry(type).family) {
    case AdapterFamily::FtdiFrameSender:
      startFtdi();
      break;
    case AdapterFamily::Widget:
      startWidget();
      break;
    case AdapterFamily::Sunlite:
      sunlite().open(v.DMXData.data());
      break;
    case AdapterFamily::Velleman:
      velleman().start(v.MaxChans);
      break;
    case AdapterFamily::Ola:
      ola_->continuous = ContinuousOutput;
      ola_->start(factory().ola(), OlaUniverse, OlaPort, c_.form1.DMXTimer.interval());
      break;
    default:
      break;
  }
  showHealth();
}

void InterfaceLayer::sendFrame() {
  Variables& v = c_.v;
  const uint8_t* frame = v.DMXData.data();
  switch (interfaceEntry(v.InterfaceType).family) {
    case AdapterFamily::FtdiFrameSender:
      // Without a line thread (a fake device) the tick itself is the line.
      if (ftdi_ && (!ftdi_->wire() || heldFrame_.pass(frame, c_.scheduler.now())))
        ftdi_->sendFrame(frame, c_.form1.DMXTimer.interval());
      break;
    case AdapterFamily::Widget:
      // While the widget's Init waits for its answer it lets ticks run; the
      // frame waits for the widget to be set up.
      if (!widgetInitRunning_) widgetOutput().sendFrame(frame);
      break;
    case AdapterFamily::Sunlite:
      sunlite().send(v.MaxChans, v.DMXData.data());
      break;
    case AdapterFamily::Oksid:
      oksid().tick(int16_t(v.PortBase), v.DMXData.data());
      break;
    case AdapterFamily::Ola:
      if (ContinuousOutput || heldFrame_.pass(frame, c_.scheduler.now()))
        ola_->sendFrame(frame, c_.form1.DMXTimer.interval());
      break;
    default:
      // The Velleman has had its channels from inside the mix; none and the
      // parallel ports have no output.
      break;
  }
  showHealth();
}

OutputHealth InterfaceLayer::health() const {
  switch (interfaceEntry(c_.v.InterfaceType).family) {
    case AdapterFamily::FtdiFrameSender:
      return ftdi_ ? ftdi_->health() : OutputHealth::NotReachable;
    case AdapterFamily::Widget:
      return widgetOut_ ? widgetOut_->health() : OutputHealth::NotReachable;
    case AdapterFamily::Ola:
      return ola_->connected() ? OutputHealth::Sending : OutputHealth::NotReachable;
    default:
      // No output, or one through a vendor's library that says nothing of its health.
      return OutputHealth::None;
  }
}

void InterfaceLayer::showHealth() { lamp_.show(health()); }

// On the desk a box that stays up without holding the console; in a
// script the usual message line.
void InterfaceLayer::notice(const std::string& text) { c_.dialogs().notice("Quintara", text); }

int64_t InterfaceLayer::frameIdleUntil() const {
  const uint8_t* frame = c_.v.DMXData.data();
  switch (interfaceEntry(c_.v.InterfaceType).family) {
    case AdapterFamily::None:
    case AdapterFamily::ParallelPort:
    case AdapterFamily::Velleman:
      // Nothing goes out per tick; the Velleman takes its levels inside the mix.
      return INT64_MAX;
    case AdapterFamily::Ola:
      return ContinuousOutput ? INT64_MIN : heldFrame_.nextHandOver(frame);
    case AdapterFamily::FtdiFrameSender:
      return ftdi_ && ftdi_->wire() ? heldFrame_.nextHandOver(frame) : INT64_MIN;
    default:
      return INT64_MIN;
  }
}

void InterfaceLayer::stop(int type, bool fromSetupWindow) {
  heldFrame_.reset();
  switch (interfaceEntry(type).family) {
    case AdapterFamily::FtdiFrameSender:
      if (ftdi_) ftdi_->close();
      break;
    case AdapterFamily::Widget:
      if (widget_) widget_->Done();
      if (widgetOut_) widgetOut_->stopped();
      break;
    case AdapterFamily::Sunlite:
      sunlite().close(c_.v.MaxChans, c_.v.DMXData.data());
      break;
    case AdapterFamily::Velleman:
      if (!fromSetupWindow) velleman().stop();
      break;
    case AdapterFamily::Ola:
      ola_->stop();
      break;
    default:
      break;
  }
  showHealth();
}

// ---- the adapters ------------------------------------------------------------

// startDMX of the main window: opens the FTDI adapter, sets the start code
// to 0 and clears the frame.
void InterfaceLayer::startFtdi() {
  if (!ftdi_) {
    std::unique_ptr<FtdiDevice> device = factory().ftdi();
    if (!device) device = makeAbsentFtdi();
    FtdiFrameSender::Options options;
    options.wireThread = factory().wireThread();
    options.prepareWireThread = [this] { factory().prepareWireThread(); };
    options.intervalMs = c_.form1.DMXTimer.interval();
    options.nowMs = [this] { return c_.scheduler.now(); };
    options.notice = [this](const std::string& text) { notice(text); };
    ftdi_ = std::make_unique<FtdiFrameSender>(
        std::move(device),
        OpenDmx::Hooks{[this](const std::string& text) { c_.dialogs().msgBox("Quintara", text); },
                       [this] { c_.dismissSplash(); }},
        options);
  }
  ftdi_->adapterName = interfaceEntry(c_.v.InterfaceType).name;
  ftdi_->startDMX();
  c_.v.DMXData.fill(0);
}

DMXUSBPRO_Driver& InterfaceLayer::widget() {
  if (widget_) return *widget_;
  if (WidgetPort.empty()) {
    widgetLink_ = factory().ftdi();
    if (!widgetLink_) widgetLink_ = makeAbsentFtdi();
  } else {
    std::unique_ptr<SerialPort> port = factory().serialPort();
    if (!port) port = makeAbsentSerialPort();
    widgetLink_ = std::make_unique<SerialLink>(std::move(port), WidgetPort);
  }
  DMXUSBPRO_Driver::Host host;
  host.wait = [this](int ms) { factory().wait(ms); };
  host.doEvents = [this] { doEvents(); };
  host.message = [this](const std::string& text) { c_.dialogs().msgBox("Quintara", text); };
  host.trace = widgetTrace();
  widget_ = std::make_unique<DMXUSBPRO_Driver>(*widgetLink_, std::move(host));
  return *widget_;
}

void InterfaceLayer::startWidget() {
  DMXUSBPRO_Driver& pro = widget();
  widgetInitRunning_ = true;
  pro.Init(0, DMXUSBPRO_Driver::kOutputDmx, false);
  widgetInitRunning_ = false;
  widgetOutput().started();
}

WidgetOutput& InterfaceLayer::widgetOutput() {
  if (!widgetOut_)
    widgetOut_ = std::make_unique<WidgetOutput>(
        widget(), WidgetOutput::Hooks{[this] { return c_.scheduler.now(); },
                                      [this](const std::string& text) { notice(text); }});
  return *widgetOut_;
}

// Lets the timers that fell due run, as a wait inside a handler lets
// pending events through; never nested.
void InterfaceLayer::doEvents() {
  if (pumping_) return;
  pumping_ = true;
  c_.scheduler.runDue();
  pumping_ = false;
}

Sunlite& InterfaceLayer::sunlite() {
  if (!sunlite_) {
    sunliteLib_ = factory().sunlite();
    if (!sunliteLib_) sunliteLib_ = makeMissingSunlite();
    sunlite_ = std::make_unique<Sunlite>(*sunliteLib_);
  }
  return *sunlite_;
}

Oksid& InterfaceLayer::oksid() {
  if (!oksid_) {
    oksidLib_ = factory().oksid();
    if (!oksidLib_) oksidLib_ = makeMissingOksid();
    oksid_ = std::make_unique<Oksid>(
        *oksidLib_, Oksid::Hooks{[this](const std::string& title, const std::string& text) {
                                   c_.dialogs().msgBox(title, text, MsgButtons::OK,
                                                       MsgIcon::Exclamation);
                                 },
                                 [this] { c_.v.InterfaceType = 0; }});
  }
  return *oksid_;
}

Velleman& InterfaceLayer::velleman() {
  if (!velleman_) {
    vellemanLib_ = factory().velleman();
    if (!vellemanLib_) vellemanLib_ = makeMissingVelleman();
    velleman_ = std::make_unique<Velleman>(*vellemanLib_);
  }
  return *velleman_;
}

// ---- settings and the setup window ---------------------------------------------

void InterfaceLayer::readSettings(const IniFile& ini, bool useDefaults) {
  OlaUniverse = 1;
  OlaPort = 9010;
  WidgetPort.clear();
  ContinuousOutput = false;
  if (useDefaults) return;
  const double universe = leadingNumber(ini.read("Setup", "OlaUniverse", "1"));
  if (universe >= 0 && universe <= 2147483647.0) OlaUniverse = unsigned(universe);
  const double port = leadingNumber(ini.read("Setup", "OlaPort", "9010"));
  if (port >= 1 && port <= 65535) OlaPort = int(port);
  WidgetPort = ini.read("Setup", "WidgetPort", "");
  ContinuousOutput = leadingNumber(ini.read("Setup", "ContinuousOutput", "0")) != 0;
}

void InterfaceLayer::writeSettings(IniFile& ini) const {
  ini.write("Setup", "OlaUniverse", std::to_string(OlaUniverse));
  ini.write("Setup", "OlaPort", std::to_string(OlaPort));
  ini.write("Setup", "WidgetPort", WidgetPort);
  ini.write("Setup", "ContinuousOutput", ContinuousOutput ? "1" : "0");
}

Refreshrate& InterfaceLayer::setupWindow() { return c_.windows.load<Refreshrate>("Refreshrate"); }

void InterfaceLayer::openSetupWindow() { setupWindow().show(); }

}  // namespace q
