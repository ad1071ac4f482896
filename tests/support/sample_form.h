// A dialog with one control of each kind, which writes down what its logic hears.
#pragma once

#include <string>
#include <vector>

#include "platform/forms.h"
#include "runtime/utf8.h"

namespace zorkanca::testing {

class SampleForm final : public Form {
 public:
  explicit SampleForm(BorderStyle borderStyle = BorderStyle::kSizable) : Form(borderStyle, 6000, 4200) {
    SetCaption(u"Ukázka & zkouška");
    Lay(rowsLabel, 0, {120, 60, 3000, 240}, u"&Řádky:");
    Lay(rows, 1, {120, 330, 3900, 1800});
    rows.SetAnchors({.right = true, .bottom = true});
    Lay(up, 2, {4140, 330, 480, 420});
    up.SetImage(ButtonImage::kEnabledUp);
    up.SetAnchors({.left = false, .right = true});
    Lay(down, 3, {4140, 840, 480, 420});
    down.SetImage(ButtonImage::kDisabledDown);
    down.SetAnchors({.left = false, .right = true});
    Lay(codeLabel, 4, {120, 2310, 1300, 240}, u"&Kód:");
    Lay(code, 5, {1500, 2280, 2520, 315});
    Lay(noteLabel, 6, {120, 2730, 1300, 240}, u"&Poznámka:");
    Lay(note, 7, {1500, 2700, 2520, 315});
    Lay(flag, 8, {120, 3180, 3900, 285}, u"Po&užívat && šetřit");
    Lay(browse, 9, {4140, 2700, 480, 315}, u"…");
    browse.SetTabStop(false);
    Lay(ok, 10, {4740, 330, 1140, 375}, u"&OK");
    ok.isDefault = true;
    ok.SetAnchors({.left = false, .right = true});
    Lay(cancel, 11, {4740, 840, 1140, 375}, u"&Zrušit");
    cancel.isCancel = true;
    cancel.SetAnchors({.left = false, .right = true});
    for (Control* control :
         {static_cast<Control*>(&codeLabel), static_cast<Control*>(&code), static_cast<Control*>(&noteLabel),
          static_cast<Control*>(&note), static_cast<Control*>(&flag), static_cast<Control*>(&browse)}) {
      control->SetAnchors({.top = false, .bottom = true});
    }
    rows.SetRows({u"první", u"druhý", u"třetí"});
    code.acceptsKey = [](char16_t unit) { return unit >= u'0' && unit <= u'9'; };
    ok.onClick = [this] {
      Hear("ok");
      Hide();
    };
    cancel.onClick = [this] {
      Hear("cancel");
      Unload();
    };
    up.onClick = [this] { Hear("up"); };
    browse.onClick = [this] { Hear("browse"); };
    flag.onClick = [this] { Hear(flag.checked() ? "checked" : "unchecked"); };
    code.onChange = [this] { Hear("code " + ToUtf8(code.text())); };
    note.onChange = [this] { Hear("note " + ToUtf8(note.text())); };
    rows.onSelect = [this] { Hear("row " + std::to_string(rows.selectedRow())); };
    rows.onDoubleClick = [this] { Hear("double " + std::to_string(rows.selectedRow())); };
  }

  Label rowsLabel{*this, u"lblRows"};
  ListBox rows{*this, u"lstRows"};
  Button up{*this, u"cmdUp"};
  Button down{*this, u"cmdDown"};
  Label codeLabel{*this, u"lblCode"};
  TextBox code{*this, u"txtCode"};
  Label noteLabel{*this, u"lblNote"};
  TextBox note{*this, u"txtNote"};
  CheckBox flag{*this, u"chkFlag"};
  Button browse{*this, u"cmdBrowse"};
  Button ok{*this, u"cmdOk"};
  Button cancel{*this, u"cmdCancel"};

  bool refusesToClose = false;
  Control* enterGoesTo = nullptr;  ///< the focus, when Enter is pressed; null: it stays

  /// What was heard since the last call, a blank between.
  std::string Heard() {
    std::string all;
    for (const std::string& line : heard_) all.append(all.empty() ? "" : "; ").append(line);
    heard_.clear();
    return all;
  }
  void Hear(std::string line) { heard_.push_back(std::move(line)); }

 private:
  void OnActivate() override { Hear("activate"); }
  void OnKeyDown(const KeyStroke& key) override {
    Hear("down " + std::to_string(static_cast<int>(key.code)));
    if (key.code == KeyCode::kEnter && enterGoesTo != nullptr) enterGoesTo->SetFocus();
  }
  void OnKeyUp(const KeyStroke& key) override { Hear("up " + std::to_string(static_cast<int>(key.code))); }
  bool OnQueryUnload() override {
    Hear("close?");
    return !refusesToClose;
  }

  static void Lay(Control& control, int tabIndex, const Bounds& bounds, TextView caption = {}) {
    control.SetTabIndex(tabIndex);
    control.SetBounds(bounds);
    control.SetCaption(caption);
  }

  std::vector<std::string> heard_;
};

}  // namespace zorkanca::testing
