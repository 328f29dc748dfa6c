#include "engine/remote/web_remote_place.h"

#include "engine/core/ini_file.h"

namespace q {

namespace {
bool portOf(const std::string& text, int& port) {
  if (text.empty() || text.size() > 5 || text.find_first_not_of("0123456789") != std::string::npos)
    return false;
  port = std::stoi(text);
  return port >= 1 && port <= 65535;
}
}  // namespace

WebRemotePlace readWebRemotePlace(const IniFile& ini, bool useDefaults) {
  WebRemotePlace place;
  if (useDefaults) return place;
  const std::string address = ini.read("Remote", "WebAddress", "");
  if (!address.empty()) place.address = address;
  if (!portOf(ini.read("Remote", "WebPort", ""), place.port)) place.port = 0;
  return place;
}

bool parseWebRemotePlace(const std::string& text, WebRemotePlace& place) {
  const size_t colon = text.rfind(':');
  WebRemotePlace p;
  if (!portOf(colon == std::string::npos ? text : text.substr(colon + 1), p.port)) return false;
  if (colon != std::string::npos) {
    std::string host = text.substr(0, colon);
    if (host.size() >= 2 && host.front() == '[' && host.back() == ']')
      host = host.substr(1, host.size() - 2);
    if (host.empty()) return false;
    p.address = host;
  }
  place = p;
  return true;
}

}  // namespace q
