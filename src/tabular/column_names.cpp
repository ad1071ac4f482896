#include "tabular/column_names.h"

#include "runtime/utf8.h"

namespace zorkanca {

namespace {

bool IsBlankName(const std::string& name) {
  return name.find_first_not_of(" \t\r\n") == std::string::npos;
}

}  // namespace

Text ColumnNames::KeyOf(const std::string& name) {
  return LowerCase(FromUtf8(name));
}

std::string ColumnNames::Mended(const std::string& name) {
  const std::string start = IsBlankName(name) ? "column" + std::to_string(names_.size() + 1) : name;
  if (Take(start)) return start;
  for (int number = 2;; ++number) {
    std::string numbered = start + "_" + std::to_string(number);
    if (Take(numbered)) return numbered;
  }
}

void ColumnNames::Add(const std::string& name) {
  names_.push_back(Mended(name));
}

void ColumnNames::Add(const std::vector<std::string>& names) {
  std::vector<bool> isFirst;
  for (const std::string& name : names) isFirst.push_back(!IsBlankName(name) && Take(name));
  for (std::size_t index = 0; index < names.size(); ++index) {
    names_.push_back(isFirst[index] ? names[index] : Mended(names[index]));
  }
}

}  // namespace zorkanca
