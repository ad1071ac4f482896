#include "excel/grid/table_references.h"

#include "excel/grid/formula_scanner.h"
#include "excel/grid/xml_buffer.h"
#include "excel/grid/xml_scanner.h"
#include "runtime/utf8.h"

namespace zorkanca::excel {

namespace {

bool SameName(std::string_view a, std::string_view b) {
  return EqualsIgnoringCase(FromUtf8(a), FromUtf8(b));
}

}  // namespace

void TableRenames::Add(std::string_view table, std::string_view oldName, std::string_view newName) {
  renames_.push_back({std::string(table), std::string(oldName), std::string(newName)});
}

std::string TableRenames::Renamed(std::string_view formula, std::string_view ownTable) const {
  std::string result;
  std::string_view table = ownTable;
  while (!formula.empty()) {
    const std::size_t opaque = OpaqueLength(formula);
    const std::size_t name = opaque > 0 ? 0 : NameLength(formula);
    const std::string_view piece = formula.substr(0, opaque > 0 ? opaque : name > 0 ? name : 1);
    if (piece.front() == '[') {
      AppendGroup(result, piece, table);
    } else {
      result += piece;
    }
    table = name > 0 ? piece : ownTable;
    formula.remove_prefix(piece.size());
  }
  return result;
}

// One name in brackets, or a list of such in brackets of its own.
void TableRenames::AppendGroup(std::string& result, std::string_view group, std::string_view table) const {
  if (table.empty() || !group.ends_with(']')) {
    result += group;
    return;
  }
  std::string_view inside = group.substr(1, group.size() - 2);
  result += '[';
  const bool thisRow = inside.starts_with('@');
  if (thisRow) result += '@';
  if (thisRow) inside.remove_prefix(1);
  if (inside.empty() || (inside.front() != '[' && inside.front() != '#')) {
    if (!inside.empty()) AppendName(result, inside, table);
    inside = {};
  }
  while (!inside.empty()) {
    const std::size_t length = inside.front() == '[' ? OpaqueLength(inside) : 1;
    const std::string_view item = inside.substr(0, length);
    if (length > 2 && item[1] != '#') {
      result += '[';
      AppendName(result, item.substr(1, length - 2), table);
      result += ']';
    } else {
      result += item;
    }
    inside.remove_prefix(length);
  }
  result += ']';
}

void TableRenames::AppendName(std::string& result, std::string_view written, std::string_view table) const {
  std::string name;
  for (std::size_t at = 0; at < written.size(); ++at) {
    if (written[at] == '\'' && at + 1 < written.size()) ++at;
    name += written[at];
  }
  for (const Rename& rename : renames_) {
    if (!SameName(rename.table, table) || !SameName(rename.oldName, name)) continue;
    for (const char c : rename.newName) {
      if (std::string_view("[]#'@").find(c) != std::string_view::npos) result += '\'';
      result += c;
    }
    return;
  }
  result += written;
}

std::string TableRenames::RenamedElement(std::string_view element) const {
  XmlScanner scanner(element);
  if (empty() || scanner.Next() != XmlScanner::Token::kStart) return std::string(element);
  const std::string_view name = scanner.name();
  std::string result(element.substr(0, scanner.end()));
  const std::string formula = scanner.ReadCharacters();
  EscapeXmlText(Renamed(formula), kCarriageReturn, [&](std::string_view piece) { result += piece; });
  return result.append("</").append(name).append(">");
}

}  // namespace zorkanca::excel
