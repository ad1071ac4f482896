// The dialog that edits one template: identifier, description and file.
#pragma once

#include <functional>
#include <memory>

#include "platform/form_controls.h"
#include "platform/user_interface.h"
#include "runtime/text.h"
#include "templates/sablona_office.h"
#include "templates/template_dialog.h"

namespace zorkanca {

/// Load, `SetFileFilter`, `SetTemplate`, show. However it ends but by a saved template, the edit is taken back, and a
/// new template leaves its list.
class frmSP_SablOfficeEdit final : public TemplateDialog {
 public:
  explicit frmSP_SablOfficeEdit(const Platform& platform);

  /// @param filter  of the file dialog, as `FileDialog::filter`
  void SetFileFilter(TextView filter) { cdlgFile_.filter = filter; }
  /// Shows a template of a list.
  void SetTemplate(std::shared_ptr<c_SablonaOffice> bound);

 private:
  /// What the file box says: folder and file name.
  struct FilePlace {
    Text folder;
    Text name;
  };

  void OnLoad() override;
  bool OnQueryUnload() override;
  void OnUnload() override;

  void ChooseFile();
  void Confirm();
  void SaveAndUnload(const FilePlace& place, std::int32_t identifier);
  void Tell(TextView text) const;
  FilePlace ReadPlace(TextView file) const;
  bool CompleteExtension(Text& name) const;
  bool ReadIdentifier(std::int32_t& identifier) const;
  bool MayTypeIntoCode(char16_t character) const;

  Label lbl_kod_{*this, u"lbl_kod"};
  TextBox txt_kod_{*this, u"txt_kod"};
  Label lbl_popis_{*this, u"lbl_popis"};
  TextBox txt_popis_{*this, u"txt_popis"};
  Label lbl_soubor_{*this, u"lbl_soubor"};
  TextBox txt_soubor_{*this, u"txt_soubor"};
  Button cmd_soubor_{*this, u"cmd_soubor"};
  Button cmd_OK_{*this, u"cmd_OK"};
  Button cmd_Zrusit_{*this, u"cmd_Zrusit"};
  FileDialog cdlgFile_;

  std::shared_ptr<c_SablonaOffice> template_;  // null while the dialog is not used
  bool changed_ = false;                       // a person has edited a text box
  bool loading_ = false;                       // the text boxes get the template's texts
};

}  // namespace zorkanca
