#include "foundation/text_builder.h"

#include "foundation/argument_details.h"
#include "foundation/array_routines.h"
#include "foundation/guarded.h"
#include "foundation/string_routines.h"
#include "foundation/variant_convertor.h"
#include "runtime/error.h"

namespace zorkanca {

namespace {

Text Tabs(std::int32_t count) {
  if (count < 0) Raise(RuntimeError::kInvalidCall);
  return Text(static_cast<std::size_t>(count), u'\t');
}

Text WithLinesIndented(TextView text, std::int32_t count) {
  const Text tabs = Tabs(count);
  return Text(tabs).append(Replace(text, kCrLf, Text(kCrLf).append(tabs)));
}

/// Guards an operation whose arguments worth knowing are one text, under its parameter's name, and the indentation.
template <typename Body>
auto GuardedIndented(TextView name, const NamedArgument& text, std::int32_t indent, const Body& body) {
  return Guarded(name, ArgumentDetails({text, {u"indent", indent}}), body);
}

}  // namespace

void TextBuilder::Append(TextView text, std::int32_t indent) {
  GuardedIndented(u"TextBuilder.Append", {u"text", text}, indent, [&] { text_.append(Tabs(indent)).append(text); });
}

void TextBuilder::AppendNewLine(std::int32_t indent) {
  Guarded(u"TextBuilder.AppendNewLine", ArgumentDetails({{u"indent", indent}}), [&] {
    const Text tabs = Tabs(indent);
    text_.append(kCrLf).append(tabs);
  });
}

void TextBuilder::AppendLine(TextView text, std::int32_t indent) {
  GuardedIndented(u"TextBuilder.AppendLine", {u"text", text}, indent, [&] {
    if (!IsEmpty()) AppendNewLine();
    Append(text, indent);
  });
}

void TextBuilder::AppendUpperCased(TextView text) {
  text_.append(UpperCase(text));
}

void TextBuilder::AppendLowerCased(TextView text) {
  text_.append(LowerCase(text));
}

void TextBuilder::AppendIfMeContainsText(TextView text) {
  if (!IsEmpty()) text_.append(text);
}

void TextBuilder::AppendIfNotBlank(TextView text) {
  if (StringRoutines::IsNotBlank(text)) text_.append(text);
}

void TextBuilder::IncreaseIndentation(std::int32_t count) {
  Guarded(u"TextBuilder.IncreaseIndentation", ArgumentDetails({{u"count", count}}),
          [&] { text_ = WithLinesIndented(text_, count); });
}

void TextBuilder::AppendParagraph(TextView text, std::int32_t indent) {
  GuardedIndented(u"TextBuilder.AppendParagraph", {u"text", text}, indent, [&] {
    const Text paragraph = WithLinesIndented(text, indent);
    if (!IsEmpty()) AppendNewLine();
    text_.append(paragraph);
  });
}

void TextBuilder::AppendTextBuilder(const TextBuilder* other, std::int32_t indent) {
  if (other == nullptr) return;
  Guarded(u"TextBuilder.AppendTextBuilder", ArgumentDetails({{u"indent", indent}}),
          [&] { AppendParagraph(other->text_, indent); });
}

void TextBuilder::AppendOptionalPartsDelimited(TextView first, TextView delimiter, TextView second,
                                               std::int32_t indent) {
  Guarded(u"TextBuilder.AppendOptionalPartsDelimited",
          ArgumentDetails({{u"first", first}, {u"delimiter", delimiter}, {u"second", second}, {u"indent", indent}}),
          [&] {
            TextBuilder parts;
            parts.AppendIfNotBlank(first);
            if (StringRoutines::IsNotBlank(second)) {
              parts.AppendIfMeContainsText(delimiter);
              parts.Append(second);
            }
            AppendTextBuilder(&parts, indent);
          });
}

void TextBuilder::AppendNameValue(TextView name, const Value& value, const Locale& locale, std::int32_t indent) {
  GuardedIndented(u"TextBuilder.AppendNameValue", {u"name", name}, indent,
                  [&] { Append(StringRoutines::FormatNameValue(name, value, locale), indent); });
}

void TextBuilder::AppendNameValueLine(TextView name, const Value& value, const Locale& locale, std::int32_t indent) {
  GuardedIndented(u"TextBuilder.AppendNameValueLine", {u"name", name}, indent,
                  [&] { AppendLine(StringRoutines::FormatNameValue(name, value, locale), indent); });
}

Text TextBuilder::BuildSeparatedValuesString(const std::vector<Value>& values, TextView separator,
                                             const Locale& locale) {
  return Guarded(u"TextBuilder.BuildSeparatedValuesString", ArgumentDetails({{u"separator", separator}}), [&] {
    Text list;
    for (const Value& value : values) {
      if (&value != &values.front()) list.append(separator);
      list.append(VariantConvertor::ToString(value, locale));
    }
    return list;
  });
}

void TextBuilder::AppendSeparatedValues(const std::vector<Value>& values, TextView separator, const Locale& locale,
                                        std::int32_t indent) {
  GuardedIndented(u"TextBuilder.AppendSeparatedValues", {u"separator", separator}, indent,
                  [&] { Append(BuildSeparatedValuesString(values, separator, locale), indent); });
}

void TextBuilder::AppendSeparatedValuesLine(const std::vector<Value>& values, TextView separator, const Locale& locale,
                                            std::int32_t indent) {
  GuardedIndented(u"TextBuilder.AppendSeparatedValuesLine", {u"separator", separator}, indent,
                  [&] { AppendLine(BuildSeparatedValuesString(values, separator, locale), indent); });
}

void TextBuilder::AppendSeparatedArrayValues(const Value& values, TextView separator, const Locale& locale,
                                             std::int32_t indent) {
  GuardedIndented(u"TextBuilder.AppendSeparatedArrayValues", {u"separator", separator}, indent,
                  [&] { AppendSeparatedValues(ArrayRoutines::ToCollection(values), separator, locale, indent); });
}

}  // namespace zorkanca
