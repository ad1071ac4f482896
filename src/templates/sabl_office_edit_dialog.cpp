#include "templates/sabl_office_edit_dialog.h"

#include <utility>

#include "platform/paths.h"
#include "runtime/convert.h"
#include "runtime/error.h"
#include "templates/seznam_sablon_office.h"

namespace zorkanca {

namespace {

constexpr TextView kNoFileName = u"Musí být zadáno jméno souboru !";
constexpr TextView kNoExtension = u"Musí být určena přípona souboru !";
constexpr TextView kWrongExtension = u"Zadaný typ souboru neodpovídá očekávanému, opravit ?";
constexpr TextView kNoIdentifier = u"Kód musí být celé číslo od -2147483648 do 2147483647 !";
constexpr TextView kSeparators = u"\\/";

constexpr Anchors kStretched = {.right = true};
constexpr Anchors kRight = {.left = false, .right = true};
constexpr Anchors kRightBottom = {.left = false, .top = false, .right = true, .bottom = true};

}  // namespace

frmSP_SablOfficeEdit::frmSP_SablOfficeEdit(const Platform& platform)
    : TemplateDialog(platform, u"zorKancA_SablOfficeEdit", 7200, 2250) {
  SetCaption(u"Šablona");
  lbl_kod_.SetCaption(u"&Kód:");
  lbl_popis_.SetCaption(u"&Popis:");
  lbl_soubor_.SetCaption(u"&Soubor:");
  cmd_soubor_.SetCaption(u"...");
  cmd_OK_.SetCaption(u"&OK");
  cmd_OK_.isDefault = true;
  cmd_Zrusit_.SetCaption(u"&Zrušit");
  cmd_Zrusit_.isCancel = true;

  Arrange(lbl_kod_, 0, {180, 225, 900, 270});
  Arrange(txt_kod_, 1, {1140, 165, 1500, 390});
  Arrange(lbl_popis_, 2, {180, 720, 900, 270});
  Arrange(txt_popis_, 3, {1140, 660, 5880, 390}, kStretched);
  Arrange(lbl_soubor_, 4, {180, 1215, 900, 270});
  Arrange(txt_soubor_, 5, {1140, 1155, 5370, 390}, kStretched);
  Arrange(cmd_soubor_, 6, {6570, 1155, 450, 390}, kRight);
  Arrange(cmd_OK_, 7, {4050, 1665, 1425, 405}, kRightBottom);
  Arrange(cmd_Zrusit_, 8, {5595, 1665, 1425, 405}, kRightBottom);

  const auto onEdit = [this] { changed_ = changed_ || !loading_; };
  for (TextBox* box : {&txt_kod_, &txt_popis_, &txt_soubor_}) box->onChange = onEdit;
  txt_kod_.acceptsKey = [this](char16_t character) { return MayTypeIntoCode(character); };
  cmd_soubor_.onClick = Handler(u"frmSP_SablOfficeEdit.ChooseFile", &frmSP_SablOfficeEdit::ChooseFile);
  cmd_OK_.onClick = Handler(u"frmSP_SablOfficeEdit.Confirm", &frmSP_SablOfficeEdit::Confirm);
  cmd_Zrusit_.onClick = [this] { Unload(); };
}

void frmSP_SablOfficeEdit::SetTemplate(std::shared_ptr<c_SablonaOffice> bound) {
  template_ = std::move(bound);
  const c_SeznamSablonOffice& list = *template_->Parent();
  const Text folder(Trim(template_->Path()));
  cdlgFile_.fileName = BuildPath(platform().files, folder, template_->name());
  cdlgFile_.folder = template_->Path();
  if (folder.empty()) {
    const bool asLast = template_->IsNew() && !list.LastNewFolder().empty();
    cdlgFile_.folder = asLast ? list.LastNewFolder() : list.DefaultPath();
  }
  loading_ = true;
  txt_kod_.SetText(DecimalText(template_->Id()));
  txt_kod_.SelectAll();  // a number that is typed takes its place
  txt_popis_.SetText(template_->DescriptionWithoutMark());
  txt_soubor_.SetText(cdlgFile_.fileName);
  loading_ = false;
}

void frmSP_SablOfficeEdit::OnLoad() {
  TemplateDialog::OnLoad();
  changed_ = false;
}

bool frmSP_SablOfficeEdit::OnQueryUnload() {
  if (template_ == nullptr) return true;
  RunToMessage(platform(), u"frmSP_SablOfficeEdit.OnQueryUnload", [this] {
    template_->CancelEdit();
    if (template_->IsNew()) template_->Parent()->KillItem(template_->key() - 1);
  });
  return true;
}

void frmSP_SablOfficeEdit::OnUnload() {
  template_.reset();
  TemplateDialog::OnUnload();
}

void frmSP_SablOfficeEdit::ChooseFile() {
  const Text chosen = platform().userInterface.ChooseFile(cdlgFile_);
  if (chosen.empty()) return;
  cdlgFile_.fileName = chosen;
  txt_soubor_.SetText(chosen);
  const std::size_t separator = chosen.find_last_of(kSeparators);
  if (separator != Text::npos) cdlgFile_.folder = chosen.substr(0, separator);
}

void frmSP_SablOfficeEdit::Confirm() {
  const TextView file = Trim(txt_soubor_.text());
  const bool isAbandoned = template_->name().empty() && file.empty();
  if (isAbandoned || !changed_) {
    Unload();
    return;
  }
  FilePlace place = ReadPlace(file);
  std::int32_t identifier = 0;
  if (place.name.empty()) return Tell(kNoFileName);
  if (CompleteExtension(place.name) && ReadIdentifier(identifier)) SaveAndUnload(place, identifier);
}

void frmSP_SablOfficeEdit::SaveAndUnload(const FilePlace& place, std::int32_t identifier) {
  const TextView description = Trim(txt_popis_.text());
  template_->name(place.name);
  template_->description(description.empty() ? TextView(place.name) : description);
  template_->Path(place.folder);
  template_->Id(identifier);
  if (template_->Save(true)) Unload();
}

void frmSP_SablOfficeEdit::Tell(TextView text) const {
  platform().userInterface.Show(
      {.text = Text(text), .title = Text(kTemplatesTitle), .icon = MessageIcon::kExclamation});
}

frmSP_SablOfficeEdit::FilePlace frmSP_SablOfficeEdit::ReadPlace(TextView file) const {
  const std::size_t separator = file.find_last_of(kSeparators);
  if (separator == TextView::npos) return {.folder = template_->Parent()->DefaultPath(), .name = Text(file)};
  const std::size_t folderLength = separator == 0 ? 1 : separator;  // the root is named by its separator
  return {.folder = Text(file.substr(0, folderLength)), .name = Text(file.substr(separator + 1))};
}

// Gives the name the extension of the list's type. @return false when it has none or another one that has to stay
bool frmSP_SablOfficeEdit::CompleteExtension(Text& name) const {
  const ApplOffice application = template_->Parent()->TypeOfApplOffice();
  const TextView expected = ExtensionOf(application);
  const std::size_t dot = name.rfind(u'.');
  if (dot == Text::npos) {
    if (application == ApplOffice::AllTypes) Tell(kNoExtension);
    name.append(expected);
    return application != ApplOffice::AllTypes;
  }
  const bool all = platform().environment.TakesAllTemplateFormats();
  if (TakesExtension(application, LowerCase(TextView(name).substr(dot)), all)) return true;
  const MessageAnswer answer = platform().userInterface.Show({.text = Text(kWrongExtension),
                                                              .title = Text(kTemplatesTitle),
                                                              .icon = MessageIcon::kExclamation,
                                                              .buttons = MessageButtons::kYesNo});
  if (answer != MessageAnswer::kYes) return false;
  name.replace(dot, Text::npos, expected);
  return true;
}

// An empty box means no identifier. @return false after the person was told that the text is none
bool frmSP_SablOfficeEdit::ReadIdentifier(std::int32_t& identifier) const {
  identifier = 0;
  if (IsBlank(txt_kod_.text())) return true;
  try {
    identifier = ToLong(txt_kod_.text(), platform().locale);
    return true;
  } catch (const Error&) {  // it is no number, or too large
    Tell(kNoIdentifier);
    return false;
  }
}

bool frmSP_SablOfficeEdit::MayTypeIntoCode(char16_t character) const {
  return character <= u' ' || IsNumeric(txt_kod_.text() + character, platform().locale);
}

}  // namespace zorkanca
