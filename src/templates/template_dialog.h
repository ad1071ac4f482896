// What the dialogs of the template lists share: they open where they were left, and a failure in them is told to the
// person and does no more harm.
#pragma once

#include <functional>
#include <optional>

#include "foundation/form_layout_memento.h"
#include "platform/forms.h"
#include "platform/platform.h"
#include "runtime/text.h"

namespace zorkanca {

/// Title of the messages of all template dialogs.
inline constexpr TextView kTemplatesTitle = u"Seznam šablon";

/// Runs what a person has asked for. An error goes to the error log and is shown.
/// @param operation  "Class.Operation", for the log
/// @return false when there was one
bool RunToMessage(const Platform& platform, TextView operation, const std::function<void()>& body);

class TemplateDialog : public Form {
 protected:
  /// @param layoutIdentifier  under which place and size are kept; refers to a literal
  /// @param innerWidth, innerHeight  twips
  TemplateDialog(const Platform& platform, TextView layoutIdentifier, float innerWidth, float innerHeight);

  const Platform& platform() const { return platform_; }

  /// Both are called by a derived class's own. A layout that cannot be read or kept goes to the error log alone: it is
  /// no reason to bother anybody.
  void OnLoad() override;
  void OnUnload() override;

  /// A handler that runs a member function of the dialog as `RunToMessage` does.
  /// @param operation  refers to a literal
  template <typename Dialog>
  std::function<void()> Handler(TextView operation, void (Dialog::*act)()) {
    return
        [this, operation, act] { RunToMessage(platform_, operation, [&] { (static_cast<Dialog*>(this)->*act)(); }); };
  }

 private:
  Platform platform_;
  TextView layoutIdentifier_;
  std::optional<FormLayoutMemento> layout_;
};

/// Where and how a button stands, all in one call.
/// @param tabIndex  its place in the tab order
void Arrange(Control& control, int tabIndex, const Bounds& bounds, const Anchors& anchors = {});

}  // namespace zorkanca
