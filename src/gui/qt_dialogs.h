#pragma once
// The console's modal dialogs as Qt shows them: message box, input box, file
// chooser, font and colour choosers. While one is open the desk's event loop
// runs inside it; the remote port waits for it to close before it runs more
// commands.

#include <QPointer>
#include <QWidget>
#include <functional>

#include "engine/core/dialogs.h"

namespace q::gui {

// The extension a save dialog gives a name typed without one, from the
// console's filter text ("Quintara Save File (*.Qsh)|*.qsh" gives "qsh").
QString defaultSuffix(const std::string& consoleFilter);

// Where a file dialog opens: the folder the console asks for when it exists;
// otherwise the folder of the last show, then ~/Documents, then home.
QString startFolder(const std::string& initDir, const std::string& lastShow);

class QtDialogs : public Dialogs {
 public:
  // The show file opened or saved last (the first entry of the recent list).
  std::function<std::string()> lastShow;
  // The window the dialogs belong to; may change (splash, then the desk).
  void setParent(QWidget* w) { parent_ = w; }
  // Runs before each dialog shows (the desk takes its splash away).
  std::function<void()> beforeShow;
  // True while a dialog is on screen.
  bool open() const { return open_ > 0; }

  MsgResult msgBox(const std::string& title, const std::string& text, MsgButtons buttons,
                   MsgIcon icon) override;
  std::string inputBox(const std::string& title, const std::string& prompt,
                       const std::string& defaultText) override;
  std::string fileDialog(const FileDialogRequest& request) override;
  bool fontDialog(TextStyle& style) override;
  bool colorDialog(int& color) override;

  // "MP3 (*.mp3)|*.mp3|All Files (*.*)|*.*" as Qt writes it: "MP3 (*.mp3);;All Files (*)".
  static QString qtFilter(const std::string& filter);

 private:
  QPointer<QWidget> parent_;
  int open_ = 0;
};

}  // namespace q::gui
