#pragma once
// The lock on a remote that listens beyond the desk's own machine: a PIN,
// made when the remote starts and shown on the desk, that a client must give
// before it may act. Wrong PINs are counted: after a few, each further try
// waits longer (up to a minute), whoever makes it, so guessing four digits
// takes days. A right PIN starts the count again.

#include <cstdint>
#include <string>

namespace q {

class RemotePin {
 public:
  static constexpr int kDigits = 4;
  static constexpr int kFreeTries = 3;
  static constexpr int64_t kFirstWaitMs = 1000;
  static constexpr int64_t kLongestWaitMs = 60000;

  // No PIN: every client may act (the remote listens on loopback only).
  RemotePin() = default;
  // A PIN of kDigits digits made from a random number.
  static RemotePin fromRandom(uint32_t random);
  explicit RemotePin(std::string pin) : pin_(std::move(pin)) {}

  bool needed() const { return !pin_.empty(); }
  const std::string& pin() const { return pin_; }

  enum class Answer { Right, Wrong, TooSoon };
  // A try at the time nowMs. A try while the lock waits is not looked at.
  Answer attempt(const std::string& given, int64_t nowMs);
  // How long from nowMs until the next try is looked at.
  int64_t waitMs(int64_t nowMs) const;
  int wrongTries() const { return wrong_; }

 private:
  std::string pin_;
  int wrong_ = 0;
  int64_t nextTryAt_ = 0;
};

}  // namespace q
