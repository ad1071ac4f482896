#include "cli/bar_code_arguments.h"

#include <algorithm>
#include <optional>

#include "barcode/bar_code_items.h"
#include "barcode/symbology.h"
#include "cli/command_line.h"
#include "export/bar_code_specification.h"
#include "runtime/error.h"
#include "runtime/nearest_name.h"
#include "runtime/utf8.h"

namespace zorkanca::cli {

namespace {

BarCodeParameters Parse(const std::string& parameters, const Locale& locale) {
  try {
    return ParseBarCodeParameters(FromUtf8(parameters), locale);
  } catch (const Error& error) {
    const bool tooFew = error.number() == static_cast<std::int32_t>(RuntimeError::kSubscriptOutOfRange);
    throw UsageError("a bar code is symbology;items;output column;check flag, not " + parameters +
                     (tooFew ? "" : ": " + ToUtf8(error.description())));
  }
}

}  // namespace

void RequireBarCode(const std::string& parameters, const Locale& locale) {
  const std::string symbology = ToUtf8(Parse(parameters, locale).symbology);
  std::vector<std::string> known;
  std::string list;
  for (const TextView name : kSymbologyNames) {
    known.push_back(ToUtf8(name));
    list += " " + known.back();
  }
  if (std::find(known.begin(), known.end(), symbology) != known.end()) return;
  const std::string nearest = NearestName(symbology, known);
  throw UsageError("there is no symbology " + (symbology.empty() ? "''" : symbology) +
                   (nearest.empty() ? "; there are" : "; did you mean " + nearest + "? There are") + list);
}

std::vector<Text> ColumnsOfBarCode(const std::string& parameters, const Locale& locale) {
  RequireBarCode(parameters, locale);
  std::vector<Text> columns;
  for (const BarCodeItem& item : Parse(parameters, locale).items) {
    if (item.ReadsField()) columns.push_back(item.text);
  }
  return columns;
}

Text OutputOfBarCode(const std::string& parameters, const Locale& locale) {
  RequireBarCode(parameters, locale);
  return Parse(parameters, locale).outputColumn;
}

std::vector<Text> ColumnsOfBarCodeBehind(const std::string& names, const Locale& locale) {
  Text before = FromUtf8(names);
  const std::optional<Text> parameters = TakeBarCodeSpecification(before);
  return parameters ? ColumnsOfBarCode(ToUtf8(*parameters), locale) : std::vector<Text>();
}

}  // namespace zorkanca::cli
