#include "cli/pdf_batch.h"

#include <optional>
#include <vector>

#include "cli/command_line.h"
#include "host/files/native_path.h"
#include "runtime/utf8.h"

namespace zorkanca::cli {

namespace {

constexpr std::size_t kDocumentsPerBatch = 200;  // what one call of the converter takes

LibreOfficeConverter ConverterStoppedBy(const std::atomic<bool>& interrupted, const Locale& locale) {
  LibreOfficeConverter::Settings settings;
  settings.localeTag = ToUtf8(locale.tag);
  settings.cancelled = [&interrupted] { return interrupted.load(); };
  return LibreOfficeConverter(std::move(settings));
}

}  // namespace

PdfBatch::PdfBatch(const Locale& locale, const std::atomic<bool>& interrupted)
    : converter_(ConverterStoppedBy(interrupted, locale)) {}

void PdfBatch::Add(WordDocument& document, const Text& target) {
  Waiting& added = waiting_.emplace_back();
  added.target = target;
  document.SaveAs(FromNativePath(added.file.path()), WordSaveFormat::kDocumentXml);
  if (waiting_.size() == kDocumentsPerBatch) Convert();
}

void PdfBatch::Convert() {
  const std::list<Waiting> batch = std::move(waiting_);
  waiting_.clear();
  std::vector<Conversion> conversions;
  for (const Waiting& document : batch) conversions.push_back({document.file.path(), ToNativePath(document.target)});
  if (conversions.empty()) return;
  const std::vector<std::optional<Error>> errors = converter_.ToPdf(conversions);
  std::optional<Error> first;
  for (std::size_t index = 0; index < errors.size(); ++index) {
    if (!errors[index]) {
      PrintLine(FromNativePath(conversions[index].target));
    } else if (!first) {
      first = errors[index];
    }
  }
  if (first) throw Error(*first);
}

}  // namespace zorkanca::cli
