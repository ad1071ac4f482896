#include "export/prepared_file.h"

#include <algorithm>

#include "export/column_names.h"
#include "export/data_encoding.h"
#include "export/export_failure.h"
#include "runtime/error.h"

namespace zorkanca {

namespace {

Text ReadWhole(const ExportContext& context, const Text& path) {
  const TextFormat format = EncodingOfFile(context, path);
  RequireEncoding(context, path, format);
  return context.platform.files.OpenTextFile(path, IoMode::kForReading, /*create=*/false, format)->ReadAll();
}

Error NotFound(FileSystem& files, const Text& path) {
  const bool isFolder = files.FolderExists(path);
  const RuntimeError error = isFolder ? RuntimeError::kPathFileAccess : RuntimeError::kFileNotFound;
  Text description = isFolder ? Text(u"A folder, not a file") : Text(DescriptionOf(error));
  return {static_cast<std::int32_t>(error), Text(), description.append(u": ").append(path)};
}

Error EmptyFile(const Text& path) {
  return {static_cast<std::int32_t>(RuntimeError::kPastEndOfFile), Text(), Text(u"The file is empty: ").append(path)};
}

}  // namespace

Text ReadPreparedHeader(const ExportContext& context, const Text& path) {
  FileSystem& files = context.platform.files;
  if (!files.FileExists(path)) StopExport(kHeaderFileNotFound, NotFound(files, path));
  const Text text = ReadWhole(context, path);
  if (IsBlank(text)) StopExport(kHeaderFileEmpty, EmptyFile(path));
  return Text(Trim(text));
}

PreparedData::PreparedData(const ExportContext& context, const Text& path) {
  FileSystem& files = context.platform.files;
  AccessingData([&] {
    if (!files.FileExists(path)) StopExport(kDataFileNotFound, NotFound(files, path));
    text_ = ReadWhole(context, path);
  });
  SplitLines();
  const bool lastIsBlank = IsBlank(lines_.back());
  if (lastIsBlank && lines_.size() == 1) StopExport(kNoRecords);
  if (lastIsBlank) lines_.pop_back();
}

Error ShortLine(const PreparedData& data, TextView line, TextView path, std::size_t values, std::size_t columns) {
  const auto isIt = [&](TextView each) { return each.data() == line.data(); };
  const auto place = std::find_if(data.lines().begin(), data.lines().end(), isIt) - data.lines().begin();
  Text text = u"Record " + DecimalText(place + 1) + u" has " + DecimalText(static_cast<std::int64_t>(values)) +
              u" values for " + DecimalText(static_cast<std::int64_t>(columns)) + u" columns: ";
  return {static_cast<std::int32_t>(RuntimeError::kSubscriptOutOfRange), Text(), text.append(path)};
}

void PreparedData::SplitLines() {
  TextView rest = text_;
  for (std::size_t end; (end = rest.find(kCrLf)) != TextView::npos; rest.remove_prefix(end + kCrLf.size())) {
    lines_.push_back(rest.substr(0, end));
  }
  lines_.push_back(rest);
}

void SplitColumnsFromDataRow(TextView row, std::vector<Text>& values) {
  std::size_t count = 0;
  const auto start = [&] {
    if (count == values.size()) values.emplace_back();
    values[count++].clear();
  };
  start();
  bool quoted = false;
  for (std::size_t at = 0; at < row.size(); ++at) {
    const char16_t unit = row[at];
    if (unit == u'"') {
      const bool doubled = quoted && row.substr(at + 1).starts_with(u'"');
      if (doubled) {
        values[count - 1].push_back(unit);
        ++at;
      } else {
        quoted = !quoted;
      }
    } else if (unit == kExportSeparator && !quoted) {
      start();
    } else {
      values[count - 1].push_back(unit);
    }
  }
  values.resize(count);
}

}  // namespace zorkanca
