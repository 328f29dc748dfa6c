#include "gui/remote_port.h"

#include <QEventLoop>
#include <QPointer>
#include <QTcpSocket>
#include <QTimer>
#include <sstream>

#include "engine/core/console.h"
#include "engine/core/scripted_dialogs.h"
#include "gui/qt_dialogs.h"
#include "headless/interpreter.h"

namespace q::gui {

namespace {
constexpr qint64 kMaxLine = 64 * 1024;  // a longer "line" is no command: the peer is cut off
constexpr int kDialogWaitMs = 50;
}  // namespace

bool parseListenAddress(const std::string& where, QHostAddress& address, quint16& port) {
  const QString w = QString::fromStdString(where).trimmed();
  const int colon = w.lastIndexOf(':');
  QString host = colon >= 0 ? w.left(colon) : QString();
  const QString number = colon >= 0 ? w.mid(colon + 1) : w;
  bool ok = false;
  const uint p = number.toUInt(&ok);
  if (!ok || p > 65535) return false;  // 0: any free port
  if (host.startsWith('[') && host.endsWith(']')) host = host.mid(1, host.size() - 2);
  if (host.isEmpty()) {
    address = QHostAddress(QHostAddress::LocalHost);
  } else if (host == QLatin1String("localhost")) {
    address = QHostAddress(QHostAddress::LocalHost);
  } else if (!address.setAddress(host)) {
    return false;
  }
  port = quint16(p);
  return true;
}

// One connection: its own interpreter, its output written back line by line.
class RemotePort::Session : public QObject {
 public:
  Session(RemotePort& port, QTcpSocket* socket)
      : QObject(&port),
        port_(port),
        socket_(socket),
        interpreter_(port.c_, answers_, nullptr, out_) {
    socket_->setParent(this);
    interpreter_.waitRealTime = [](int64_t ms) {
      // The desk's own loop keeps the console running while the command waits.
      QEventLoop loop;
      QTimer::singleShot(int(ms), &loop, &QEventLoop::quit);
      loop.exec();
    };
    connect(socket_, &QTcpSocket::readyRead, this, &Session::read);
    connect(socket_, &QTcpSocket::disconnected, this, &QObject::deleteLater);
  }

 private:
  void read() {
    pending_ += socket_->readAll();
    if (pending_.size() > kMaxLine && !pending_.contains('\n')) {
      socket_->disconnectFromHost();
      return;
    }
    run();
  }

  void run() {
    if (busy_) return;
    QPointer<Session> alive(this);
    while (alive) {
      if (port_.dialogs_.open()) {
        QTimer::singleShot(kDialogWaitMs, this, [this] { run(); });
        return;
      }
      const int nl = pending_.indexOf('\n');
      if (nl < 0) return;
      std::string line = pending_.left(nl).toStdString();
      pending_.remove(0, nl + 1);
      if (!line.empty() && line.back() == '\r') line.pop_back();
      busy_ = true;
      interpreter_.execute(line, ++lineNo_);
      if (!alive) return;
      busy_ = false;
      const std::string text = out_.str();
      out_.str({});
      if (!text.empty()) socket_->write(text.data(), qint64(text.size()));
      if (port_.c_.closed()) {
        emit port_.consoleClosed();
        return;
      }
    }
  }

  RemotePort& port_;
  QTcpSocket* socket_;
  ScriptedDialogs answers_;  // the desk's operator answers its dialogs; queued answers go nowhere
  std::ostringstream out_;
  Interpreter interpreter_;
  QByteArray pending_;
  int lineNo_ = 0;
  bool busy_ = false;
};

RemotePort::RemotePort(Console& c, QtDialogs& dialogs, QObject* parent)
    : QObject(parent), c_(c), dialogs_(dialogs) {
  connect(&server_, &QTcpServer::newConnection, this, &RemotePort::accept);
}

RemotePort::~RemotePort() = default;

bool RemotePort::listen(const std::string& where, std::string& error) {
  QHostAddress address;
  quint16 port = 0;
  if (!parseListenAddress(where, address, port)) {
    error = "not a port or address:port: " + where;
    return false;
  }
  if (!server_.listen(address, port)) {
    error = server_.errorString().toStdString();
    return false;
  }
  return true;
}

void RemotePort::accept() {
  while (QTcpSocket* s = server_.nextPendingConnection()) new Session(*this, s);
}

}  // namespace q::gui
