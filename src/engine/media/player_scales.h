#pragma once
// What the console's player values mean as sound. Volume and balance count
// in hundredths of a decibel, as the console has always set them: a volume
// of 0 plays at full, -600 six decibels down, -3060 (the lowest the console
// sets) about thirty; a balance of -2000 takes the right channel twenty
// decibels down and leaves the left alone, +2000 the other way round.

#include <algorithm>
#include <cmath>

namespace q {

// The linear gain of a volume in hundredths of a decibel.
inline double gainForVolume(int hundredthsDb) { return std::pow(10.0, hundredthsDb / 2000.0); }

struct StereoGains {
  double left = 1, right = 1;
};

// The side away from the balance is attenuated by its value in hundredths of a decibel.
inline StereoGains gainsForBalance(int balance) {
  StereoGains g;
  if (balance < 0) g.right = gainForVolume(balance);
  if (balance > 0) g.left = gainForVolume(-balance);
  return g;
}

// The same gains as a pan from -1 (left only) to +1 (right only) that
// attenuates the far side linearly and leaves the near side at full.
inline double panForBalance(int balance) {
  const StereoGains g = gainsForBalance(balance);
  return std::clamp(g.left < 1 ? 1 - g.left : g.right - 1, -1.0, 1.0);
}

}  // namespace q
