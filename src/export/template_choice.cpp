#include "export/template_choice.h"

#include <optional>

#include "export/export_failure.h"
#include "foundation/registry_access.h"
#include "platform/paths.h"
#include "runtime/error.h"

namespace zorkanca {

namespace {

constexpr TextView kInstallationKey = u"SOFTWARE\\QRD\\Zorix\\Instalace";
constexpr TextView kDefaultFolder = u"C:\\Program Files\\QRD\\Zorix\\Sablony";

Text InSharedFolder(const ExportContext& context, TextView name) {
  const RegistryAccess access(context.platform.registry);
  const Text folder = access.ReadValue(RegistryHive::kLocalMachine, kInstallationKey, u"sablony", kDefaultFolder);
  return PathInFolder(context.platform.files, folder, name);
}

// The list that a name in brackets means; a bracket that nothing closes takes the rest.
std::optional<Text> ListNameIn(TextView name) {
  const std::size_t open = name.find(u'[');
  if (open == TextView::npos || name.find(u']') == TextView::npos) return std::nullopt;
  const TextView rest = name.substr(open + 1);
  return Text(Trim(rest.substr(0, rest.find(u']'))));
}

}  // namespace

TemplateChoice::TemplateChoice(const ExportContext& context, ApplOffice kind, TemplateArguments& arguments)
    : context_(context), kind_(kind), arguments_(arguments), source_(Source::kList) {
  if (const std::optional<Text> list = ListNameIn(arguments.rsTemplate)) {
    listName_ = *list;
  } else {
    source_ = FindFile();
  }
}

TemplateChoice::Source TemplateChoice::FindFile() {
  Text& name = arguments_.rsTemplate;
  Text path = name;
  if (GetParentFolderName(name).empty()) {
    if (IsBlank(name)) return Source::kList;
    path = InSharedFolder(context_, name);
  }
  if (!context_.platform.files.FileExists(path)) return Source::kNothing;
  name = std::move(path);
  return Source::kFile;
}

bool TemplateChoice::Settle() {
  if (source_ == Source::kNothing) StopExport(kInvalidTemplateName);
  if (source_ == Source::kFile) return true;
  if (!context_.templateList) Raise(RuntimeError::kNotSupported, u"not supported: TemplateList");
  TemplateListArguments list{.rsZorApl = arguments_.rsZorApl,
                             .TypeOfApplOffice = kind_,
                             .rbAdmin = arguments_.rbAdmin,
                             .rsListName = listName_,
                             .rsCaption = arguments_.rsListCaption,
                             .Supply = arguments_.rbSupply};
  arguments_.rsTemplate = context_.templateList(list);
  return !arguments_.rsTemplate.empty();
}

}  // namespace zorkanca
