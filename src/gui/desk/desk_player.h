#pragma once
// The desk's two media players: the view on the main window that shows what
// each holds (its file, its state, where it stands and how long it is), and
// the pump that takes a GStreamer player's news on the desk's own thread.

#include <QObject>
#include <QWidget>

#include "engine/look/desk_layout.h"
#include "engine/media/media_player.h"
#include "gui/desk/desk_context.h"

class QSocketNotifier;

namespace q {
class GstMediaPlayer;
}

namespace q::gui {

// Raises a player's events in the desk's event loop whenever it has news.
class PlayerPump : public QObject {
  Q_OBJECT
 public:
  PlayerPump(GstMediaPlayer& player, QObject* parent);

 private:
  QSocketNotifier* notifier_;
};

class PlayerView : public QWidget {
  Q_OBJECT
 public:
  PlayerView(DeskContext& ctx, MediaPlayer& player, const look::DeskItem& item, QWidget* parent);
  ~PlayerView() override;

  // The two lines shown: the state and the file, then the time or why it can't play.
  QString text() const;
  QString timeText() const;

 protected:
  void paintEvent(QPaintEvent*) override;

 private:
  DeskContext& ctx_;
  MediaPlayer& player_;
  const look::DeskItem& item_;
  int listener_ = 0;
};

}  // namespace q::gui
