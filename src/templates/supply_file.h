// The supply file: the list of templates that the suite brings and wants registered (docs/formats/supply_file.md).
// One template a line: application|list|file name|description|identifier|
#pragma once

#include <cstdint>
#include <vector>

#include "platform/platform.h"
#include "runtime/text.h"
#include "templates/appl_office.h"
#include "templates/template_list_key.h"

namespace zorkanca {

inline constexpr TextView kSupplyFileName = u"ZorSabl.txt";

/// A template to register whose file is there.
struct SuppliedTemplate {
  std::int32_t line = 0;  ///< in the file, from 1
  Text fileName;          ///< with extension
  Text description;
  std::int32_t id = 0;
  Text folder;
};

/// What a supply file is read for.
struct SupplyTarget {
  TemplateListKey list{};
  ApplOffice application = ApplOffice::AllTypes;  ///< its extension completes file names without "."
  Text defaultPath{};                             ///< below it lie the folders of the applications
};

/// The lines of the file that are meant for the list. The file is in the ANSI code page; Unicode is recognised. What is
/// wrong with a line that cannot be used goes to the error log.
/// Errors: of `FileSystem::OpenTextFile`; 13 when the file is no text.
std::vector<SuppliedTemplate> ReadSupplyFile(const Platform& platform, TextView path, const SupplyTarget& target);

/// Writes to the error log that a line of the supply file was skipped, and why.
void LogSkippedLine(const Platform& platform, std::int32_t line, TextView reason);

}  // namespace zorkanca
