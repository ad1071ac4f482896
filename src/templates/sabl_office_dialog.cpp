#include "templates/sabl_office_dialog.h"

#include <algorithm>
#include <utility>

#include "platform/paths.h"
#include "runtime/convert.h"

namespace zorkanca {

namespace {

constexpr TextView kNotFound = u"Požadovaný seznam šablon nenalezen !";

constexpr Anchors kRight = {.left = false, .right = true};

// "Šablony Word (*.dot)|*.dot", with all extensions that are taken in both places.
Text FileFilterOf(TextView caption, ApplOffice application, bool all) {
  Text patterns;
  for (const TextView extension : ExtensionsOf(application, all)) {
    if (!patterns.empty()) patterns.push_back(u';');
    patterns.append(u"*").append(extension);
  }
  return Text(caption).append(u" (").append(patterns).append(u")|").append(patterns);
}

// What the edit dialog offers when it asks for a file.
Text FileFilter(ApplOffice application, bool all) {
  const auto word = [all] { return FileFilterOf(u"Šablony Word", ApplOffice::MSWord, all); };
  const auto excel = [all] { return FileFilterOf(u"Šablony Excel", ApplOffice::MSExcel, all); };
  switch (application) {
    case ApplOffice::AllTypes:
      return word() + u"|" + excel();
    case ApplOffice::MSWord:
      return word();
    case ApplOffice::MSExcel:
      return excel();
    case ApplOffice::SDS:
      return u"Soubor definice sestavy (*.sds)|*.sds";
  }
  return {};
}

}  // namespace

frmSP_SablOffice::frmSP_SablOffice(const Platform& platform)
    : TemplateDialog(platform, u"zorKancA_SablOffice", 7800, 4800), editDialog_(platform) {
  MakeControls();
  lst_Sablony_.onSelect = [this] { UpdateButtons(); };
  lst_Sablony_.onDoubleClick = [this] { cmd_OK_.Press(); };
  cmd_OK_.onClick = Handler(u"frmSP_SablOffice.Choose", &frmSP_SablOffice::Choose);
  cmd_Zrusit_.onClick = [this] { Unload(); };
  cmd_Pridat_.onClick = Handler(u"frmSP_SablOffice.Add", &frmSP_SablOffice::Add);
  cmd_Opravit_.onClick = Handler(u"frmSP_SablOffice.Edit", &frmSP_SablOffice::Edit);
  cmd_Smazat_.onClick = Handler(u"frmSP_SablOffice.Delete", &frmSP_SablOffice::Delete);
  cmd_Nahoru_.onClick = Handler(u"frmSP_SablOffice.MoveUp", &frmSP_SablOffice::MoveUp);
  cmd_Dolu_.onClick = Handler(u"frmSP_SablOffice.MoveDown", &frmSP_SablOffice::MoveDown);
}

void frmSP_SablOffice::MakeControls() {
  cmd_OK_.SetCaption(u"&OK");
  cmd_Zrusit_.SetCaption(u"&Zrušit");
  cmd_Zrusit_.isCancel = true;
  cmd_Pridat_.SetCaption(u"Přid&at");
  cmd_Opravit_.SetCaption(u"Op&ravit");
  cmd_Smazat_.SetCaption(u"&Smazat");

  Arrange(lst_Sablony_, 0, {180, 180, 5820, 4440}, {.right = true, .bottom = true});
  Arrange(cmd_OK_, 1, {6180, 180, 1440, 405}, kRight);
  Arrange(cmd_Zrusit_, 2, {6180, 675, 1440, 405}, kRight);
  Arrange(cmd_Pridat_, 3, {6180, 1380, 1440, 405}, kRight);
  Arrange(cmd_Opravit_, 4, {6180, 1875, 1440, 405}, kRight);
  Arrange(cmd_Smazat_, 5, {6180, 2370, 1440, 405}, kRight);
  Arrange(cmd_Nahoru_, 6, {6180, 3075, 675, 405}, kRight);
  Arrange(cmd_Dolu_, 7, {6945, 3075, 675, 405}, kRight);
}

bool frmSP_SablOffice::Fill(TextView ZorAplName, Text& ListName, bool Supply) {
  list_ = std::make_unique<c_SeznamSablonOffice>(platform());
  list_->TypeOfApplOffice(TypeOfApplOffice);
  const bool filled = list_->Fill({.ZorAplName = Text(ZorAplName), .listName = ListName, .Supply = Supply});
  ListName = list_->ListName();
  if (!filled) {
    platform().userInterface.Show({.text = Text(kNotFound), .title = {}, .icon = MessageIcon::kCritical});
    list_.reset();
    return false;
  }
  Load();
  RefreshList();
  return true;
}

Text frmSP_SablOffice::fileName() {
  Text chosen = fileName_;
  Unload();
  return chosen;
}

void frmSP_SablOffice::OnLoad() {
  SetCaption({});
  cmd_Nahoru_.SetImage(ButtonImage::kEnabledUp);
  cmd_Dolu_.SetImage(ButtonImage::kEnabledDown);
  TemplateDialog::OnLoad();
}

void frmSP_SablOffice::OnActivate() {
  cmd_Pridat_.SetEnabled(Admin);
  UpdateButtons();
}

void frmSP_SablOffice::OnKeyUp(const KeyStroke& key) {
  const Control* const kWithOwnEnter[] = {&cmd_Pridat_, &cmd_Opravit_, &cmd_Smazat_,
                                          &cmd_Zrusit_, &cmd_Nahoru_,  &cmd_Dolu_};
  if (key.code != KeyCode::kEnter || lst_Sablony_.selectedRow() < 0) return;
  if (std::find(std::begin(kWithOwnEnter), std::end(kWithOwnEnter), activeControl()) != std::end(kWithOwnEnter)) return;
  cmd_OK_.Press();
}

void frmSP_SablOffice::OnUnload() {
  if (std::exchange(changed_, false)) {
    RunToMessage(platform(), u"frmSP_SablOffice.OnUnload", [this] { list_->SaveKeys(); });
  }
  fileName_.clear();
  Admin = false;
  list_.reset();
  lst_Sablony_.SetRows({});
  TemplateDialog::OnUnload();
}

// Shows the list as it is now. Buttons change only once the selection has come to rest: one that was disabled in
// between would lose the focus.
// @param row  to be selected, or the last one when it lies behind; without it the active template's
void frmSP_SablOffice::RefreshList(std::optional<int> row) {
  std::vector<Text> rows;
  for (const auto& each : *list_) rows.push_back(each->description());
  const int last = static_cast<int>(rows.size()) - 1;
  refreshing_ = true;
  lst_Sablony_.SetRows(std::move(rows));
  lst_Sablony_.SelectRow(std::min(row ? *row : list_->IndexOfActive() - 1, last));
  refreshing_ = false;
  UpdateButtons();
}

void frmSP_SablOffice::UpdateButtons() {
  if (refreshing_) return;
  const int row = lst_Sablony_.selectedRow();
  const bool selected = row >= 0;
  const bool canRise = row >= 1;
  const bool canSink = selected && row + 1 < static_cast<int>(lst_Sablony_.rows().size());
  cmd_Nahoru_.SetImage(canRise ? ButtonImage::kEnabledUp : ButtonImage::kDisabledUp);
  cmd_Dolu_.SetImage(canSink ? ButtonImage::kEnabledDown : ButtonImage::kDisabledDown);
  cmd_Nahoru_.SetEnabled(canRise);
  cmd_Dolu_.SetEnabled(canSink);
  cmd_OK_.SetEnabled(selected && list_ && list_->Item(row + 1)->FileExist());
  cmd_Opravit_.SetEnabled(selected && Admin);
  cmd_Smazat_.SetEnabled(selected && Admin);
}

void frmSP_SablOffice::EditTemplate(c_SeznamSablonOffice::Template edited) {
  editDialog_.Load();
  editDialog_.SetFileFilter(FileFilter(TypeOfApplOffice, platform().environment.TakesAllTemplateFormats()));
  editDialog_.SetTemplate(std::move(edited));
  try {
    platform().userInterface.ShowModal(editDialog_, this);
  } catch (...) {
    editDialog_.Unload();
    throw;
  }
}

void frmSP_SablOffice::Add() {
  const int selected = lst_Sablony_.selectedRow();
  const int row = selected >= 0 ? selected : list_->Count();
  EditTemplate(list_->AddNewItem(row));
  RefreshList(row);
}

void frmSP_SablOffice::Edit() {
  const int row = lst_Sablony_.selectedRow();
  EditTemplate(list_->Item(row + 1));
  RefreshList(row);
}

void frmSP_SablOffice::Delete() {
  const int row = lst_Sablony_.selectedRow();
  if (row < 0) return platform().userInterface.Beep();
  list_->KillItem(row);
  RefreshList(row);
}

void frmSP_SablOffice::MoveUp() {
  const int row = lst_Sablony_.selectedRow();
  changed_ = true;
  list_->MoveUp(row + 1);
  RefreshList(row - 1);
}

void frmSP_SablOffice::MoveDown() {
  const int row = lst_Sablony_.selectedRow();
  changed_ = true;
  list_->MoveDown(row + 1);
  RefreshList(row + 1);
}

void frmSP_SablOffice::Choose() {
  const int row = lst_Sablony_.selectedRow();
  const c_SablonaOffice& chosen = *list_->Item(row + 1);
  Hide();
  fileName_ = PathInFolder(platform().files, Trim(chosen.Path()), Trim(chosen.name()));
  std::int16_t index = ToInteger(row + 1, platform().locale);
  list_->SetActive(index);
}

}  // namespace zorkanca
