// A list of templates: what one suite application has registered under one list name, in the order that the user gave
// it. One template is the active one, which the dialog preselects.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "platform/platform.h"
#include "runtime/error.h"
#include "runtime/text.h"
#include "templates/appl_office.h"
#include "templates/sablona_office.h"
#include "templates/supply_file.h"
#include "templates/template_list_key.h"

namespace zorkanca {

/// Which list to load.
struct TemplateListFill {
  Text ZorAplName{};    ///< code of the suite application
  Text listName{};      ///< blank: the default list
  bool Supply = false;  ///< register the templates of the supply file, too; for an empty list that is always done
  RegistryHive RootKey = RegistryHive::kCurrentUser;
  Text BaseKey{kTemplateListsKey};
};

/// Positions count from 1, but `AddNewItem` and `KillItem` take rows from 0.
/// Errors of all that take a position: 9 when there is no template at it.
class c_SeznamSablonOffice {
 public:
  using Template = std::shared_ptr<c_SablonaOffice>;

  explicit c_SeznamSablonOffice(const Platform& platform);
  ~c_SeznamSablonOffice();
  c_SeznamSablonOffice(const c_SeznamSablonOffice&) = delete;
  c_SeznamSablonOffice& operator=(const c_SeznamSablonOffice&) = delete;

  /// The filter; set before `Fill`.
  ApplOffice TypeOfApplOffice() const { return typeOfApplOffice_; }
  void TypeOfApplOffice(ApplOffice value) { typeOfApplOffice_ = value; }

  /// Loads a list; keys that are missing are made. Shows a message when an empty list can get nothing because there is
  /// no supply file.
  /// @return false when the registry failed, see `Failure`; what was loaded until then is there
  bool Fill(const TemplateListFill& arguments);
  /// The name that the list got, for the caller's own variable: never blank after `Fill`.
  const Text& ListName() const { return key_.Typ; }
  const Text& ZorAplName() const { return key_.ZorAplName; }
  /// What went wrong in the last `Fill` or `SupplyFromFile`, as the error log has it; nothing when all went well or the
  /// user has seen a message.
  const std::optional<Error>& Failure() const { return failure_; }

  std::int32_t Count() const { return static_cast<std::int32_t>(templates_.size()); }
  const Template& Item(std::int32_t index) const;
  /// By its stored name, case ignored. Errors: 5 when there is none.
  const Template& Item(TextView name) const;
  auto begin() const { return templates_.begin(); }
  auto end() const { return templates_.end(); }

  /// A new template, to be named and saved; nothing is written yet.
  /// @param Index  row before which it goes, from 0; behind the last row it is appended
  Template AddNewItem(std::int32_t Index);
  /// Takes the template in a row, from 0, out of the list and deletes its registry key.
  void KillItem(std::int32_t Index);
  /// Each swaps a template with its neighbour; nothing for the first, the last, and positions outside the list. The
  /// order is written by `SaveKeys`.
  void MoveUp(std::int32_t Index);
  void MoveDown(std::int32_t Index);
  /// Writes the positions of all templates, as one change.
  void SaveKeys();

  /// Position of the active template; 1 when there is none.
  std::int16_t IndexOfActive() const;
  /// Makes one template the only active one and writes what that changes.
  /// @param Index  becomes 1 when it lies outside the list
  void SetActive(std::int16_t& Index);

  /// Registers what the supply file has for this list, as one change. Lines that cannot be used are skipped; the reason
  /// goes to the error log.
  /// @return false when the registry or the file cannot be used
  bool SupplyFromFile();

  /// The folder of the templates that the suite brings.
  const Text& DefaultPath() const { return defaultPath_; }
  /// The folder of the template saved last as a new one; empty at first.
  const Text& LastNewFolder() const { return lastNewFolder_; }
  void LastNewFolder(TextView value) { lastNewFolder_ = value; }
  /// Moves a template of the list to where its `key` says.
  void Reinsert(const c_SablonaOffice& moved);

 private:
  template <typename Body>
  bool Trapped(TextView operation, const Body& body);
  const Template& At(std::int64_t position) const;
  void Insert(Template inserted, std::int64_t before);
  void Clear();
  void Load(const TemplateListFill& arguments);
  void LoadTemplate(RegistryKeyCursor& cursor, TextView name);
  void KeepOneActive();
  bool Supply();
  void RegisterAll(const std::vector<SuppliedTemplate>& supplied);
  void Register(const SuppliedTemplate& supplied);
  bool PassesFilter(TextView name) const;
  std::vector<Text> InStoredOrder(RegistryKeyCursor& cursor) const;

  Platform platform_;
  ApplOffice typeOfApplOffice_ = ApplOffice::AllTypes;
  Text supplyFolder_;
  Text defaultPath_;
  Text lastNewFolder_;
  TemplateListKey key_;
  std::vector<Template> templates_;
  std::optional<Error> failure_;
};

/// Registers the supply file's templates in a list of the user, without any dialog.
/// @param rsListName  receives the default list's name when it is blank
/// @return false when the list or the file cannot be read
bool SupplyTemplateList(const Platform& platform, TextView rsZorApl, ApplOffice typeOfApplOffice, Text& rsListName);

}  // namespace zorkanca
