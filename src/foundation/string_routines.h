// Small operations on texts. Comparisons are binary, unit by unit, unless their name says otherwise;
// "blank" means empty or only spaces (U+0020), "empty" means without any character.
#pragma once

#include <cstdint>

#include "runtime/locale.h"
#include "runtime/text.h"
#include "runtime/value.h"

namespace zorkanca {

/// Stateless.
class StringRoutines {
 public:
  static Text EmptyString() { return {}; }
  static bool IsEmpty(TextView text) { return text.empty(); }
  static bool IsNotEmpty(TextView text) { return !text.empty(); }
  static bool IsBlank(TextView text) { return zorkanca::IsBlank(text); }
  static bool IsNotBlank(TextView text) { return !zorkanca::IsBlank(text); }

  /// True also for an empty `expectedEnd`.
  static bool EndsWith(TextView text, TextView expectedEnd) { return text.ends_with(expectedEnd); }
  /// True also for an empty `expectedStart`.
  static bool StartsWith(TextView text, TextView expectedStart) { return text.starts_with(expectedStart); }
  /// True also for an empty substring.
  static bool Contains(TextView text, TextView searchForSubstring) {
    return text.find(searchForSubstring) != TextView::npos;
  }
  static bool EqualsCaseInsensitive(TextView text1, TextView text2);

  static Text Enclose(TextView text, TextView symbol) { return EncloseWithPairSymbols(text, symbol, symbol); }
  /// Between double quotes; inner ones are not doubled.
  static Text EncloseWithQuotes(TextView text) { return Enclose(text, u"\""); }
  static Text EncloseWithApostrophes(TextView text) { return Enclose(text, u"'"); }
  static Text EncloseWithPairSymbols(TextView text, TextView opening, TextView closing);
  static Text EncloseWithBrackets(TextView text) { return EncloseWithPairSymbols(text, u"[", u"]"); }
  static Text EncloseWithParentheses(TextView text) { return EncloseWithPairSymbols(text, u"(", u")"); }
  /// The trimmed text between one space on either side.
  static Text EncloseWithOneSpace(TextView text) { return Enclose(Trim(text), u" "); }

  /// Removes each stretch from an opening marker to the next closing one, both included, from left to right. What then
  /// meets is one text: markers that only come together there count. Markers without a partner stay, so that of
  /// "a(b(c)d)" remains "ad)". An empty marker removes nothing.
  static Text RemoveEnclosedText(TextView text, TextView opening, TextView closing);
  /// `RemoveEnclosedText` for (), then [], then {}.
  static Text RemoveBracketedText(TextView text);
  /// The text without any occurrence of the substring.
  static Text RemoveSubstring(TextView text, TextView substring) { return Replace(text, substring, {}); }

  /// First character upper-cased, the rest lower-cased.
  static Text FormatName(TextView singleWordName);
  /// `name = "value"` for a text, `name = value` for anything else, as `VariantConvertor::ToString` has it.
  /// Errors: internal error when the value has no text.
  static Text FormatNameValue(TextView name, const Value& value, const Locale& locale);

  /// Removes `toRemove` at the start as often as it stands there; an empty one changes nothing.
  static Text TrimStart(TextView value, TextView toRemove);
  /// The same at the end.
  static Text TrimEnd(TextView value, TextView toRemove);

  /// The value with spaces behind it up to `totalLength` characters; a longer one as it is.
  /// Errors: `InvalidOperationErrorCode` for a negative length.
  static Text PadRight(TextView value, std::int32_t totalLength);
  /// The text `number` times in a row.
  /// Errors: `ArgumentErrorCode` for a negative number; internal error when memory does not hold the result.
  static Text StrDup(std::int32_t number, TextView text);
};

}  // namespace zorkanca
