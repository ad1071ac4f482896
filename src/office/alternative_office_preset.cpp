#include "office/alternative_office_preset.h"

#include <algorithm>
#include <initializer_list>

#include "foundation/err_data.h"
#include "foundation/focus_move.h"
#include "foundation/hourglass.h"
#include "platform/paths.h"

namespace zorkanca {

namespace {

constexpr TextView kCaption = u"Nastavení pro používání alternativních kancelářských aplikací";
constexpr float kInnerWidth = 7200;
constexpr float kInnerHeight = 2580;

// The caption of the buttons that open a dialog to choose in.
constexpr TextView kDots = u"...";

bool IsNamedAsProgram(TextView path, const ProgramPlaces& places) {
  return places.extension.empty() || EqualsIgnoringCase(GetExtensionName(path), places.extension);
}

}  // namespace

frmAlternativeOfficePreset::frmAlternativeOfficePreset(const Platform& platform)
    : Form(BorderStyle::kFixedDialog, kInnerWidth, kInnerHeight), platform_(platform), manager_(platform) {
  SetCaption(kCaption);
  LayOut();
  Listen();
}

void frmAlternativeOfficePreset::LayOut() {
  chkUseAlternativeOfficeApp_.SetBounds({.left = 120, .top = 120, .width = 6960, .height = 285});
  lblAppDescription_.SetBounds({.left = 120, .top = 540, .width = 6960, .height = 225});
  txtAppPath_.SetBounds({.left = 120, .top = 780, .width = 6480, .height = 315});
  cmdAppBrowse_.SetBounds({.left = 6660, .top = 780, .width = 420, .height = 315});
  lblDirDescription_.SetBounds({.left = 120, .top = 1230, .width = 6960, .height = 225});
  txtDirPath_.SetBounds({.left = 120, .top = 1470, .width = 6480, .height = 315});
  cmdDirBrowse_.SetBounds({.left = 6660, .top = 1470, .width = 420, .height = 315});
  cmd_OK_.SetBounds({.left = 4440, .top = 2055, .width = 1260, .height = 375});
  cmd_Zrusit_.SetBounds({.left = 5820, .top = 2055, .width = 1260, .height = 375});
  cmdAppBrowse_.SetCaption(kDots);
  lblDirDescription_.SetCaption(u"&Adresář pro ukládání vytvořených souborů:");
  cmdDirBrowse_.SetCaption(kDots);
  cmd_Zrusit_.SetCaption(u"&Zrušit");
  cmd_Zrusit_.isCancel = true;
  int tabIndex = 0;
  for (Control* control : controls()) control->SetTabIndex(tabIndex++);
}

void frmAlternativeOfficePreset::Listen() {
  chkUseAlternativeOfficeApp_.onClick = [this] {
    if (mode_ == Mode::kLoading) return;
    ShowWhetherUsed();
    Changed();
  };
  txtAppPath_.onChange = [this] { Changed(); };
  txtDirPath_.onChange = [this] { Changed(); };
  cmdAppBrowse_.onClick = [this] { BrowseForProgram(); };
  cmdDirBrowse_.onClick = [this] { BrowseForFolder(); };
  cmd_OK_.onClick = [this] { PressOk(); };
  cmd_Zrusit_.onClick = [this] { Close(); };
}

void frmAlternativeOfficePreset::OnKeyDown(const KeyStroke& key) {
  if (key.withModifiers) return;
  if (key.code == KeyCode::kF5) {
    mode_ = Mode::kLoading;
    Fill();
  } else if (key.code == KeyCode::kEnter && dynamic_cast<TextBox*>(activeControl()) != nullptr) {
    sf_NextCtr(this);
  }
}

void frmAlternativeOfficePreset::Fill() {
  if (mode_ == Mode::kLoading) {
    const Hourglass hourglass(platform_.userInterface);
    ShowStoredValues();
    ShowWhetherUsed();
    mode_ = Mode::kShown;
  }
  cmd_OK_.SetCaption(mode_ == Mode::kChanged ? u"&Uložit" : u"&OK");
}

void frmAlternativeOfficePreset::ShowStoredValues() {
  chkUseAlternativeOfficeApp_.SetCaption(
      ByType(u"Po&užívat alternativní tabulkový editor", u"Po&užívat alternativní editor dokumentů"));
  lblAppDescription_.SetCaption(ByType(u"Cesta k programu alternativního tabulkového &editoru:",
                                       u"Cesta k programu alternativního &editoru dokumentů:"));
  txtAppPath_.SetText(manager_.AppPath(TypeOfEditor));
  txtDirPath_.SetText(manager_.StoreFolder(TypeOfEditor, PrefixAppZorix));
  chkUseAlternativeOfficeApp_.SetChecked(manager_.UsesAlternative(TypeOfEditor));
}

void frmAlternativeOfficePreset::Changed() {
  if (mode_ == Mode::kLoading) return;
  mode_ = Mode::kChanged;
  Fill();
}

void frmAlternativeOfficePreset::ShowWhetherUsed() {
  const bool used = chkUseAlternativeOfficeApp_.checked();
  const std::initializer_list<Control*> settings = {&lblAppDescription_, &txtAppPath_, &cmdAppBrowse_,
                                                    &lblDirDescription_, &txtDirPath_, &cmdDirBrowse_};
  for (Control* control : settings) control->SetEnabled(used);
  for (TextBox* box : {&txtAppPath_, &txtDirPath_}) {
    box->SetBackColor(used ? BackColor::kWindow : BackColor::kDisabled);
  }
  if (!used || !txtAppPath_.text().empty()) return;
  const Hourglass hourglass(platform_.userInterface);
  txtAppPath_.SetText(manager_.GetDefaultEditorAppPath(TypeOfEditor));
}

void frmAlternativeOfficePreset::BrowseForProgram() {
  const ProgramPlaces places = platform_.shell.Programs();
  const Text pattern = places.extension.empty() ? Text(u"*") : u"*." + places.extension;
  FileDialog dialog;
  dialog.title = Text(u"Zvolte aplikaci pro otevírání ").append(ByType(u"pracovních sešitů", u"dokumentů"));
  dialog.filter = u"Aplikace (" + pattern + u")|" + pattern;
  dialog.fileMustExist = true;
  if (!places.extension.empty()) dialog.defaultExtension = u"." + places.extension;
  const TextView current = Trim(txtAppPath_.text());
  if (IsNamedAsProgram(current, places) && platform_.files.FileExists(current)) {
    dialog.folder = GetParentFolderName(current);
    dialog.fileName = GetFileName(current);
  } else {
    const auto existing = std::find_if(places.folders.begin(), places.folders.end(),
                                       [this](const Text& folder) { return platform_.files.FolderExists(folder); });
    if (existing != places.folders.end()) dialog.folder = *existing;
  }
  const Text chosen = platform_.userInterface.ChooseFile(dialog);
  if (!chosen.empty()) txtAppPath_.SetText(chosen);
  txtAppPath_.SetFocus();
}

void frmAlternativeOfficePreset::BrowseForFolder() {
  Text start = ExistingFolderAbove(Trim(txtDirPath_.text()));
  if (start.empty()) start = DefaultStoreFolder();
  const Text chosen = platform_.userInterface.ChooseFolder(u"Vyberte adresář a stiskněte \"OK\"", start);
  if (!IsBlank(chosen)) txtDirPath_.SetText(Trim(chosen));
  txtDirPath_.SetFocus();
}

// The path itself when it is a folder, else the nearest one above it.
Text frmAlternativeOfficePreset::ExistingFolderAbove(TextView path) const {
  while (!path.empty() && !platform_.files.FolderExists(path)) path = GetParentFolderName(path);
  return Text(path);
}

void frmAlternativeOfficePreset::PressOk() {
  if (mode_ != Mode::kChanged) {
    Close();
  } else if (Save()) {
    mode_ = Mode::kShown;
    Fill();
  }
}

bool frmAlternativeOfficePreset::OnQueryUnload() {
  if (mode_ != Mode::kChanged) return true;
  const MessageAnswer answer = platform_.userInterface.Show({.text = u"Uložit změny?",
                                                             .title = caption(),
                                                             .icon = MessageIcon::kQuestion,
                                                             .buttons = MessageButtons::kYesNoCancel});
  return answer == MessageAnswer::kYes ? Save() : answer == MessageAnswer::kNo;
}

bool frmAlternativeOfficePreset::Save() {
  try {
    return StoreEntries();
  } catch (...) {
    const ErrData error;
    Text text(u"Došlo k chybě při pokusu o uložení předvoleb:");
    text.append(kCrLf);
    AppendDecimal(text, error.number);
    text.append(u" - ").append(error.description);
    platform_.userInterface.Show({.text = text, .title = caption(), .icon = MessageIcon::kExclamation});
    return false;
  }
}

bool frmAlternativeOfficePreset::StoreEntries() {
  if (!chkUseAlternativeOfficeApp_.checked()) {
    manager_.SaveUse(TypeOfEditor, false);
    return true;
  }
  Text program(Trim(txtAppPath_.text()));
  if (program.empty()) {
    return Refuse(txtAppPath_, ByType(u"Není nastavena cesta k programu alternativního tabulkového editoru",
                                      u"Není nastavena cesta k programu alternativního editoru dokumentů"));
  }
  const ProgramPlaces places = platform_.shell.Programs();
  if (!IsNamedAsProgram(program, places)) program.append(u".").append(places.extension);
  if (!platform_.shell.IsProgram(program)) {
    return Refuse(txtAppPath_, ByType(u"Nastavený program alternativního tabulkového editoru nebyl nalezen",
                                      u"Nastavený program alternativního editoru dokumentů nebyl nalezen"));
  }
  Text folder(Trim(txtDirPath_.text()));
  if (folder.empty()) folder = DefaultStoreFolder();
  if (!platform_.files.FolderExists(folder)) {
    return Refuse(txtDirPath_, u"Nastavený adresář pro ukládání vytvořených souborů nebyl nalezen");
  }
  platform_.registry.Change([&] {
    manager_.SaveUse(TypeOfEditor, true);
    manager_.SaveAppPath(TypeOfEditor, program);
    manager_.SaveStoreFolder(TypeOfEditor, folder, PrefixAppZorix);
  });
  return true;
}

bool frmAlternativeOfficePreset::Refuse(TextBox& field, TextView complaint) {
  platform_.userInterface.Show(
      {.text = Text(complaint).append(u"\u00a0!"), .title = caption(), .icon = MessageIcon::kExclamation});
  field.SetFocus();
  field.SelectAll();
  return false;
}

}  // namespace zorkanca
