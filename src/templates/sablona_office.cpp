#include "templates/sablona_office.h"

#include <algorithm>

#include "foundation/error_log.h"
#include "platform/paths.h"
#include "runtime/error.h"
#include "templates/seznam_sablon_office.h"

namespace zorkanca {

namespace {

constexpr TextView kMissingMark = u"NENALEZENO:";
constexpr TextView kListTitle = u"Seznam šablon";
constexpr TextView kExtensionQuestion = u"Zadaný typ souboru neodpovídá očekávanému, opravit ?";
constexpr std::int32_t kDuplicateKey = 457;  // of the runtime's collections

bool HasMissingMark(TextView description) {
  return UpperCase(Trim(description)).starts_with(kMissingMark);
}

// Title of the question about a wrong extension.
TextView QuestionTitle(ApplOffice application) {
  if (application == ApplOffice::MSWord) return u"Šablona pro MS Word";
  if (application == ApplOffice::MSExcel) return u"Šablona pro MS Excel";
  return u"Soubor definice sestavy";
}

Text FileIsRegistered(TextView name, TextView description) {
  return Join({u"Soubor \"" + Text(name) + u"\"", u"je již v tomto seznamu zaregistrován pod popisem ",
               u"\"" + Text(description) + u"\"", u"Nelze uložit znovu !"},
              kCrLf);
}

Text IdIsTaken(const c_SablonaOffice& owner) {
  Text text = u"V tomto seznamu zaregistrována šablona \"" + owner.name() + u"\" pod popisem \"" + owner.description() +
              u"\", která má identifikátor ";
  AppendDecimal(text, owner.Id());
  text.append(u". Nenulový identifikátor lze použít v jednom seznamu pouze jednou !").append(kCrLf);
  return text.append(u"Nelze uložit, změňte identifikátor ID nebo ho vynulujte !");
}

}  // namespace

c_SablonaOffice::c_SablonaOffice(const Platform& platform, const TemplateListKey& listKey, c_SeznamSablonOffice& parent)
    : platform_(platform), listKey_(listKey), parent_(&parent) {}

void c_SablonaOffice::Load(const StoredTemplate& stored) {
  content_ = {.name = stored.name, .path = stored.Path, .description = stored.description, .id = stored.Id};
  active_ = stored.Active;
  saved_ = true;
  isNew_ = false;
  try {
    LookForFile();
  } catch (const Error&) {
    LogErrorWithContext(platform_, ErrData(), u"c_SablonaOffice.Load " + FullFileName());
  }
}

void c_SablonaOffice::Id(std::int32_t value) {
  if (value != content_.id) BeginEdit();
  content_.id = value;
}

void c_SablonaOffice::description(TextView value) {
  if (value != content_.description) BeginEdit();
  content_.description = value;
}

void c_SablonaOffice::name(TextView value) {
  if (value != content_.name) BeginEdit();
  content_.name = value;
}

void c_SablonaOffice::Path(TextView value) {
  if (value != content_.path) BeginEdit();
  content_.path = value;
  LookForFile();
}

const Text& c_SablonaOffice::StoredName() const {
  return saved_ ? content_.name : snapshot_.name;  // a new template has an empty snapshot
}

Text c_SablonaOffice::DescriptionWithoutMark() const {
  if (!HasMissingMark(content_.description)) return content_.description;
  return Text(Trim(Trim(content_.description).substr(kMissingMark.size())));
}

Text c_SablonaOffice::FullFileName() const {
  Text path = content_.path;
  const TextView trimmed = Trim(path);
  if (trimmed.empty() || !IsPathSeparator(trimmed.back())) path.push_back(platform_.files.PathSeparator());
  return path.append(content_.name);
}

void c_SablonaOffice::BeginEdit() {
  if (!saved_) return;
  snapshot_ = content_;
  saved_ = false;
}

// The mark in the description follows what is on the disk; that is no edit.
void c_SablonaOffice::LookForFile() {
  fileExist_ = false;
  fileExist_ = platform_.files.FileExists(FullFileName());
  if (fileExist_) {
    content_.description = DescriptionWithoutMark();
  } else if (!HasMissingMark(content_.description)) {
    content_.description = Text(kMissingMark).append(u" ").append(content_.description);
  }
}

void c_SablonaOffice::CancelEdit() {
  if (isNew_ || saved_) return;
  content_ = snapshot_;
  snapshot_ = {};
  saved_ = true;
}

bool c_SablonaOffice::Save(bool interactive) {
  if (saved_) return true;
  if (parent_ == nullptr) Raise(RuntimeError::kObjectNotSet);
  listKey_.Open(platform_.registry);  // no question about a template that has nowhere to go
  const bool underNewName = content_.name != snapshot_.name;
  if (underNewName) {
    if (isNew_) parent_->LastNewFolder(content_.path);
    if (!IsUniqueInList(interactive) || !CorrectExtension(interactive)) {
      CancelEdit();
      return false;
    }
    RequireFreeName();
  }
  platform_.registry.Change([&] { Write(underNewName); });
  if (underNewName) parent_->Reinsert(*this);
  snapshot_ = {};
  saved_ = true;
  isNew_ = false;
  return true;
}

bool c_SablonaOffice::IsUniqueInList(bool interactive) const {
  const auto refuse = [&](Text text) {
    if (interactive) {
      platform_.userInterface.Show(
          {.text = std::move(text), .title = Text(kListTitle), .icon = MessageIcon::kExclamation});
    }
    return false;
  };
  for (const auto& other : *parent_) {
    if (other.get() == this) continue;
    if (EqualsIgnoringCase(Trim(other->name()), Trim(content_.name))) {
      return refuse(FileIsRegistered(content_.name, other->description()));
    }
    if (content_.id != 0 && other->Id() == content_.id) return refuse(IdIsTaken(*other));
  }
  return true;
}

// Gives the name the extension that the list expects. @return false when it has another one that has to stay
bool c_SablonaOffice::CorrectExtension(bool interactive) {
  const ApplOffice application = parent_->TypeOfApplOffice();
  const TextView expected = ExtensionOf(application);
  const std::size_t dot = content_.name.rfind(u'.');
  if (dot == Text::npos) {
    content_.name.append(expected);
    return true;
  }
  const bool all = platform_.environment.TakesAllTemplateFormats();
  if (TakesExtension(application, LowerCase(TextView(content_.name).substr(dot)), all)) return true;
  if (!interactive) return false;
  const MessageAnswer answer = platform_.userInterface.Show({.text = Text(kExtensionQuestion),
                                                             .title = Text(QuestionTitle(application)),
                                                             .icon = MessageIcon::kExclamation,
                                                             .buttons = MessageButtons::kYesNo});
  if (answer != MessageAnswer::kYes) return false;
  content_.name.replace(dot, Text::npos, expected);
  return true;
}

// A name that got its extension here may be another template's; to go on would write over that one.
void c_SablonaOffice::RequireFreeName() const {
  const bool taken = std::any_of(parent_->begin(), parent_->end(), [&](const auto& other) {
    return other.get() != this && EqualsIgnoringCase(other->StoredName(), content_.name);
  });
  if (taken) throw Error(kDuplicateKey, {}, u"Soubor \"" + content_.name + u"\" je již v seznamu šablon.");
}

void c_SablonaOffice::Write(bool underNewName) const {
  RegistryKeyCursor cursor = listKey_.Open(platform_.registry);
  if (underNewName) {
    if (!snapshot_.name.empty()) cursor.DeleteKey(snapshot_.name);
    cursor.CreateKey(content_.name);
    cursor.SetValue(u"key", key_);
  } else {
    cursor.OpenKey(content_.name);
  }
  cursor.SetValue(u"description", content_.description);
  cursor.SetValue(u"id", content_.id);
  cursor.SetValue(u"path", content_.path);
}

void c_SablonaOffice::DeleteKey() {
  if (isNew_) return;
  listKey_.Open(platform_.registry).DeleteKey(StoredName());
  saved_ = false;
}

void c_SablonaOffice::SaveKey() {
  WriteNumber(u"key", key_);
}

void c_SablonaOffice::SaveActive() {
  WriteNumber(u"active", active_ ? -1 : 0);
}

void c_SablonaOffice::WriteNumber(TextView valueName, std::int32_t number) const {
  if (StoredName().empty()) return;
  RegistryKeyCursor cursor(platform_.registry);
  if (cursor.Root() != listKey_.RootKey) cursor.Root(listKey_.RootKey);
  cursor.SetValueAt(listKey_.PathOf(StoredName()), valueName, number);
}

}  // namespace zorkanca
