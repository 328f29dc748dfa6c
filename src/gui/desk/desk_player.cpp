#include "gui/desk/desk_player.h"

#include <QFileInfo>
#include <QPainter>
#include <QSocketNotifier>
#include <cmath>

#include "gui/views/repaint_pacer.h"
#include "platform/media/gst_media_player.h"

namespace q::gui {

namespace {
QString clock(double seconds) {
  const long s = std::lround(std::max(0.0, seconds));
  return QStringLiteral("%1:%2").arg(s / 60).arg(s % 60, 2, 10, QLatin1Char('0'));
}
}  // namespace

PlayerPump::PlayerPump(GstMediaPlayer& player, QObject* parent)
    : QObject(parent),
      notifier_(new QSocketNotifier(player.wakeFd(), QSocketNotifier::Read, this)) {
  connect(notifier_, &QSocketNotifier::activated, this, [&player] { player.pump(); });
}

PlayerView::PlayerView(DeskContext& ctx, MediaPlayer& player, const look::DeskItem& item,
                       QWidget* parent)
    : QWidget(parent), ctx_(ctx), player_(player), item_(item) {
  setObjectName(QString::fromStdString(item.control));
  setAttribute(Qt::WA_TransparentForMouseEvents);
  listener_ = player_.viewChanged.add([this] { pacedUpdate(this); });
}

PlayerView::~PlayerView() { player_.viewChanged.remove(listener_); }

QString PlayerView::text() const {
  // The player is shown once something was loaded into it.
  if (!player_.visible() && player_.fileName().empty()) return QStringLiteral("\u2014");
  const QString name = QFileInfo(QString::fromStdString(player_.fileName())).fileName();
  static const char* const marks[] = {"\u25A0", "\u2759\u2759", "\u25B6"};
  const int s = player_.playState();
  const QString mark = QString::fromUtf8(marks[s >= 0 && s <= 2 ? s : 0]);
  return name.isEmpty() ? mark : mark + QStringLiteral(" ") + name;
}

QString PlayerView::timeText() const {
  if (player_.fileName().empty()) return {};
  if (!player_.ready()) return tr("not ready");
  return clock(player_.position()) + QStringLiteral(" / ") + clock(player_.length());
}

void PlayerView::paintEvent(QPaintEvent*) {
  QPainter p(this);
  const double z = ctx_.zoom();
  const QRect r = rect().adjusted(int(4 * z), 0, -int(3 * z), 0);
  const QString time = timeText();
  const QRect top = time.isEmpty() ? r : r.adjusted(0, 0, 0, -r.height() / 2);
  p.setFont(ctx_.font(item_.fontPx + (time.isEmpty() ? 1 : 0), false, true));
  p.setPen(player_.playState() == 2 ? QColor(0x36, 0xE0, 0x6E) : QColor(0xC9, 0xCF, 0xD8));
  p.drawText(top, Qt::AlignVCenter | Qt::AlignLeft,
             p.fontMetrics().elidedText(text(), Qt::ElideMiddle, top.width()));
  if (time.isEmpty()) return;
  const QRect bottom = r.adjusted(0, r.height() / 2, 0, 0);
  p.setFont(ctx_.font(item_.fontPx - 1, false, true));
  p.setPen(player_.ready() ? QColor(0x9A, 0xA3, 0xB0) : QColor(0xE0, 0x80, 0x40));
  p.drawText(bottom, Qt::AlignVCenter | Qt::AlignLeft, time);
}

}  // namespace q::gui
