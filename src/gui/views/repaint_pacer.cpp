#include "gui/views/repaint_pacer.h"

#include <QCoreApplication>
#include <algorithm>

namespace q::gui {

RepaintPacer& RepaintPacer::instance() {
  static QPointer<RepaintPacer> pacer;
  if (!pacer) pacer = new RepaintPacer(QCoreApplication::instance());
  return *pacer;
}

RepaintPacer::RepaintPacer(QObject* parent) : QObject(parent) {
  timer_.setSingleShot(true);
  timer_.setTimerType(Qt::PreciseTimer);
  connect(&timer_, &QTimer::timeout, this, &RepaintPacer::flush);
}

RepaintPacer::Dirty& RepaintPacer::entryFor(QWidget* w) {
  // A frame sees a handful of widgets change: a list is quicker than a hash.
  auto found =
      std::find_if(dirty_.begin(), dirty_.end(), [w](const Dirty& d) { return d.widget == w; });
  if (found != dirty_.end()) return *found;
  dirty_.push_back({w, {}, false});
  return dirty_.back();
}

void RepaintPacer::request(QWidget* w) {
  if (!w) return;
  entryFor(w).whole = true;
  schedule();
}

void RepaintPacer::request(QWidget* w, const QRect& r) { request(w, QRegion(r)); }

void RepaintPacer::request(QWidget* w, const QRegion& r) {
  if (!w || r.isEmpty()) return;
  Dirty& d = entryFor(w);
  if (!d.whole) d.region += r;
  schedule();
}

void RepaintPacer::schedule() {
  if (!sinceFlush_.isValid() || sinceFlush_.elapsed() >= kFrameMs) {
    flush();
    return;
  }
  if (!timer_.isActive()) timer_.start(kFrameMs);
}

void RepaintPacer::flush() {
  timer_.stop();
  sinceFlush_.restart();
  std::vector<Dirty> now;
  now.swap(dirty_);
  for (const Dirty& d : now) {
    if (!d.widget) continue;  // gone since it asked
    if (d.whole)
      d.widget->update();
    else
      d.widget->update(d.region);
  }
}

}  // namespace q::gui
