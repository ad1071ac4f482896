#include "excel/display/cell_value.h"

#include <charconv>

#include "excel/grid/serial_date.h"
#include "excel/tables/cell_reader.h"
#include "excel/tables/string_item.h"
#include "runtime/iso_date.h"

namespace zorkanca::excel {

namespace {

CellValue NumberOf(std::string_view text) {
  double number = 0;
  const auto [end, failure] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (failure != std::errc() || end == text.data()) return {};
  return number;
}

CellValue SerialOfIsoText(std::string_view isoText, bool is1904) {
  const std::optional<Date> date = ParseIsoDate(isoText);
  if (!date) return {};
  const double serial = SerialOf(*date);
  return serial >= 1 ? serial - (is1904 ? kDaysTo1904 : 0) : date->serial;
}

}  // namespace

CellValue ValueOf(const CellView& cell, const SharedStrings& texts, std::string_view prefix, bool is1904) {
  switch (cell.kind) {
    case CellKind::kBlank:
      return {};
    case CellKind::kNumber:
      return NumberOf(cell.content);
    case CellKind::kText:
      return std::string(cell.content);
    case CellKind::kBoolean:
      return cell.content == "1";
    case CellKind::kError:
      return ErrorValue{std::string(cell.content)};
    case CellKind::kFile:
    case CellKind::kFileFormula:
    case CellKind::kFormula:
      break;
  }
  if (cell.type == "s") {
    const std::optional<std::uint32_t> index = WholeNumberOf(cell.result);
    if (!index || *index >= texts.size()) return {};
    return texts.TextOf(*index);
  }
  if (cell.type == "inlineStr") return StringItemText(cell.result, prefix);
  std::string result;
  AppendResolved(result, cell.result);
  if (cell.type == "str") {
    std::string text;
    AppendUnescaped(text, result);
    return text;
  }
  if (result.empty()) return {};
  if (cell.type == "b") return result == "1" || result == "true";
  if (cell.type == "e") return ErrorValue{result};
  if (cell.type == "d") return SerialOfIsoText(result, is1904);
  return NumberOf(result);
}

}  // namespace zorkanca::excel
