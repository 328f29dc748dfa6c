#pragma once
// The interface layer: one active output adapter chosen by InterfaceType,
// reached through three dispatches (start, send the frame, stop). Each
// adapter keeps its own protocol; this layer only chooses, and owns the
// devices the host's factory gave.

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "engine/interfaces/devices.h"
#include "engine/interfaces/held_frame_gate.h"
#include "engine/interfaces/reconnect_policy.h"

namespace q {

class Console;
class IniFile;
class DMXUSBPRO_Driver;
class FtdiFrameSender;
class OlaOutput;
class Sunlite;
class Oksid;
class Velleman;
class Refreshrate;
class WidgetOutput;
class OutputLamp;

class InterfaceLayer {
 public:
  explicit InterfaceLayer(Console& c);
  ~InterfaceLayer();

  // Start dispatch: at start-up and after a change of interface.
  void startDMX();
  // Stop dispatch: at exit and when the interface is changed.
  void stopDMX();
  // Frame dispatch, on every DMXTimer tick after the mix. An adapter that
  // keeps the last frame by itself (olad, an FTDI line thread) is handed an
  // unchanged frame only as a keep-alive (HeldFrameGate); every other adapter
  // gets every frame.
  void sendFrame();
  // Until when the frame dispatch has nothing to hand over while the frame
  // stays as it is: INT64_MAX when the adapter takes nothing per tick,
  // INT64_MIN when it takes every frame or this one is new.
  int64_t frameIdleUntil() const;
  // ContinuousOutput=1 in the settings hands olad every frame all the same,
  // for receivers that want a steady stream.
  bool ContinuousOutput = false;

  // The halves of a change of interface, as the setup window makes it. The
  // setup window leaves the Velleman running when it switches away from it.
  void start(int type);
  void stop(int type, bool fromSetupWindow = false);

  // The settings of the adapters beyond the console's own keys.
  void readSettings(const IniFile& ini, bool useDefaults);
  void writeSettings(IniFile& ini) const;
  unsigned OlaUniverse = 1;
  int OlaPort = 9010;
  // Where the DMX USB PRO is reached: empty for libftdi1, or a serial device
  // path such as /dev/ttyUSB0 for the kernel's driver.
  std::string WidgetPort;

  // Opens a vendor's page in the browser; the desk sets it.
  std::function<void(const std::string& url)> openLink;

  // The adapters, for the setup window and for tests. The widget driver and
  // the vendor modules are created on first use and kept for the console's life.
  DMXUSBPRO_Driver& widget();
  FtdiFrameSender* ftdiSender() { return ftdi_.get(); }
  OlaOutput& ola() { return *ola_; }
  Sunlite& sunlite();
  Oksid& oksid();
  Velleman& velleman();
  Refreshrate& setupWindow();
  // The output's health on the main window.
  OutputLamp& outputLamp() { return lamp_; }

 private:
  DeviceFactory& factory();
  void startFtdi();
  void startWidget();
  WidgetOutput& widgetOutput();
  // What the lamp shows for the adapter chosen now.
  OutputHealth health() const;
  void showHealth();
  // Tells the operator without a box that waits for an answer.
  void notice(const std::string& text);
  void doEvents();
  void openSetupWindow();

  Console& c_;
  OutputLamp& lamp_;
  DeviceFactory fallbackFactory_;
  HeldFrameGate heldFrame_;
  std::unique_ptr<FtdiFrameSender> ftdi_;
  std::unique_ptr<FtdiDevice> widgetLink_;
  std::unique_ptr<DMXUSBPRO_Driver> widget_;
  std::unique_ptr<WidgetOutput> widgetOut_;
  bool widgetInitRunning_ = false;
  bool pumping_ = false;
  std::unique_ptr<OlaOutput> ola_;
  std::unique_ptr<SunliteLibrary> sunliteLib_;
  std::unique_ptr<Sunlite> sunlite_;
  std::unique_ptr<OksidLibrary> oksidLib_;
  std::unique_ptr<Oksid> oksid_;
  std::unique_ptr<VellemanLibrary> vellemanLib_;
  std::unique_ptr<Velleman> velleman_;
};

}  // namespace q
