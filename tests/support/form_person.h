// A person in front of a dialog, for scripts of `JournalUserInterface`: finds controls by name, and does to them only
// what a window would let a person do.
#pragma once

#include <gtest/gtest.h>

#include <set>
#include <stdexcept>
#include <string>

#include "platform/forms.h"
#include "runtime/utf8.h"

namespace zorkanca::testing {

class FormPerson {
 public:
  explicit FormPerson(Form& form) : form_(form) {}

  template <typename Kind>
  Kind& Find(TextView name) const {
    for (Control* control : form_.controls()) {
      auto* found = dynamic_cast<Kind*>(control);
      if (found != nullptr && control->name() == name) return *found;
    }
    throw std::logic_error("no such control: " + ToUtf8(name));
  }

  bool IsOpen() const { return form_.visible(); }
  void Press(TextView button) const { Find<Button>(button).Click(); }
  /// Clicks on a row of the form's one list.
  void Pick(int row) const {
    List().SetFocus();
    List().SelectRow(row);
  }
  ListBox& List() const { return Find<ListBox>(u"lst_Sablony"); }
  const Text& Read(TextView textBox) const { return Find<TextBox>(textBox).text(); }
  /// Replaces the text of a box.
  void Type(TextView textBox, TextView text) const {
    auto& box = Find<TextBox>(textBox);
    box.Type(u"", 0, box.text().size());
    box.Type(text);
  }
  void Enter() const {
    form_.PressKey({KeyCode::kEnter});
    form_.ReleaseKey({KeyCode::kEnter});
  }
  void Escape() const {
    form_.PressKey({KeyCode::kEscape});
    form_.ReleaseKey({KeyCode::kEscape});
  }

  /// The names of the buttons that can be pressed, without their prefix, in the order of their creation.
  std::string Buttons() const {
    std::string names;
    for (Control* control : form_.controls()) {
      auto* button = dynamic_cast<Button*>(control);
      if (button != nullptr && button->enabled()) names += ToUtf8(TextView(button->name()).substr(4)) + " ";
    }
    return names;
  }

  /// Fails the test where two controls share a tab index or an access key, or a control lies outside the form.
  void ExpectSoundForm() const {
    std::set<int> places;
    std::set<char16_t> keys;
    for (const Control* control : form_.controls()) {
      ASSERT_TRUE(control->tabIndex().has_value()) << ToUtf8(control->name());
      EXPECT_TRUE(places.insert(*control->tabIndex()).second) << ToUtf8(control->name());
      const std::size_t mark = control->caption().find(u'&');
      if (mark != Text::npos) {
        EXPECT_TRUE(keys.insert(LowerCase(control->caption().at(mark + 1))).second) << ToUtf8(control->name());
      }
      const Bounds& bounds = control->bounds();
      EXPECT_TRUE(bounds.width > 0 && bounds.left + bounds.width <= form_.bounds().width) << ToUtf8(control->name());
      EXPECT_TRUE(bounds.height > 0 && bounds.top + bounds.height <= form_.bounds().height) << ToUtf8(control->name());
    }
  }

 private:
  Form& form_;
};

}  // namespace zorkanca::testing
