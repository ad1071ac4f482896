// The dialog in which the user chooses the alternative office program of one kind of editor, and the folder for the
// files that are created for it.
#pragma once

#include "office/alternative_office_manager.h"
#include "platform/forms.h"
#include "platform/platform.h"

namespace zorkanca {

class frmAlternativeOfficePreset final : public Form {
 public:
  explicit frmAlternativeOfficePreset(const Platform& platform);

  /// To be set before the dialog is shown.
  eTypeOfEditor TypeOfEditor = eTypeOfEditor::TableEditor;
  Text PrefixAppZorix;  ///< application of the suite, trimmed and in upper case

 protected:
  void OnLoad() override { mode_ = Mode::kLoading; }
  void OnActivate() override { Fill(); }
  void OnKeyDown(const KeyStroke& key) override;
  bool OnQueryUnload() override;

 private:
  enum class Mode {
    kLoading,  ///< to be filled with the stored values
    kShown,    ///< nothing changed
    kChanged   ///< changed and not saved
  };

  void LayOut();
  void Listen();
  /// Shows the stored values when they are to be loaded; the caption of the OK button always.
  void Fill();
  void ShowStoredValues();
  /// An entry was changed, by the user or by the dialog itself.
  void Changed();
  void ShowWhetherUsed();
  void BrowseForProgram();
  void BrowseForFolder();
  void PressOk();
  /// Checks the entries and stores them. @return false when they were not stored; the user knows why
  bool Save();
  bool StoreEntries();
  /// Complains of an entry and leads the user to it. @return false
  bool Refuse(TextBox& field, TextView complaint);
  Text ExistingFolderAbove(TextView path) const;
  Text DefaultStoreFolder() const { return manager_.GetDefaultEditorStoreFolder(TypeOfEditor, PrefixAppZorix); }
  /// The text for the kind of editor at hand.
  TextView ByType(TextView table, TextView document) const {
    return TypeOfEditor == eTypeOfEditor::TableEditor ? table : document;
  }

  Platform platform_;
  cAlternativeOfficeManager manager_;
  Mode mode_ = Mode::kLoading;

  CheckBox chkUseAlternativeOfficeApp_{*this, u"chkUseAlternativeOfficeApp"};
  Label lblAppDescription_{*this, u"lblAppDescription"};
  TextBox txtAppPath_{*this, u"txtAppPath"};
  Button cmdAppBrowse_{*this, u"cmdAppBrowse"};
  Label lblDirDescription_{*this, u"lblDirDescription"};
  TextBox txtDirPath_{*this, u"txtDirPath"};
  Button cmdDirBrowse_{*this, u"cmdDirBrowse"};
  Button cmd_OK_{*this, u"cmd_OK"};
  Button cmd_Zrusit_{*this, u"cmd_Zrusit"};
};

}  // namespace zorkanca
