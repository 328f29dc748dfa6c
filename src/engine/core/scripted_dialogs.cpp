#include "engine/core/scripted_dialogs.h"

namespace q {

bool ScriptedDialogs::nextAnswer(std::string& out) {
  if (answers_.empty()) return false;
  out = std::move(answers_.front());
  answers_.pop_front();
  return true;
}

void ScriptedDialogs::show(std::string line) {
  if (onShow) onShow(line);
  shown.push_back(std::move(line));
}

static bool allowed(MsgButtons b, MsgResult r) {
  switch (b) {
    case MsgButtons::OK:
      return r == MsgResult::OK;
    case MsgButtons::OKCancel:
      return r == MsgResult::OK || r == MsgResult::Cancel;
    case MsgButtons::YesNo:
      return r == MsgResult::Yes || r == MsgResult::No;
    case MsgButtons::YesNoCancel:
      return r == MsgResult::Yes || r == MsgResult::No || r == MsgResult::Cancel;
    case MsgButtons::RetryCancel:
      return r == MsgResult::Retry || r == MsgResult::Cancel;
    case MsgButtons::AbortRetryIgnore:
      return r == MsgResult::Abort || r == MsgResult::Retry || r == MsgResult::Ignore;
  }
  return false;
}

MsgResult ScriptedDialogs::msgBox(const std::string& title, const std::string& text,
                                  MsgButtons buttons, MsgIcon) {
  show("MSGBOX " + title + " | " + text);
  std::string a;
  if (!nextAnswer(a)) return defaultButton(buttons);
  static const std::pair<const char*, MsgResult> names[] = {
      {"OK", MsgResult::OK},        {"Cancel", MsgResult::Cancel}, {"Yes", MsgResult::Yes},
      {"No", MsgResult::No},        {"Retry", MsgResult::Retry},   {"Abort", MsgResult::Abort},
      {"Ignore", MsgResult::Ignore}};
  for (auto& [name, r] : names)
    if (a == name && allowed(buttons, r)) return r;
  return defaultButton(buttons);
}

std::string ScriptedDialogs::inputBox(const std::string& title, const std::string& prompt,
                                      const std::string& defaultText) {
  show("INPUTBOX " + title + " | " + prompt + " | " + defaultText);
  std::string a;
  return nextAnswer(a) ? a : std::string();
}

std::string ScriptedDialogs::fileDialog(const FileDialogRequest&) {
  std::string a;
  return nextAnswer(a) ? a : std::string();
}

}  // namespace q
