#include "engine/showfiles/show_snapshots.h"

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <ctime>
#include <deque>
#include <filesystem>
#include <fstream>
#include <functional>
#include <mutex>
#include <thread>

#include "engine/core/console.h"
#include "engine/showfiles/file_set.h"
#include "engine/showfiles/show_formats.h"

namespace q {

namespace fs = std::filesystem;

namespace {
constexpr const char* kFolder = "recovery";
constexpr const char* kPrefix = "snapshot-";
constexpr const char* kIndex = "show.qsh";
constexpr const char* kRunning = "running";

// "20261123-184501" in local time: snapshots sort by their names.
std::string stamp() {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  char buf[32];
  std::strftime(buf, sizeof buf, "%Y%m%d-%H%M%S", &local);
  return buf;
}
}  // namespace

// One thread that puts snapshots on disk in the order they were taken.
class ShowSnapshots::Writer {
 public:
  ~Writer() {
    {
      std::lock_guard lock(m_);
      stop_ = true;
    }
    cv_.notify_all();
    if (thread_.joinable()) thread_.join();
  }
  void post(std::function<void()> job) {
    {
      std::lock_guard lock(m_);
      jobs_.push_back(std::move(job));
      if (!thread_.joinable()) thread_ = std::thread([this] { run(); });
    }
    cv_.notify_all();
  }
  void wait() {
    std::unique_lock lock(m_);
    idle_.wait(lock, [this] { return jobs_.empty() && !busy_; });
  }

 private:
  void run() {
    std::unique_lock lock(m_);
    for (;;) {
      cv_.wait(lock, [this] { return stop_ || !jobs_.empty(); });
      if (jobs_.empty()) return;  // stopping, nothing left
      auto job = std::move(jobs_.front());
      jobs_.pop_front();
      busy_ = true;
      lock.unlock();
      try {
        job();
      } catch (...) {
        // A snapshot that can't be written (a full disk) leaves the others; the show goes on.
      }
      lock.lock();
      busy_ = false;
      idle_.notify_all();
    }
  }

  std::mutex m_;
  std::condition_variable cv_, idle_;
  std::deque<std::function<void()>> jobs_;
  std::thread thread_;
  bool stop_ = false;
  bool busy_ = false;
};

ShowSnapshots::ShowSnapshots(Console& c)
    : c_(c), writer_(std::make_unique<Writer>()), timer_("SnapshotTimer", c.scheduler, kEveryMs) {
  timer_.onTick = [this] { takeIfChanged(); };
  watchTables();
}

ShowSnapshots::~ShowSnapshots() { writer_.reset(); }

// What the show files hold: the cue list, the submasters' columns, the
// chasers' steps and the patch. The Stage and Prog columns are no part of it.
void ShowSnapshots::watchTables() {
  Variables& v = c_.v;
  auto changed = [this](const TableChange&) { showChanged(); };
  v.Cues.changes.listen(changed);
  v.FX1Data.changes.listen(changed);
  v.FX2Data.changes.listen(changed);
  v.PatchMap.changes.listen(changed);
  v.ChanTable.changes.listen([this](const TableChange& t) {
    if (t.lastColumn >= 2 && t.firstColumn <= 21) showChanged();
  });
}

// The clock runs only while there is a change to keep: an idle console never wakes for it.
void ShowSnapshots::showChanged() {
  changed_ = true;
  if (running_ && loading_ == 0) timer_.setRunning(true);
}

std::string ShowSnapshots::folder() const { return (fs::path(c_.homeDir()) / kFolder).string(); }

ShowSnapshots::Replacing::Replacing(ShowSnapshots& s) : s_(s) {
  if (s_.loading_++ == 0) s_.takeIfChanged();
}

// What was just loaded (or wiped) is no change of the operator's to keep.
ShowSnapshots::Replacing::~Replacing() {
  if (--s_.loading_ == 0) s_.kept();
}

void ShowSnapshots::kept() {
  changed_ = false;
  timer_.setRunning(false);
}

void ShowSnapshots::takeIfChanged() {
  if (!changed_ || c_.homeDir().empty()) return;
  kept();
  take();
}

// The six files are made here, on the console thread, from the show as it
// stands; the writer puts them on disk and keeps the last twenty.
void ShowSnapshots::take() {
  char seq[16];
  std::snprintf(seq, sizeof seq, "%04u", sequence_++ % 10000);
  const fs::path dir = fs::path(folder()) / (kPrefix + stamp() + "-" + seq);
  const std::string index = (dir / kIndex).string();
  std::error_code ec;
  fs::create_directories(dir, ec);
  auto files = std::make_shared<FileSet>();
  try {
    *files = ShowFileSet(c_, index);
  } catch (...) {
    return;
  }
  const std::string root = folder();
  writer_->post([files, root] {
    files->write();
    std::vector<fs::path> all;
    std::error_code e;
    for (fs::directory_iterator it(root, e), end; !e && it != end; it.increment(e))
      if (it->path().filename().string().rfind(kPrefix, 0) == 0) all.push_back(it->path());
    std::sort(all.begin(), all.end());
    for (size_t i = 0; i + kKept < all.size(); ++i) fs::remove_all(all[i], e);
  });
}

void ShowSnapshots::waitForWrites() { writer_->wait(); }

std::vector<std::string> ShowSnapshots::snapshots() const {
  std::vector<std::string> found;
  std::error_code ec;
  for (fs::directory_iterator it(folder(), ec), end; !ec && it != end; it.increment(ec)) {
    const fs::path index = it->path() / kIndex;
    if (it->path().filename().string().rfind(kPrefix, 0) == 0 && fs::exists(index, ec))
      found.push_back(index.string());
  }
  std::sort(found.begin(), found.end());
  return found;
}

bool ShowSnapshots::endedUncleanly() {
  const fs::path marker = fs::path(folder()) / kRunning;
  std::error_code ec;
  if (c_.homeDir().empty() || !fs::exists(marker, ec)) return false;
  fs::remove(marker, ec);
  return true;
}

void ShowSnapshots::offerRecovery() {
  const std::vector<std::string> all = snapshots();
  if (all.empty()) return;
  const std::string last = all.back();
  const std::string taken = fs::path(last).parent_path().filename().string().substr(9);
  const std::string when = taken.substr(6, 2) + "." + taken.substr(4, 2) + "." +
                           taken.substr(0, 4) + " " + taken.substr(9, 2) + ":" +
                           taken.substr(11, 2);
  if (c_.dialogs().msgBox("Recovery",
                          "Quintara did not close properly when it last ran.\n"
                          "Reopen the show as it stood at " +
                              when + "?",
                          MsgButtons::YesNo, MsgIcon::Question) != MsgResult::Yes)
    return;
  c_.files.tryLoad(last, [this, &last] { LoadShow(c_, last); });
}

void ShowSnapshots::markRunning() {
  if (c_.homeDir().empty()) return;
  std::error_code ec;
  fs::create_directories(folder(), ec);
  std::ofstream(fs::path(folder()) / kRunning) << "a console is running\n";
  running_ = true;
  if (changed_) timer_.setRunning(true);
}

void ShowSnapshots::markClosed() {
  running_ = false;
  timer_.setRunning(false);
  waitForWrites();
  if (c_.homeDir().empty()) return;
  std::error_code ec;
  fs::remove(fs::path(folder()) / kRunning, ec);
  fs::remove(folder(), ec);  // only when no snapshot is in it
}

}  // namespace q
