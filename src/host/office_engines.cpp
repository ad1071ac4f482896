#include "host/office_engines.h"

#include <utility>

#include "runtime/utf8.h"

namespace zorkanca {

namespace {

LibreOfficeConverter ConverterFor(const Locale& locale, const std::function<bool()>& cancelled) {
  LibreOfficeConverter::Settings settings;
  settings.localeTag = ToUtf8(locale.tag);
  settings.cancelled = cancelled;
  return LibreOfficeConverter(std::move(settings));
}

}  // namespace

OfficeEngines::OfficeEngines(const Locale& locale, WordEngine::Warn warn, std::function<bool()> cancelled)
    : word_(locale, ConverterFor(locale, cancelled), std::move(warn), cancelled),
      excel_(locale, ConverterFor(locale, cancelled)) {}

}  // namespace zorkanca
