#include "gui/web_remote_server.h"

#include <sys/socket.h>

#include <QFile>
#include <QHttpServer>
#include <QHttpServerResponse>
#include <QNetworkInterface>
#include <QRandomGenerator>
#include <QTcpServer>
#include <QTcpSocket>
#include <QUrl>
#include <QWebSocket>
#include <cstdio>

#include "engine/controls/handler_scope.h"
#include "engine/core/console.h"
#include "gui/qt_dialogs.h"

// The page lives in the binary; a resource of a static library must be
// asked for by name once.
static void loadPageResource() { Q_INIT_RESOURCE(web_remote); }

namespace q::gui {

namespace {

QByteArray page() {
  QFile f(QStringLiteral(":/web/remote.html"));
  return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray("no page");
}

// A page from another site may not open a socket here: a browser always
// says where the page came from, and it must be this port's own page.
bool sameOrigin(const QWebSocket& s) {
  const QString origin = s.origin();
  if (origin.isEmpty()) return true;  // not a browser; the PIN still applies
  const QUrl o(origin);
  const QUrl here = s.request().url();
  return o.host().compare(here.host(), Qt::CaseInsensitive) == 0 && o.port(80) == here.port(80);
}

// The listener makes each connection's socket itself, to watch what waits
// unsent on it: a client that asks for the page again and again without
// reading the answers is cut off before the answers pile up. Once a socket
// becomes a WebSocket this watch ends and the server's own one takes over.
class GuardedListener : public QTcpServer {
 public:
  GuardedListener(qint64 bound, QObject* parent) : QTcpServer(parent), bound_(bound) {}

 protected:
  void incomingConnection(qintptr fd) override {
    auto* socket = new QTcpSocket(this);
    if (!socket->setSocketDescriptor(fd)) {
      delete socket;
      return;
    }
    const qint64 bound = bound_;
    connect(socket, &QTcpSocket::readyRead, socket, [socket, bound] {
      if (socket->bytesToWrite() > bound) socket->abort();
    });
    addPendingConnection(socket);
  }

