// The template lists as the exports and client programs use them: choosing a template in the dialog, and registering
// the templates that the suite supplies.
#pragma once

#include <memory>

#include "platform/platform.h"
#include "runtime/text.h"
#include "templates/appl_office.h"

namespace zorkanca {

class frmSP_SablOffice;

/// Arguments of TemplateList under their published names.
struct TemplateListArguments {
  Text rsZorApl{};  ///< code of the suite application that owns the lists
  ApplOffice TypeOfApplOffice = ApplOffice::AllTypes;
  bool rbAdmin = false;
  Text rsListName{};  ///< receives the default list's name when it is blank
  Text rsCaption{};   ///< of the dialog; empty: the dialog keeps its own
  bool Supply = false;
};

/// Owns the one list dialog that all calls share; it is made on the first call.
class TemplateLists {
 public:
  explicit TemplateLists(const Platform& platform);
  ~TemplateLists();

  /// Lets the user choose a template. An error goes to the error log and is shown; nothing is raised.
  /// @return its full file name; empty when nothing was chosen or could be
  Text TemplateList(TemplateListArguments& arguments);

  /// Registers the templates of the supply file. @return false when the list or the file cannot be read
  bool SupplyTemplateList(Text& rsZorApl, ApplOffice typeOfApplOffice, Text& rsListName);

 private:
  Text Choose(TemplateListArguments& arguments);

  Platform platform_;
  std::unique_ptr<frmSP_SablOffice> dialog_;
};

}  // namespace zorkanca
