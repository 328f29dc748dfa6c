#include "gui/desk/form1.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QMenuBar>
#include <QMimeData>
#include <QScreen>
#include <QScrollArea>
#include <QShortcut>
#include <QStatusBar>
#include <QTimer>
#include <algorithm>
#include <cmath>

#include "engine/core/console.h"
#include "gui/desk/desk_surface.h"
#include "gui/desk/desk_windows.h"
#include "gui/desk/image_button.h"
#include "gui/desk/key_codes.h"
#include "gui/desk/open_file.h"
#include "gui/desk/output_lamp_view.h"
#include "gui/views/control_events.h"
#include "gui/views/menu_view.h"
#include "gui/views/window_host.h"

namespace q::gui {

namespace {
// The menus' look; the desk's own widgets paint themselves and take no style sheet.
const char* const kMenuStyle =
    "QMenuBar{background:#15171b;color:#c9cfd8;border-bottom:1px solid #23272e}"
    "QMenuBar::item{padding:3px 9px;background:transparent}"
    "QMenuBar::item:selected{background:#2a2f37;color:#ffffff}"
    "QMenu{background:#1a1d22;color:#d8dce4;border:1px solid #2c3139;padding:3px}"
    "QMenu::item{padding:4px 22px 4px 22px}"
    "QMenu::item:selected{background:#ffb420;color:#000000}"
    "QMenu::item:disabled{color:#59606b}"
    "QMenu::separator{height:1px;background:#2c3139;margin:3px 6px}";
constexpr double kZoomStep = 0.1;
}  // namespace

Form1::Form1(DeskContext& ctx) : ctx_(ctx) {
  Console& c = ctx.console;
  setObjectName("Form1");
  setWindowTitle("Quintara");
  menuBar()->setStyleSheet(kMenuStyle);
  QPalette dark = palette();
  dark.setColor(QPalette::Window, QColor(0x0B, 0x0C, 0x0F));
  dark.setColor(QPalette::ToolTipBase, QColor(0x1A, 0x1D, 0x22));
  dark.setColor(QPalette::ToolTipText, QColor(0xE8, 0xEC, 0xF2));
  setPalette(dark);
  windows_ = new WindowHost(ctx, this);
  addDeskWindows(*windows_);
  menus_ = new MenuView(c.form1.menuItems(), menuBar(), this);
  // An item that opens a window the desk cannot show yet stays disabled.
  menus_->mayChoose = [this](const std::string& item) {
    const WindowEntry* w = WindowCatalogue::openedBy(item);
    return !w || windows_->canShow(std::string(w->name));
  };
  menus_->syncAll();
  menus_->afterChoice = [this] { closeIfConsoleClosed(); };
  menuBar()->setCornerWidget(new OutputLampView(&c.interfaces.outputLamp(), menuBar()),
                             Qt::TopRightCorner);
  scroll_ = new QScrollArea(this);
  scroll_->setAlignment(Qt::AlignCenter);
  scroll_->setFrameShape(QFrame::NoFrame);
  desk_ = new DeskSurface(ctx, scroll_);
  scroll_->setWidget(desk_);
  setCentralWidget(scroll_);
  setAcceptDrops(true);

  c.liveDisplay.onPopupMenu = [this](const std::string& menu) { menus_->popup(menu); };
  c.submasters.onPopupLabelMenu = [this] { menus_->popup("mnuLabel"); };
  formListener_ = c.form1.changed.add([this] { followConsoleWindow(); });
  lookListener_ = c.look.addListener([this] {
    ctx_.sheet.clearCache();
    applyZoom();
    ctx_.reskin();
  });
  qApp->installEventFilter(this);

  auto zoomKey = [this](QKeySequence keys, auto action) {
    auto* s = new QShortcut(keys, this);
    connect(s, &QShortcut::activated, this, action);
  };
  zoomKey(QKeySequence::ZoomIn, [this] { stepZoom(kZoomStep); });
  zoomKey(QKeySequence(Qt::CTRL | Qt::Key_Equal), [this] { stepZoom(kZoomStep); });
  zoomKey(QKeySequence::ZoomOut, [this] { stepZoom(-kZoomStep); });
  zoomKey(QKeySequence(Qt::CTRL | Qt::Key_0), [this] { ctx_.console.look.setZoom(0); });
  // A window being dragged to a new size refits once it rests.
  fitTimer_ = new QTimer(this);
  fitTimer_->setSingleShot(true);
  fitTimer_->setInterval(80);
  connect(fitTimer_, &QTimer::timeout, this, &Form1::fitToWindow);
  applyZoom();
}

Form1::~Form1() {
  qApp->removeEventFilter(this);
  Console& c = ctx_.console;
  c.look.removeListener(lookListener_);
  c.liveDisplay.onPopupMenu = nullptr;
  c.submasters.onPopupLabelMenu = nullptr;
  c.form1.changed.remove(formListener_);
}

double Form1::fittingZoom() const {
  const QScreen* s = screen() ? screen() : QGuiApplication::primaryScreen();
  if (!s) return 1;
  const QRect avail = s->availableGeometry();
  // Room for the title bar, the menu bar and any notices.
  const int chrome = 40 + chromeHeight();
  const double z = std::min(double(avail.width() - 8) / look::kDeskWidth,
                            double(avail.height() - chrome) / look::kDeskHeight);
  return std::clamp(std::floor(z * 20) / 20, Look::kMinZoom, Look::kMaxZoom);
}

void Form1::setZoomOverride(double z) {
  zoomOverride_ = z;
  applyZoom();
}

void Form1::applyZoom() {
  const double wanted = zoomOverride_ > 0 ? zoomOverride_ : ctx_.console.look.zoom();
  ctx_.setZoom(wanted > 0 ? wanted : fittingZoom());
  desk_->relayout();
  if (!isMaximized() && !isFullScreen()) resize(desk_->width(), desk_->height() + chromeHeight());
}

int Form1::chromeHeight() const {
  const auto* status = findChild<QStatusBar*>(QString(), Qt::FindDirectChildrenOnly);
  const int notices = status && !status->isHidden() ? status->sizeHint().height() : 0;
  return menuBar()->sizeHint().height() + notices;
}

void Form1::showNotices(const QStringList& lines) {
  if (lines.isEmpty()) return;
  // One label, a line each: notices told later stand under the earlier ones.
  if (!notices_) {
    notices_ = new QLabel;
    statusBar()->addWidget(notices_, 1);
  }
  const QString text = notices_->text();
  notices_->setText(text.isEmpty() ? lines.join(QLatin1Char('\n'))
                                   : text + QLatin1Char('\n') + lines.join(QLatin1Char('\n')));
  statusBar()->show();  // made after the window was shown, it would stay hidden
  // The status bar's height follows the new line now, not at the next layout pass.
  if (QLayout* l = statusBar()->layout()) l->activate();
  applyZoom();
}

void Form1::resizeEvent(QResizeEvent* e) {
  QMainWindow::resizeEvent(e);
  if (shownOnce_ && zoomOverride_ <= 0 && ctx_.console.look.zoom() <= 0) fitTimer_->start();
}

void Form1::fitToWindow() {
  if (zoomOverride_ > 0 || ctx_.console.look.zoom() > 0) return;
  // One pixel of slack: the desk at a zoom is rounded to whole pixels.
  const QSize room = scroll_->viewport()->size() + QSize(1, 1);
  const double z =
      std::min(double(room.width()) / look::kDeskWidth, double(room.height()) / look::kDeskHeight);
  const double fitted = std::clamp(std::floor(z * 20) / 20, Look::kMinZoom, Look::kMaxZoom);
  if (fitted == ctx_.zoom()) return;
  ctx_.setZoom(fitted);
  desk_->relayout();
}

void Form1::stepZoom(double delta) {
  const double z = std::round((ctx_.zoom() + delta) * 20) / 20;
  zoomOverride_ = 0;
  ctx_.console.look.setZoom(std::clamp(z, Look::kMinZoom, Look::kMaxZoom));
}

void Form1::followConsoleWindow() {
  // The console hides its window while it rebuilds the look; the desk only
  // holds its repaint, so the window doesn't flicker off and on.
  const bool visible = ctx_.console.form1.isVisible();
  setUpdatesEnabled(visible);
  if (visible && !shownOnce_) {
    shownOnce_ = true;
    show();
  }
}

void Form1::closeIfConsoleClosed() {
  if (ctx_.console.closed()) {
    close();
    return;
  }
  desk_->repaintAll();
}

void Form1::closeEvent(QCloseEvent* e) {
  Console& c = ctx_.console;
  if (c.closed() || c.queryClose()) {
    e->accept();
    emit closing();
  } else {
    e->ignore();
  }
}

bool Form1::typingInTextBox() const {
  auto* edit = qobject_cast<QLineEdit*>(QApplication::focusWidget());
  return edit && edit->isEnabled() && !edit->isReadOnly() && edit->window() == this;
}

bool Form1::eventFilter(QObject* watched, QEvent* e) {
  if (e->type() != QEvent::KeyPress && e->type() != QEvent::KeyRelease) return false;
  auto* w = qobject_cast<QWidget*>(watched);
  if (!w || w->window() != this) return false;
  // A key travels from the focus widget up to the window; the console hears it once.
  QWidget* focus = QApplication::focusWidget();
  if (focus ? w != focus : w != this) return false;
  auto* k = static_cast<QKeyEvent*>(e);
  const int vk = virtualKey(*k);
  if (!vk) return false;
  if (e->type() == QEvent::KeyRelease) {
    if (!k->isAutoRepeat()) ctx_.console.keyboard.keyUp(vk);
    return false;
  }
  // What is typed into a text box belongs to the box.
  if (typingInTextBox()) return false;
  ctx_.console.keyboard.keyDown(vk);
  return false;
}

void Form1::dragEnterEvent(QDragEnterEvent* e) {
  if (!droppedFile(e->mimeData()).empty()) e->acceptProposedAction();
}

void Form1::dropEvent(QDropEvent* e) {
  const std::string path = droppedFile(e->mimeData());
  if (path.empty()) return;
  e->acceptProposedAction();
  openAsDropped(ctx_.console, path);
  desk_->repaintAll();
}

}  // namespace q::gui
