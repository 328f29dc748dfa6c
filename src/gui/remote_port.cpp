#include "gui/remote_port.h"

#include <arpa/inet.h>
#include <fcntl.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <QEventLoop>
#include <QSocketNotifier>
#include <QTimer>
#include <cerrno>
#include <cstdio>
#include <sstream>

#include "engine/controls/handler_scope.h"
#include "engine/core/console.h"
#include "engine/core/scripted_dialogs.h"
#include "gui/qt_dialogs.h"
#include "headless/interpreter.h"

namespace q::gui {

namespace {
constexpr int kDialogWaitMs = 50;
constexpr int kReadChunk = 64 * 1024;
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

// One connection, on its own socket: its own interpreter, its answers
// written back as the client reads them.
//
// The session outlives every command it runs, whatever the client does: a
// client that goes away while a command waits (an `advance`, a message box)
// is only marked gone, and the session ends once the command has returned. A
// client that closes its sending side still gets the answers to what it
// sent. A client that sends faster than it reads is held back: while its
// unread answers pass a bound no more of its lines are taken (nor read), and
// past a second bound it is dropped.
class RemotePort::Session : public QObject {
 public:
  Session(RemotePort& port, int fd, QString peer)
      : QObject(&port),
        port_(port),
        fd_(fd),
        peer_(std::move(peer)),
        interpreter_(port.c_, answers_, nullptr, out_) {
    ::fcntl(fd_, F_SETFL, ::fcntl(fd_, F_GETFL) | O_NONBLOCK);
    interpreter_.waitRealTime = [](int64_t ms) {
      // The desk's own loop keeps the console running while the command waits.
      QEventLoop loop;
      QTimer::singleShot(int(ms), &loop, &QEventLoop::quit);
      loop.exec();
    };
    reader_ = new QSocketNotifier(fd_, QSocketNotifier::Read, this);
    writer_ = new QSocketNotifier(fd_, QSocketNotifier::Write, this);
    writer_->setEnabled(false);
    connect(reader_, &QSocketNotifier::activated, this, [this] { read(); });
    connect(writer_, &QSocketNotifier::activated, this, [this] { flush(); });
    turn_.setSingleShot(true);
    turn_.setInterval(0);
    connect(&turn_, &QTimer::timeout, this, [this] { run(); });
  }

  ~Session() override {
    if (fd_ >= 0) ::close(fd_);
  }

 private:
  // What the client sent: taken as it comes, up to the bound of unrun lines.
  void read() {
    char chunk[kReadChunk];
    for (;;) {
      const ssize_t n = ::recv(fd_, chunk, sizeof chunk, 0);
      if (n > 0) {
        pending_.append(chunk, n);
        if (pending_.size() > kMaxLine && pending_.indexOf('\n') < 0)
          return drop("a line longer than 64 KiB");
        if (pending_.size() >= kMaxPending) {
          // Lines wait unread in the kernel until these have run.
          reader_->setEnabled(false);
          break;
        }
        continue;
      }
      if (n == 0) {
        // The client has said all it will; it may still read the answers.
        clientDone_ = true;
        reader_->setEnabled(false);
        break;
      }
      if (errno == EINTR) continue;
      if (errno != EAGAIN && errno != EWOULDBLOCK) return lose();
      break;
    }
    schedule();
  }

  void schedule() {
    if (!turn_.isActive() && !busy_) turn_.start();
  }

  // A few lines a turn, so that the timers and the other clients get theirs.
  void run() {
    if (busy_ || gone_) return;
    for (int taken = 0; taken < kLinesPerTurn; ++taken) {
      if (unsent_.size() > kHoldBack) return;  // the flush takes the next turn
      if (port_.dialogs_.open()) {
        QTimer::singleShot(kDialogWaitMs, this, [this] { run(); });
        return;
      }
      std::string line;
      if (!nextLine(line)) {
        finishIfDone();
        return;
      }
      execute(line);
      if (gone_) return endLater();
      if (port_.c_.closed()) {
        emit port_.consoleClosed();
        return;
      }
    }
    schedule();
  }

  bool nextLine(std::string& line) {
    int nl = int(pending_.indexOf('\n'));
    if (nl < 0) {
      // A last line without its end, from a client that has finished sending.
      if (!clientDone_ || pending_.isEmpty()) {
        if (!clientDone_ && !reader_->isEnabled() && pending_.size() < kMaxPending)
          reader_->setEnabled(true);
        return false;
      }
      nl = int(pending_.size());
    }
    line = pending_.left(nl).toStdString();
    pending_.remove(0, std::min<qsizetype>(nl + 1, pending_.size()));
    if (!line.empty() && line.back() == '\r') line.pop_back();
    return true;
  }

