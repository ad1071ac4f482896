#include "platform/forms.h"

#include <gtest/gtest.h>

#include "runtime/convert.h"
#include "runtime/locale.h"
#include "runtime/utf8.h"
#include "support/text_support.h"

namespace zorkanca::testing {
namespace {

/// Writes down what a form tells whoever shows it.
class JournalView final : public FormView {
 public:
  std::vector<std::string> lines;

  void ControlChanged(Control& control) override { lines.push_back("changed " + ToUtf8(control.name())); }
  void RowsChanged(ListBox& list) override { lines.push_back("rows " + ToUtf8(list.name())); }
  void FocusMoved(Control& control) override { lines.push_back("focus " + ToUtf8(control.name())); }
  void FormChanged() override { lines.emplace_back("form"); }
  void Hidden() override { lines.emplace_back("hidden"); }
};

/// One control of each kind; what happens to the form is in `events`.
class SampleForm final : public Form {
 public:
  SampleForm() : Form(BorderStyle::kSizable, 6000, 3000) {
    label.SetTabIndex(0);
    text.SetTabIndex(1);
    list.SetTabIndex(2);
    check.SetTabIndex(5);
    ok.SetTabIndex(3);
    cancel.SetTabIndex(4);
    ok.isDefault = true;
    cancel.isCancel = true;
    ok.onClick = [this] { events += "ok "; };
    cancel.onClick = [this] { Unload(); };
    check.onClick = [this] { events += "check "; };
    list.onSelect = [this] { events += "row" + std::to_string(list.selectedRow()) + " "; };
    list.onDoubleClick = [this] { events += "double "; };
  }

  Label label{*this, u"label"};
  TextBox text{*this, u"text"};
  ListBox list{*this, u"list"};
  CheckBox check{*this, u"check"};
  Button ok{*this, u"ok"};
  Button cancel{*this, u"cancel"};

  std::string events;
  bool refusesToUnload = false;
  bool unloadsOnF5 = false;

