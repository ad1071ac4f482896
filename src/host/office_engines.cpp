#include "host/office_engines.h"

#include <utility>

namespace zorkanca {

namespace {

LibreOfficeConverter CancelledBy(const std::function<bool()>& cancelled) {
  LibreOfficeConverter::Settings settings;
  settings.cancelled = cancelled;
  return LibreOfficeConverter(std::move(settings));
}

}  // namespace

OfficeEngines::OfficeEngines(const Locale& locale, WordEngine::Warn warn, std::function<bool()> cancelled)
    : word_(locale, CancelledBy(cancelled), std::move(warn), cancelled), excel_(locale, CancelledBy(cancelled)) {}

}  // namespace zorkanca
