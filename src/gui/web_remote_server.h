#pragma once
// The desk's web port: one page for a phone or tablet, served over HTTP,
// and a WebSocket on the same port that carries the page's presses in and
// the console's state out. What the messages mean is the engine's
// WebRemote; this only carries them.
//
// Bound to loopback unless told another address; beyond the desk's own
// address a PIN is made and shown on the desk, and no page acts before it
// gives it. A press from the page runs on the console thread like any
// other, and none runs while a dialog of the desk is open. No client can
// hurt the show: a client that never reads gets only the latest state when
// it reads again, and is dropped when it falls too far behind.

#include <QElapsedTimer>
#include <QHostAddress>
#include <QObject>
#include <QTimer>
#include <memory>
#include <string>
#include <vector>

#include "engine/remote/web_remote.h"

class QHttpServer;
class QWebSocket;

namespace q {
class Console;
}

namespace q::gui {

class QtDialogs;

// What one client may cost the desk.
struct WebClientBounds {
  // Unsent bytes to a client above which it gets no more states for now.
  qint64 holdBack = 64 * 1024;
  // How long a client may stay held back before it is dropped.
  int stuckMs = 10000;
  int maxClients = 16;
  // The kernel's send buffer of each connection: small, so that a client
  // that stops reading is seen as held back soon, not megabytes later.
  int socketBuffer = 32 * 1024;
};

class WebRemoteServer : public QObject {
  Q_OBJECT
 public:
  // A state reaches the page within this of the change (plus the network).
  static constexpr int kPollMs = 30;
  static constexpr int kMaxMessage = 4096;
  static constexpr qint64 kReadBite = 16 * 1024;
  // Unsent page answers on one connection above which it is cut off.
  static constexpr qint64 kPageBacklog = 256 * 1024;

  WebRemoteServer(Console& c, QtDialogs& dialogs, WebClientBounds bounds = {},
                  QObject* parent = nullptr);
  ~WebRemoteServer() override;

  // Listens on ADDRESS (empty: loopback) and PORT (0: any free one). Beyond
  // loopback a PIN is made at once. False with a reason when it can't listen.
  bool listen(const std::string& address, quint16 port, std::string& error);
  quint16 port() const { return port_; }
  // Whether the state is being watched for clients (only while there are any).
  bool watching() const { return poll_.isActive(); }
  const RemotePin& pin() const { return remote_.pin(); }
  // What the desk tells the operator: where the page is, and the PIN.
  QString notice() const;
  int clients() const { return int(clients_.size()); }

 private:
  struct Client;
  void accept();
  void receive(Client& client, const QString& message);
  void send(Client& client, const std::string& text);
  void pushState();
  void drop(Client& client, const char* why);
  void forget(Client* client);
  int64_t nowMs() const { return since_.elapsed(); }

  QtDialogs& dialogs_;
  WebClientBounds bounds_;
  WebRemote remote_;
  std::unique_ptr<QHttpServer> http_;
  std::vector<std::unique_ptr<Client>> clients_;
  QTimer poll_;
  QElapsedTimer since_;
  QHostAddress address_;
  quint16 port_ = 0;
};

// Whether the web port on this address needs a PIN: any address but the
// desk's own loopback one.
bool webAddressNeedsPin(const QHostAddress& address);

}  // namespace q::gui
