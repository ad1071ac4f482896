// What a template and the columns that are to fill it do not agree on, told before the work begins.
#pragma once

#include <span>
#include <vector>

#include "export/export_context.h"
#include "export/template_choice.h"
#include "platform/template_fields.h"
#include "runtime/text.h"

namespace zorkanca {

/// With `ExportPreferences::strict`: the template and the columns do not fit.
inline constexpr TextView kTemplateDoesNotFit = u"Šablona neodpovídá datům !";

/// What an export fills of its template.
enum class TemplateUse { kMerge, kForm, kCells };

/// Warnings in English: a template that asks for nothing (every record would give the same), and each field that has no
/// column. Names are compared as the export does it: case ignored; of a merge field "_" stands for a blank, of a form
/// field a number behind "_" for one character.
/// @param path  of the template, for the text
std::vector<Text> TemplateWarnings(TemplateUse use, std::span<const TemplateField> fields,
                                   std::span<const Text> columns, TextView path);

/// Checks the template of a running export once its columns are known: when it is a file, before the records are read,
/// else when the user has chosen it. Without somebody to tell it nothing is done.
class TemplateCheck {
 public:
  TemplateCheck(const ExportContext& context, TemplateUse use) : context_(context), use_(use) {}

  /// @param arguments  a named file is looked for; they are not changed
  /// Errors: stops the export when the file is missing and, with `strict`, for any warning; those of reading it.
  void Before(const TemplateArguments& arguments, std::span<const Text> columns);
  /// @param path  of the template that was settled on
  void Chosen(const Text& path);

 private:
  bool IsWanted() const { return context_.report && context_.report->HasListener() && !done_; }
  void Check(const Text& path);

  const ExportContext& context_;
  TemplateUse use_;
  std::vector<Text> columns_;
  bool done_ = false;
};

}  // namespace zorkanca
