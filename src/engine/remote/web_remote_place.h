#pragma once
// Where the desk's web remote listens: [Remote] WebPort= (none, 0 or no
// number: off) and WebAddress= (default the loopback address, so only a
// browser on the desk's own machine reaches it), or --web [ADDRESS:]PORT on
// the command line, which wins. "-default" leaves the settings unread: the
// remote is off unless --web asks for it.

#include <string>

namespace q {

class IniFile;

struct WebRemotePlace {
  std::string address = "127.0.0.1";
  int port = 0;
  bool on() const { return port > 0; }
};

WebRemotePlace readWebRemotePlace(const IniFile& ini, bool useDefaults);
// "PORT", "ADDRESS:PORT" or "[IPV6]:PORT", port 1..65535; false when it is none.
bool parseWebRemotePlace(const std::string& text, WebRemotePlace& place);

}  // namespace q
