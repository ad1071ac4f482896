// Runs a compiled template for one copy after the other.
#pragma once

#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "word/merge/data_source.h"
#include "word/merge/program.h"
#include "word/text/text_units.h"

namespace zorkanca::word {

/// What a copy is made of.
struct CopyStart {
  std::size_t copy = 0;    ///< number of the copy, from 0
  std::size_t record = 0;  ///< its first record, from 0
  bool last = false;       ///< no other copy follows
};

/// Which header part a copy refers to: relationship ids by header and copy.
class HeaderIds {
 public:
  virtual ~HeaderIds() = default;
  virtual std::string IdOf(std::size_t header, std::size_t copy) const = 0;
};

/// The records and the rules of a merge, as far as the steps need them. All outlive the runner.
struct MergeInput {
  const DataSource& source;
  const Locale& locale;
  std::size_t endRecord;               ///< behind the last record, from 0
  const HeaderIds* headers = nullptr;  ///< null while headers are not known: no ids are written
  std::function<bool()> cancelled{};   ///< asked before each copy; may be empty
  /// Told in English of fields that the records made impossible; may be empty.
  std::function<void(TextView)> warn{};
};

/// Where a copy ended.
struct CopyEnd {
  bool skipped = false;        ///< SKIPIF threw it away
  std::size_t nextRecord = 0;  ///< the record after the last one that it used
};

/// Errors of every run: 18 when cancelled.
class CopyRunner {
 public:
  explicit CopyRunner(MergeInput input) : input_(std::move(input)) {}

  /// Whose ids the copies refer to from now on; outlives the runner.
  void UseHeaders(const HeaderIds& headers) { input_.headers = &headers; }

  /// Appends the XML of a copy.
  CopyEnd AppendXml(const Program& program, const CopyStart& start, std::string& xml);
  /// Appends its text.
  CopyEnd AppendText(const Program& program, const CopyStart& start, Text& units);
  /// Only finds out where it ends.
  CopyEnd Skim(const Program& program, const CopyStart& start);

 private:
  // The texts of a table's cells, by row and column.
  using PassedCells = std::map<std::pair<std::size_t, std::size_t>, Text>;

  template <typename Output>
  friend class StepVisitor;

  template <typename Output>
  CopyEnd Run(const Program& program, const CopyStart& start, Output& output);
  void MoveTo(std::size_t record);
  Text TextOf(const Operand& operand);
  bool IsTrue(const Condition& condition);
  std::string_view Column(std::size_t column);
  std::string_view ValueOf(const ValueStep& step);
  Text FormulaText(const ValueStep& step);
  Text TextOfCell(const TableCells& table, std::size_t row, std::size_t column);
  void WarnOnce(const Text& warning);

  MergeInput input_;
  CopyStart start_;
  std::size_t record_ = 0;
  std::size_t read_ = static_cast<std::size_t>(-1);  // the record in values_
  RecordValues values_;
  std::map<Text, Text> variables_;
  std::set<Text> warned_;
  std::map<const TableCells*, PassedCells> passed_;  // of tables with formulas, in this copy
  Text* cell_ = nullptr;                             // takes the text of the cell that is being written
  std::string value_;
  bool skipped_ = false;
  std::size_t shown_ = 0;  // bytes of values written so far
};

}  // namespace zorkanca::word
