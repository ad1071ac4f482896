// Names of the documents of a folder.
#pragma once

#include <functional>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "runtime/text.h"

namespace zorkanca::cli {

/// Numbers, or what --name makes of the columns of each record: "FAKTURA {cislo}".
class DocumentNames {
 public:
  /// The text of a column, by its name; nothing when there is no such column.
  using Columns = std::function<std::optional<Text>(TextView)>;

  /// @param pattern  of --name; empty for numbers. Errors: `UsageError` for a brace without its partner.
  explicit DocumentNames(const std::string& pattern);

  /// The columns in braces, in order.
  std::vector<Text> ColumnNames() const;

  /// Name of the document of a record, in at least four digits without a pattern. A character that a name cannot have
  /// becomes "_", a name that was given before gets " (2)" and so on; a name without anything becomes the number.
  /// @param extension  with its point
  /// Errors: 3265 for a column that there is not.
  Text NameOf(std::int64_t number, const Columns& columns, TextView extension);

 private:
  Text Filled(const Columns& columns) const;

  Text pattern_;
  std::set<Text> given_;  // in small letters
};

}  // namespace zorkanca::cli
