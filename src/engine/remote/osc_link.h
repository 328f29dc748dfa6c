#pragma once
// OSC at the console: the socket it listens on, what the messages do, and
// the feedback it sends back. Off until the settings file or the setup
// window gives it a port:
//
//   [OSC]
//   Port=9000             0 or none: no OSC
//   Address=127.0.0.1     where it listens (0.0.0.0: every network)
//   FeedbackHost=127.0.0.1
//   FeedbackPort=9001     0 or none: no feedback
//
// Everything arrives on the console thread and goes through the console's
// own controls; feedback is looked at every 40 ms while a destination is set.

#include <cstdint>
#include <memory>
#include <string>

#include "engine/controls/timer.h"
#include "engine/remote/osc_feedback.h"
#include "engine/remote/osc_mapping.h"
#include "engine/remote/osc_port.h"
#include "engine/remote/show_control.h"

namespace q {

class Console;
class IniFile;
class OscSetup;

struct OscConfig {
  int port = 0;
  std::string address = "127.0.0.1";
  std::string feedbackHost = "127.0.0.1";
  int feedbackPort = 0;

  bool operator==(const OscConfig&) const = default;
  // The settings file's [OSC] section; a port that is no port reads as 0.
  static OscConfig read(const IniFile& ini);
  // False when the file could not be written.
  bool write(IniFile& ini) const;
};

class OscLink {
 public:
  explicit OscLink(Console& c);
  ~OscLink();
  OscLink(const OscLink&) = delete;
  OscLink& operator=(const OscLink&) = delete;

  // At start: the settings file's choice (none with "-default"), opened.
  void start(bool useDefaults);
  // Listens and sends as `config` says; false with the reason in status()
  // when the socket can't be opened (OSC is then off).
  bool apply(const OscConfig& config);
  // At unload.
  void close();

  const OscConfig& config() const { return config_; }
  // One line for the operator: where it listens and sends, or why it doesn't.
  const std::string& status() const { return status_; }
  bool listening() const { return port_->isOpen(); }
  // The socket the settings ask for could not be opened.
  bool failed() const { return failed_; }

  // The real or fake socket; without a call the console's host gives it.
  void setPort(OscPort& port);
  OscPort& port() { return *port_; }
  const OscMapping& mapping() const { return mapping_; }
  uint64_t sent() const { return sent_; }

  // The setup window, loaded on first use.
  OscSetup& setupWindow();

  // Looks at the console and sends what changed (every 40 ms while feedback goes).
  Timer FeedbackTimer;

 private:
  void attach();
  void feedbackTick();

  Console& c_;
  NoOscPort noPort_;
  OscPort* port_;
  ShowControl control_;
  OscMapping mapping_{control_};
  OscFeedback feedback_;
  OscConfig config_;
  std::string status_ = "OSC off";
  uint64_t sent_ = 0;
  bool failed_ = false;
};

}  // namespace q
