// Names of columns as a file gives them, mended where a table could not have them.
#pragma once

#include <set>
#include <string>
#include <vector>

#include "runtime/text.h"

namespace zorkanca {

class ColumnNames {
 public:
  /// Adds the next column: a blank name becomes "column3" of the third one, a name that another column has already,
  /// whatever its case, gets "_2", "_3" and so on.
  void Add(const std::string& name);
  /// Adds columns whose names are all known: a mended name then never takes one that the file gives.
  void Add(const std::vector<std::string>& names);

  const std::vector<std::string>& names() const { return names_; }

 private:
  bool Take(const std::string& name) { return taken_.insert(KeyOf(name)).second; }
  static Text KeyOf(const std::string& name);
  std::string Mended(const std::string& name);

  std::vector<std::string> names_;
  std::set<Text> taken_;
};

}  // namespace zorkanca
