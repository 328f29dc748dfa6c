#include "engine/core/sparse_matrix.h"

namespace q {

namespace {
constexpr int kRowOffset = 32768;
constexpr int kDense = 1024;  // columns 0..1023 stored densely: channels and the cue record
enum Tag : uint8_t { kEmpty, kByte, kInt16, kDouble, kString };
}  // namespace

// 16 bytes a cell; text lives in the row's side list so cells stay small.
struct CSparseMatrix::Slot {
  Tag tag = kEmpty;
  uint8_t b = 0;
  int16_t i = 0;
  uint32_t text = 0;  // index into Row::texts for kString
  double d = 0;
};

struct CSparseMatrix::Row {
  std::vector<Slot> dense;  // grows to the highest dense column stored
  std::map<int16_t, Slot> other;
  std::vector<std::string> texts;
  std::vector<uint32_t> freeTexts;

  Slot* find(int16_t c) {
    if (c >= 0 && c < kDense) return c < int(dense.size()) ? &dense[c] : nullptr;
    auto it = other.find(c);
    return it == other.end() ? nullptr : &it->second;
  }
  const Slot* find(int16_t c) const { return const_cast<Row*>(this)->find(c); }
  Slot& make(int16_t c) {
    if (c >= 0 && c < kDense) {
      if (c >= int(dense.size())) dense.resize(c + 1);
      return dense[c];
    }
    return other[c];
  }
  void release(Slot& s) {
    if (s.tag == kString) {
      texts[s.text].clear();
      texts[s.text].shrink_to_fit();
      freeTexts.push_back(s.text);
    }
    s = Slot{};
  }
  uint32_t keep(const std::string& t) {
    if (!freeTexts.empty()) {
      uint32_t k = freeTexts.back();
      freeTexts.pop_back();
      texts[k] = t;
      return k;
    }
    texts.push_back(t);
    return uint32_t(texts.size() - 1);
  }
};

CSparseMatrix::CSparseMatrix() = default;
CSparseMatrix::~CSparseMatrix() = default;

const CSparseMatrix::Slot* CSparseMatrix::slot(int16_t row, int16_t column) const {
  if (rows_.empty()) return nullptr;
  const auto& r = rows_[row + kRowOffset];
  return r ? r->find(column) : nullptr;
}

Value CSparseMatrix::Cell(int16_t row, int16_t column) const {
  const Slot* s = slot(row, column);
  if (!s) return {};
  switch (s->tag) {
    case kByte:
      return s->b;
    case kInt16:
      return s->i;
    case kDouble:
      return s->d;
    case kString:
      return rows_[row + kRowOffset]->texts[s->text];
    default:
      return {};
  }
}

double CSparseMatrix::number(int16_t row, int16_t column) const {
  const Slot* s = slot(row, column);
  if (!s) return 0;
  switch (s->tag) {
    case kByte:
      return s->b;
    case kInt16:
      return s->i;
    case kDouble:
      return s->d;
    case kString:
      return numberOr0(rows_[row + kRowOffset]->texts[s->text]);
    default:
      return 0;
  }
}

bool CSparseMatrix::cellIsEmpty(int16_t row, int16_t column) const {
  const Slot* s = slot(row, column);
  return !s || s->tag == kEmpty;
}

// Whether a slot already holds exactly this value (same kind, same value).
bool CSparseMatrix::holds(const Slot* s, const std::string* texts, const Value& v) const {
  const Tag tag = s ? s->tag : kEmpty;
  switch (v.index()) {
    case 0:
      return tag == kEmpty;
    case 1:
      return tag == kByte && s->b == std::get<uint8_t>(v);
    case 2:
      return tag == kInt16 && s->i == std::get<int16_t>(v);
    case 3:
      return tag == kDouble && s->d == std::get<double>(v);
    default:
      return tag == kString && texts[s->text] == std::get<std::string>(v);
  }
}

void CSparseMatrix::setCell(int16_t row, int16_t column, const Value& v) {
  ++version_;
  if (rows_.empty()) rows_.resize(65536);
  auto& r = rows_[row + kRowOffset];
  if (!r) {
    if (isEmpty(v)) return;  // storing empty in a new row reads the same as nothing
    r = std::make_unique<Row>();
  }
  if (holds(r->find(column), r->texts.data(), v)) return;
  store(*r, column, v);
  changes.changed(row, column);
}

void CSparseMatrix::store(Row& r, int16_t column, const Value& v) {
  if (isEmpty(v)) {
    if (Slot* s = r.find(column)) r.release(*s);
    return;
  }
  Slot& s = r.make(column);
  r.release(s);
  switch (v.index()) {
    case 1:
      s.tag = kByte;
      s.b = std::get<uint8_t>(v);
      break;
    case 2:
      s.tag = kInt16;
      s.i = std::get<int16_t>(v);
      break;
    case 3:
      s.tag = kDouble;
      s.d = std::get<double>(v);
      break;
    case 4:
      s.tag = kString;
      s.text = r.keep(std::get<std::string>(v));
      break;
    default:
      break;
  }
}

void CSparseMatrix::clearAll() {
  rows_.clear();
  ++version_;
  changes.changed({INT16_MIN, INT16_MAX, INT16_MIN, INT16_MAX});
}

}  // namespace q
