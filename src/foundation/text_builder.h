// A text that grows piece by piece, with lines and indentation. Lines are separated by CR LF and never terminated;
// indentation is made of TABs.
#pragma once

#include <cstdint>
#include <vector>

#include "runtime/locale.h"
#include "runtime/text.h"
#include "runtime/value.h"

namespace zorkanca {

/// In all operations `indent` and `count` are numbers of TABs. A text that is appended must not be a view of the
/// builder's own text.
/// Errors of all that take one: internal error when it is negative.
class TextBuilder {
 public:
  bool IsEmpty() const { return text_.empty(); }
  const Text& ToString() const { return text_; }
  void clear() { text_.clear(); }

  /// The text behind its indentation, in the line that was begun.
  void Append(TextView text, std::int32_t indent = 0);
  /// Begins a line.
  void AppendNewLine(std::int32_t indent = 0);
  /// The text in a line of its own, which is the first one in an empty builder.
  void AppendLine(TextView text, std::int32_t indent = 0);
  void AppendSpace() { text_.push_back(u' '); }
  void AppendTab() { text_.push_back(u'\t'); }
  void AppendUpperCased(TextView text);
  void AppendLowerCased(TextView text);

  /// Appends only to a builder that is not empty, as a separator needs it.
  void AppendIfMeContainsText(TextView text);
  /// Appends only what is more than spaces.
  void AppendIfNotBlank(TextView text);

  /// Puts TABs before the text and after each CR LF in it.
  void IncreaseIndentation(std::int32_t count);
  /// Begins a line unless the builder is empty, and appends the text with each of its lines indented.
  void AppendParagraph(TextView text, std::int32_t indent = 0);
  /// The other builder's text as a paragraph; null appends nothing.
  void AppendTextBuilder(const TextBuilder* other, std::int32_t indent = 0);
  /// The parts that are not blank as one paragraph, the delimiter between them only when there are both.
  void AppendOptionalPartsDelimited(TextView first, TextView delimiter, TextView second, std::int32_t indent = 0);

  /// Name and value as `StringRoutines::FormatNameValue` joins them, in the line that was begun or in a line of its
  /// own.
  void AppendNameValue(TextView name, const Value& value, const Locale& locale, std::int32_t indent = 0);
  void AppendNameValueLine(TextView name, const Value& value, const Locale& locale, std::int32_t indent = 0);

  /// The values as `VariantConvertor::ToString` shows them, the separator between each two.
  static Text BuildSeparatedValuesString(const std::vector<Value>& values, TextView separator, const Locale& locale);
  /// Such a list in the line that was begun or in a line of its own.
  void AppendSeparatedValues(const std::vector<Value>& values, TextView separator, const Locale& locale,
                             std::int32_t indent = 0);
  void AppendSeparatedValuesLine(const std::vector<Value>& values, TextView separator, const Locale& locale,
                                 std::int32_t indent = 0);
  /// The elements of an array as such a list.
  /// Errors: internal error for a value that is no array of one dimension.
  void AppendSeparatedArrayValues(const Value& values, TextView separator, const Locale& locale,
                                  std::int32_t indent = 0);

 private:
  Text text_;
};

}  // namespace zorkanca
