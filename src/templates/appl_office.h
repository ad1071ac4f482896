// The office applications that template lists are filtered for.
#pragma once

#include <cstdint>

#include "runtime/text.h"

namespace zorkanca {

/// By the published numbers. A caller may hand in any other number, which no template passes.
enum class ApplOffice : std::int32_t {
  AllTypes = 0,
  MSWord = 1,   ///< templates are ".dot" files
  MSExcel = 2,  ///< ".xlt" files
  SDS = 10,     ///< ".sds" files, definitions of reports
};

/// The extension of the templates of an application, with its dot; empty where any will do.
constexpr TextView ExtensionOf(ApplOffice application) {
  switch (application) {
    case ApplOffice::MSWord:
      return u".dot";
    case ApplOffice::MSExcel:
      return u".xlt";
    case ApplOffice::SDS:
      return u".sds";
    case ApplOffice::AllTypes:
      break;
  }
  return {};
}

/// A file name completed by the extension of the application's templates unless it holds a ".".
inline Text WithExtension(TextView name, ApplOffice application) {
  Text completed(name);
  if (name.find(u'.') == TextView::npos) completed.append(ExtensionOf(application));
  return completed;
}

}  // namespace zorkanca
