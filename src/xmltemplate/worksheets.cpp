#include "xmltemplate/worksheets.h"

#include <algorithm>
#include <utility>

#include "runtime/error.h"

namespace zorkanca {

const WorksheetReference& cExcel2003XmlWorksheets::Add(Text name) {
  Text key = LowerCase(name);
  worksheets_.push_back(std::make_shared<cExcel2003XmlWorksheet>(std::move(name), *locale_));
  names_.try_emplace(std::move(key), worksheets_.back());
  return worksheets_.back();
}

const WorksheetReference& cExcel2003XmlWorksheets::Item(TextView vntIndexKey) const {
  const auto found = names_.find(LowerCase(vntIndexKey));
  if (found == names_.end()) Raise(RuntimeError::kInvalidCall);
  return found->second;
}

void cExcel2003XmlWorksheets::Remove(std::int32_t vntIndexKey) {
  const auto place = worksheets_.begin() + static_cast<std::ptrdiff_t>(OffsetOf(vntIndexKey));
  std::erase_if(names_, [&](const auto& entry) { return entry.second == *place; });
  worksheets_.erase(place);
}

void cExcel2003XmlWorksheets::Remove(TextView vntIndexKey) {
  const WorksheetReference worksheet = Item(vntIndexKey);
  names_.erase(LowerCase(vntIndexKey));
  worksheets_.erase(std::find(worksheets_.begin(), worksheets_.end(), worksheet));
}

std::size_t cExcel2003XmlWorksheets::OffsetOf(std::int32_t position) const {
  if (position < 1 || position > Count()) Raise(RuntimeError::kSubscriptOutOfRange);
  return static_cast<std::size_t>(position) - 1;
}

}  // namespace zorkanca