 private:
  qint64 bound_;
};

}  // namespace

struct WebRemoteServer::Client {
  std::unique_ptr<QWebSocket> socket;
  WebRemote::Client remote;
  std::string sent;        // the last state sent
  int64_t heldSince = -1;  // since when it has been held back; -1 when it reads
};

bool webAddressNeedsPin(const QHostAddress& address) {
  return address != QHostAddress(QHostAddress::LocalHost) &&
         address != QHostAddress(QHostAddress::LocalHostIPv6);
}

WebRemoteServer::WebRemoteServer(Console& c, QtDialogs& dialogs, WebClientBounds bounds,
                                 QObject* parent)
    : QObject(parent),
      dialogs_(dialogs),
      bounds_(bounds),
      remote_(c),
      http_(std::make_unique<QHttpServer>()) {
  loadPageResource();
  since_.start();
  const QByteArray html = page();
  http_->route("/", [html] {
    QHttpServerResponse r("text/html; charset=utf-8", html);
    r.setHeader("Cache-Control", "no-store");
    r.setHeader("X-Frame-Options", "DENY");  // no other page may wrap the GO key
    return r;
  });
  // The socket's handshake is taken over by the WebSocket side once a route
  // owns the path; this one answers nothing itself.
  http_->route("/ws", [](const QHttpServerRequest&, QHttpServerResponder&&) {});
  connect(http_.get(), &QHttpServer::newWebSocketConnection, this, [this] { accept(); });
  poll_.setInterval(kPollMs);
  connect(&poll_, &QTimer::timeout, this, [this] { pushState(); });
}

WebRemoteServer::~WebRemoteServer() {
  for (auto& client : clients_) client->socket->disconnect(this);
}

bool WebRemoteServer::listen(const std::string& address, quint16 port, std::string& error) {
  QHostAddress a(QHostAddress::LocalHost);
  if (!address.empty() && address != "localhost" &&
      !a.setAddress(QString::fromStdString(address))) {
    error = "not an address: " + address;
    return false;
  }
  auto* tcp = new GuardedListener(kPageBacklog, http_.get());
  if (!tcp->listen(a, port)) {
    error = "can't listen on " + a.toString().toStdString() + " port " + std::to_string(port) +
            ": " + tcp->errorString().toStdString();
    delete tcp;
    return false;
  }
  // Connections take the listener's buffer size.
  const int buffer = bounds_.socketBuffer;
  ::setsockopt(int(tcp->socketDescriptor()), SOL_SOCKET, SO_SNDBUF, &buffer, sizeof buffer);
  http_->bind(tcp);
  port_ = tcp->serverPort();
  address_ = a;
  if (webAddressNeedsPin(a))
    remote_.lock(RemotePin::fromRandom(QRandomGenerator::system()->generate()));
  return true;
}

QString WebRemoteServer::notice() const {
  QString host = address_.toString();
  if (address_ == QHostAddress(QHostAddress::AnyIPv4) || address_ == QHostAddress::Any) {
    // Bound to every address: name one the rigger's phone can reach.
    for (const QHostAddress& a : QNetworkInterface::allAddresses())
      if (!a.isLoopback() && a.protocol() == QAbstractSocket::IPv4Protocol) {
        host = a.toString();
        break;
      }
  }
  if (address_.protocol() == QAbstractSocket::IPv6Protocol) host = "[" + host + "]";
  QString text = QStringLiteral("Web remote: http://%1:%2/").arg(host).arg(port_);
  if (remote_.pin().needed())
    text += QStringLiteral("   PIN %1").arg(QString::fromStdString(remote_.pin().pin()));
  return text;
}

void WebRemoteServer::accept() {
  while (http_->hasPendingWebSocketConnections()) {
    std::unique_ptr<QWebSocket> socket = http_->nextPendingWebSocketConnection();
    if (!socket) break;
    if (int(clients_.size()) >= bounds_.maxClients || !sameOrigin(*socket)) {
      socket->abort();
      continue;
    }
    socket->setMaxAllowedIncomingMessageSize(kMaxMessage);
    socket->setMaxAllowedIncomingFrameSize(kMaxMessage);
    // Taken a little at a time: a flood waits in the kernel, and the output
    // timer gets its turns between the bites.
    socket->setReadBufferSize(kReadBite);
    auto client = std::make_unique<Client>();
    Client* raw = client.get();
    client->socket = std::move(socket);
    client->remote = remote_.newClient();
    connect(raw->socket.get(), &QWebSocket::textMessageReceived, this,
            [this, raw](const QString& m) { receive(*raw, m); });
    connect(raw->socket.get(), &QWebSocket::disconnected, this, [this, raw] { forget(raw); });
    clients_.push_back(std::move(client));
    // The state is watched only while someone is there to see it: a port
    // nobody uses costs the console no wake-ups.
    if (!poll_.isActive()) poll_.start();
    send(*raw, remote_.greeting(raw->remote, nowMs()));
    if (raw->remote.admitted) send(*raw, raw->sent = remote_.stateText());
  }
}

void WebRemoteServer::receive(Client& client, const QString& message) {
  const bool wasAdmitted = client.remote.admitted;
  std::string answer;
  {
    HandlerScope scope;
    answer = remote_.receive(client.remote, message.toStdString(), nowMs(), dialogs_.open());
  }
  send(client, answer);
  // Just let in: it sees the show at once.
  if (!wasAdmitted && client.remote.admitted) send(client, client.sent = remote_.stateText());
}

void WebRemoteServer::send(Client& client, const std::string& text) {
  // Held back: answers are skipped as states are; the next state tells all.
  if (text.empty() || !client.socket || client.socket->bytesToWrite() > bounds_.holdBack) return;
  client.socket->sendTextMessage(QString::fromStdString(text));
}

// The state goes to every admitted client whose last one differs; a client
// with unsent bytes piling up is passed over, and gets the state of the
// moment when it reads again.
void WebRemoteServer::pushState() {
  if (clients_.empty()) return;
  const std::string state = remote_.stateText();
  const int64_t now = nowMs();
  std::vector<Client*> stuck;
  for (const auto& each : clients_) {
    Client& client = *each;
    if (!client.remote.admitted) continue;
    if (client.socket->bytesToWrite() > bounds_.holdBack) {
      if (client.heldSince < 0) client.heldSince = now;
      if (now - client.heldSince > bounds_.stuckMs) stuck.push_back(&client);
      continue;
    }
    client.heldSince = -1;
    if (client.sent == state) continue;
    client.sent = state;
    send(client, state);
  }
  // Dropped after the round: a dropped client leaves the list at once.
  for (Client* client : stuck) drop(*client, "it has stopped reading");
}

void WebRemoteServer::drop(Client& client, const char* why) {
  std::fprintf(stderr, "quintara: web remote client %s dropped: %s\n",
               qPrintable(client.socket->peerAddress().toString()), why);
  client.socket->abort();  // its disconnected signal forgets it
}

void WebRemoteServer::forget(Client* client) {
  for (auto it = clients_.begin(); it != clients_.end(); ++it) {
    if (it->get() != client) continue;
    QWebSocket* socket = (*it)->socket.release();
    socket->disconnect(this);
    socket->deleteLater();
    clients_.erase(it);
    if (clients_.empty()) poll_.stop();
    return;
  }
}

}  // namespace q::gui
