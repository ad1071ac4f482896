// The office applications that template lists are filtered for.
#pragma once

#include <algorithm>
#include <cstdint>
#include <vector>

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

/// The extensions that a list of an application's templates takes, the first one being `ExtensionOf`; none where any
/// will do.
/// @param all  also those of later formats, of documents and of workbooks
inline std::vector<TextView> ExtensionsOf(ApplOffice application, bool all) {
  const TextView own = ExtensionOf(application);
  if (own.empty()) return {};
  if (all && application == ApplOffice::MSWord) return {own, u".dotx", u".dotm", u".docx", u".docm", u".doc"};
  if (all && application == ApplOffice::MSExcel) return {own, u".xltx", u".xltm", u".xlsx", u".xlsm", u".xls"};
  return {own};
}

/// Whether such a list takes a file of this extension, with its dot, in small letters. @param all  as above
inline bool TakesExtension(ApplOffice application, TextView extension, bool all) {
  const std::vector<TextView> taken = ExtensionsOf(application, all);
  return taken.empty() || std::find(taken.begin(), taken.end(), extension) != taken.end();
}

/// A file name completed by the extension of the application's templates unless it holds a ".".
inline Text WithExtension(TextView name, ApplOffice application) {
  Text completed(name);
  if (name.find(u'.') == TextView::npos) completed.append(ExtensionOf(application));
  return completed;
}

}  // namespace zorkanca
