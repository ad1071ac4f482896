#include "export/template_check.h"

#include <algorithm>

#include "export/export_failure.h"
#include "export/template_reading.h"
#include "runtime/nearest_name.h"

namespace zorkanca {

namespace {

struct UseTexts {
  TemplateFieldKind kind;
  TextView none;
  TextView missing;
  TextView missingEnd;
};

// The engine that merges says the same of a merge field, in the same words.
constexpr UseTexts kMergeTexts = {TemplateFieldKind::kField,
                                  u"The template has no merge field, every record gives the same text: ",
                                  u"There is no column for the merge field ", u""};
constexpr UseTexts kFormTexts = {TemplateFieldKind::kForm,
                                 u"The template has no form field, every record gives the same text: ",
                                 u"There is no column for the form field ", u""};
constexpr UseTexts kCellTexts = {TemplateFieldKind::kCell,
                                 u"The first block of the template has no placeholder, no record will be seen: ",
                                 u"There is no column for the placeholder {", u"}"};

const UseTexts& TextsOf(TemplateUse use) {
  return use == TemplateUse::kMerge ? kMergeTexts : use == TemplateUse::kForm ? kFormTexts : kCellTexts;
}

bool HasColumn(std::span<const Text> columns, TextView name) {
  return std::any_of(columns.begin(), columns.end(),
                     [&](const Text& column) { return EqualsIgnoringCase(Trim(column), Trim(name)); });
}

// A name with blanks that nobody quoted is its first word to a merge, or all of them.
bool FillsMergeField(std::span<const Text> columns, TextView name) {
  if (HasColumn(columns, name) || HasColumn(columns, name.substr(0, name.find(u' ')))) return true;
  return std::any_of(columns.begin(), columns.end(),
                     [&](const Text& column) { return EqualsIgnoringCase(Replace(column, u" ", u"_"), name); });
}

bool FillsFormField(std::span<const Text> columns, TextView name) {
  if (HasColumn(columns, name)) return true;
  const std::size_t end = name.find_last_of(u'_');
  if (end == TextView::npos || end + 1 == name.size()) return false;
  const bool isNumber = name.find_first_not_of(u"0123456789", end + 1) == TextView::npos;
  return isNumber && HasColumn(columns, name.substr(0, end));
}

bool Fills(TemplateUse use, std::span<const Text> columns, TextView name) {
  switch (use) {
    case TemplateUse::kMerge:
      return FillsMergeField(columns, name);
    case TemplateUse::kForm:
      return FillsFormField(columns, name);
    default:
      return HasColumn(columns, name);
  }
}

}  // namespace

std::vector<Text> TemplateWarnings(TemplateUse use, std::span<const TemplateField> fields,
                                   std::span<const Text> columns, TextView path) {
  const UseTexts& texts = TextsOf(use);
  std::vector<Text> warnings;
  bool asks = false;
  for (const TemplateField& field : fields) {
    asks = asks || field.kind == texts.kind || field.kind == TemplateFieldKind::kBarcode;
    if (field.kind != texts.kind) continue;
    const auto same = std::count_if(columns.begin(), columns.end(), [&](const Text& column) {
      return EqualsIgnoringCase(Trim(column), Trim(field.name));
    });
    if (same > 1)
      warnings.push_back(u"There are " + DecimalText(same) + u" columns called " + field.name +
                         u"; the first one is taken.");
    if (Fills(use, columns, field.name)) continue;
    warnings.push_back(Text(texts.missing)
                           .append(field.name)
                           .append(texts.missingEnd)
                           .append(NearestHint(field.name, columns))
                           .append(u"."));
  }
  if (!asks) warnings.push_back(Text(texts.none).append(path));
  return warnings;
}

void TemplateCheck::Before(const TemplateArguments& arguments, std::span<const Text> columns) {
  if (!IsWanted()) return;
  columns_.assign(columns.begin(), columns.end());
  TemplateArguments looked = arguments;
  const ApplOffice kind = use_ == TemplateUse::kCells ? ApplOffice::MSExcel : ApplOffice::MSWord;
  const TemplateChoice choice(context_, kind, looked);
  choice.RequireExisting();
  if (choice.IsFile()) Check(looked.rsTemplate);
}

void TemplateCheck::Chosen(const Text& path) {
  if (IsWanted()) Check(path);
}

void TemplateCheck::Check(const Text& path) {
  done_ = true;
  const ApplOffice kind = use_ == TemplateUse::kCells ? ApplOffice::MSExcel : ApplOffice::MSWord;
  std::vector<TemplateField> fields;
  try {
    fields = ReadTemplateFields(context_.platform, kind, path);
  } catch (const Error&) {
    return;  // whoever fills it says in its own words what is wrong with it
  }
  const std::vector<Text> warnings = TemplateWarnings(use_, fields, columns_, path);
  for (const Text& warning : warnings) context_.Warn(warning);
  if (warnings.empty() || !context_.preferences.strict) return;
  StopExport(kTemplateDoesNotFit,
             Error(static_cast<std::int32_t>(RuntimeError::kInvalidCall), Text(), warnings.front()));
}

}  // namespace zorkanca
