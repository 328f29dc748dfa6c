#include "engine/core/console.h"

#include "engine/cuelist/cue_grid.h"
#include "engine/look/about_window.h"
#include "engine/views/channels_matrix.h"
#include "engine/views/level_windows.h"
#include "engine/views/patch_window.h"

namespace q {

void registerCoreValues(Console& c);  // core_values.cpp

namespace {
// Answers every dialog with its default: used when no host gave dialogs.
class DefaultDialogs : public Dialogs {
 public:
  MsgResult msgBox(const std::string&, const std::string&, MsgButtons b, MsgIcon) override {
    return defaultButton(b);
  }
  std::string inputBox(const std::string&, const std::string&, const std::string&) override {
    return {};
  }
  std::string fileDialog(const FileDialogRequest&) override { return {}; }
};

Clock& fallbackClock() {
  static SteadyClock clock;
  return clock;
}

ConsoleHost withDefaults(ConsoleHost h, std::unique_ptr<Dialogs>& fallback,
                         std::unique_ptr<MediaPlayer> (&players)[2]) {
  if (!h.clock) h.clock = &fallbackClock();
  for (int k = 0; k < 2; ++k)
    if (!h.players[k]) {
      players[k] = std::make_unique<SilentMediaPlayer>();
      h.players[k] = players[k].get();
    }
  if (!h.dialogs) {
    fallback = std::make_unique<DefaultDialogs>();
    h.dialogs = fallback.get();
  }
  return h;
}
}  // namespace

Console::Console(ConsoleHost host)
    : host_(withDefaults(std::move(host), fallbackDialogs_, fallbackPlayers_)),
      scheduler(*host_.clock),
      form1(registry, scheduler) {
  scheduler.onTickFailed = [this](const std::string& failure) { failures.report(failure); };
  registerCoreValues(*this);
  wireMainMenu();
  addAboutWindow(*this);
  addChannelsMatrix(*this);
  addPatchWindows(*this);
  addLevelWindows(*this);
  addCueListWindows(*this);
  windows.enableOpeners();
}

Console::~Console() = default;

}  // namespace q
