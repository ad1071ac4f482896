// Numbers as formulas and the texts of cells have them.
#pragma once

#include <optional>

#include "runtime/locale.h"
#include "runtime/text.h"

namespace zorkanca::word {

bool IsFormulaDigit(char16_t unit);
/// Letters, digits and "_", which names are made of.
bool IsFormulaWordUnit(char16_t unit);
/// Blanks of all kinds, paragraph ends, breaks.
bool IsFormulaBlank(char16_t unit);
TextView TrimFormulaBlanks(TextView text);

/// Length of the number without sign that begins at a place, 0 when none does: digits, groups of three, decimals.
std::size_t NumberLength(TextView text, std::size_t at, const Locale& locale);
/// The number that such a text spells.
double NumberAt(TextView text, const Locale& locale);
/// Length of a currency symbol at the start of a text: the locale's own, $, €, £; 0 without one.
std::size_t CurrencyLength(TextView text, const Locale& locale);

/// The first number in the text of a cell or a bookmark: "1 234,50 Kč", "-5", "(5)" for -5, "21 %" for 0.21. Digits
/// that go on from a letter ("A4") are none. Nothing without a number.
std::optional<double> NumberInText(TextView text, const Locale& locale);

}  // namespace zorkanca::word
