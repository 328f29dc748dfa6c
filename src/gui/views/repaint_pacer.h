#pragma once
// The desk's views repaint through the pacer. A model may change far more
// often than a screen shows pictures (a chaser stepping at every output tick
// rewrites the live display and its step label 40 times a second); the
// pacer collects, per widget, the regions that changed and hands them to Qt
// at most once per display frame. A change after a quiet spell goes to Qt at
// once, so a single press is seen without delay. Changes that come sooner
// wait for the first change after the frame has passed, so the repaint rides
// on a wake-up the console makes anyway; a timer a frame later paints what
// the last change left. The models change at once; only the pixels follow,
// merged, never lost.

#include <QElapsedTimer>
#include <QObject>
#include <QPointer>
#include <QRegion>
#include <QTimer>
#include <QWidget>
#include <vector>

namespace q::gui {

class RepaintPacer : public QObject {
  Q_OBJECT
 public:
  // One picture per this many milliseconds at most: about 30 a second.
  static constexpr int kFrameMs = 33;

  // The application's pacer, made on first use as a child of the application.
  static RepaintPacer& instance();

  // w repaints, whole or the rectangle, at the next display frame.
  void request(QWidget* w);
  void request(QWidget* w, const QRect& r);
  void request(QWidget* w, const QRegion& r);
  // Hands everything collected to Qt now.
  void flush();
  bool pending() const { return !dirty_.empty(); }

 private:
  explicit RepaintPacer(QObject* parent);
  struct Dirty {
    QPointer<QWidget> widget;
    QRegion region;
    bool whole = false;
  };
  Dirty& entryFor(QWidget* w);
  void schedule();

  std::vector<Dirty> dirty_;
  QTimer timer_;
  QElapsedTimer sinceFlush_;
};

// What a view calls instead of QWidget::update().
inline void pacedUpdate(QWidget* w) { RepaintPacer::instance().request(w); }
inline void pacedUpdate(QWidget* w, const QRegion& r) { RepaintPacer::instance().request(w, r); }

}  // namespace q::gui
