// The formula of a field { = formula } (ECMA-376 part 1, 17.16.3), evaluated from its text, in which the fields inside
// have given way to their results:
//
//   formula    sum { = | <> | < | <= | > | >=  sum }     comparisons give 1 or 0
//   sum        product { + | -  product }
//   product    power { * | /  power }
//   power      signed { ^ signed }                       from the left; a sign binds closer: -2^2 is 4
//   signed     { + | - } operand { % }
//   operand    number | ( formula ) | function | cell | name
//   number     digits and the locale's decimal separator, "." too where it groups no digits; between groups of three
//              the locale's group separator or a blank; the locale's currency symbol, $, € or £ round it
//   function   ABS(x) AND(x;y...) AVERAGE(list) COUNT(list) DEFINED(x) IF(x;y;z) INT(x) MAX(list) MIN(list) MOD(x;y)
//              NOT(x) OR(x;y...) PRODUCT(list) ROUND(x;decimals) SIGN(x) SUM(list)
//   list       any number of formulas, cells and ranges; or one of ABOVE, BELOW, LEFT, RIGHT
//   separator  of arguments: ; or a comma that is no decimal separator between digits
//   cell       B3 or R3C2, of the table around; TABLE B3 of the one that the bookmark TABLE marks
//   range      A1:B3, B:B, 2:2, R1C1:R3C2
//   name       TRUE, FALSE; a bookmark or a variable: the number in its text
//
// Case does not count. Cells are counted within their row, whatever they span. A cell's number is the one in its text;
// in lists cells without any are passed over. ABOVE and its kin end before a cell without a number; only the nearest
// one may be blank.
#pragma once

#include <functional>
#include <optional>
#include <span>

#include "runtime/locale.h"
#include "runtime/text.h"

namespace zorkanca::word {

/// A table as formulas see it.
struct FormulaTable {
  std::span<const std::size_t> cells;  ///< how many each row has
  /// Rows and columns from 0.
  std::function<Text(std::size_t row, std::size_t column)> textOf;
};

/// What a formula may refer to.
struct FormulaContext {
  const FormulaTable* table = nullptr;  ///< around the field
  std::size_t row = 0;                  ///< of the field's cell, from 0
  std::size_t column = 0;
  /// The text of a bookmark or a variable; nothing where there is none of that name.
  std::function<std::optional<Text>(TextView name)> textOfName;
  /// The table that a bookmark marks, or null.
  std::function<const FormulaTable*(TextView name)> tableOfName;
};

struct FormulaResult {
  double number = 0;
  Text error;  ///< what the field shows instead: "!Syntax Error, *", "!Zero Divide", "!Undefined Bookmark, X"
};

FormulaResult EvaluateFormula(TextView formula, const FormulaContext& context, const Locale& locale);

/// A result without picture: two decimals at the most.
Text FormulaNumberText(double number, const Locale& locale);

}  // namespace zorkanca::word
