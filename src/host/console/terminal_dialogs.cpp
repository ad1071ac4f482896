#include "host/console/terminal_dialogs.h"

#include <algorithm>
#include <filesystem>
#include <vector>

#include "files/native_path.h"
#include "platform/tab_order.h"
#include "runtime/utf8.h"

namespace zorkanca {

namespace {

namespace fs = std::filesystem;

constexpr KeyStroke kEnterKey{.code = KeyCode::kEnter};

ListBox* FirstList(const Form& form) {
  for (Control* control : form.controls()) {
    auto* list = dynamic_cast<ListBox*>(control);
    if (list != nullptr && list->CanTakeFocus()) return list;
  }
  return nullptr;
}

// What a person can do here: all but lists, labels, and buttons without a caption, which belong to lists.
std::vector<Control*> Entries(const Form& form) {
  std::vector<Control*> entries = InTabOrder(form);
  std::erase_if(entries, [](const Control* control) {
    const bool textBox = dynamic_cast<const TextBox*>(control) != nullptr;
    const bool button = dynamic_cast<const Button*>(control) != nullptr;
    const bool checkBox = dynamic_cast<const CheckBox*>(control) != nullptr;
    return !control->CanTakeFocus() || !(textBox || checkBox || (button && !control->caption().empty()));
  });
  return entries;
}

Text NameOf(const Control& control) {
  const Label* label = LabelOf(control);
  Text name = WithoutAccessKey(label != nullptr ? label->caption() : control.caption());
  while (name.ends_with(u':') || name.ends_with(u' ')) name.pop_back();
  return name;
}

Text Described(const Control& control) {
  if (const auto* box = dynamic_cast<const TextBox*>(&control)) return NameOf(control) + u": " + box->text();
  const Text caption = WithoutAccessKey(control.caption());
  if (const auto* box = dynamic_cast<const CheckBox*>(&control)) return (box->checked() ? u"[x] " : u"[ ] ") + caption;
  return u"<" + caption + u">";
}

// "  3  text", marked when it is the present choice.
Text Numbered(std::size_t number, bool marked, TextView text) {
  const Text digits = DecimalText(static_cast<std::int64_t>(number));
  return (marked ? u"* " : u"  ") + Text(digits.size() < 2 ? 1 : 0, u' ') + digits + u"  " + Text(text) + u"\n";
}

// From 1; 0 when the answer is no number of a line.
std::size_t NumberIn(TextView answer, std::size_t count) {
  std::size_t number = 0;
  for (const char16_t digit : answer) {
    if (digit < u'0' || digit > u'9') return 0;
    number = number * 10 + static_cast<std::size_t>(digit - u'0');
    if (number > count) return 0;
  }
  return number;
}

void Cancel(Form& form) {
  for (Control* control : form.controls()) {
    auto* button = dynamic_cast<Button*>(control);
    if (button != nullptr && button->isCancel) return button->Click();
  }
  form.Close();
}

Text FullPath(TextView answer, TextView folder) {
  std::string path = ToNativePath(answer);
  if (!path.starts_with('/') && !folder.empty()) path = JoinPath(ToNativePath(folder), path);
  return FromNativePath(AbsolutePath(path));
}

Text TitleOr(TextView title, TextView own) {
  return Text(title.empty() ? own : title);
}

}  // namespace

void TerminalDialogs::ShowModal(Form& form) const {
  form.Show();
  form.Activate();
  while (form.visible()) {
    terminal_.Print(form.caption() + u"\n");
    ListBox* list = FirstList(form);
    const bool goesOn = list != nullptr ? ChooseRow(form, *list) : ChooseEntry(form);
    if (!goesOn) form.Hide();  // nobody is there any more to answer why it stays
  }
}

// @return false at the end of input
bool TerminalDialogs::ChooseRow(Form& form, ListBox& list) const {
  const std::vector<Text>& rows = list.rows();
  if (rows.empty()) {
    terminal_.Print(u"Seznam je prázdný.\n");
    Cancel(form);
    return false;
  }
  for (std::size_t index = 0; index < rows.size(); ++index) {
    terminal_.Print(Numbered(index + 1, list.selectedRow() == static_cast<int>(index), rows[index]));
  }
  Text answer;
  const bool more = terminal_.Ask(u"Číslo (prázdné zruší): ", answer);
  if (answer.empty()) {
    Cancel(form);
  } else if (const std::size_t number = NumberIn(answer, rows.size()); number > 0) {
    list.SetFocus();
    list.SelectRow(static_cast<int>(number) - 1);
    form.PressKey(kEnterKey);
    if (form.visible()) form.ReleaseKey(kEnterKey);
    if (form.visible()) terminal_.Print(u"Tuto položku nelze zvolit.\n");
  } else {
    terminal_.Print(u"Takové číslo v seznamu není.\n");
  }
  return more;
}

bool TerminalDialogs::ChooseEntry(Form& form) const {
  const std::vector<Control*> entries = Entries(form);
  for (std::size_t index = 0; index < entries.size(); ++index) {
    terminal_.Print(Numbered(index + 1, false, Described(*entries[index])));
  }
  Text answer;
  const bool more = terminal_.Ask(u"Číslo (prázdné zruší): ", answer);
  if (answer.empty()) {
    Cancel(form);
  } else if (const std::size_t number = NumberIn(answer, entries.size()); number > 0) {
    Use(*entries[number - 1]);
  }
  return more;
}

void TerminalDialogs::Use(Control& control) const {
  control.form().PersonFocused(control);
  if (auto* button = dynamic_cast<Button*>(&control)) return button->Click();
  if (auto* check = dynamic_cast<CheckBox*>(&control)) return check->Click();
  Text answer;
  auto& box = static_cast<TextBox&>(control);
  if (terminal_.Ask(NameOf(box) + u": ", answer)) box.Type(answer, 0, box.text().size());
}

Text TerminalDialogs::ChooseFile(const FileDialog& dialog) const {
  const Text prompt = TitleOr(dialog.title, u"Soubor") + u" (prázdné zruší): ";
  Text answer;
  while (terminal_.Ask(prompt, answer) && !answer.empty()) {
    Text path = FullPath(answer, dialog.folder);
    if (!fs::path(ToNativePath(path)).has_extension()) path += dialog.defaultExtension;
    std::error_code ignored;
    if (!dialog.fileMustExist || fs::is_regular_file(ToNativePath(path), ignored)) return path;
    terminal_.Print(u"Soubor nebyl nalezen: " + path + u"\n");
  }
  return {};
}

Text TerminalDialogs::ChooseFolder(TextView title, TextView startFolder) const {
  const Text prompt = TitleOr(title, u"Adresář") + u" (prázdné zruší): ";
  Text answer;
  while (terminal_.Ask(prompt, answer) && !answer.empty()) {
    const Text path = FullPath(answer, startFolder);
    std::error_code ignored;
    if (fs::is_directory(ToNativePath(path), ignored)) return path;
    terminal_.Print(u"Adresář nebyl nalezen: " + path + u"\n");
  }
  return {};
}

}  // namespace zorkanca
