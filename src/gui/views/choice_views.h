#pragma once
// Views of the controls the operator chooses with: lists, combo boxes (also
// one that can be typed into), check boxes and option buttons. Items and the
// choice follow the console; a choice by the operator goes to the control,
// which runs its click handling, as on the console.

#include <QCheckBox>
#include <QComboBox>
#include <QListWidget>
#include <QRadioButton>

#include "gui/views/view_binding.h"

namespace q {
class ListBox;
class CheckBox;
class OptionButton;
class ComboText;
}  // namespace q

namespace q::gui {

class ListView : public QListWidget {
  Q_OBJECT
 public:
  ListView(ListBox& model, QWidget* parent);

 private:
  void syncFromModel();
  ViewBinding binding_;
  bool syncing_ = false;
};

class ComboView : public QComboBox {
  Q_OBJECT
 public:
  ComboView(ListBox& model, QWidget* parent);

 private:
  void syncFromModel();
  ViewBinding binding_;
  bool syncing_ = false;
};

// A text box with a list to pick from: typing changes its text, a pick puts the item there.
class ComboTextView : public QComboBox {
  Q_OBJECT
 public:
  ComboTextView(ComboText& model, QWidget* parent);

 private:
  void syncFromModel();
  ViewBinding binding_;
  bool syncing_ = false;
};

class CheckBoxView : public QCheckBox {
  Q_OBJECT
 public:
  CheckBoxView(CheckBox& model, QWidget* parent);

 private:
  void syncFromModel();
  ViewBinding binding_;
};

class OptionButtonView : public QRadioButton {
  Q_OBJECT
 public:
  OptionButtonView(OptionButton& model, QWidget* parent);

 private:
  void syncFromModel();
  ViewBinding binding_;
};

}  // namespace q::gui
