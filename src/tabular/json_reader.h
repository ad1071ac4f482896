// The records of a JSON file: an array of objects, or objects one after the other, as its first character tells.
#pragma once

#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

#include "tabular/column_names.h"
#include "tabular/file_fault.h"
#include "tabular/json_parser.h"
#include "tabular/table_reader.h"
#include "tabular/text_window.h"

namespace zorkanca {

/// Columns are all names of all objects, in the order of their first appearance; what an object lacks is Null.
class JsonReader final : public TableReader, private JsonFaults {
 public:
  explicit JsonReader(Utf8Input input);
  JsonReader(const JsonReader&) = delete;
  JsonReader& operator=(const JsonReader&) = delete;

  void Restart() override;
  bool Next(std::vector<Cell>& cells) override;
  const std::vector<std::string>& ColumnNames() const override { return names_.names(); }
  Error Fault(std::size_t column, std::int32_t number, const Text& reason) const override;

 private:
  enum class Form : std::uint8_t { kUnknown, kArray, kLines };

  struct NameHash {
    using is_transparent = void;
    std::size_t operator()(std::string_view name) const { return std::hash<std::string_view>()(name); }
  };

  Error FaultIn(std::size_t offset, const Text& reason) const override;
  [[noreturn]] void FailAt(std::size_t offset, const Text& reason) const { throw FaultIn(offset, reason); }
  FilePlace PlaceOf(std::size_t offset) const;
  void Skip(std::size_t count);
  int Peek();
  bool GoToRecord();
  bool GoToRecordOfArray();
  std::string_view Object();
  std::size_t ColumnOf(const JsonMember& member, std::size_t expected);

  Utf8Input input_;
  TextWindow window_;
  JsonParser parser_;
  Form form_ = Form::kUnknown;
  bool isFirst_ = true;
  std::int64_t line_ = 1;       // of the first character of the window
  std::int64_t character_ = 1;  // in that line
  std::size_t scanned_ = 0;     // length of the record in hand

  zorkanca::ColumnNames names_;
  std::vector<std::string> keys_;  // the columns as the file names them
  std::unordered_map<std::string, std::size_t, NameHash, std::equal_to<>> columnsByKey_;
  std::int64_t record_ = 0;
  std::vector<std::int64_t> lastRecords_;  // by column: the last record that has it
  std::vector<std::size_t> offsets_;       // by column: of its value in that record
};

}  // namespace zorkanca
