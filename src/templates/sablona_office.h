// One registered template. It is made by its list, changed by the edit dialog, and stored in the registry as a key
// named by its file name (see template_list_key.h).
//
// A saved template opens an edit with its first change: `CancelEdit` takes all changes back, `Save` checks and writes
// them. A new one has nothing to go back to; it stays new until it is saved.
#pragma once

#include <cstdint>

#include "platform/platform.h"
#include "runtime/text.h"
#include "templates/template_list_key.h"

namespace zorkanca {

class c_SeznamSablonOffice;

/// A template as its registry key holds it.
struct StoredTemplate {
  Text name;
  Text description;
  std::int32_t Id = 0;
  Text Path;
  bool Active = false;
};

/// Belongs to a list, which it may outlive; then it can no longer be saved.
/// Client programs see `key`, `Active`, `Id`, `description`, `Path` (read and write), `name`, `Typ`, `ZorAplName`,
/// `Saved`, `FileExist`, `IsNew` (read) and `CancelEdit`; the rest is for the list and the dialogs.
class c_SablonaOffice {
 public:
  /// A new template without a name, not yet saved. @param parent  the list that it belongs to
  c_SablonaOffice(const Platform& platform, const TemplateListKey& listKey, c_SeznamSablonOffice& parent);
  c_SablonaOffice(const c_SablonaOffice&) = delete;
  c_SablonaOffice& operator=(const c_SablonaOffice&) = delete;

  /// Becomes the saved template that the registry holds. A path that the system does not understand counts as one
  /// without a file; the reason goes to the error log.
  void Load(const StoredTemplate& stored);

  /// Position in the list, from 1.
  std::int32_t key() const { return key_; }
  void key(std::int32_t value) { key_ = value; }
  /// True for the template that is preselected in its list.
  bool Active() const { return active_; }
  void Active(bool value) { active_ = value; }
  /// 0: no identifier.
  std::int32_t Id() const { return content_.id; }
  void Id(std::int32_t value);
  /// Begins with "NENALEZENO: " while the file is missing.
  const Text& description() const { return content_.description; }
  void description(TextView value);
  /// The description without the mark of a missing file and the blanks around it.
  Text DescriptionWithoutMark() const;
  /// The folder of the file, with or without a separator at its end.
  const Text& Path() const { return content_.path; }
  /// Looks for the file anew; `FileExist` and the mark in the description follow.
  /// Errors: those of `FileSystem::FileExists`.
  void Path(TextView value);
  /// File name with extension; also the name of the registry key.
  const Text& name() const { return content_.name; }
  void name(TextView value);
  /// The name under which the list and the registry have it until it is saved; empty for a new template.
  const Text& StoredName() const;
  /// Path and name with one separator between them.
  Text FullFileName() const;

  const Text& Typ() const { return listKey_.Typ; }
  const Text& ZorAplName() const { return listKey_.ZorAplName; }
  bool Saved() const { return saved_; }
  bool IsNew() const { return isNew_; }
  /// The file was there when `Path` was last set.
  bool FileExist() const { return fileExist_; }
  /// The list, null when it is gone.
  c_SeznamSablonOffice* Parent() const { return parent_; }
  void Parent(c_SeznamSablonOffice* value) { parent_ = value; }

  /// Takes the open edit back; nothing for a new template.
  void CancelEdit();
  /// Checks and writes what was changed. When a check fails, the edit is cancelled.
  /// @param interactive  tell the reason of a refusal, and ask whether a wrong extension is to be put right; without it
  ///                     the answer is no
  /// @return false when it was refused
  /// Errors: of the registry, then nothing is written; 91 without a list; 457 when the name that the extension
  /// completes is taken.
  bool Save(bool interactive);

  /// Deletes the registry key; a new template has none. Errors: of the registry.
  void DeleteKey();
  /// Each writes one value of the registry key; nothing for a new template.
  void SaveKey();
  void SaveActive();

 private:
  struct Content {
    Text name;
    Text path;
    Text description;
    std::int32_t id = 0;
  };

  void BeginEdit();
  void LookForFile();
  bool IsUniqueInList(bool interactive) const;
  bool CorrectExtension(bool interactive);
  void RequireFreeName() const;
  void Write(bool underNewName) const;
  void WriteNumber(TextView valueName, std::int32_t number) const;

  Platform platform_;
  TemplateListKey listKey_;
  c_SeznamSablonOffice* parent_;
  Content content_;
  Content snapshot_;  // as the edit found it; empty without an edit
  std::int32_t key_ = 0;
  bool active_ = false;
  bool saved_ = false;
  bool isNew_ = true;
  bool fileExist_ = false;
};

}  // namespace zorkanca
