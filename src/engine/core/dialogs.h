#pragma once
// The modal dialogs the console opens: message box, input box, file chooser,
// font and colour choosers. The desk shows Qt dialogs; the headless runner
// prints them and answers from its queue; tests use a scripted fake.

#include <string>

#include "engine/controls/textbox.h"

namespace q {

enum class MsgButtons { OK, OKCancel, YesNo, YesNoCancel, RetryCancel, AbortRetryIgnore };
enum class MsgIcon { None, Critical, Question, Exclamation, Information };
enum class MsgResult { OK, Cancel, Yes, No, Retry, Abort, Ignore };

enum class FileDialogKind { Open, Save };

struct FileDialogRequest {
  FileDialogKind kind = FileDialogKind::Open;
  std::string title;
  // As the console writes it: "Show files (*.qsh)|*.qsh|All files (*.*)|*.*".
  std::string filter;
  std::string fileName;  // initial name
  std::string initDir;
};

class Dialogs {
 public:
  virtual ~Dialogs() = default;
  virtual MsgResult msgBox(const std::string& title, const std::string& text,
                           MsgButtons buttons = MsgButtons::OK, MsgIcon icon = MsgIcon::None) = 0;
  // A message that waits for no answer: the console carries on while it is
  // up (an adapter lost in the middle of a show). Where nothing can stay on
  // screen it is a message box like any other.
  virtual void notice(const std::string& title, const std::string& text) { msgBox(title, text); }
  // The typed text, or "" when cancelled.
  virtual std::string inputBox(const std::string& title, const std::string& prompt,
                               const std::string& defaultText) = 0;
  // The chosen path, or "" when cancelled.
  virtual std::string fileDialog(const FileDialogRequest& request) = 0;
  // False when cancelled; otherwise style holds the chosen font.
  virtual bool fontDialog(TextStyle& style) {
    (void)style;
    return false;
  }
  // False when cancelled; otherwise color holds the chosen 0xRRGGBB.
  virtual bool colorDialog(int& color) {
    (void)color;
    return false;
  }
};

// The first button of a box: what it returns when nothing answers it.
MsgResult defaultButton(MsgButtons b);

}  // namespace q
