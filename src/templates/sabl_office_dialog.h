// The dialog that shows a template list: a person picks a template, changes the order, and, as an administrator, adds,
// edits and deletes templates.
#pragma once

#include <memory>
#include <optional>

#include "platform/form_controls.h"
#include "runtime/text.h"
#include "templates/appl_office.h"
#include "templates/sabl_office_edit_dialog.h"
#include "templates/seznam_sablon_office.h"
#include "templates/template_dialog.h"

namespace zorkanca {

/// Set `Admin` and `TypeOfApplOffice`, `Fill`, show, read `fileName`. One dialog serves any number of such rounds.
class frmSP_SablOffice final : public TemplateDialog {
 public:
  explicit frmSP_SablOffice(const Platform& platform);

  /// False again after each round.
  bool Admin = false;
  ApplOffice TypeOfApplOffice = ApplOffice::AllTypes;

  /// Loads a list; shows a message when that fails.
  /// @param ListName  receives the default list's name when it is blank
  /// @param Supply    register the templates of the supply file, too
  bool Fill(TextView ZorAplName, Text& ListName, bool Supply);
  /// Full name of the chosen template's file, empty when none was chosen. Unloads the dialog.
  Text fileName();

 private:
  void OnLoad() override;
  void OnActivate() override;
  void OnKeyUp(const KeyStroke& key) override;
  void OnUnload() override;

  void MakeControls();
  void RefreshList(std::optional<int> row = std::nullopt);
  void UpdateButtons();
  void EditTemplate(c_SeznamSablonOffice::Template edited);

  void Add();
  void Edit();
  void Delete();
  void MoveUp();
  void MoveDown();
  void Choose();

  ListBox lst_Sablony_{*this, u"lst_Sablony"};
  Button cmd_OK_{*this, u"cmd_OK"};
  Button cmd_Zrusit_{*this, u"cmd_Zrusit"};
  Button cmd_Pridat_{*this, u"cmd_Pridat"};
  Button cmd_Opravit_{*this, u"cmd_Opravit"};
  Button cmd_Smazat_{*this, u"cmd_Smazat"};
  Button cmd_Nahoru_{*this, u"cmd_Nahoru"};
  Button cmd_Dolu_{*this, u"cmd_Dolu"};

  frmSP_SablOfficeEdit editDialog_;
  std::unique_ptr<c_SeznamSablonOffice> list_;  // null outside a round
  Text fileName_;
  bool changed_ = false;     // the order
  bool refreshing_ = false;  // the selection has not come to rest
};

}  // namespace zorkanca
