#pragma once
// The two players' keys on the main window: MpLoad(k) chooses a medium for
// player k, MpPlay(k) plays and pauses it; a file dropped on either loads it
// (and on MpPlay starts it when it is ready at once). Whatever speed was last
// asked of a player is put back on both at every change of state of either.

#include <string>

namespace q {

class Console;

class PlayerKeys {
 public:
  explicit PlayerKeys(Console& c);

  void load(int k);
  void playPause(int k);
  void dropOnLoad(int k, const std::string& path);
  void dropOnPlay(int k, const std::string& path);
  // A player changed state: both get their speed back.
  void applyRates();
  // "Media Player 1", "Media Player 2": the players as the operator knows them.
  static std::string playerName(int k);

 private:
  void wire(int k);
  Console& c_;
};

}  // namespace q
