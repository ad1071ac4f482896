#include "export/zor_office.h"

#include "foundation/folders.h"
#include "platform/paths.h"

namespace zorkanca {

namespace {

Text WorkFolderIn(FileSystem& files) {
  Text temporary = files.TemporaryFolder();
  if (temporary.empty()) temporary = u"C:\\";
  return BuildPath(files, temporary, u"Zorix");
}

}  // namespace

cZorOffice::cZorOffice(const Platform& platform)
    : templateLists_(platform),
      report_(platform),
      context_{.platform = platform,
               .workFolder = WorkFolderIn(platform.files),
               .separators = FindNumberSeparators(platform.locale),
               .report = &report_,
               .templateList = [this](TemplateListArguments& arguments) { return TemplateList(arguments); }} {
  FileSystem& files = platform.files;
  MakeFolder(files, context_.workFolder);
  files.ClearFolder(context_.workFolder, u"*.tmp");
  context_.settings = ReadOfficeSettings(platform.registry);
}

bool cZorOffice::HTMLExport(Database& DB, const Text& rsSELECT, HtmlExportArguments& arguments) {
  return Ended(u"HTMLExport", HtmlExport(context_, DB, rsSELECT, arguments).Run());
}

}  // namespace zorkanca
