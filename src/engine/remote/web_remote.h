#pragma once
// The rigger's remote in a browser, as the console sees it: the messages a
// page sends (GO, BACK, PAUSE, a direct command, channel check, the grand
// master, the PIN) and the state it is sent back, as small JSON objects.
// Every action goes through ShowControl, so the page does nothing the desk
// cannot. The server around it (the desk's web port) only carries text.
//
// Page to console, one object a message:
//   {"pin":"1234"}
//   {"do":"go"} {"do":"back"} {"do":"pause"}
//   {"do":"direct","text":"1/10aff"}
//   {"do":"gm","level":0.8}
//   {"do":"check","channel":12,"level":1}  {"do":"checkStep","delta":1}
//   {"do":"checkLevel","level":0.5}        {"do":"checkOff"}
// Console to page: {"t":"pin",...} while a PIN is wanted, {"t":"state",...}
// whenever what the page shows changed, {"t":"direct","text":...} with what
// the command line kept, {"t":"refused","why":...} for an action not taken.

#include <cstdint>
#include <string>
#include <string_view>

#include "engine/controls/label.h"
#include "engine/remote/channel_check.h"
#include "engine/remote/json_message.h"
#include "engine/remote/remote_pin.h"

namespace q {

class Console;

class WebRemote {
 public:
  // A client may send a burst of this many messages, then this many a second.
  static constexpr double kBurst = 40;
  static constexpr double kPerSecond = 200;

  struct Client {
    bool admitted = false;
    double tokens = kBurst;
    int64_t lastMessageMs = 0;
    long dropped = 0;  // messages over the rate, not looked at
  };

  explicit WebRemote(Console& c);
  ~WebRemote();
  WebRemote(const WebRemote&) = delete;
  WebRemote& operator=(const WebRemote&) = delete;

  // From now on a client must give this PIN first. Shown as WebPin.
  void lock(RemotePin pin);
  const RemotePin& pin() const { return pin_; }

  Client newClient() const;
  // What a new client is sent first: the PIN request, or nothing.
  std::string greeting(const Client& client, int64_t nowMs) const;
  // One message from a client at nowMs; the answer to send it back, often
  // none. With deskBusy (a dialog of the desk is open) no action is taken.
  std::string receive(Client& client, std::string_view message, int64_t nowMs, bool deskBusy);
  // What the page shows, as one message; sent to admitted clients when it changed.
  std::string stateText();

  ChannelCheck& channelCheck() { return check_; }

 private:
  bool withinRate(Client& client, int64_t nowMs);
  std::string tryPin(Client& client, const std::string& given, int64_t nowMs);
  std::string act(const std::string& what, const JsonObject& o);
  std::string pinRequest(bool wrong, int64_t nowMs) const;

  Console& c_;
  RemotePin pin_;
  ChannelCheck check_;
  Label webPin_{"WebPin"};  // the PIN as the desk shows it; empty when none is needed
};

}  // namespace q
