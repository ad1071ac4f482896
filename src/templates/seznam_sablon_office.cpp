#include "templates/seznam_sablon_office.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "foundation/err_data.h"
#include "foundation/error_log.h"
#include "platform/event_log.h"
#include "platform/paths.h"
#include "templates/supply_file.h"

namespace zorkanca {

namespace {

constexpr TextView kFill = u"c_SeznamSablonOffice.Fill";
constexpr TextView kSupply = u"c_SeznamSablonOffice.SupplyFromFile";
constexpr TextView kNoSupplyFile = u"Nebyl nalezen soubor \"ZorSabl.txt\" obsahující seznam šablon k registraci !";

// A value that somebody has stored as another kind must not cost the whole list.
template <typename Default>
auto ValueOr(const Platform& platform, const RegistryKeyCursor& cursor, TextView name, Default defaultValue) {
  try {
    return cursor.GetValue(name, defaultValue);
  } catch (const Error& error) {
    if (error.number() != static_cast<std::int32_t>(RuntimeError::kTypeMismatch)) throw;
    LogErrorWithContext(platform, ErrData(), kFill);
    return decltype(cursor.GetValue(name, defaultValue))(defaultValue);
  }
}

}  // namespace

c_SeznamSablonOffice::c_SeznamSablonOffice(const Platform& platform)
    : platform_(platform),
      supplyFolder_(platform_.environment.SupplyFolder()),
      defaultPath_(platform_.environment.DefaultTemplatesFolder()) {}

c_SeznamSablonOffice::~c_SeznamSablonOffice() {
  Clear();
}

// Clients may hold templates longer than the list.
void c_SeznamSablonOffice::Clear() {
  for (const Template& each : templates_) each->Parent(nullptr);
  templates_.clear();
}

// Runs the body; what it raises goes to the error log and is kept for `Failure`.
template <typename Body>
bool c_SeznamSablonOffice::Trapped(TextView operation, const Body& body) {
  try {
    return body();
  } catch (...) {
    LogErrorWithContext(platform_, ErrData(), operation);
    if (!failure_) failure_ = ErrorBeingHandled();
    return false;
  }
}

bool c_SeznamSablonOffice::Fill(const TemplateListFill& arguments) {
  failure_.reset();
  const bool loaded = Trapped(kFill, [&] {
    Load(arguments);
    return true;
  });
  if (Count() == 0 || arguments.Supply) Supply();
  return loaded;
}

void c_SeznamSablonOffice::Load(const TemplateListFill& arguments) {
  Clear();
  key_ = {.RootKey = arguments.RootKey,
          .BaseKey = arguments.BaseKey,
          .ZorAplName = arguments.ZorAplName,
          .Typ = IsBlank(arguments.listName) ? Text(kDefaultListName) : arguments.listName};
  RegistryKeyCursor cursor = key_.OpenOrCreate(platform_.registry);
  for (const Text& name : InStoredOrder(cursor)) LoadTemplate(cursor, name);
  KeepOneActive();
}

bool c_SeznamSablonOffice::PassesFilter(TextView name) const {
  if (typeOfApplOffice_ == ApplOffice::AllTypes) return true;
  const Text lower = LowerCase(Trim(name));
  const auto extensions = ExtensionsOf(typeOfApplOffice_, platform_.environment.TakesAllTemplateFormats());
  return std::any_of(extensions.begin(), extensions.end(), [&](TextView each) { return lower.ends_with(each); });
}

// The templates that pass the filter by their stored positions, those without one (0) last. A negative position hides
// a template.
std::vector<Text> c_SeznamSablonOffice::InStoredOrder(RegistryKeyCursor& cursor) const {
  std::vector<std::pair<std::int64_t, Text>> placed;
  for (Text& name : cursor.EnumKeys()) {
    if (!PassesFilter(name)) continue;
    cursor.OpenKey(name);
    const std::int32_t key = ValueOr(platform_, cursor, u"key", 0);
    cursor.OpenParent();
    if (key < 0) {
      const Text message = u"Šablona \"" + name + u"\" má zápornou pozici, proto v seznamu není.";
      LogMessageWithContext(platform_, message, kWarningEvent, kFill);
      continue;
    }
    placed.emplace_back(key > 0 ? key : std::numeric_limits<std::int64_t>::max(), std::move(name));
  }
  std::stable_sort(placed.begin(), placed.end(),
                   [](const auto& left, const auto& right) { return left.first < right.first; });
  std::vector<Text> names;
  for (auto& [key, name] : placed) names.push_back(std::move(name));
  return names;
}

void c_SeznamSablonOffice::LoadTemplate(RegistryKeyCursor& cursor, TextView name) {
  cursor.OpenKey(name);
  const StoredTemplate stored = {.name = Text(name),
                                 .description = ValueOr(platform_, cursor, u"description", name),
                                 .Id = ValueOr(platform_, cursor, u"id", 0),
                                 .Path = ValueOr(platform_, cursor, u"path", TextView(defaultPath_)),
                                 .Active = ValueOr(platform_, cursor, u"active", 0) != 0};
  cursor.OpenParent();
  const auto loaded = std::make_shared<c_SablonaOffice>(platform_, key_, *this);
  loaded->key(Count() + 1);
  loaded->Load(stored);
  templates_.push_back(loaded);
}

// Of several active templates the first one stays so, and all others are written as inactive. Where none is, the first
// one counts as active unwritten.
void c_SeznamSablonOffice::KeepOneActive() {
  if (templates_.empty()) return;
  const auto isActive = [](const Template& each) { return each->Active(); };
  const auto first = std::find_if(templates_.begin(), templates_.end(), isActive);
  if (first == templates_.end()) {
    templates_.front()->Active(true);
    return;
  }
  if (std::none_of(first + 1, templates_.end(), isActive)) return;
  platform_.registry.Change([&] {
    for (const Template& each : templates_) {
      if (each == *first) continue;
      each->Active(false);
      each->SaveActive();
    }
  });
}

const c_SeznamSablonOffice::Template& c_SeznamSablonOffice::At(std::int64_t position) const {
  if (position < 1 || position > Count()) Raise(RuntimeError::kSubscriptOutOfRange);
  return templates_[static_cast<std::size_t>(position - 1)];
}

const c_SeznamSablonOffice::Template& c_SeznamSablonOffice::Item(std::int32_t index) const {
  return At(index);
}

const c_SeznamSablonOffice::Template& c_SeznamSablonOffice::Item(TextView name) const {
  const auto found = std::find_if(templates_.begin(), templates_.end(),
                                  [&](const Template& each) { return EqualsIgnoringCase(each->StoredName(), name); });
  if (found == templates_.end()) Raise(RuntimeError::kInvalidCall);
  return *found;
}

// Before a position of the list, else at its end.
void c_SeznamSablonOffice::Insert(Template inserted, std::int64_t before) {
  const bool inside = before >= 1 && before <= Count();
  templates_.insert(inside ? templates_.begin() + static_cast<std::ptrdiff_t>(before - 1) : templates_.end(),
                    std::move(inserted));
}

void c_SeznamSablonOffice::Reinsert(const c_SablonaOffice& moved) {
  const auto found =
      std::find_if(templates_.begin(), templates_.end(), [&](const Template& each) { return each.get() == &moved; });
  if (found == templates_.end()) Raise(RuntimeError::kInvalidCall);
  Template taken = std::move(*found);
  templates_.erase(found);
  Insert(std::move(taken), moved.key());
}

c_SeznamSablonOffice::Template c_SeznamSablonOffice::AddNewItem(std::int32_t Index) {
  constexpr std::int32_t kLast = std::numeric_limits<std::int32_t>::max();
  if (Index == kLast) Raise(RuntimeError::kOverflow);
  const std::int32_t position = Index + 1;
  for (const Template& each : templates_) {
    if (each->key() >= position && each->key() < kLast) each->key(each->key() + 1);
  }
  const auto added = std::make_shared<c_SablonaOffice>(platform_, key_, *this);
  added->key(position);
  Insert(added, position);
  return added;
}

void c_SeznamSablonOffice::KillItem(std::int32_t Index) {
  const std::int64_t position = std::int64_t{Index} + 1;
  const Template killed = At(position);
  killed->DeleteKey();
  killed->Parent(nullptr);
  templates_.erase(templates_.begin() + Index);
  for (const Template& each : templates_) {
    if (each->key() > position) each->key(each->key() - 1);
  }
}

void c_SeznamSablonOffice::MoveUp(std::int32_t Index) {
  if (Index < 2 || Index > Count()) return;
  const auto moved = templates_.begin() + (Index - 1);
  std::iter_swap(moved - 1, moved);
  At(Index - 1)->key(Index - 1);
  At(Index)->key(Index);
}

void c_SeznamSablonOffice::MoveDown(std::int32_t Index) {
  if (Index >= 1 && Index < Count()) MoveUp(Index + 1);
}

void c_SeznamSablonOffice::SaveKeys() {
  if (templates_.empty()) return;
  platform_.registry.Change([&] {
    for (const Template& each : templates_) each->SaveKey();
  });
}

std::int16_t c_SeznamSablonOffice::IndexOfActive() const {
  const auto found =
      std::find_if(templates_.begin(), templates_.end(), [](const Template& each) { return each->Active(); });
  if (found == templates_.end()) return 1;
  const auto index = found - templates_.begin() + 1;
  if (index > std::numeric_limits<std::int16_t>::max()) Raise(RuntimeError::kOverflow);
  return static_cast<std::int16_t>(index);
}

void c_SeznamSablonOffice::SetActive(std::int16_t& Index) {
  if (templates_.empty()) return;
  if (Index < 1 || Index > Count()) Index = 1;
  std::vector<c_SablonaOffice*> changed;
  for (std::int64_t each = 1; each <= Count(); ++each) {
    c_SablonaOffice& candidate = *At(each);
    if (candidate.Active() == (each == Index)) continue;
    candidate.Active(each == Index);
    changed.push_back(&candidate);
  }
  if (changed.empty()) return;
  platform_.registry.Change([&] {
    for (c_SablonaOffice* each : changed) each->SaveActive();
  });
}

bool c_SeznamSablonOffice::SupplyFromFile() {
  failure_.reset();
  return Supply();
}

bool c_SeznamSablonOffice::Supply() {
  return Trapped(kSupply, [&] {
    key_.OpenOrCreate(platform_.registry);
    const Text path = BuildPath(platform_.files, supplyFolder_, kSupplyFileName);
    if (!platform_.files.FileExists(path)) {
      platform_.userInterface.Show({.text = Text(kNoSupplyFile), .title = u"Chyba", .icon = MessageIcon::kExclamation});
      return false;
    }
    RegisterAll(
        ReadSupplyFile(platform_, path, {.list = key_, .application = typeOfApplOffice_, .defaultPath = defaultPath_}));
    return true;
  });
}

// All as one change: the list and the registry get all that can be registered, or nothing.
void c_SeznamSablonOffice::RegisterAll(const std::vector<SuppliedTemplate>& supplied) {
  if (supplied.empty()) return;
  const std::size_t countBefore = templates_.size();
  try {
    platform_.registry.Change([&] {
      for (const SuppliedTemplate& each : supplied) Register(each);
    });
  } catch (...) {
    templates_.resize(countBefore);
    throw;
  }
}

void c_SeznamSablonOffice::Register(const SuppliedTemplate& supplied) {
  const Template added = AddNewItem(Count());
  bool saved = false;
  try {
    added->description(supplied.description);
    added->Id(supplied.id);
    added->name(supplied.fileName);
    added->Path(supplied.folder);
    saved = added->Save(false);
  } catch (const Error& error) {
    LogSkippedLine(platform_, supplied.line, error.description());
  }
  if (!saved) KillItem(Count() - 1);
}

bool SupplyTemplateList(const Platform& platform, TextView rsZorApl, ApplOffice typeOfApplOffice, Text& rsListName) {
  c_SeznamSablonOffice list(platform);
  list.TypeOfApplOffice(typeOfApplOffice);
  const bool filled = list.Fill({.ZorAplName = Text(rsZorApl), .listName = rsListName});
  rsListName = list.ListName();
  return filled && list.SupplyFromFile();
}

}  // namespace zorkanca
