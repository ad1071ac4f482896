// Puts a sheet's rows together from its file and its layers.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "excel/sheet/sheet_model.h"

namespace zorkanca::excel {

class RowComposer {
 public:
  /// @param model  outlives the composer and does not change meanwhile
  explicit RowComposer(const SheetModel& model);

  /// Goes to the next row that has anything. @return false behind the last one
  bool Next();
  /// Goes to a row, before the first one with 0.
  void Seek(std::int32_t row) { row_ = row; }
  std::int32_t number() const { return row_; }
  /// The row as the file has it, when nothing was laid over it and it needs no change.
  std::optional<std::string_view> Untouched() const;
  /// Puts the current row together. The view lives until the next call.
  const RowView& Compose();
  /// Puts any row together; ascending order is cheap.
  const RowView& Compose(std::int32_t row) {
    row_ = row;
    return Compose();
  }

 private:
  // What stays with a layer while rows are composed.
  struct LayerState {
    std::unique_ptr<CellSource::Cursor> cursor = {};
    std::vector<std::pair<std::uint32_t, std::uint32_t>> styles = {};  // of a change of formats: from, to
  };

  std::int32_t NextOf(const Layer& layer, std::int32_t after) const;
  const SheetPart::RowEntry* FileRow(std::int32_t row) const;
  void Apply(const ContentsLayer& layer, LayerState& state);
  void Apply(const CellFormatLayer& layer, LayerState& state);
  void Apply(const EditsLayer& layer);
  void Put(const Content& content, const ContentsLayer& layer, std::int32_t column, const CellView* below);
  std::uint32_t StyleBelow(std::int32_t column);
  static std::uint32_t Changed(const SheetModel& model, const CellFormatLayer& layer, LayerState& state,
                               std::uint32_t style);
  std::uint32_t StyleOfContent(ContentFormat format, const CellSource& source);
  std::uint32_t Quoted(std::uint32_t style);
  std::string_view DateText(const Content& content);

  const SheetModel& model_;
  std::vector<LayerState> states_;
  std::int32_t row_ = 0;
  std::size_t layer_ = 0;  // that is being applied
  RowView view_;
  std::vector<CellView> merged_;
  std::vector<std::int64_t> contentStyles_;  // by ContentFormat; -1 while unknown
  std::vector<std::pair<std::uint32_t, std::uint32_t>> quoted_;
  std::vector<std::unique_ptr<std::string>> texts_;  // made for this row
};

}  // namespace zorkanca::excel
