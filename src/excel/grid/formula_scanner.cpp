#include "excel/grid/formula_scanner.h"

#include "runtime/ascii.h"

namespace zorkanca::excel {

namespace {

// Behind the closing quote; a doubled one does not close.
std::size_t QuotedLength(std::string_view formula) {
  const char quote = formula[0];
  for (std::size_t at = 1; at < formula.size(); ++at) {
    if (formula[at] != quote) continue;
    if (at + 1 < formula.size() && formula[at + 1] == quote) {
      ++at;
    } else {
      return at + 1;
    }
  }
  return formula.size();
}

// Column names of tables stand in nested brackets, with "'" in front of special characters.
std::size_t BracketedLength(std::string_view formula) {
  std::size_t depth = 0;
  for (std::size_t at = 0; at < formula.size(); ++at) {
    if (formula[at] == '\'') {
      ++at;
    } else if (formula[at] == '[') {
      ++depth;
    } else if (formula[at] == ']' && --depth == 0) {
      return at + 1;
    }
  }
  return formula.size();
}

std::size_t ErrorLength(std::string_view formula) {
  std::size_t length = 1;
  const auto isPart = [](char c) {
    return (c >= 'A' && c <= 'Z') || c == '/' || c == '0' || c == '!' || c == '?' || c == '_';
  };
  while (length < formula.size() && isPart(formula[length])) ++length;
  return length;
}

}  // namespace

std::size_t OpaqueLength(std::string_view formula) {
  switch (formula[0]) {
    case '"':
    case '\'':
      return QuotedLength(formula);
    case '[':
      return BracketedLength(formula);
    case '#':
      return ErrorLength(formula);
    default:
      return 0;
  }
}

std::size_t NumberLength(std::string_view formula) {
  std::size_t at = 0;
  const auto digits = [&] {
    while (at < formula.size() && IsDigit(formula[at])) ++at;
  };
  digits();
  if (at == 0 && !(formula.size() > 1 && formula[0] == '.' && IsDigit(formula[1]))) return 0;
  if (at < formula.size() && formula[at] == '.') {
    ++at;
    digits();
  }
  if (at < formula.size() && (formula[at] == 'E' || formula[at] == 'e')) {
    std::size_t exponent = at + 1;
    if (exponent < formula.size() && (formula[exponent] == '+' || formula[exponent] == '-')) ++exponent;
    if (exponent < formula.size() && IsDigit(formula[exponent])) {
      at = exponent;
      digits();
    }
  }
  return at;
}

std::size_t NameLength(std::string_view formula) {
  std::size_t length = 0;
  while (length < formula.size() && IsNameCharacter(formula[length])) ++length;
  return length;
}

}  // namespace zorkanca::excel
