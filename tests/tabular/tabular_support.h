// Files of records for tests, and what a database makes of them.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "runtime/convert.h"
#include "runtime/locale.h"
#include "runtime/utf8.h"
#include "sqlite/sqlite_database.h"
#include "support/temporary_folder.h"
#include "support/text_support.h"
#include "tabular/file_tables.h"

namespace zorkanca::testing {

/// One file, loaded beside nothing else.
class LoadedFile {
 public:
  /// @param name  of the file; its extension is the format
  LoadedFile(const std::string& name, const std::string& bytes) : table_{.path = folder_.Path(name)} {
    folder_.Write(name, bytes);
    if (name.ends_with("json")) table_.format = FileFormat::kJson;
    reading_.locale = FindLocale(u"cs-CZ");
  }

  FileReading& reading() { return reading_; }
  FileTable& table() { return table_; }

  /// "id integer, kod text", then a line for each record: its values as texts of the locale, "-" for Null, "''" for an
  /// empty text.
  std::string Shown(const std::string& sql = "") {
    std::string shown;
    SqliteDatabase database{std::nullopt};
    database.BeforeFirstQuery([&](SqliteConnection& connection) {
      for (const auto& [path, name, columns] : LoadFileTables({table_}, reading_, connection)) {
        for (const auto& [column, type] : columns) shown += (shown.empty() ? "" : ", ") + column + " " + type;
      }
      return std::vector<Text>();
    });
    const std::string all = "SELECT * FROM \"" + table_.Name() + "\"";
    const auto records =
        database.OpenRecordset(FromUtf8(sql.empty() ? all : sql), RecordsetType::kDynaset, /*options=*/0);
    for (; !records->Eof(); records->MoveNext()) {
      for (std::int32_t column = 0; column < records->FieldCount(); ++column) {
        const Value& value = records->FieldAt(column).Value();
        std::string text = IsNull(value) ? "-" : ToUtf8(ToText(value, *reading_.locale));
        shown += (column == 0 ? "\n" : "|") + (text.empty() ? "''" : text);
      }
    }
    return shown;
  }

  /// The description of the error that loading raises, without the folder.
  std::string Fault() {
    const Error error = ErrorOf([&] { Shown(); });
    number_ = error.number();
    const std::string description = ToUtf8(error.description());
    const std::string folder = folder_.path() + "/";
    return description.starts_with(folder) ? description.substr(folder.size()) : description;
  }
  /// Its number.
  std::int32_t number() const { return number_; }

 private:
  TemporaryFolder folder_;
  FileTable table_;
  FileReading reading_;
  std::int32_t number_ = 0;
};

}  // namespace zorkanca::testing
