// The window catalogue: windows loaded on first use and forgotten at unload,
// menus enabled from it, the main window's unload order, and the promise
// that no handler and no view ever touches a window model that is gone.

#include "engine/core/window_catalogue.h"

#include "engine/input/keypad.h"
#include "engine/submasters/fader_config.h"
#include "support/console_fixture.h"

namespace q::test {
namespace {

class Catalogue : public ConsoleFixture {
 protected:
  WindowCatalogue& windows() { return console().windows; }
  // Every window that can be made today and has a place in the unload, loaded.
  std::vector<std::string> loadAll() {
    std::vector<std::string> names;
    for (const WindowEntry& e : kWindowCatalogue)
      if (windows().canMake(e.name) && e.unloadOrder >= 0) {
        windows().load(e.name).show();
        names.emplace_back(e.name);
      }
    return names;
  }
};

TEST_F(Catalogue, NamesEachWindowOnceWithAPlaceInTheUnload) {
  std::set<std::string_view> names, openers;
  std::set<int> places;
  for (const WindowEntry& e : kWindowCatalogue) {
    EXPECT_TRUE(names.insert(e.name).second) << e.name;
    EXPECT_TRUE(openers.insert(e.opener).second) << e.opener;
    if (e.unloadOrder >= 0) {
      EXPECT_TRUE(places.insert(e.unloadOrder).second) << e.name;
    }
  }
  EXPECT_EQ(places.size(), 15u);
  EXPECT_EQ(WindowCatalogue::openedBy("mnuCueList")->name, "Cuewin");
  EXPECT_EQ(WindowCatalogue::openedBy("mnuExit"), nullptr);
  EXPECT_THROW(windows().setFactory("NoSuchWindow", [] { return nullptr; }), std::logic_error);
  EXPECT_THROW(windows().setFactory("Config", [] { return nullptr; }), std::logic_error);
}

TEST_F(Catalogue, MenusThatOpenAWindowAreEnabledWhenItCanBeMade) {
  int menus = 0;
  for (const WindowEntry& e : kWindowCatalogue)
    if (auto* item = dynamic_cast<MenuItem*>(console().registry.peek(std::string(e.opener)))) {
      ++menus;
      EXPECT_EQ(item->enabled(), windows().canMake(e.name)) << e.opener;
    }
  EXPECT_GE(menus, 9);
  EXPECT_TRUE(form1().menu("mnuInterface").enabled());
  EXPECT_TRUE(form1().menu("mnuMidiSetup").enabled());
  EXPECT_TRUE(form1().menu("mnuTecles").enabled());
}

TEST_F(Catalogue, AWindowIsLoadedOnFirstUseAndAfreshAfterItsUnload) {
  console().start();
  EXPECT_EQ(windows().find("Tecles"), nullptr);
  EXPECT_EQ(console().registry.peek("Tecles.BTN(3)"), nullptr);
  ASSERT_NE(console().registry.find("Tecles.BTN(3)"), nullptr);  // loads it
  auto* pad = windows().find<Tecles>("Tecles");
  ASSERT_NE(pad, nullptr);
  EXPECT_FALSE(pad->isVisible());
  pad->keyClick(Tecles::At);
  EXPECT_EQ(pad->AtPressed, kTrue);

  pad->unload();
  EXPECT_EQ(windows().find("Tecles"), nullptr);
  EXPECT_EQ(console().registry.peek("Tecles.BTN(3)"), nullptr);
  EXPECT_EQ(console().keypad.window().AtPressed, kFalse);  // a new load sequence ran
}

TEST_F(Catalogue, TheMainWindowsUnloadForgetsWindowsInItsOrder) {
  console().start();
  const std::vector<std::string> open = loadAll();
  ASSERT_GE(open.size(), 4u);
  std::vector<std::string> order;
  for (const std::string& name : open) {
    Window& w = *windows().find(name);
    w.unloading.add([&order, &w] { order.push_back(w.name()); });
  }
  // The patch windows have no place: they stay loaded through it.
  windows().load("frmPatch");
  windows().load("frmInvPatch");
  console().unload();
  std::vector<int> places;
  for (const std::string& name : order) places.push_back(WindowCatalogue::entry(name)->unloadOrder);
  EXPECT_EQ(order.size(), open.size());
  EXPECT_TRUE(std::is_sorted(places.begin(), places.end()));
  EXPECT_EQ(windows().loadedNames(), (std::vector<std::string>{"frmInvPatch", "frmPatch"}));
}

// A view bound to a control hears that it is gone and lets go; the model
// itself is destroyed only after the handler that unloaded it returned.
TEST_F(Catalogue, ResetDeskWithEveryWindowOpenLeavesNoViewOnAModelThatIsGone) {
  console().start();
  struct View {
    Control* control;
    int listener = 0;
    bool gone = false;
  };
  std::vector<std::unique_ptr<View>> views;
  for (const std::string& name : loadAll())
    for (const auto& [controlName, c] : console().registry.all())
      if (controlName.rfind(name + ".", 0) == 0) {
        auto view = std::make_unique<View>(View{c});
        View* v = view.get();
        v->listener = c->addDestroyListener([v] { v->gone = true; });
        views.push_back(std::move(view));
        break;
      }
  ASSERT_GE(views.size(), 4u);
  dialogs.queueAnswer("OK");
  form1().menu("mnuNew").click();
  for (const auto& v : views) EXPECT_TRUE(v->gone);
  for (const std::string& name : windows().loadedNames())
    EXPECT_LT(WindowCatalogue::entry(name)->unloadOrder, 0) << name;
  EXPECT_FALSE(console().closed());
}

TEST_F(Catalogue, AHandlerThatUnloadsItsOwnWindowRunsToItsEnd) {
  console().start();
  control("FaderCFG(5)").mouseDown(MouseButton::Right);
  auto* config = windows().find<FaderConfig>("Config");
  ASSERT_NE(config, nullptr);
  bool destroyedDuringHandler = false, inHandler = false;
  config->APPLY.addDestroyListener([&] { destroyedDuringHandler = inHandler; });
  auto apply = config->APPLY.onClick;
  config->APPLY.onClick = [&, apply] {
    inHandler = true;
    apply();  // unloads the dialog
    EXPECT_TRUE(config->isUnloaded());
    EXPECT_FALSE(config->isVisible());
    inHandler = false;
  };
  config->APPLY.click();
  EXPECT_FALSE(destroyedDuringHandler);
  EXPECT_EQ(windows().find("Config"), nullptr);
}

TEST_F(Catalogue, VisibilityAndActivationAreToldToEveryListener) {
  Window& w = console().keypad.window();
  int changes[2] = {0, 0}, activations = 0;
  for (int& n : changes) w.changed.add([&n] { ++n; });
  w.activated.add([&] { ++activations; });
  w.show();
  EXPECT_EQ(changes[0], 1);
  EXPECT_EQ(changes[1], 1);
  EXPECT_EQ(activations, 1);
  w.setVisible(false);
  EXPECT_EQ(changes[1], 2);
}

TEST(ListenerList, JoiningAndLeavingDuringANotificationDisturbsNothing) {
  Listeners<> list;
  std::vector<std::string> heard;
  int second = 0, third = 0;
  list.add([&] {
    heard.push_back("first");
    list.remove(second);                         // one still to come
    list.add([&] { heard.push_back("late"); });  // waits for the next time
  });
  second = list.add([&] { heard.push_back("second"); });
  third = list.add([&] {
    heard.push_back("third");
    list.remove(third);  // itself, while it runs
  });
  list.notify();
  EXPECT_EQ(heard, (std::vector<std::string>{"first", "third"}));
  heard.clear();
  list.notify();
  EXPECT_EQ(heard, (std::vector<std::string>{"first", "late"}));
}

}  // namespace
}  // namespace q::test
