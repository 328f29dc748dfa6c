// MIDISetupForm ("MIDI Devices"): the two ports and the channel listened to,
// the controllers of the grand master, the crossfader and the twenty strips,
// and the quick presets of common desks. Nothing takes effect before OK.

#include "gui/windows/window_builders.h"

#include <QGroupBox>
#include <QLabel>

#include "engine/input/midi_setup.h"
#include "gui/views/choice_views.h"
#include "gui/views/label_view.h"
#include "gui/views/text_box_view.h"
#include "gui/views/window_host.h"

namespace q::gui {

namespace {
constexpr int kBoxesPerColumn = 8;
constexpr int kColumnWidth = 2280;
constexpr int kRowHeight = 405;
}  // namespace

FormView* buildMidiSetupWindow(WindowHost& host, Window& model) {
  auto& d = dynamic_cast<MidiSetupForm&>(model);
  auto* view = new FormView(host, model);
  view->setSizeTwips(7200, 5460);
  auto label = [view](const QString& text, Twips at) {
    auto* l = new QLabel(text);
    l->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    view->at(l, at);
  };

  label(QObject::tr("MIDI Out :"), {120, 120, 1000, 285});
  view->at(new ComboView(d.ComboMidiOut, nullptr), {1200, 90, 3000, 345});
  label(QObject::tr("MIDI In :"), {120, 540, 1000, 285});
  view->at(new ComboView(d.ComboMidiIn, nullptr), {1200, 510, 3000, 345});
  label(QObject::tr("Channel :"), {4080, 120, 1260, 285});
  view->at(new ComboView(d.ComboChannel, nullptr), {5400, 90, 900, 345});
  label(QObject::tr("Quick Setup :"), {4080, 540, 1260, 285});
  view->at(new ComboView(d.Combo1, nullptr), {5400, 510, 1680, 345});

  view->at(new QGroupBox(QObject::tr("MIDI Control Change")), {120, 1020, 6960, 3540});
  for (int i = 1; i <= 22; ++i) {
    const int column = (i - 1) / kBoxesPerColumn, row = (i - 1) % kBoxesPerColumn;
    const int x = 240 + column * kColumnWidth, y = 1350 + row * kRowHeight;
    auto* caption = new LabelView(&d.lblMIDI(i), nullptr);
    caption->alignment = Qt::AlignRight | Qt::AlignVCenter;
    view->at(caption, {x, y, 1380, 285});
    view->at(new TextBoxView(d.txtMIDI(i), nullptr), {x + 1440, y - 30, 600, 330});
  }
  view->at(new ButtonView(d.CmdOk, nullptr), {4440, 4800, 1200, 420});
  view->at(new ButtonView(d.CmdCancel, nullptr), {5760, 4800, 1200, 420});
  return view;
}

}  // namespace q::gui
