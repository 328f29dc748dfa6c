// The cue list's level pane painted by the desk, offscreen: a full repaint
// of a pane as large as a full-HD screen at zoom 1 (70 channels by 60 rows of
// a 1,000 cue by 512 channel list), a page scrolled and painted, and the
// repaint of one changed cell. Each must stay well under one output period.

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QImage>
#include <QPainter>
#include <memory>

#include "engine/core/console.h"
#include "engine/cuelist/cue_grid.h"
#include "engine/playback/cue_record.h"
#include "gui/views/cell_grid_view.h"

#include "full_cue_list.h"

namespace {

constexpr int kCues = 1000;
constexpr double kZoom1 = 1.0 / 15;  // pixels a twip at zoom 1

struct Desk {
  q::Console c{q::ConsoleHost{}};
  q::Cuewin* w = nullptr;
  std::unique_ptr<q::gui::CellGridView> pane;
  QImage image;

  Desk() {
    fillFullList(c, kCues, false);
    w = &c.windows.load<q::Cuewin>("Cuewin");
    w->resize(33500, 16900);
    pane = std::make_unique<q::gui::CellGridView>(w->Picture1, kZoom1, nullptr);
    pane->resize(int(w->Picture1.width * kZoom1), int(w->Picture1.height * kZoom1));
    image = QImage(pane->size(), QImage::Format_RGB32);
  }
  void paint(const QRect& area) {
    QPainter p(&image);
    pane->render(&p, area.topLeft(), QRegion(area));
  }
};

// Made once the application stands, and gone before it goes.
std::unique_ptr<Desk> theDesk;
Desk& desk() {
  if (!theDesk) theDesk = std::make_unique<Desk>();
  return *theDesk;
}

void BM_PaintFullLevelPane(benchmark::State& state) {
  Desk& d = desk();
  for (auto _ : state) d.paint(d.pane->rect());
  state.counters["Cells"] = d.pane->cellsPainted();
  state.counters["Pixels"] = d.pane->width() * d.pane->height();
}
BENCHMARK(BM_PaintFullLevelPane)->Unit(benchmark::kMillisecond);

void BM_ScrollAPageAndPaint(benchmark::State& state) {
  Desk& d = desk();
  int top = 1;
  for (auto _ : state) {
    top = top + d.w->vscScroll.largeChange > 900 ? 1 : top + d.w->vscScroll.largeChange;
    d.w->vscScroll.setPosition(top);
    d.paint(d.pane->rect());
  }
}
BENCHMARK(BM_ScrollAPageAndPaint)->Unit(benchmark::kMillisecond);

void BM_PaintOneChangedCell(benchmark::State& state) {
  Desk& d = desk();
  const QRect cell = d.pane->cellRect(3, 4);
  for (auto _ : state) d.paint(cell);
  state.counters["Cells"] = d.pane->cellsPainted();
}
BENCHMARK(BM_PaintOneChangedCell)->Unit(benchmark::kMicrosecond);

}  // namespace

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication app(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  theDesk.reset();
  return 0;
}
