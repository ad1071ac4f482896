#include "support/case_table.h"

#include <gtest/gtest.h>

#include <sstream>

#include "runtime/utf8.h"
#include "support/file_text.h"

namespace zorkanca::testing {

namespace {

std::string Unescaped(const std::string& cell) {
  std::string result;
  for (std::size_t index = 0; index < cell.size(); ++index) {
    if (cell[index] != '\\' || index + 1 == cell.size()) {
      result.push_back(cell[index]);
      continue;
    }
    switch (const char code = cell[++index]) {
      case 't':
        result.push_back('\t');
        break;
      case 'n':
        result.push_back('\n');
        break;
      case 'r':
        result.push_back('\r');
        break;
      case 'u': {
        const auto unit = static_cast<char16_t>(std::stoul(cell.substr(index + 1, 4), nullptr, 16));
        AppendAsUtf8(result, TextView(&unit, 1));
        index += 4;
        break;
      }
      default:
        result.push_back(code);
    }
  }
  return result;
}

}  // namespace

const std::string& CaseRow::Cell(std::size_t index) const {
  static const std::string none;
  return index < cells.size() ? cells[index] : none;
}

std::vector<CaseRow> ReadCaseTable(const std::string& pathBelowTests) {
  std::istringstream file(ProjectFileText("tests/" + pathBelowTests));
  std::vector<CaseRow> rows;
  std::string line;
  for (int number = 1; std::getline(file, line); ++number) {
    if (number == 1 || line.empty() || line.starts_with("//")) continue;
    CaseRow row{.line = number, .cells = {}};
    std::size_t start = 0;
    for (std::size_t tab = line.find('\t'); tab != std::string::npos; tab = line.find('\t', start)) {
      row.cells.push_back(Unescaped(line.substr(start, tab - start)));
      start = tab + 1;
    }
    row.cells.push_back(Unescaped(line.substr(start)));
    rows.push_back(std::move(row));
  }
  EXPECT_FALSE(rows.empty()) << "no cases in tests/" << pathBelowTests;
  return rows;
}

}  // namespace zorkanca::testing
