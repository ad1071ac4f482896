#include "export/column_names.h"

#include <algorithm>
#include <unordered_set>
#include <vector>

#include "export/export_failure.h"
#include "export/prepared_file.h"
#include "export/quoting.h"
#include "runtime/ascii.h"
#include "runtime/error.h"

namespace zorkanca {

namespace {

struct SelectItem {
  Text name;
  Text qualifier;  // table alias, empty without one
};

// The text of the SELECT list: what stands between "select" and "from".
TextView SelectList(TextView statement) {
  constexpr TextView kSelect = u"select";
  const std::size_t select = statement.find(kSelect);
  // The scan has always skipped five characters of a statement without "select".
  const std::size_t start = select == TextView::npos ? kSelect.size() - 1 : select + kSelect.size();
  TextView list = Trim(statement.substr(std::min(start, statement.size())));
  const std::size_t from = list.find(u"from");
  if (from == TextView::npos) Raise(RuntimeError::kInvalidCall);
  return Trim(list.substr(0, from));
}

// Every 'literal' becomes X, so that its commas split nothing; an apostrophe without a partner stays.
Text WithoutLiterals(TextView list) {
  Text result;
  std::size_t start = 0;
  for (std::size_t open = list.find(u'\''); open != TextView::npos; open = list.find(u'\'', start)) {
    const std::size_t close = list.find(u'\'', open + 1);
    if (close == TextView::npos) break;
    result.append(list, start, open - start);
    result.resize(TrimRight(result).size());
    result.push_back(u'X');
    start = close + 1;
  }
  return result.append(list, start);
}

SelectItem ReadItem(TextView item) {
  constexpr TextView kAs = u" as ";
  if (const std::size_t as = item.find(kAs); as != TextView::npos) {
    return {.name = Text(Trim(item.substr(as + kAs.size()))), .qualifier = Text()};
  }
  if (const std::size_t dot = item.find(u'.'); dot != TextView::npos) {
    return {.name = Text(Trim(item.substr(dot + 1))), .qualifier = Text(Trim(item.substr(0, dot)))};
  }
  return {.name = Text(item), .qualifier = Text()};
}

bool HasEqualNames(const std::vector<SelectItem>& items) {
  std::unordered_set<TextView> seen;
  return !std::all_of(items.begin(), items.end(),
                      [&](const SelectItem& item) { return seen.insert(item.name).second; });
}

void TellApart(SelectItem& first, SelectItem& second) {
  first.name.append(u"_1");
  second.name.append(u"_2");
}

// First pass over a pair of equal names: the qualifiers tell them apart, or the numbers 1 and 2.
void Qualify(SelectItem& first, SelectItem& second) {
  if (first.qualifier.empty() && second.qualifier.empty()) TellApart(first, second);
  if (!first.qualifier.empty()) first.name = first.qualifier + u"_" + first.name;
  if (!second.qualifier.empty()) second.name = second.qualifier + u"_" + second.name;
}

// Second pass: an equal name that already carries a number lends the next one to its twin.
void Number(SelectItem& first, SelectItem& second) {
  const Text& name = first.name;
  const std::size_t length = name.size();
  const bool numbered = length >= 2 && name[length - 2] == u'_' && IsDigit(name[length - 1]);
  if (!numbered) return TellApart(first, second);
  const int next = name[length - 1] - u'0' + 1;
  second.name.pop_back();
  AppendDecimal(second.name, next);
}

template <typename Change>
void ForEqualPairs(std::vector<SelectItem>& items, Change change) {
  for (std::size_t first = 0; first < items.size(); ++first) {
    for (std::size_t second = first + 1; second < items.size(); ++second) {
      if (items[first].name == items[second].name) change(items[first], items[second]);
    }
  }
}

// The two passes compare each pair once with the names as they stand by then; clients know the names that come of it.
void MakeNamesDistinct(std::vector<SelectItem>& items) {
  if (!HasEqualNames(items)) return;
  ForEqualPairs(items, Qualify);
  ForEqualPairs(items, Number);
}

}  // namespace

ColumnNameSource ChooseColumnNames(TextView select, Text& rsFieldNames, bool preferFields) {
  if (!IsBlank(rsFieldNames)) return ColumnNameSource::kFieldList;
  if (preferFields || select.find(u" * ") != TextView::npos) return ColumnNameSource::kFieldNames;
  rsFieldNames = ColumnCaptionsFromSelect(select, TextView(&kExportSeparator, 1));
  if (rsFieldNames.empty()) StopExport(kNoColumnNames);
  return ColumnNameSource::kFieldList;
}

Text ColumnCaptionsFromSelect(TextView select, TextView separator) {
  const Text statement = LowerCase(Trim(select));
  const Text list = WithoutLiterals(SelectList(statement));
  std::vector<SelectItem> items;
  for (const TextView item : Split(list, u',')) items.push_back(ReadItem(Trim(item)));
  MakeNamesDistinct(items);

  Text captions;
  for (const SelectItem& item : items) captions.append(item.name).append(separator);
  captions.resize(captions.size() - separator.size());
  return captions;
}

std::vector<Text> FieldNames(Recordset& recordset) {
  std::vector<Text> names;
  for (std::int32_t index = 0; index < recordset.FieldCount(); ++index)
    names.push_back(recordset.FieldAt(index).Name());
  return names;
}

Text FieldNameHeader(Recordset& recordset, bool quotes) {
  if (!quotes) return Join(FieldNames(recordset), TextView(&kExportSeparator, 1));
  Text header;
  for (const Text& name : FieldNames(recordset)) {
    if (!header.empty()) header.push_back(kExportSeparator);
    AppendQuotedValue(header, name);
  }
  return header;
}

std::vector<Text> ColumnNamesOf(ColumnNameSource source, TextView rsFieldNames, Recordset& recordset) {
  if (source == ColumnNameSource::kFieldNames) return FieldNames(recordset);
  std::vector<Text> names;
  SplitColumnsFromDataRow(rsFieldNames, names);
  for (Text& name : names) name = Text(Trim(name));
  return names;
}

std::int16_t IndexOfName(TextView name, std::span<const Text> names) {
  const TextView wanted = Trim(name);
  const auto found = std::find_if(names.begin(), names.end(),
                                  [&](const Text& candidate) { return EqualsIgnoringCase(Trim(candidate), wanted); });
  return found == names.end() ? std::int16_t{-1} : static_cast<std::int16_t>(found - names.begin());
}

}  // namespace zorkanca
