// Template lists in a computer of memory, and the scripts of the people in front of their dialogs.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>

#include "support/form_person.h"
#include "support/template_lists.h"
#include "support/text_support.h"
#include "templates/template_lists.h"

namespace zorkanca::testing {

/// The default list of the application A1, see `TemplatePlatform`.
class TemplateDialogTest : public ::testing::Test {
 protected:
  using Script = std::function<void(const FormPerson&)>;

  /// Registers a template at the end of the list.
  void Register(TextView name, std::int32_t id = 0, bool active = false) { computer.Store(name, ++count_, active, id); }

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

  /// The stored value of each template, for example "a.dot=1 b.dot=0 ".
  std::string Stored(TextView value) {
    std::string values;
    for (const Text& name : computer.registry.SubkeyNames(RegistryHive::kCurrentUser, TemplatePlatform::KeyOf({}))) {
      values += ToUtf8(name) + "=" + computer.Stored(name, value) + " ";
    }
    return values;
  }
  /// Description, id and path of a template.
  std::string StoredContent(TextView name) {
    return computer.Stored(name, u"description") + "; " + computer.Stored(name, u"id") + "; " +
           computer.Stored(name, u"path");
  }
  /// The messages shown since the last call, one a line.
  std::string Messages() {
    std::string lines;
    for (const std::string& line : std::exchange(computer.journal, {})) {
      if (line.starts_with("message") || line == "beep") lines += Shown(FromUtf8(line)) + "\n";
    }
    return lines;
  }

  TemplatePlatform computer;
  TemplateLists lists{computer.platform};

 private:
  std::int32_t count_ = 0;
  int expected_ = 0;
};

}  // namespace zorkanca::testing
