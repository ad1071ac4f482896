#include "templates/template_lists.h"

#include "templates/sabl_office_dialog.h"
#include "templates/seznam_sablon_office.h"

namespace zorkanca {

TemplateLists::TemplateLists(const Platform& platform) : platform_(platform) {}

TemplateLists::~TemplateLists() = default;

Text TemplateLists::TemplateList(TemplateListArguments& arguments) {
  Text chosen;
  RunToMessage(platform_, u"cZorOffice.TemplateList", [&] { chosen = Choose(arguments); });
  return chosen;
}

Text TemplateLists::Choose(TemplateListArguments& arguments) {
  if (!dialog_) dialog_ = std::make_unique<frmSP_SablOffice>(platform_);
  dialog_->Admin = arguments.rbAdmin;
  dialog_->TypeOfApplOffice = arguments.TypeOfApplOffice;
  if (!dialog_->Fill(arguments.rsZorApl, arguments.rsListName, arguments.Supply)) return {};
  if (!arguments.rsCaption.empty()) dialog_->SetCaption(arguments.rsCaption);
  try {
    platform_.userInterface.ShowModal(*dialog_, nullptr);
  } catch (...) {
    dialog_->Unload();
    throw;
  }
  return dialog_->fileName();
}

bool TemplateLists::SupplyTemplateList(Text& rsZorApl, ApplOffice typeOfApplOffice, Text& rsListName) {
  return zorkanca::SupplyTemplateList(platform_, rsZorApl, typeOfApplOffice, rsListName);
}

}  // namespace zorkanca
