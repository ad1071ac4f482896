#include "tabular/file_tables.h"

#include <memory>
#include <utility>

#include "runtime/error.h"
#include "runtime/utf8.h"
#include "sqlite/sqlite_table_writer.h"
#include "tabular/column_profile.h"
#include "tabular/column_writer.h"
#include "tabular/csv_reader.h"
#include "tabular/file_fault.h"
#include "tabular/json_reader.h"

namespace zorkanca {

namespace {

constexpr std::int32_t kTableExists = 3010;

std::unique_ptr<TableReader> Open(const FileTable& table, const FileReading& reading) {
  Utf8Input input(table.path, reading.withoutMark, *reading.locale->codePage);
  if (table.format == FileFormat::kJson) return std::make_unique<JsonReader>(std::move(input));
  return std::make_unique<CsvReader>(std::move(input), table.separator);
}

std::optional<FieldType> SettledType(const SqliteColumnTypes& types, const std::string& column) {
  const Text name = FromUtf8(column);
  std::optional<FieldType> settled;
  for (const auto& [each, type] : types) {
    if (EqualsIgnoringCase(each, name)) settled = type;
  }
  return settled;
}

const char16_t* WordOfSettled(FieldType type) {
  switch (type) {
    case FieldType::kBoolean:
      return u"boolean";
    case FieldType::kLong:
      return u"integer";
    case FieldType::kCurrency:
      return u"currency";
    case FieldType::kDouble:
      return u"double";
    default:
      return u"date";
  }
}

// Enough of a value to know it by.
Text Excerpt(std::string_view text) {
  constexpr std::size_t kLongest = 40;
  const Text whole = FromUtf8(text.substr(0, 4 * kLongest));
  return whole.size() <= kLongest ? whole : whole.substr(0, kLongest) + u"…";
}

// One file on its way into its table.
class Loading {
 public:
  Loading(const FileTable& table, const FileReading& reading, const ValueForms& forms)
      : reading_(reading), forms_(forms), reader_(Open(table, reading)) {}

  void FindTypes() {
    while (Next()) {
      AddProfiles();
      for (std::size_t column = 0; column < cells_.size(); ++column) {
        if (!profiles_[column].Add(cells_[column])) FailType(column);
      }
    }
    AddProfiles();  // of a table without records
    for (const ColumnProfile& profile : profiles_) plans_.push_back(profile.Plan());
  }

  std::vector<LoadedTable::Column> Load(const std::string& name, SqliteConnection& connection) {
    std::vector<SqliteTableColumn> declared;
    std::vector<ColumnWriter> writers;
    std::vector<LoadedTable::Column> columns;
    for (std::size_t column = 0; column < plans_.size(); ++column) {
      const std::string& columnName = reader_->ColumnNames()[column];
      declared.push_back({.name = columnName, .declaration = DeclarationOf(plans_[column].type)});
      columns.push_back({.name = columnName, .type = WordOf(plans_[column].type)});
      writers.emplace_back(forms_, plans_[column], static_cast<int>(column));
    }
    SqliteTableWriter table(connection, name, declared);
    for (reader_->Restart(); Next(); table.AddRow()) {
      for (std::size_t column = 0; column < cells_.size(); ++column) {
        if (column < writers.size() && writers[column].Write(cells_[column], table)) continue;
        throw reader_->Fault(column, kUnexpectedFormat, u"the file was changed while it was read");
      }
    }
    table.Finish();
    return columns;
  }

 private:
  void AddProfiles() {
    const std::vector<std::string>& names = reader_->ColumnNames();
    for (std::size_t column = profiles_.size(); column < names.size(); ++column) {
      profiles_.emplace_back(forms_, SettledType(reading_.types, names[column]));
    }
  }

  bool Next() {
    if (reading_.interrupted != nullptr && *reading_.interrupted) Raise(RuntimeError::kUserInterrupt);
    return reader_->Next(cells_);
  }

  [[noreturn]] void FailType(std::size_t column) const {
    const std::string& name = reader_->ColumnNames()[column];
    const FieldType type = SettledType(reading_.types, name).value_or(FieldType::kText);
    throw reader_->Fault(column, static_cast<std::int32_t>(RuntimeError::kTypeMismatch),
                         u"\"" + Excerpt(cells_[column].text) + u"\" is no value of --type " + FromUtf8(name) + u"=" +
                             WordOfSettled(type));
  }

  const FileReading& reading_;
  const ValueForms& forms_;
  std::unique_ptr<TableReader> reader_;
  std::vector<Cell> cells_;
  std::vector<ColumnProfile> profiles_;
  std::vector<ColumnPlan> plans_;
};

void RequireNewName(const std::vector<LoadedTable>& loaded, const FileTable& table, SqliteConnection& connection) {
  const std::string name = table.Name();
  const auto refuse = [&](const Text& other) {
    throw Error(kTableExists, u"",
                u"There would be two tables of the name \"" + FromUtf8(name) + u"\": " + other + u" and " +
                    FromUtf8(table.path));
  };
  for (const LoadedTable& each : loaded) {
    if (EqualsIgnoringCase(FromUtf8(each.name), FromUtf8(name))) refuse(FromUtf8(each.path));
  }
  if (HasSqliteTable(connection, name)) refuse(u"that of the database");
}

}  // namespace

std::string FileTable::Name() const {
  const std::size_t slash = path.rfind('/');
  const std::string file = slash == std::string::npos ? path : path.substr(slash + 1);
  const std::size_t point = file.rfind('.');
  return point == std::string::npos || point == 0 ? file : file.substr(0, point);
}

std::vector<LoadedTable> LoadFileTables(const std::vector<FileTable>& tables, const FileReading& reading,
                                        SqliteConnection& connection) {
  const ValueForms forms(*reading.locale);
  std::vector<LoadedTable> loaded;
  for (const FileTable& table : tables) {
    RequireNewName(loaded, table, connection);
    Loading loading(table, reading, forms);
    loading.FindTypes();
    loaded.push_back({.path = table.path, .name = table.Name(), .columns = loading.Load(table.Name(), connection)});
  }
  return loaded;
}

}  // namespace zorkanca
