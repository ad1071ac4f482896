// The part xl/sharedStrings.xml: texts that cells refer to by number.
//
// Texts of the file stay as they are, rich ones too. New ones are added behind them while sheets are written. A text
// that repeats is worth sharing; a column of texts that hardly ever repeat keeps them in its cells, so that a sheet of
// any length needs no more memory than the table below may have.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "opc/part_sink.h"
#include "opc/xml_document.h"

namespace zorkanca::excel {

/// The texts of the file.
class SharedStrings {
 public:
  /// None at all.
  SharedStrings() = default;
  /// Errors: 5 for what is no sound table of texts.
  SharedStrings(std::string xml, const XmlSource& source);

  std::size_t size() const { return items_.size(); }
  /// The characters of a text, runs of different formats joined, phonetic hints left out. UTF-8.
  std::string TextOf(std::size_t index) const;
  /// References that the file counted; nothing when it didn't say.
  std::optional<std::uint64_t> count() const { return count_; }

 private:
  friend class TextTable;

  std::string xml_;
  std::string prefix_;
  struct Item {
    std::uint32_t begin = 0;
    std::uint32_t end = 0;
  };
  std::vector<Item> items_;  // whole elements
  std::size_t rootEnd_ = 0;  // of its start tag, without the mark of an empty element
  std::size_t itemsEnd_ = 0;
  std::string rootAttributes_;
  std::optional<std::uint64_t> count_;
};

/// Texts added during one saving.
class TextTable {
 public:
  explicit TextTable(const SharedStrings& existing, std::size_t memoryLimit = 24 * 1024 * 1024);

  /// The number of a text, or nothing when it is to stand in its cell.
  std::optional<std::uint32_t> Share(std::int32_t column, std::string_view utf8);

  bool changed() const { return !places_.empty(); }
  /// Writes the whole part.
  /// @param references  cells that refer to texts, new and old
  /// @param uri         namespace of the part when there was none
  void Write(PartSink& sink, std::uint64_t references, std::string_view uri) const;

 private:
  struct Place {
    std::uint32_t offset = 0;
    std::uint32_t length = 0;
  };
  struct Column {
    std::uint32_t seen = 0;
    std::uint32_t repeated = 0;
    bool keeps = false;
  };

  std::string_view TextAt(std::uint32_t number) const;
  void Grow();

  const SharedStrings& existing_;
  std::size_t memoryLimit_;
  std::string texts_;
  std::vector<Place> places_;
  std::vector<std::uint32_t> slots_;  // number + 1 of a text, open addressing
  std::vector<std::uint32_t> hashes_;
  std::vector<Column> columns_;
};

}  // namespace zorkanca::excel
