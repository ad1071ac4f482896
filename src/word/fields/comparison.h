// The comparison of IF, NEXTIF and SKIPIF.
#pragma once

#include <optional>

#include "runtime/locale.h"
#include "runtime/text.h"

namespace zorkanca::word {

enum class Comparison { kEqual, kNotEqual, kLess, kLessOrEqual, kGreater, kGreaterOrEqual };

/// The operator that a text is.
std::optional<Comparison> ComparisonOf(TextView text);

/// Both as numbers where both are, else as texts, unit by unit, case counting. In the right text "?" stands for one and
/// "*" for up to 128 characters, with = and <> alone.
bool Compare(TextView left, Comparison comparison, TextView right, const Locale& locale);

}  // namespace zorkanca::word
