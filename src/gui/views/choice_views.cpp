#include "gui/views/choice_views.h"

#include <QLineEdit>
#include <QSignalBlocker>

#include "engine/controls/checkbox.h"
#include "engine/controls/combo_text.h"
#include "engine/controls/listbox.h"
#include "engine/controls/option_button.h"

namespace q::gui {

namespace {
QStringList itemsOf(const std::vector<std::string>& items) {
  QStringList list;
  for (const std::string& s : items) list << QString::fromStdString(s);
  return list;
}

// Only what changed is replaced, so an open list keeps its scroll position.
template <class W>
void syncItems(W& w, const std::vector<std::string>& items) {
  const QStringList wanted = itemsOf(items);
  QStringList shown;
  for (int i = 0; i < w.count(); ++i) shown << w.itemText(i);
  if (shown == wanted) return;
  w.clear();
  w.addItems(wanted);
}
}  // namespace

ListView::ListView(ListBox& model, QWidget* parent) : QListWidget(parent) {
  setObjectName(QString::fromStdString(model.name()));
  connect(this, &QListWidget::currentRowChanged, this, [this](int row) {
    if (syncing_) return;
    if (auto* m = binding_.as<ListBox>()) m->setListIndex(row);
  });
  binding_.bind(&model, [this] { syncFromModel(); });
  syncFromModel();
}

void ListView::syncFromModel() {
  auto* m = binding_.as<ListBox>();
  if (!m) return;
  syncing_ = true;
  QStringList shown;
  for (int i = 0; i < count(); ++i) shown << item(i)->text();
  const QStringList wanted = itemsOf(m->items());
  if (shown != wanted) {
    clear();
    addItems(wanted);
  }
  setCurrentRow(m->listIndex());
  if (m->listIndex() < 0) clearSelection();
  setVisible(m->visible());
  setEnabled(m->enabled());
  syncing_ = false;
}

ComboView::ComboView(ListBox& model, QWidget* parent) : QComboBox(parent) {
  setObjectName(QString::fromStdString(model.name()));
  connect(this, &QComboBox::currentIndexChanged, this, [this](int index) {
    if (syncing_) return;
    if (auto* m = binding_.as<ListBox>()) m->setListIndex(index);
  });
  binding_.bind(&model, [this] { syncFromModel(); });
  syncFromModel();
}

void ComboView::syncFromModel() {
  auto* m = binding_.as<ListBox>();
  if (!m) return;
  syncing_ = true;
  syncItems(*this, m->items());
  setCurrentIndex(m->listIndex());
  setVisible(m->visible());
  setEnabled(m->enabled());
  syncing_ = false;
}

ComboTextView::ComboTextView(ComboText& model, QWidget* parent) : QComboBox(parent) {
  setObjectName(QString::fromStdString(model.name()));
  setEditable(true);
  setInsertPolicy(QComboBox::NoInsert);
  connect(lineEdit(), &QLineEdit::textEdited, this, [this](const QString& t) {
    if (auto* m = binding_.as<ComboText>()) m->setText(t.toStdString());
  });
  connect(this, &QComboBox::activated, this, [this](int index) {
    if (auto* m = binding_.as<ComboText>()) m->setValue(index);
  });
  binding_.bind(&model, [this] { syncFromModel(); });
  syncFromModel();
}

void ComboTextView::syncFromModel() {
  auto* m = binding_.as<ComboText>();
  if (!m) return;
  syncing_ = true;
  const QSignalBlocker block(this);
  syncItems(*this, m->items);
  const QString t = QString::fromStdString(m->text());
  if (currentText() != t) setEditText(t);
  setVisible(m->visible());
  setEnabled(m->enabled());
  syncing_ = false;
}

CheckBoxView::CheckBoxView(CheckBox& model, QWidget* parent) : QCheckBox(parent) {
  setObjectName(QString::fromStdString(model.name()));
  connect(this, &QCheckBox::clicked, this, [this](bool on) {
    if (auto* m = binding_.as<CheckBox>()) m->setChecked(on ? 1 : 0);
  });
  binding_.bind(&model, [this] { syncFromModel(); });
  syncFromModel();
}

void CheckBoxView::syncFromModel() {
  auto* m = binding_.as<CheckBox>();
  if (!m) return;
  setText(QString::fromStdString(m->caption));
  setChecked(m->checked() != 0);
  setVisible(m->visible());
  setEnabled(m->enabled());
}

OptionButtonView::OptionButtonView(OptionButton& model, QWidget* parent) : QRadioButton(parent) {
  setObjectName(QString::fromStdString(model.name()));
  // The console keeps a group to one choice; Qt must not do it a second time.
  setAutoExclusive(false);
  connect(this, &QRadioButton::clicked, this, [this] {
    if (auto* m = binding_.as<OptionButton>()) {
      m->setChecked(true);
      syncFromModel();
    }
  });
  binding_.bind(&model, [this] { syncFromModel(); });
  syncFromModel();
}

void OptionButtonView::syncFromModel() {
  auto* m = binding_.as<OptionButton>();
  if (!m) return;
  setText(QString::fromStdString(m->caption));
  setChecked(m->checked());
  setVisible(m->visible());
  setEnabled(m->enabled());
}

}  // namespace q::gui
