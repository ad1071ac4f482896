// Which template an export fills: a path, the bare name of a file in the folder that all users share, or one that the
// user chooses from a list.
//
//   rsTemplate = path with a folder      must exist
//              | bare name               a file of the shared templates folder; where the caller prefers it, also of
//                                        the current folder
//              | "[" list name "]"       the user chooses from that list (text around the brackets does not count)
//              | blanks                  the user chooses from the application's own list
#pragma once

#include <optional>
#include <vector>

#include "export/export_context.h"
#include "runtime/error.h"
#include "runtime/text.h"
#include "templates/appl_office.h"

namespace zorkanca {

/// Names no file that exists.
inline constexpr TextView kInvalidTemplateName = u"Neplatný název šablony !";

/// The arguments that all exports with a template have in common, under their published names.
struct TemplateArguments {
  Text rsZorApl{};    ///< code of the suite's application that owns the lists
  Text rsTemplate{};  ///< as above; receives the path of the template that was settled on
  bool rbAdmin = false;
  Text rsListCaption{};  ///< of the dialog
  bool rbSupply = false;
};

class TemplateChoice {
 public:
  /// Looks the name up; nobody is asked yet.
  /// @param kind  lists show the templates of this application. Errors: those of the registry.
  TemplateChoice(const ExportContext& context, ApplOffice kind, TemplateArguments& arguments);

  /// True when a file was named and found; `rsTemplate` is its path then.
  bool IsFile() const { return source_ == Source::kFile; }
  /// Stops the export when a file was named that is none. Errors: as `Settle`.
  void RequireExisting() const;
  /// Settles `rsTemplate`, by asking the user if need be. @return false when the user chose nothing
  /// Errors: stops the export when the name is invalid.
  bool Settle();

 private:
  enum class Source { kFile, kList, kNothing };

  Source FindFile();
  Source Missing(const std::vector<Text>& places);

  const ExportContext& context_;
  ApplOffice kind_;
  TemplateArguments& arguments_;
  Text listName_;
  Source source_;
  std::optional<Error> missing_;  // what was looked for in vain
};

}  // namespace zorkanca
