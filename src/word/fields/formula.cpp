// Evaluated while it is read, by one function for each line of the grammar. The first error ends the reading. Arguments
// and brackets are cut out first and evaluated by themselves, so that IF and DEFINED may leave some of them alone;
// their depth is bounded.
#include "word/fields/formula.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numeric>

#include "runtime/decimal_digits.h"
#include "word/fields/formula_cells.h"
#include "word/fields/formula_numbers.h"

namespace zorkanca::word {

namespace {

constexpr int kDeepest = 50;
constexpr std::size_t kMostItems = 100'000;  // of a list

enum class Function {
  kAbs,
  kAnd,
  kAverage,
  kCount,
  kDefined,
  kIf,
  kInt,
  kMax,
  kMin,
  kMod,
  kNot,
  kOr,
  kProduct,
  kRound,
  kSign,
  kSum
};

struct FunctionEntry {
  TextView name;
  Function function;
  std::size_t least;
  std::size_t most;  // arguments
};

constexpr std::size_t kMany = 10'000;
constexpr std::array<FunctionEntry, 16> kFunctions = {{{u"ABS", Function::kAbs, 1, 1},
                                                       {u"AND", Function::kAnd, 2, kMany},
                                                       {u"AVERAGE", Function::kAverage, 1, kMany},
                                                       {u"COUNT", Function::kCount, 1, kMany},
                                                       {u"DEFINED", Function::kDefined, 1, 1},
                                                       {u"IF", Function::kIf, 3, 3},
                                                       {u"INT", Function::kInt, 1, 1},
                                                       {u"MAX", Function::kMax, 1, kMany},
                                                       {u"MIN", Function::kMin, 1, kMany},
                                                       {u"MOD", Function::kMod, 2, 2},
                                                       {u"NOT", Function::kNot, 1, 1},
                                                       {u"OR", Function::kOr, 2, kMany},
                                                       {u"PRODUCT", Function::kProduct, 1, kMany},
                                                       {u"ROUND", Function::kRound, 2, 2},
                                                       {u"SIGN", Function::kSign, 1, 1},
                                                       {u"SUM", Function::kSum, 1, kMany}}};

double Rounded(double number, double decimals) {
  DecimalDigits digits = DigitsOf(number);
  RoundToDecimals(digits, static_cast<std::int64_t>(std::clamp(decimals, -400.0, 400.0)),
                  RoundingMode::kHalfAwayFromZero);
  return NearestDouble(digits);
}

class Evaluator {
 public:
  Evaluator(TextView text, const FormulaContext& context, const Locale& locale, int depth)
      : text_(text), context_(context), locale_(locale), depth_(depth) {}

  FormulaResult Evaluate() {
    if (depth_ > kDeepest) return {0, u"!Syntax Error"};
    const double number = Comparison();
    SkipBlanks();
    if (error_.empty() && at_ < text_.size()) FailHere();
    if (error_.empty() && !std::isfinite(number)) Fail(u"!Syntax Error");
    return {error_.empty() ? number : 0, error_};
  }

 private:
  double Comparison() {
    double left = Sum();
    for (;;) {
      if (Take(u"<>")) {
        left = left != Sum();
      } else if (Take(u"<=")) {
        left = left <= Sum();
      } else if (Take(u">=")) {
        left = left >= Sum();
      } else if (Take(u"<")) {
        left = left < Sum();
      } else if (Take(u">")) {
        left = left > Sum();
      } else if (Take(u"=")) {
        left = left == Sum();
      } else {
        return left;
      }
    }
  }

  double Sum() {
    double left = Product();
    for (;;) {
      if (Take(u"+")) {
        left += Product();
      } else if (Take(u"-")) {
        left -= Product();
      } else {
        return left;
      }
    }
  }

  double Product() {
    double left = Power();
    for (;;) {
      if (Take(u"*")) {
        left *= Power();
      } else if (Take(u"/")) {
        const double divisor = Power();
        if (divisor == 0) return Fail(u"!Zero Divide");
        left /= divisor;
      } else {
        return left;
      }
    }
  }

  double Power() {
    double left = Signed();
    while (Take(u"^")) left = std::pow(left, Signed());
    return left;
  }

  double Signed() {
    bool negative = false;
    for (;;) {
      if (Take(u"-")) {
        negative = !negative;
      } else if (!Take(u"+")) {
        break;
      }
    }
    double value = Operand();
    while (Take(u"%")) value /= 100;
    return negative ? -value : value;
  }

