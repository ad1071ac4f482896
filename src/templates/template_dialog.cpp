#include "templates/template_dialog.h"

#include <memory>

#include "foundation/err_data.h"
#include "foundation/error_log.h"
#include "foundation/registry_memento_persistor.h"

namespace zorkanca {

namespace {

constexpr TextView kFailed = u"Při práci se seznamem šablon došlo k chybě:";

template <typename Body>
void RunToLog(const Platform& platform, TextView operation, const Body& body) noexcept {
  try {
    body();
  } catch (...) {
    LogErrorWithContext(platform, ErrData(), operation);
  }
}

}  // namespace

bool RunToMessage(const Platform& platform, TextView operation, const std::function<void()>& body) {
  try {
    body();
    return true;
  } catch (...) {
    const ErrData error;
    LogErrorWithContext(platform, error, operation);
    Text text = Text(kFailed).append(kCrLf);
    AppendDecimal(text, error.number);
    text.append(u" - ").append(error.description);
    platform.userInterface.Show(
        {.text = std::move(text), .title = Text(kTemplatesTitle), .icon = MessageIcon::kExclamation});
    return false;
  }
}

TemplateDialog::TemplateDialog(const Platform& platform, TextView layoutIdentifier, float innerWidth, float innerHeight)
    : Form(BorderStyle::kSizable, innerWidth, innerHeight), platform_(platform), layoutIdentifier_(layoutIdentifier) {}

void TemplateDialog::OnLoad() {
  RunToLog(platform_, u"TemplateDialog.OnLoad", [this] {
    layout_.emplace(platform_.userInterface);
    layout_->InitNewInstance(this, layoutIdentifier_, std::make_shared<RegistryMementoPersistor>(platform_.registry));
    layout_->Restore();
  });
}

void TemplateDialog::OnUnload() {
  RunToLog(platform_, u"TemplateDialog.OnUnload", [this] { layout_->Save(); });
  layout_.reset();
}

void Arrange(Control& control, int tabIndex, const Bounds& bounds, const Anchors& anchors) {
  control.SetTabIndex(tabIndex);
  control.SetBounds(bounds);
  control.SetAnchors(anchors);
}

}  // namespace zorkanca
