// The office applications that template lists are filtered for.
#pragma once

#include <cstdint>

namespace zorkanca {

/// By the published numbers. A caller may hand in any other number, which no template passes.
enum class ApplOffice : std::int32_t {
  AllTypes = 0,
  MSWord = 1,   ///< templates are ".dot" files
  MSExcel = 2,  ///< ".xlt" files
  SDS = 10,     ///< ".sds" files, definitions of reports
};

}  // namespace zorkanca