  double Operand() {
    SkipCurrency();
    if (at_ == text_.size()) return Fail(u"!Syntax Error");
    if (text_[at_] == u'(') return Inside(Brackets());
    if (const std::size_t length = NumberLength(text_, at_, locale_)) {
      const double number = NumberAt(text_.substr(at_, length), locale_);
      at_ += length;
      SkipCurrency();
      return number;
    }
    return IsFormulaWordUnit(text_[at_]) ? Named() : FailHere();
  }

  double Named() {
    const TextView word = Word();
    const Text name = UpperCase(word);
    SkipBlanks();
    if (at_ < text_.size() && text_[at_] == u'(') return Call(name);
    if (name == u"TRUE" || name == u"FALSE") return name == u"TRUE";
    if (const auto cell = context_.table ? ReferenceOf(word, *context_.table) : std::nullopt) return Cell(*cell);
    if (const FormulaTable* table = context_.tableOfName(word)) {
      if (const auto cell = ReferenceOf(Word(), *table)) return Cell(*cell);
    }
    const std::optional<Text> text = context_.textOfName(word);
    if (!text) return Fail(u"!Undefined Bookmark, " + name);
    const std::optional<double> number = NumberInText(*text, locale_);
    if (!number && !TrimFormulaBlanks(*text).empty()) return Fail(u"!Syntax Error, " + name);
    return number.value_or(0);
  }

  double Cell(const CellRange& cell) {
    if (!cell.IsOneCell()) return Fail(u"!Syntax Error, :");
    return NumberInText(cell.table->textOf(cell.firstRow, cell.firstColumn), locale_).value_or(0);
  }

  double Call(const Text& name) {
    const auto found = std::find_if(kFunctions.begin(), kFunctions.end(),
                                    [&](const FunctionEntry& entry) { return entry.name == name; });
    if (found == kFunctions.end()) return Fail(u"!Syntax Error, " + name);
    const std::vector<TextView> arguments = Arguments(Brackets());
    if (!error_.empty()) return 0;
    if (arguments.size() < found->least || arguments.size() > found->most) return Fail(u"!Syntax Error, )");
    return Call(found->function, arguments);
  }

  double Call(Function function, const std::vector<TextView>& arguments) {
    const auto value = [&](std::size_t i) { return Inside(arguments[i]); };
    const auto isTrue = [&](TextView argument) { return Inside(argument) != 0; };
    switch (function) {
      case Function::kAbs:
        return std::fabs(value(0));
      case Function::kAnd:
        return std::all_of(arguments.begin(), arguments.end(), isTrue);
      case Function::kOr:
        return std::any_of(arguments.begin(), arguments.end(), isTrue);
      case Function::kNot:
        return value(0) == 0;
      case Function::kDefined:
        return Evaluator(arguments[0], context_, locale_, depth_ + 1).Evaluate().error.empty();
      case Function::kIf:
        return value(0) != 0 ? value(1) : value(2);
      case Function::kInt:
        return std::trunc(value(0));
      case Function::kMod: {
        const double divisor = value(1);
        return divisor == 0 ? Fail(u"!Zero Divide") : std::fmod(value(0), divisor);
      }
      case Function::kRound:
        return Rounded(value(0), std::trunc(value(1)));
      case Function::kSign: {
        const double number = value(0);
        return number > 0 ? 1 : number < 0 ? -1 : 0;
      }
      default:
        return OfList(function, List(arguments));
    }
  }

  double OfList(Function function, const std::vector<double>& list) {
    const double sum = std::accumulate(list.begin(), list.end(), 0.0);
    switch (function) {
      case Function::kAverage:
        return list.empty() ? Fail(u"!Zero Divide") : sum / static_cast<double>(list.size());
      case Function::kCount:
        return static_cast<double>(list.size());
      case Function::kMax:
        return list.empty() ? 0 : *std::max_element(list.begin(), list.end());
      case Function::kMin:
        return list.empty() ? 0 : *std::min_element(list.begin(), list.end());
      case Function::kProduct:
        return list.empty() ? 0 : std::accumulate(list.begin(), list.end(), 1.0, std::multiplies<>());
      default:
        return sum;
    }
  }

