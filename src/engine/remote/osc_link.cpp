#include "engine/remote/osc_link.h"

#include "engine/core/console.h"
#include "engine/core/ini_file.h"
#include "engine/core/value.h"
#include "engine/remote/osc_setup.h"
#include "engine/remote/show_state.h"

namespace q {

namespace {
constexpr int kMaxPort = 65535;

int portOf(const IniFile& ini, const char* key) {
  const auto n = parseNumber(ini.read("OSC", key, "0"));
  if (!n || *n < 0 || *n > kMaxPort || *n != double(long(*n))) return 0;
  return int(*n);
}

std::string where(const std::string& host, int port) { return host + ":" + std::to_string(port); }
}  // namespace

OscConfig OscConfig::read(const IniFile& ini) {
  OscConfig c;
  c.port = portOf(ini, "Port");
  c.address = ini.read("OSC", "Address", c.address);
  c.feedbackHost = ini.read("OSC", "FeedbackHost", c.feedbackHost);
  c.feedbackPort = portOf(ini, "FeedbackPort");
  return c;
}

bool OscConfig::write(IniFile& ini) const {
  return ini.write("OSC", "Port", std::to_string(port)) && ini.write("OSC", "Address", address) &&
         ini.write("OSC", "FeedbackHost", feedbackHost) &&
         ini.write("OSC", "FeedbackPort", std::to_string(feedbackPort));
}

OscLink::OscLink(Console& c)
    : FeedbackTimer("OscFeedbackTimer", c.scheduler, int(OscFeedback::kSpacingMs)),
      c_(c),
      port_(c.host().osc ? c.host().osc : &noPort_),
      control_(c) {
  attach();
  FeedbackTimer.onTick = [this] { feedbackTick(); };
  c_.windows.setFactory("OscSetup", [this] { return std::make_unique<OscSetup>(c_); });
  c_.form1.menu("mnuOscSetup").onClick = [this] { setupWindow().show(); };
  c_.names.add("OscReceived", [this] { return std::to_string(mapping_.received()); });
  c_.names.add("OscIgnored", [this] { return std::to_string(mapping_.ignored()); });
  c_.names.add("OscSent", [this] { return std::to_string(sent_); });
  c_.names.add("OscStatus", [this] { return status_; });
}

// The socket belongs to the host and may be gone already: it is not touched here.
OscLink::~OscLink() = default;

void OscLink::setPort(OscPort& port) {
  port_->onMessage = nullptr;
  port_->onMalformed = nullptr;
  port_ = &port;
  attach();
}

void OscLink::attach() {
  port_->onMessage = [this](const OscMessage& m) { mapping_.handle(m); };
  port_->onMalformed = [this] { mapping_.malformed(); };
}

void OscLink::start(bool useDefaults) {
  apply(useDefaults ? OscConfig{} : OscConfig::read(c_.settings.ini()));
}

bool OscLink::apply(const OscConfig& config) {
  config_ = config;
  FeedbackTimer.setRunning(false);
  feedback_.forget();
  failed_ = true;
  std::string error;
  if (!port_->listen(config.address, config.port, error)) {
    status_ = "OSC can't listen on " + where(config.address, config.port) + ": " + error;
    return false;
  }
  failed_ = false;
  if (config.port == 0) {
    status_ = "OSC off";
    return true;
  }
  status_ = "OSC listens on " + where(config.address, config.port);
  if (config.feedbackPort == 0) return true;
  if (!port_->setDestination(config.feedbackHost, config.feedbackPort, error)) {
    status_ += "; no feedback to " + where(config.feedbackHost, config.feedbackPort) + ": " + error;
    failed_ = true;
    return false;
  }
  status_ += ", feedback to " + where(config.feedbackHost, config.feedbackPort);
  FeedbackTimer.setRunning(true);
  return true;
}

void OscLink::close() {
  FeedbackTimer.setRunning(false);
  port_->close();
}

void OscLink::feedbackTick() {
  feedback_.update(readShowState(c_));
  for (const OscMessage& m : feedback_.take(c_.scheduler.now())) {
    port_->send(m);
    ++sent_;
  }
}

OscSetup& OscLink::setupWindow() { return c_.windows.load<OscSetup>("OscSetup"); }

}  // namespace q
