#include "foundation/string_routines.h"

#include <cstddef>
#include <variant>

#include "foundation/argument_details.h"
#include "foundation/argument_error.h"
#include "foundation/error_codes.h"
#include "foundation/guarded.h"
#include "foundation/variant_convertor.h"
#include "runtime/error.h"

namespace zorkanca {

bool StringRoutines::EqualsCaseInsensitive(TextView text1, TextView text2) {
  return text1.size() == text2.size() && UpperCase(text1) == UpperCase(text2);
}

Text StringRoutines::EncloseWithPairSymbols(TextView text, TextView opening, TextView closing) {
  return Text(opening).append(text).append(closing);
}

Text StringRoutines::RemoveEnclosedText(TextView text, TextView opening, TextView closing) {
  if (opening.empty() || closing.empty()) return Text(text);
  // What is kept never holds a whole opening marker but the one just completed at its end, so that one pass suffices.
  Text kept;
  kept.reserve(text.size());
  for (std::size_t next = 0; next < text.size();) {
    kept.push_back(text[next++]);
    if (!kept.ends_with(opening)) continue;
    const std::size_t end = text.find(closing, next);
    if (end == TextView::npos) return kept.append(text.substr(next));
    kept.resize(kept.size() - opening.size());
    next = end + closing.size();
  }
  return kept;
}

Text StringRoutines::RemoveBracketedText(TextView text) {
  const Text withoutRound = RemoveEnclosedText(text, u"(", u")");
  return RemoveEnclosedText(RemoveEnclosedText(withoutRound, u"[", u"]"), u"{", u"}");
}

Text StringRoutines::FormatName(TextView singleWordName) {
  Text name = LowerCase(singleWordName);
  if (!name.empty()) name.front() = UpperCase(singleWordName.front());
  return name;
}

Text StringRoutines::FormatNameValue(TextView name, const Value& value, const Locale& locale) {
  return Guarded(u"StringRoutines.FormatNameValue", ArgumentDetails({{u"name", name}}), [&] {
    const Text shown = VariantConvertor::ToString(value, locale);
    const bool isText = std::holds_alternative<Text>(value);
    return Text(name).append(u" = ").append(isText ? EncloseWithQuotes(shown) : shown);
  });
}

Text StringRoutines::TrimStart(TextView value, TextView toRemove) {
  while (!toRemove.empty() && value.starts_with(toRemove)) value.remove_prefix(toRemove.size());
  return Text(value);
}

Text StringRoutines::TrimEnd(TextView value, TextView toRemove) {
  while (!toRemove.empty() && value.ends_with(toRemove)) value.remove_suffix(toRemove.size());
  return Text(value);
}

Text StringRoutines::PadRight(TextView value, std::int32_t totalLength) {
  constexpr TextView kName = u"StringRoutines.PadRight";
  if (totalLength < 0) {
    throw Error(
        InvalidOperationErrorCode, Text(kName),
        Text(u"Hodnota \"totalLength\" nesmí být záporné číslo [").append(DecimalText(totalLength)).append(u"]."));
  }
  return Guarded(kName, ArgumentDetails({{u"value", value}, {u"totalLength", totalLength}}), [&] {
    Text padded(value);
    const auto length = static_cast<std::size_t>(totalLength);
    if (length > padded.size()) padded.resize(length, u' ');
    return padded;
  });
}

Text StringRoutines::StrDup(std::int32_t number, TextView text) {
  constexpr TextView kName = u"StringRoutines.StrDup";
  if (number < 0) ArgumentError().RaiseArgumentError(u"number", DecimalText(number), u"Nezáporné číslo", kName);
  return Guarded(kName, ArgumentDetails({{u"number", number}, {u"text", text}}), [&] {
    Text repeated;
    repeated.reserve(text.size() * static_cast<std::size_t>(number));
    for (std::int32_t count = 0; count < number; ++count) repeated.append(text);
    return repeated;
  });
}

}  // namespace zorkanca
