// The channels matrix open on 512 channels, as an operator leaves it while a
// show runs: what it adds to every mix (the strip's cells that changed),
// what a full repaint asks of it, and one step of a drag over a cell. The
// grand master moves at every mix here, so every output byte changes.

#include <benchmark/benchmark.h>

#include "engine/core/console.h"
#include "engine/views/channels_matrix.h"

namespace {

struct Show {
  q::Console c{q::ConsoleHost{}};
  q::ChannelsMatrix* matrix = nullptr;
  int position = 0;

  explicit Show(bool withMatrix) {
    q::Variables& v = c.v;
    v.MaxChans = 512;
    for (int ch = 1; ch <= q::kChannels; ++ch)
      for (int col = 0; col < q::kColumns; ++col)
        v.chan(ch, col) = uint8_t((ch * 7 + col * 13) % 256);
    if (withMatrix) {
      c.form1.menu("mnuMatrix").click();
      matrix = c.windows.find<q::ChannelsMatrix>("frmSparseMatrix");
      // As wide as a full-HD screen holds at the desk's usual zoom.
      matrix->resize(28000, q::MatrixLayout::kMaxHeight);
    }
  }
  void mix() {
    position = (position + 1) % 200;
    c.form1.SMaster.setPosition(position);
    c.mixer.MixOutput();
  }
};

void BM_MixMatrixClosed(benchmark::State& state) {
  Show show(false);
  for (auto _ : state) {
    show.mix();
    benchmark::DoNotOptimize(show.c.v.DMXData.data());
  }
}
BENCHMARK(BM_MixMatrixClosed);

void BM_MixMatrixOpen(benchmark::State& state) {
  Show show(true);
  for (auto _ : state) {
    show.mix();
    benchmark::DoNotOptimize(show.c.v.DMXData.data());
  }
  state.counters["stripCells"] = show.matrix->Picture3.columns;
}
BENCHMARK(BM_MixMatrixOpen);

// Every cell a full repaint of the four panes reads.
void BM_MatrixFullRepaintCells(benchmark::State& state) {
  Show show(true);
  q::ChannelsMatrix& m = *show.matrix;
  for (auto _ : state) {
    size_t chars = 0;
    for (q::CellGrid* pane : {&m.Picture1, &m.Picture2, &m.Picture3, &m.Picture4})
      for (int r = 0; r < pane->rows; ++r)
        for (int col = 0; col < pane->columns; ++col) chars += pane->cell(r, col).text.size();
    benchmark::DoNotOptimize(chars);
  }
  state.counters["gridCells"] = m.Picture1.rows * m.Picture1.columns;
}
BENCHMARK(BM_MatrixFullRepaintCells);

void BM_MatrixDragStep(benchmark::State& state) {
  Show show(true);
  q::ChannelsMatrix& m = *show.matrix;
  m.Picture1.mouseDown(q::MouseEvent(q::MouseButton::Left, 200, 100));
  double y = 0;
  for (auto _ : state) {
    y = y > 0 ? -1 : 1;
    m.Picture1.mouseMove(q::MouseEvent(q::MouseButton::Left, 200, y));
  }
}
BENCHMARK(BM_MatrixDragStep);

}  // namespace