  void execute(const std::string& line) {
    busy_ = true;
    {
      HandlerScope scope;
      interpreter_.execute(line, ++lineNo_);
    }
    busy_ = false;
    answer(out_.str());
    out_.str({});
  }

  void answer(const std::string& text) {
    if (text.empty() || gone_) return;
    unsent_.append(text.data(), qsizetype(text.size()));
    if (unsent_.size() > kDropAfter) return drop("its answers went unread");
    flush();
  }

  void flush() {
    while (!unsent_.isEmpty() && !gone_) {
      const ssize_t n = ::send(fd_, unsent_.constData(), size_t(unsent_.size()), MSG_NOSIGNAL);
      if (n > 0) {
        unsent_.remove(0, n);
        continue;
      }
      if (n < 0 && errno == EINTR) continue;
      if (n < 0 && (errno == EAGAIN || errno == EWOULDBLOCK)) break;
      return lose();
    }
    writer_->setEnabled(!unsent_.isEmpty() && !gone_);
    if (unsent_.size() <= kHoldBack) schedule();
    finishIfDone();
  }

  // Everything sent was run and every answer has left: the session ends.
  void finishIfDone() {
    if (clientDone_ && !busy_ && pending_.isEmpty() && unsent_.isEmpty()) endLater();
  }

  void drop(const char* why) {
    std::fprintf(stderr, "quintara: remote client %s dropped: %s\n", qPrintable(peer_), why);
    lose();
  }

  // The client is gone; the session waits for its running command, if any.
  void lose() {
    gone_ = true;
    reader_->setEnabled(false);
    writer_->setEnabled(false);
    if (!busy_) endLater();
  }

  void endLater() {
    if (ending_) return;
    ending_ = true;
    reader_->setEnabled(false);
    writer_->setEnabled(false);
    turn_.stop();
    deleteLater();
  }

  static constexpr qsizetype kMaxLine = 64 * 1024;
  static constexpr qsizetype kMaxPending = 1024 * 1024;
  static constexpr qsizetype kHoldBack = 256 * 1024;
  static constexpr qsizetype kDropAfter = 8 * 1024 * 1024;
  static constexpr int kLinesPerTurn = 8;

  RemotePort& port_;
  int fd_;
  QString peer_;
  ScriptedDialogs answers_;  // the desk's operator answers its dialogs; queued answers go nowhere
  std::ostringstream out_;
  Interpreter interpreter_;
  QSocketNotifier* reader_ = nullptr;
  QSocketNotifier* writer_ = nullptr;
  QTimer turn_;
  QByteArray pending_;
  QByteArray unsent_;
  int lineNo_ = 0;
  bool busy_ = false;
  bool clientDone_ = false;
  bool gone_ = false;
  bool ending_ = false;
};

// Hands each new connection's socket to a session of its own, with no Qt
// socket between: the session alone decides when the connection ends.
class RemotePort::Listener : public QTcpServer {
 public:
  explicit Listener(RemotePort& port) : port_(port) {}

 protected:
  void incomingConnection(qintptr fd) override { port_.accept(int(fd)); }

 private:
  RemotePort& port_;
};

RemotePort::RemotePort(Console& c, QtDialogs& dialogs, QObject* parent)
    : QObject(parent), c_(c), dialogs_(dialogs), server_(std::make_unique<Listener>(*this)) {}

RemotePort::~RemotePort() = default;

quint16 RemotePort::port() const { return server_->serverPort(); }

bool RemotePort::listen(const std::string& where, std::string& error) {
  QHostAddress address;
  quint16 port = 0;
  if (!parseListenAddress(where, address, port)) {
    error = "not a port or address:port: " + where;
    return false;
  }
  if (!server_->listen(address, port)) {
    error = server_->errorString().toStdString();
    return false;
  }
  return true;
}

void RemotePort::accept(int fd) {
  sockaddr_storage addr{};
  socklen_t len = sizeof addr;
  QString peer = QStringLiteral("?");
  if (::getpeername(fd, reinterpret_cast<sockaddr*>(&addr), &len) == 0) {
    QHostAddress a(reinterpret_cast<const sockaddr*>(&addr));
    const quint16 p = addr.ss_family == AF_INET6
                          ? ntohs(reinterpret_cast<sockaddr_in6*>(&addr)->sin6_port)
                          : ntohs(reinterpret_cast<sockaddr_in*>(&addr)->sin_port);
    peer = a.toString() + ":" + QString::number(p);
  }
  ::fcntl(fd, F_SETFD, FD_CLOEXEC);
  new Session(*this, fd, peer);
}

}  // namespace q::gui
