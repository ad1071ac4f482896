// A compiled template: constant XML that is escaped already, and steps for what differs from copy to copy. One run of a
// program gives one copy, as XML or as text.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "runtime/text.h"
#include "word/fields/comparison.h"
#include "word/fields/field_format.h"

namespace zorkanca::word {

struct FormulaScope;
struct Step;
struct TableCells;
using Program = std::vector<Step>;

/// What is the same in every copy.
struct ConstantStep {
  std::string xml;
  Text units;  ///< what it adds to the text of the story
};

/// An argument of a field: its text is that of its program.
struct Operand {
  Program parts;
};

struct Condition {
  Operand left;
  Comparison comparison = Comparison::kEqual;
  Operand right;
};

/// A field's result as text.
struct ValueStep {
  enum class Source {
    kColumn,          ///< of the current record
    kNamedColumn,     ///< the column whose name is `argument`
    kRecordNumber,    ///< MERGEREC
    kSequenceNumber,  ///< MERGESEQ
    kVariable,        ///< REF to what a SET named `argument` set
    kArgument,        ///< `argument` itself
    kFormula,         ///< `argument` evaluated
  };
  Source source = Source::kColumn;
  std::size_t column = 0;
  Operand argument;
  Operand before;  ///< \b, \f: only round a value that is not empty
  Operand after;
  FieldFormat format;
  std::shared_ptr<const FormulaScope> scope;  ///< of a formula
  std::string open;                           ///< XML round the value; not written for an empty one
  std::string close;
  bool inText = true;   ///< adds to the text of the story
  bool inCode = false;  ///< in the code of another field: line ends are blanks
};

struct IfStep {
  Condition condition;
  Program whenTrue;
  Program whenFalse;
};

/// A paragraph that disappears when all of its fields are empty.
struct SuppressStep {
  Program content;
};

/// NEXT; with a condition NEXTIF.
struct NextStep {
  std::optional<Condition> condition;
};

struct SkipIfStep {
  Condition condition;
};

struct SetStep {
  Text name;
  Operand value;
};

/// A number that no two copies share: the first copy has the template's own.
struct NumberStep {
  std::int64_t original = 0;
  std::int64_t first = 0;   ///< of the second copy
  std::int64_t stride = 0;  ///< from copy to copy
};

/// A bookmark's name, made different in every copy but the first by the copy's number behind a stem.
struct NameStep {
  std::string name;
  std::string stem;
};
/// The name in a copy, from 0.
std::string NameInCopy(const NameStep& bookmark, std::size_t copy);

/// The relationship of a header or footer whose text differs from copy to copy.
struct HeaderStep {
  std::size_t header = 0;  ///< index among those
};

/// Two forms of the same content (mc:AlternateContent): both see the same records.
struct AlternateStep {
  Program choice;
  Program fallback;
};

/// What stands at the end of all copies but the last.
struct LastCopyStep {
  Program others;
  Program last;
};

/// A cell of a table with formulas, which may refer to it later on.
struct CellStep {
  std::shared_ptr<const TableCells> table;
  std::size_t row = 0;  ///< from 0
  std::size_t column = 0;
  Program content;
};

struct Step {
  std::variant<ConstantStep, ValueStep, IfStep, SuppressStep, NextStep, SkipIfStep, SetStep, NumberStep, NameStep,
               HeaderStep, AlternateStep, LastCopyStep, CellStep>
      action;
};

/// What a program does beside writing.
struct ProgramTraits {
  bool movesRecords = false;  ///< holds NEXT, NEXTIF or SKIPIF
  bool varies = false;        ///< holds anything but constants
};
ProgramTraits TraitsOf(const Program& program);

/// The text of an operand without fields.
Operand PlainOperand(TextView text);

}  // namespace zorkanca::word
