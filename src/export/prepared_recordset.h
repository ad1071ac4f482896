// The records of a prepared data file seen as a recordset, for what reads the current record of a query as well.
#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "export/prepared_file.h"
#include "platform/database.h"
#include "runtime/text.h"

namespace zorkanca {

/// One text column per name of the header. Names are looked up trimmed, case ignored; a value that the current line
/// lacks raises error 9.
class PreparedRecordset final : public Recordset {
 public:
  /// @param data  outlives this object
  PreparedRecordset(std::vector<Text> names, const PreparedData& data);

  /// Told of a line that lacks a value, with the number of those that it has, before error 9 is raised; may be empty.
  std::function<void(TextView line, std::size_t values)> onShortLine;

  /// The column of that name; null when the header has none.
  Field* Find(TextView name);

  bool Bof() const override { return data_.lines().empty(); }
  bool Eof() const override { return line_ >= data_.lines().size(); }
  void MoveFirst() override { MoveTo(0); }
  void MoveNext() override { MoveTo(line_ + 1); }
  void MoveLast() override { MoveTo(data_.lines().size() - 1); }
  std::int32_t RecordCount() const override { return static_cast<std::int32_t>(data_.lines().size()); }
  std::int32_t FieldCount() const override { return static_cast<std::int32_t>(fields_.size()); }
  Field& FieldAt(std::int32_t index) override;
  Field& FieldNamed(TextView name) override;
  void Close() override {}

 private:
  class Column;

  void MoveTo(std::size_t line);
  const Text& ValueAt(std::size_t column);

  std::vector<Text> names_;
  const PreparedData& data_;
  std::vector<std::unique_ptr<Field>> fields_;
  std::size_t line_ = 0;
  bool isSplit_ = false;      // the current line
  std::vector<Text> values_;  // of the current line, once it is split
};

}  // namespace zorkanca
