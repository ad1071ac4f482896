#include "export/word_export.h"

#include "export/export_failure.h"
#include "export/mail_merge.h"

namespace zorkanca {

bool MergeIntoTemplate(ExportSession& session, TemplateChoice& choice, TemplateCheck& check,
                       WordExportArguments& arguments) {
  if (!choice.Settle()) return false;
  check.Chosen(arguments.rsTemplate);
  session.ShowPointer(MousePointer::kHourglass);
  MakeMailDocumentArguments merge{.rsTemplate = arguments.rsTemplate,
                                  .rsDataSourceFile = arguments.rsSourceFile,
                                  .MultiDocument = arguments.MultiDocument,
                                  .rbSetAppVisible = arguments.rbSetAppVisible};
  const bool filled = MailMergeRun(session.context(), merge).Run();
  arguments.roRetDoc = merge.roRetDoc;
  if (!filled) StopExport(kDocumentNotFilled);
  return true;
}

}  // namespace zorkanca
