#pragma once
// Form1, the main window: the menu bar, the desk, the keyboard and the file
// drops of the whole window, and the close question. It shows when the
// console's start-up skins it and closes only when the console says so.

#include <QMainWindow>
#include <QStringList>
#include <memory>

#include "gui/desk/desk_context.h"

class QLabel;
class QScrollArea;
class QTimer;

namespace q::gui {

class MenuView;
class DeskSurface;
class WindowHost;

class Form1 : public QMainWindow {
  Q_OBJECT
 public:
  explicit Form1(DeskContext& ctx);
  ~Form1() override;

  MenuView& menus() { return *menus_; }
  WindowHost& windows() { return *windows_; }
  DeskSurface& desk() { return *desk_; }
  // The zoom that fits the desk on this window's screen.
  double fittingZoom() const;
  // Applies the console's zoom setting (0: fit the screen).
  void applyZoom();
  // A zoom given on the command line, over the setting (0: none).
  void setZoomOverride(double z);
  // What the machine lacks, said once on a line under the desk, a line
  // each; the window grows by it, so the whole desk stays in view.
  void showNotices(const QStringList& lines);

 signals:
  // The window is closing: the console has unloaded.
  void closing();

 protected:
  // The window's height beyond the desk: the menu bar and any notices.
  int chromeHeight() const;
  void closeEvent(QCloseEvent* e) override;
  void resizeEvent(QResizeEvent* e) override;
  bool eventFilter(QObject* watched, QEvent* e) override;
  void dragEnterEvent(QDragEnterEvent* e) override;
  void dropEvent(QDropEvent* e) override;

 private:
  void followConsoleWindow();
  void stepZoom(double delta);
  // With the automatic zoom, the desk follows the window's size.
  void fitToWindow();
  void closeIfConsoleClosed();
  bool typingInTextBox() const;

  DeskContext& ctx_;
  MenuView* menus_ = nullptr;
  WindowHost* windows_ = nullptr;
  DeskSurface* desk_ = nullptr;
  QScrollArea* scroll_ = nullptr;
  QLabel* notices_ = nullptr;  // the status line's text, made by the first notice
  int lookListener_ = 0;
  int formListener_ = 0;
  bool shownOnce_ = false;
  double zoomOverride_ = 0;
  QTimer* fitTimer_ = nullptr;
};

}  // namespace q::gui
