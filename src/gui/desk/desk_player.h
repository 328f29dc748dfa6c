#pragma once
// The desk's two media players, WMP(0) and WMP(1), and the view that shows
// what each holds. Until the sound engine is wired in, a player keeps its
// medium and its state as the console drives it (ready once the file is
// there, playing, paused, stopped) and plays no sound; the view tells the
// operator so.

#include <QObject>
#include <QWidget>

#include "engine/look/desk_layout.h"
#include "engine/media/media_player.h"
#include "gui/desk/desk_context.h"

namespace q::gui {

class DeskPlayer : public QObject, public MediaPlayer {
  Q_OBJECT
 public:
  void setFileName(const std::string& path) override;
  std::string fileName() const override { return file_; }
  bool ready() const override { return ready_; }
  int playState() const override { return state_; }
  void play() override { setState(ready_ ? 2 : state_); }
  void pause() override { setState(state_ == 2 ? 1 : state_); }
  void stop() override { setState(0); }
  void setVolume(int v) override { volume_ = v; }
  int volume() const override { return volume_; }
  void setBalance(int b) override { balance_ = b; }
  int balance() const override { return balance_; }
  void setRate(double r) override { rate_ = r; }
  double rate() const override { return rate_; }
  void setVisible(bool v) override;
  bool visible() const override { return visible_; }

 signals:
  void changed();

 private:
  void setState(int s);

  std::string file_;
  bool ready_ = false, visible_ = false;
  int state_ = 0, volume_ = 0, balance_ = 0;
  double rate_ = 1;
};

class PlayerView : public QWidget {
  Q_OBJECT
 public:
  PlayerView(DeskContext& ctx, MediaPlayer& player, DeskPlayer* observed,
             const look::DeskItem& item, QWidget* parent);

  QString text() const;

 protected:
  void paintEvent(QPaintEvent*) override;

 private:
  DeskContext& ctx_;
  MediaPlayer& player_;
  const look::DeskItem& item_;
};

}  // namespace q::gui
