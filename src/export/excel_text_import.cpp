#include "export/excel_text_import.h"

#include <utility>

#include "export/column_names.h"
#include "foundation/ignore_errors.h"
#include "platform/paths.h"

namespace zorkanca {

namespace {

constexpr std::int32_t kAnsiPage = 2;  // whichever the system has
constexpr std::int32_t kUtf8Page = 65001;

}  // namespace

OpenTextArguments DataFileImport(const ExportContext& context, const Text& path, std::vector<ExcelColumnInfo> columns) {
  return {.Filename = path,
          .Origin = context.preferences.unicode ? kUtf8Page : kAnsiPage,
          .StartRow = 1,
          .DataType = 1,
          .TextQualifier = 1,
          .Other = true,
          .OtherChar = Text(1, kExportSeparator),
          .FieldInfo = std::move(columns)};
}

ExcelTextImport::~ExcelTextImport() {
  if (workbook_) IgnoreErrors([&] { Close(); });
}

void ExcelTextImport::Open(const OpenTextArguments& arguments) {
  excel_.OpenText(arguments);
  workbook_ = excel_.Workbooks(GetFileName(arguments.Filename));
}

std::unique_ptr<ExcelRange> ExcelTextImport::Block() {
  return workbook_->Sheets(1)->Range(u"A1")->CurrentRegion();
}

void ExcelTextImport::Close() {
  std::exchange(workbook_, nullptr)->Close(/*SaveChanges=*/false);
}

}  // namespace zorkanca
