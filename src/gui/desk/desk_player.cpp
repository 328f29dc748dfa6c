#include "gui/desk/desk_player.h"

#include <QFileInfo>
#include <QPainter>

namespace q::gui {

void DeskPlayer::setFileName(const std::string& path) {
  file_ = path;
  ready_ = !path.empty() && QFileInfo(QString::fromStdString(path)).isReadable();
  setState(0);
  emit changed();
}

void DeskPlayer::setVisible(bool v) {
  if (v == visible_) return;
  visible_ = v;
  emit changed();
}

void DeskPlayer::setState(int s) {
  if (s == state_) return;
  const int old = state_;
  state_ = s;
  emit changed();
  if (onPlayStateChange) onPlayStateChange(old, s);
}

PlayerView::PlayerView(DeskContext& ctx, MediaPlayer& player, DeskPlayer* observed,
                       const look::DeskItem& item, QWidget* parent)
    : QWidget(parent), ctx_(ctx), player_(player), item_(item) {
  setObjectName(QString::fromStdString(item.control));
  setAttribute(Qt::WA_TransparentForMouseEvents);
  if (observed) connect(observed, &DeskPlayer::changed, this, [this] { update(); });
}

QString PlayerView::text() const {
  // The player is shown once something was loaded into it.
  if (!player_.visible() && player_.fileName().empty()) return QStringLiteral("\u2014");
  const QString name = QFileInfo(QString::fromStdString(player_.fileName())).fileName();
  static const char* const marks[] = {"\u25A0", "\u2759\u2759", "\u25B6"};
  const int s = player_.playState();
  const QString mark = QString::fromUtf8(marks[s >= 0 && s <= 2 ? s : 0]);
  return name.isEmpty() ? mark : mark + QStringLiteral(" ") + name;
}

void PlayerView::paintEvent(QPaintEvent*) {
  QPainter p(this);
  p.setFont(ctx_.font(item_.fontPx + 1, false, true));
  p.setPen(player_.playState() == 2 ? QColor(0x36, 0xE0, 0x6E) : QColor(0xC9, 0xCF, 0xD8));
  const QRect r = rect().adjusted(int(4 * ctx_.zoom()), 0, -int(3 * ctx_.zoom()), 0);
  const QString t = p.fontMetrics().elidedText(text(), Qt::ElideMiddle, r.width());
  p.drawText(r, Qt::AlignVCenter | Qt::AlignLeft, t);
}

}  // namespace q::gui
