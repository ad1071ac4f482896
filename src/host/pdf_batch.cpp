#include "host/pdf_batch.h"

#include <optional>
#include <utility>
#include <vector>

#include "files/native_path.h"
#include "host/office_engines.h"

namespace zorkanca {

namespace {

constexpr std::size_t kDocumentsPerBatch = 200;  // what one call of the converter takes

}  // namespace

PdfBatch::PdfBatch(const Locale& locale, Settings settings)
    : converter_(ConverterFor(locale, std::move(settings.cancelled))), made_(std::move(settings.made)) {}

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
      if (made_) made_(FromNativePath(conversions[index].target));
    } else if (!first) {
      first = errors[index];
    }
  }
  if (first) throw Error(*first);
}

}  // namespace zorkanca
