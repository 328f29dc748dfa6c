// Taking in a staged table in one step must leave exactly what a wipe and a
// store of every staged cell leave, whatever the rows hold: levels, texts,
// numbers, cells outside the wiped columns, rows outside the wiped rows.

#include <gtest/gtest.h>

#include <random>

#include "engine/core/sparse_matrix.h"

namespace q::test {

namespace {
constexpr int kFirstRow = -3, kLastRow = 300, kFirstCol = -6, kLastCol = 560;

Value anyValue(std::mt19937& rng) {
  switch (rng() % 4) {
    case 0:
      return std::string(1 + rng() % 3, char('a' + rng() % 26));
    case 1:
      return double(rng() % 1000) / 4;
    default:
      return uint8_t(rng() % 256);
  }
}

// A table with cells scattered over a few rows, some of them full of levels.
void fill(CSparseMatrix& m, std::mt19937& rng, int rows) {
  for (int n = 0; n < rows; ++n) {
    const int16_t row = int16_t(kFirstRow + int(rng() % (kLastRow - kFirstRow + 1)));
    const int cells = rng() % 3 == 0 ? 512 : int(rng() % 6);
    for (int k = 0; k < cells; ++k) {
      const int16_t col = int16_t(kFirstCol + int(rng() % (kLastCol - kFirstCol + 1)));
      m.setCell(row, col, anyValue(rng));
    }
  }
}
}  // namespace

TEST(SparseMatrixTakeTest, TakingInEqualsAWipeAndAStoreOfEveryCell) {
  std::mt19937 rng(7);
  for (int round = 0; round < 40; ++round) {
    CSparseMatrix taken, stored, staged, staged2;
    const uint32_t seed = rng();
    std::mt19937 a(seed), b(seed);
    fill(taken, a, 30);
    fill(stored, b, 30);
    const uint32_t stagedSeed = rng();
    std::mt19937 c(stagedSeed), d(stagedSeed);
    fill(staged, c, 20);
    fill(staged2, d, 20);
    const CSparseMatrix::Wipe wipe{int(rng() % 5), int(rng() % 250), 1, 535};

    TableChange told{};
    int notices = 0;
    taken.changes.listen([&](const TableChange& t) {
      told = t;
      ++notices;
    });
    taken.takeRows(staged, wipe);
    for (int row = wipe.firstRow; row <= wipe.lastRow; ++row)
      for (int col = wipe.firstColumn; col <= wipe.lastColumn; ++col)
        stored.setCell(int16_t(row), int16_t(col), Value{});
    for (int row = kFirstRow; row <= kLastRow; ++row)
      for (int col = kFirstCol; col <= kLastCol; ++col)
        if (!staged2.cellIsEmpty(int16_t(row), int16_t(col)))
          stored.setCell(int16_t(row), int16_t(col), staged2.Cell(int16_t(row), int16_t(col)));

    for (int row = kFirstRow; row <= kLastRow; ++row)
      for (int col = kFirstCol; col <= kLastCol; ++col)
        ASSERT_EQ(taken.Cell(int16_t(row), int16_t(col)), stored.Cell(int16_t(row), int16_t(col)))
            << "round " << round << " row " << row << " column " << col;
    // One notice, covering every row that changed.
    EXPECT_LE(notices, 1);
    if (notices) {
      EXPECT_LE(told.firstRow, told.lastRow);
    }
  }
}

}  // namespace q::test
