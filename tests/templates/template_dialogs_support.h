// Template lists in a computer of memory, and the scripts of the people in front of their dialogs.
#pragma once

#include <functional>
#include <string>
#include <utility>

#include "foundation/registry_key_cursor.h"
#include "support/form_person.h"
#include "support/memory_platform.h"
#include "support/text_support.h"
#include "templates/template_lists.h"

namespace zorkanca::testing {

/// The list "(Výchozí)" of the application A1 with its templates in the folder C:\T.
class TemplateDialogTest : public ::testing::Test {
 protected:
  using Script = std::function<void(const FormPerson&)>;

  /// Registers a template at the end of the list.
  void Register(TextView name, std::int32_t id = 0, bool active = false, bool exists = true) {
    const Text key = KeyOf(name);
    Registry& registry = computer.registry;
    registry.Write(kUser, key, u"description", Text(u"popis ").append(name));
    registry.Write(kUser, key, u"id", id);
    registry.Write(kUser, key, u"path", Text(u"C:\\T"));
    registry.Write(kUser, key, u"key", ++count_);
    registry.Write(kUser, key, u"active", active ? -1 : 0);
    if (exists) computer.files.Put(Text(u"C:\\T\\").append(name), "");
  }

  /// One more person, in front of the next dialog that is shown.
  void Expect(Script script) {
    ++expected_;
    computer.userInterface.scripts.push_back([this, script = std::move(script)](Form& form) {
      --expected_;
      script(FormPerson(form));
    });
  }
  /// The chosen path. Every expected dialog must have been shown.
  std::string Choose(TemplateListArguments arguments = {}) {
    arguments.rsZorApl = u"A1";
    const std::string chosen = ToUtf8(lists.TemplateList(arguments));
    EXPECT_EQ(expected_, 0) << "dialogs that were not shown";
    return chosen;
  }
  std::string ChooseAsAdmin(ApplOffice application = ApplOffice::AllTypes) {
    return Choose({.TypeOfApplOffice = application, .rbAdmin = true});
  }

  static Text ListKey() { return Text(kCursorStart).append(u"\\SABLONY\\A1\\(Výchozí)"); }
  static Text KeyOf(TextView name) { return ListKey().append(u"\\").append(name); }
  /// The stored value of each template, for example "a.dot=1 b.dot=0 ".
  std::string Stored(TextView valueName) {
    std::string values;
    for (const Text& name : computer.registry.SubkeyNames(kUser, ListKey())) {
      const auto value = computer.registry.Read(kUser, KeyOf(name), valueName);
      values += ToUtf8(name) + "=" + (value ? std::to_string(std::get<std::int32_t>(*value)) : "-") + " ";
    }
    return values;
  }
  std::string StoredValues(TextView name) { return computer.registry.Listing(kUser, KeyOf(name)); }
  /// The messages shown since the last call, one a line.
  std::string Messages() {
    std::string lines;
    for (const std::string& line : std::exchange(computer.journal, {})) {
      if (line.starts_with("message") || line == "beep") lines += Shown(FromUtf8(line)) + "\n";
    }
    return lines;
  }

  static constexpr RegistryHive kUser = RegistryHive::kCurrentUser;
  MemoryPlatform computer;
  TemplateLists lists{computer.platform};

 private:
  std::int32_t count_ = 0;
  int expected_ = 0;
};

}  // namespace zorkanca::testing
