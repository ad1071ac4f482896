// Formulas that name columns of tables: Prodej[Cena], Prodej[[#This Row],[Cena]], in formulas of the table itself
// [Cena]. A "'" stands before the characters [ ] # ' @ of a name.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zorkanca::excel {

/// Columns of tables that got other names.
class TableRenames {
 public:
  void Add(std::string_view table, std::string_view oldName, std::string_view newName);
  bool empty() const { return renames_.empty(); }

  /// The formula with the new names, UTF-8. @param ownTable  the table that a formula without its name means
  std::string Renamed(std::string_view formula, std::string_view ownTable = {}) const;
  /// The same for a whole element of a file, attributes kept.
  std::string RenamedElement(std::string_view element) const;

 private:
  struct Rename {
    std::string table;
    std::string oldName;
    std::string newName;
  };

  void AppendGroup(std::string& result, std::string_view group, std::string_view table) const;
  void AppendName(std::string& result, std::string_view written, std::string_view table) const;

  std::vector<Rename> renames_;
};

}  // namespace zorkanca::excel
