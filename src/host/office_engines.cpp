#include "host/office_engines.h"

#include <utility>

#include "runtime/utf8.h"

namespace zorkanca {

LibreOfficeConverter ConverterFor(const Locale& locale, std::function<bool()> cancelled,
                                  std::function<void(TextView)> warn) {
  LibreOfficeConverter::Settings settings;
  settings.localeTag = ToUtf8(locale.tag);
  settings.cancelled = std::move(cancelled);
  settings.warn = std::move(warn);
  return LibreOfficeConverter(std::move(settings));
}

OfficeEngines::OfficeEngines(const Locale& locale, const WordEngine::Warn& warn, const std::function<bool()>& cancelled,
                             std::function<void(ExcelWork, double)> working)
    : word_(locale, ConverterFor(locale, cancelled, warn), warn, cancelled),
      excel_(locale, ConverterFor(locale, cancelled), {.cancelled = cancelled, .reached = std::move(working)}) {}

}  // namespace zorkanca
