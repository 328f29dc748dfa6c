#pragma once
// Dialogs answered from a queue, as the command language's `answer` queues
// them: the headless console prints each box as it opens, tests read the log.
// A box with no queued answer gets its first button; an input or file dialog
// with none is cancelled.

#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "engine/core/dialogs.h"

namespace q {

class ScriptedDialogs : public Dialogs {
 public:
  void queueAnswer(std::string a) { answers_.push_back(std::move(a)); }
  void clearAnswers() { answers_.clear(); }

  MsgResult msgBox(const std::string& title, const std::string& text, MsgButtons buttons,
                   MsgIcon icon) override;
  // Printed like a box, but it asks nothing: a loss that comes at its own
  // moment never takes the answer a script queued for the box it waits for.
  void notice(const std::string& title, const std::string& text) override {
    show("MSGBOX " + title + " | " + text);
  }
  std::string inputBox(const std::string& title, const std::string& prompt,
                       const std::string& defaultText) override;
  std::string fileDialog(const FileDialogRequest& request) override;

  // Every box shown, as the runner prints it: "MSGBOX title | text", "INPUTBOX title | prompt |
  // default".
  std::vector<std::string> shown;
  std::function<void(const std::string& line)> onShow;

 private:
  bool nextAnswer(std::string& out);
  void show(std::string line);
  std::deque<std::string> answers_;
};

}  // namespace q
