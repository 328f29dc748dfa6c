#pragma once
// Recovery copies of the show. Before a load replaces the cue list, the
// submasters or the whole show, before RESET DESK, and every five minutes
// while the show has changed, the console writes the whole show (its six
// files) to a snapshot folder under "recovery" in the program's own folder,
// keeping the last twenty. The files are written on a thread of their own,
// so that the light never waits for the disk.
//
// A marker in the same folder says that a console is running; the close
// sequence takes it away. Found at start-up, it tells that the last run did
// not end properly, and the console offers, once, to reopen the last snapshot.

#include <memory>
#include <string>
#include <vector>

#include "engine/controls/timer.h"

namespace q {

class Console;

class ShowSnapshots {
 public:
  explicit ShowSnapshots(Console& c);
  ~ShowSnapshots();
  ShowSnapshots(const ShowSnapshots&) = delete;
  ShowSnapshots& operator=(const ShowSnapshots&) = delete;

  static constexpr int kKept = 20;
  static constexpr int kEveryMs = 5 * 60 * 1000;

  // A load that replaces what the show holds: a snapshot is taken first when
  // the show changed since the last one; loads within it take none.
  class [[nodiscard]] Replacing {
   public:
    explicit Replacing(ShowSnapshots& s);
    ~Replacing();
    Replacing(const Replacing&) = delete;
    Replacing& operator=(const Replacing&) = delete;

   private:
    ShowSnapshots& s_;
  };
  Replacing replacing() { return Replacing(*this); }

  // Takes a snapshot now if the show changed since the last one.
  void takeIfChanged();
  // Waits until every snapshot handed to the writer is on disk (tests, exit).
  void waitForWrites();
  // The snapshots' index files, oldest first.
  std::vector<std::string> snapshots() const;
  std::string folder() const;

  // Start-up, before the main window loads: whether the last run ended
  // without its close sequence (asked once: the marker goes).
  bool endedUncleanly();
  // After start-up: offers to reopen the last snapshot.
  void offerRecovery();
  // The main window's load and unload: the marker of a running console.
  void markRunning();
  void markClosed();

 private:
  class Writer;
  void watchTables();
  void showChanged();
  void kept();
  void take();

  Console& c_;
  std::unique_ptr<Writer> writer_;
  Timer timer_;
  bool changed_ = false;
  bool running_ = false;
  int loading_ = 0;
  unsigned sequence_ = 0;
};

}  // namespace q