  std::vector<double> List(const std::vector<TextView>& arguments) {
    std::vector<double> list;
    for (const TextView argument : arguments) {
      if (const auto side = SideOf(argument); side && arguments.size() == 1) {
        if (!context_.table) {
          Fail(u"!The Formula Not In Table");
        } else {
          AppendSide(list, *side, context_, locale_);
        }
      } else if (const auto range = RangeOf(argument)) {
        AppendRange(list, *range, locale_);
      } else {
        list.push_back(Inside(argument));
      }
      if (list.size() > kMostItems) Fail(u"!Syntax Error");
      if (!error_.empty()) return {};
    }
    return list;
  }

  // Cells of the table around, or behind the name of another one.
  std::optional<CellRange> RangeOf(TextView argument) const {
    if (context_.table) {
      if (const auto range = ReferenceOf(argument, *context_.table)) return range;
    }
    const TextView trimmed = TrimFormulaBlanks(argument);
    const auto behind = std::find_if_not(trimmed.begin(), trimmed.end(), IsFormulaWordUnit);
    const auto length = static_cast<std::size_t>(behind - trimmed.begin());
    if (length == 0 || length == trimmed.size() || !IsFormulaBlank(*behind)) return std::nullopt;
    const FormulaTable* table = context_.tableOfName(trimmed.substr(0, length));
    return table ? ReferenceOf(trimmed.substr(length), *table) : std::nullopt;
  }

  double Inside(TextView part) {
    if (!error_.empty()) return 0;
    const FormulaResult result = Evaluator(part, context_, locale_, depth_ + 1).Evaluate();
    return result.error.empty() ? result.number : Fail(result.error);
  }

  // What stands between the bracket here and the one that closes it, which are passed.
  TextView Brackets() {
    std::size_t open = 0;
    const std::size_t start = at_ + 1;
    for (; at_ < text_.size(); ++at_) {
      if (text_[at_] == u'(') ++open;
      if (text_[at_] == u')' && --open == 0) return text_.substr(start, at_++ - start);
    }
    Fail(u"!Syntax Error, )");
    return {};
  }

  std::vector<TextView> Arguments(TextView inside) const {
    std::vector<TextView> arguments;
    std::size_t start = 0;
    std::size_t open = 0;
    for (std::size_t i = 0; i < inside.size(); ++i) {
      if (inside[i] == u'(') ++open;
      if (inside[i] == u')') --open;
      if (open > 0 || !IsSeparator(inside, i)) continue;
      arguments.push_back(inside.substr(start, i - start));
      start = i + 1;
    }
    arguments.push_back(inside.substr(start));
    return arguments;
  }

  bool IsSeparator(TextView text, std::size_t i) const {
    if (text[i] == u';') return true;
    const auto digitAt = [&](std::size_t place) { return place < text.size() && IsFormulaDigit(text[place]); };
    return text[i] == u',' && !(locale_.decimalSeparator == u"," && i > 0 && digitAt(i - 1) && digitAt(i + 1));
  }

  TextView Word() {
    SkipBlanks();
    const std::size_t start = at_;
    while (at_ < text_.size() && IsFormulaWordUnit(text_[at_])) ++at_;
    return text_.substr(start, at_ - start);
  }

  bool Take(TextView sign) {
    SkipBlanks();
    if (text_.substr(at_, sign.size()) != sign) return false;
    at_ += sign.size();
    return true;
  }

  void SkipBlanks() {
    while (at_ < text_.size() && IsFormulaBlank(text_[at_])) ++at_;
  }

  void SkipCurrency() {
    for (;;) {
      SkipBlanks();
      const std::size_t length = CurrencyLength(text_.substr(at_), locale_);
      if (length == 0) return;
      at_ += length;
    }
  }

  double FailHere() { return Fail(Text(u"!Syntax Error, ") + text_[at_]); }
  double Fail(TextView error) {
    if (error_.empty()) error_ = error;
    at_ = text_.size();
    return 0;
  }

  TextView text_;
  const FormulaContext& context_;
  const Locale& locale_;
  int depth_;
  std::size_t at_ = 0;
  Text error_;
};

}  // namespace

FormulaResult EvaluateFormula(TextView formula, const FormulaContext& context, const Locale& locale) {
  return Evaluator(formula, context, locale, 0).Evaluate();
}

Text FormulaNumberText(double number, const Locale& locale) {
  constexpr int kDecimals = 2;
  DecimalDigits digits = DigitsOf(number);
  RoundToDecimals(digits, kDecimals, RoundingMode::kHalfAwayFromZero);
  Text text;
  AppendDigits(text, digits, locale.decimalSeparator);
  return text;
}

}  // namespace zorkanca::word