 private:
  void OnLoad() override { events += "load "; }
  void OnActivate() override { events += "activate "; }
  void OnKeyDown(const KeyStroke& key) override {
    if (key.code == KeyCode::kF5 && unloadsOnF5) Unload();
  }
  void OnKeyUp(const KeyStroke& key) override { events += "up" + std::to_string(static_cast<int>(key.code)) + " "; }
  bool OnQueryUnload() override { return !refusesToUnload; }
  void OnUnload() override { events += visible() ? "unload-visible " : "unload "; }
};

TEST(Form, LivesFromLoadingToUnloading) {
  SampleForm form;
  JournalView view;
  form.SetView(&view);
  EXPECT_TRUE(form.Unload()) << "not loaded";
  form.Load();
  form.Show();
  form.Activate();
  EXPECT_EQ(form.activeControl(), &form.text) << "the first tab stop; a label is none";
  EXPECT_EQ(view.lines, (std::vector<std::string>{"focus text"}));
  form.refusesToUnload = true;
  form.Close();
  EXPECT_TRUE(form.visible() && form.loaded());
  form.refusesToUnload = false;
  form.Hide();
  EXPECT_TRUE(form.loaded());
  form.Show();
  form.Close();
  EXPECT_FALSE(form.visible() || form.loaded());
  form.Show();
  EXPECT_EQ(form.events, "load activate unload load ");
  EXPECT_EQ(view.lines, (std::vector<std::string>{"focus text", "hidden", "hidden", "focus text"}));
}

TEST(Form, KeysPressTheButtonsMeant) {
  SampleForm form;
  EXPECT_FALSE(form.PressKey({KeyCode::kEnter})) << "not visible";
  form.ReleaseKey({KeyCode::kEnter});
  form.Show();
  EXPECT_TRUE(form.PressKey({KeyCode::kEnter}));
  EXPECT_EQ(form.activeControl(), &form.text) << "Enter leaves the focus";
  EXPECT_FALSE(form.PressKey({KeyCode::kEnter, true}));
  form.ok.SetEnabled(false);
  EXPECT_FALSE(form.PressKey({KeyCode::kEnter})) << "a disabled button uses no key up";
  form.ok.SetEnabled(true);
  form.cancel.SetFocus();
  EXPECT_FALSE(form.PressKey({KeyCode::kEnter})) << "the window presses the focused button";
  form.ReleaseKey({KeyCode::kEnter});
  EXPECT_TRUE(form.PressKey({KeyCode::kEscape}));
  EXPECT_FALSE(form.visible());
  form.ReleaseKey({KeyCode::kEscape});
  EXPECT_EQ(form.events, "load ok up13 unload ") << "the release of the key that closed the form is nobody's";
  form.Show();
  form.unloadsOnF5 = true;
  EXPECT_TRUE(form.PressKey({KeyCode::kF5}));
  EXPECT_FALSE(form.loaded());
}

TEST(Form, FocusFollowsClicksAndLeavesWhatCannotHaveIt) {
  SampleForm form;
  form.Show();
  form.ok.Click();
  EXPECT_EQ(form.activeControl(), &form.ok);
  form.ok.SetEnabled(false);
  EXPECT_EQ(form.activeControl(), &form.cancel);
  form.ok.Click();
  form.label.SetFocus();
  form.ok.SetFocus();
  EXPECT_EQ(form.activeControl(), &form.cancel) << "a disabled button and a label take no focus";
  form.check.Click();
  form.check.SetVisible(false);
  EXPECT_EQ(form.activeControl(), &form.text) << "behind the last one comes the first";
  form.check.Click();
  form.list.SetTabStop(false);
  EXPECT_EQ(form.NextTabStop(1), &form.cancel);
  for (Control* control : form.controls()) control->SetEnabled(false);
  EXPECT_EQ(form.activeControl(), nullptr);
  EXPECT_EQ(form.NextTabStop(-1), nullptr);
  EXPECT_EQ(form.events, "load ok check ");
}

TEST(TextBox, TypedCharactersPassOneByOne) {
  SampleForm form;
  int changes = 0;
  form.text.onChange = [&changes] { ++changes; };
  const Locale& locale = *FindLocale(u"cs-CZ");
  form.text.acceptsKey = [&](char16_t character) { return IsNumeric(form.text.text() + character, locale); };
  EXPECT_EQ(form.text.Type(u"1x-2", 0, 0), u"1-") << "each is judged by the text before it";
  EXPECT_EQ(form.text.text(), u"1-");
  EXPECT_EQ(form.text.Type(u"xy", 0, 2), u"");
  EXPECT_EQ(form.text.text(), u"1-") << "the marked part stays when nothing takes its place";
  form.text.Type(u"", 1, 9);
  EXPECT_EQ(form.text.text(), u"1");
  form.text.SelectAll();
  form.text.Type(u"23");
  EXPECT_EQ(form.text.text(), u"23");
  EXPECT_FALSE(form.text.allSelected());
  form.text.Type(u"4", 1, 0);
  form.text.Type(u"5", 99, 99);
  EXPECT_EQ(form.text.text(), u"2435");
  EXPECT_EQ(changes, 7) << "one for each accepted character, one for the deletion";
  form.text.SetEnabled(false);
  form.text.Type(u"6");
  form.text.SetText(u"2435");
  EXPECT_EQ(changes, 7);
}

TEST(ListBox, SelectionIsToldOnce) {
  SampleForm form;
  JournalView view;
  form.SetView(&view);
  form.list.SetRows({u"a", u"b"});
  form.list.SelectRow(1);
  form.list.SelectRow(1);
  form.list.DoubleClick(0);
  form.list.SetRows({u"a"});
  form.list.SetEnabled(false);
  form.list.DoubleClick(0);
  EXPECT_EQ(form.events, "row1 row0 double row-1 ");
  EXPECT_EQ(view.lines,
            (std::vector<std::string>{"rows list", "changed list", "changed list", "rows list", "changed list"}));
  for (const int row : {1, -2}) EXPECT_EQ(ErrorOf([&] { form.list.SelectRow(row); }).number(), 5) << row;
}

TEST(Form, ResizingMovesAndStretchesControls) {
  SampleForm form;
  form.list.SetBounds({100, 100, 4000, 2000});
  form.list.SetAnchors({.right = true, .bottom = true});
  form.ok.SetBounds({4200, 2500, 1000, 400});
  form.ok.SetAnchors({.left = false, .top = false, .right = true, .bottom = true});
  form.text.SetBounds({1, 2, 3, 4});
  int told = 0;
  const int number = form.AddResizeListener([&told] { ++told; });
  form.PersonResized({10, 20, 7100, 3500}, WindowState::kNormal, 7000, 3200);
  EXPECT_EQ(form.list.bounds(), (Bounds{100, 100, 5000, 2200}));
  EXPECT_EQ(form.ok.bounds(), (Bounds{5200, 2700, 1000, 400}));
  EXPECT_EQ(form.text.bounds(), (Bounds{1, 2, 3, 4}));
  form.PersonResized({0, 0, 20000, 10000}, WindowState::kMaximized, 20000, 10000);
  form.PersonResized({-30000, 0, 100, 10}, WindowState::kMinimized, 0, 0);
  EXPECT_EQ(form.bounds(), (Bounds{10, 20, 7100, 3500})) << "those of the normal state";
  EXPECT_EQ(form.list.bounds().width, 18000) << "a minimised window is not laid out";
  EXPECT_EQ(told, 3);
  form.RemoveResizeListener(number);
  form.SetWindowState(WindowState::kNormal);
  EXPECT_EQ(told, 3);
}

TEST(Form, HasAPlaceOnlyOnceItStoodSomewhere) {
  SampleForm form;
  form.PersonResized({5, 5, 100, 100}, WindowState::kMaximized, 100, 100);
  EXPECT_FALSE(form.placed());
  form.SetBounds({0, 0, 6000, 3000});
  EXPECT_TRUE(form.placed());
}

}  // namespace
}  // namespace zorkanca::testing
