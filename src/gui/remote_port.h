#pragma once
// The desk's remote port: the command language of the headless console over
// a TCP connection, one command a line, each answered on the same
// connection. It listens on the loopback address unless told another, and it
// runs no command while a dialog of the desk is open, so a remote line never
// lands inside the operator's dialog. No client can hurt the show: a client
// that leaves mid-command, floods lines or never reads its answers costs the
// console a bounded amount of memory and time, and the light goes on.

#include <QHostAddress>
#include <QObject>
#include <QTcpServer>
#include <memory>
#include <string>

namespace q {
class Console;
}

namespace q::gui {

class QtDialogs;

class RemotePort : public QObject {
  Q_OBJECT
 public:
  RemotePort(Console& c, QtDialogs& dialogs, QObject* parent = nullptr);
  ~RemotePort() override;

  // "PORT" or "ADDRESS:PORT"; false with a reason when it can't listen.
  bool listen(const std::string& where, std::string& error);
  quint16 port() const;

 signals:
  // A command closed the console.
  void consoleClosed();

 private:
  class Session;
  class Listener;
  void accept(int fd);

  Console& c_;
  QtDialogs& dialogs_;
  std::unique_ptr<Listener> server_;
};

// Splits "ADDRESS:PORT" or "PORT"; false when it isn't one.
bool parseListenAddress(const std::string& where, QHostAddress& address, quint16& port);

}  // namespace q::gui
