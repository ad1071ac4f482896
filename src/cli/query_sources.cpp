#include "cli/query_sources.h"

#include <string_view>

#include "cli/command_line.h"
#include "cli/odbc_source.h"
#include "runtime/ascii.h"

namespace zorkanca::cli {

namespace {

constexpr std::string_view kNoTables = ":memory:";
constexpr std::string_view kCsvPrefix = "csv:";
constexpr std::string_view kJsonPrefix = "json:";

bool HasExtension(std::string_view path, std::string_view extension) {
  return path.size() > extension.size() && AsciiLower(path.substr(path.size() - extension.size())) == extension;
}

// The separator that every CSV file has; nothing where it is to be found.
std::optional<char> GivenSeparator(const std::string& text) {
  if (text.empty()) return std::nullopt;
  if (text == "tab" || text == "\\t") return '\t';
  const bool isCharacter = text.size() == 1 && (text[0] == '\t' || (text[0] >= ' ' && text[0] <= '~'));
  if (isCharacter && text[0] != '"') return text[0];
  throw UsageError("--separator takes one character of ASCII that is no quotation mark, or tab, not " + text);
}

std::optional<FileTable> FileTableOf(const std::string& source, std::optional<char> separator) {
  FileTable table{.path = source, .format = FileFormat::kCsv, .separator = separator};
  if (source.starts_with(kCsvPrefix)) {
    table.path.erase(0, kCsvPrefix.size());
  } else if (source.starts_with(kJsonPrefix)) {
    table.path.erase(0, kJsonPrefix.size());
    table.format = FileFormat::kJson;
  } else if (HasExtension(source, ".json") || HasExtension(source, ".jsonl")) {
    table.format = FileFormat::kJson;
  } else if (!HasExtension(source, ".csv") && !HasExtension(source, ".tsv")) {
    return std::nullopt;
  }
  if (table.path.empty()) throw UsageError("--db names no file: " + source);
  if (!table.separator && HasExtension(table.path, ".tsv")) table.separator = '\t';
  return table;
}

}  // namespace

QuerySources SourcesOf(const QueryOptions& query) {
  const std::optional<char> separator = GivenSeparator(query.separator);
  QuerySources sources;
  for (const std::string& source : query.databases) {
    if (source == kNoTables) continue;
    if (IsConnectionString(source)) {
      if (query.databases.size() > 1) throw UsageError("--db takes a connection string alone, without other databases");
      sources.connection = source;
      return sources;
    }
    if (const std::optional<FileTable> table = FileTableOf(source, separator)) {
      sources.files.push_back(*table);
    } else if (sources.sqliteFile) {
      throw UsageError("--db takes one SQLite file, not both " + *sources.sqliteFile + " and " + source);
    } else {
      sources.sqliteFile = source;
    }
  }
  return sources;
}

TextEncoding EncodingOf(const QueryOptions& query) {
  if (query.fileEncoding == "ansi") return TextEncoding::kAnsi;
  return query.fileEncoding == "utf-16" ? TextEncoding::kUtf16LittleEndian : TextEncoding::kUtf8;
}

}  // namespace zorkanca::cli
