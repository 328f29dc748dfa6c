#pragma once
// Views of the controls that carry a caption:
// - LabelView paints a label's caption (a value shown, a title, a link) and
//   gives its mouse events and drops to the label.
// - FrameView is a frame round other controls; its caption is its title.
// - ButtonView is a command button whose caption is its label's; a press
//   gives the label its down, up and click.

#include <QGroupBox>
#include <QPushButton>
#include <QWidget>

#include "gui/views/control_widget.h"
#include "gui/views/static_text_cache.h"

namespace q {
class Label;
}

namespace q::gui {

class LabelView : public ControlWidget {
  Q_OBJECT
 public:
  LabelView(Label* model, QWidget* parent);

  Label* model() const;
  // The caption as painted (the model's, or "" once it is gone).
  virtual QString text() const;

  Qt::Alignment alignment = Qt::AlignLeft | Qt::AlignVCenter;
  QColor foreground{0xD8, 0xDC, 0xE4};
  QColor background;  // invalid: transparent
  bool underline = false;
  bool wordWrap = false;

 protected:
  void paintEvent(QPaintEvent*) override;
  virtual QColor textColour() const { return foreground; }
  virtual QFont textFont() const { return font(); }
  virtual int padding() const { return 0; }
  virtual void syncFromModel();

 private:
  // A step number or a level changes many times a second through a few
  // values: each is laid out once.
  StaticTextCache texts_;
};

class FrameView : public QGroupBox {
  Q_OBJECT
 public:
  FrameView(Label& model, QWidget* parent);

 private:
  void syncFromModel();
  ViewBinding binding_;
};

class ButtonView : public QPushButton {
  Q_OBJECT
 public:
  ButtonView(Label& model, QWidget* parent);

 private:
  void syncFromModel();
  ViewBinding binding_;
};

}  // namespace q::gui
