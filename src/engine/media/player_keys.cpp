#include "engine/media/player_keys.h"

#include "engine/core/console.h"

namespace q {

namespace {
const char* const kMediaFilter = "MP3 (*.mp3)|*.mp3|WAV (*.wav)|*.wav|All Files (*.*)|*.*";
}

PlayerKeys::PlayerKeys(Console& c) : c_(c) {
  for (int k = 0; k < 2; ++k) wire(k);
}

void PlayerKeys::wire(int k) {
  MainWindow& f = c_.form1;
  Lamp& load = f.add<Lamp>(indexed("MpLoad", k));
  Lamp& play = f.add<Lamp>(indexed("MpPlay", k));
  for (Lamp* key : {&load, &play}) {
    key->onMouseDown = [key](MouseButton) { key->setPicture("Llarg2"); };
    key->onMouseUp = [key](MouseButton) { key->setPicture(""); };
  }
  load.onClick = [this, k] { this->load(k); };
  play.onClick = [this, k] { playPause(k); };
  load.onDrop = [this, k](const std::string& p, MouseButton) { dropOnLoad(k, p); };
  play.onDrop = [this, k](const std::string& p, MouseButton) { dropOnPlay(k, p); };
  c_.WMP(k).onPlayStateChange = [this](int, int) { applyRates(); };
  // A medium that can't be played is told once; the player stays not ready
  // and the light goes on.
  c_.WMP(k).onFailure = [this, k](const std::string& reason) {
    c_.failures.report(playerName(k) + " can't play " + c_.WMP(k).fileName() + ": " + reason);
  };
}

std::string PlayerKeys::playerName(int k) { return "Media Player " + std::to_string(k + 1); }

// The chooser's name is not emptied first: a cancel loads the name it last held.
void PlayerKeys::load(int k) {
  CommonDialog& d = c_.CDialog1;
  d.Filter = kMediaFilter;
  d.ShowOpen();
  c_.WMP(k).setVisible(true);
  if (!d.FileName.empty()) c_.WMP(k).setFileName(d.FileName);
}

// A play-pause toggle; what the player makes of it is the player's affair.
void PlayerKeys::playPause(int k) {
  MediaPlayer& p = c_.WMP(k);
  const int state = p.playState();
  if (state == 0 || state == 1)
    p.play();
  else
    p.pause();
}

void PlayerKeys::dropOnLoad(int k, const std::string& path) { c_.WMP(k).setFileName(path); }

void PlayerKeys::dropOnPlay(int k, const std::string& path) {
  MediaPlayer& p = c_.WMP(k);
  p.setFileName(path);
  // A medium that takes time to open isn't started.
  if (p.ready()) p.play();
}

void PlayerKeys::applyRates() {
  c_.WMP(0).setRate(c_.v.Player1Rate);
  c_.WMP(1).setRate(c_.v.Player2Rate);
}

}  // namespace q
