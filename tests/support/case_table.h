// Tables of cases as tab-separated files: one case a line, run by one loop in a test.
#pragma once

#include <string>
#include <vector>

namespace zorkanca::testing {

/// One line of a table; cells are UTF-8 with the escapes \\ \t \n \r \uXXXX resolved.
struct CaseRow {
  int line = 0;  ///< from 1, for messages
  std::vector<std::string> cells;

  /// The cell, or "" beyond the end of a short line.
  const std::string& Cell(std::size_t index) const;
};

/// Reads a table below tests/, without its heading line, empty lines and lines that begin with "//".
/// The test fails when the file cannot be read or holds no case.
std::vector<CaseRow> ReadCaseTable(const std::string& pathBelowTests);

}  // namespace zorkanca::testing
