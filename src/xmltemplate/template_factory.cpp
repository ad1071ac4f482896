#include "xmltemplate/template_factory.h"

#include <utility>

#include "runtime/error.h"
#include "xmltemplate/template_text.h"

namespace zorkanca {

namespace {

constexpr TextView kReadingFailed = u"Došlo k chybě při otevírání souboru šablony: ";
constexpr TextView kAddingFailed = u"Došlo k chybě při přidávání listu ";
constexpr TextView kComposingFailed = u"Došlo k chybě při sestavování XML dokumentu: ";
constexpr TextView kSavingFailed = u"Došlo k chybě při ukládání XML dokumentu: ";
constexpr TextView kNoWorksheet = u"Není definován ani jeden list!";

Text WithoutComments(TextView text) {
  return RemoveBlankLines(RemoveEnclosed(Text(text), kCommentStart, kCommentEnd));
}

Text UnknownKeyMessage(TextView key) {
  return Text(u"List s označením \"").append(key).append(u"\" nebyl v šabloně nalezen\u00A0!");
}

// The message about the error being handled.
Text FailureMessage(TextView failure) {
  const Error error = *ErrorBeingHandled();
  Text message(failure);
  message.append(kCrLf);
  AppendDecimal(message, error.number());
  return message.append(u" - ").append(error.description());
}

}  // namespace

bool cExcel2003XmlTemplateFactory::ReadTemplateFile(TextView sFileName) {
  try {
    const auto stream = platform_.files.OpenTextFile(sFileName, IoMode::kForReading, false, TextFormat::kAnsi);
    Text text = stream->ReadAll();
    stream->Close();
    template_ = WorkbookTemplate(std::move(text));
    return true;
  } catch (...) {
    // This one message goes by the title that the application gives to all that have none.
    platform_.userInterface.Show(
        {.text = FailureMessage(kReadingFailed), .title = Text(), .icon = MessageIcon::kCritical});
    return false;
  }
}

WorksheetReference cExcel2003XmlTemplateFactory::AddWorksheet(Text sWorksheetName, TextView sWorksheetKey) {
  const Text failure = Text(kAddingFailed) + u"\"" + sWorksheetName + u"\"";
  WorksheetReference added;
  Succeeds(failure, [&] {
    const WorksheetReference worksheet = worksheets_.Add(std::move(sWorksheetName));
    worksheet->XmlProcessFactory(this);
    const TextView sheet = template_.SheetText(sWorksheetKey, platform_.locale);
    if (sheet.empty()) return ShowFailure(UnknownKeyMessage(sWorksheetKey));
    worksheet->Load(sheet);
    added = worksheet;
  });
  return added;
}

bool cExcel2003XmlTemplateFactory::SaveWorkbook(TextView fileName) {
  if (worksheets_.Count() == 0) {
    ShowFailure(Text(kNoWorksheet));
    return false;
  }
  std::vector<Text> workbook;
  if (!Succeeds(kComposingFailed, [&] { workbook = ComposeWorkbook(); })) return false;
  return Succeeds(kSavingFailed, [&] {
    const auto stream = platform_.files.OpenTextFile(fileName, IoMode::kForWriting, true, TextFormat::kAnsi);
    for (const Text& part : workbook) {
      if (&part != &workbook.front()) stream->Write(kCrLf);
      stream->Write(part);
    }
    stream->Close();
  });
}

// The workbook's parts, between each two of which a line ends.
std::vector<Text> cExcel2003XmlTemplateFactory::ComposeWorkbook() const {
  std::vector<Text> parts = {Text(TrimTrailingBlankLines(WithoutComments(template_.header())))};
  for (const WorksheetReference& worksheet : worksheets_) parts.push_back(worksheet->Compose());
  parts.push_back(WithoutComments(template_.footer()));
  return parts;
}

// Shows the failure, if there is one, with what happened.
bool cExcel2003XmlTemplateFactory::Succeeds(TextView failure, const std::function<void()>& body) {
  try {
    body();
    return true;
  } catch (...) {
    ShowFailure(FailureMessage(failure));
    return false;
  }
}

void cExcel2003XmlTemplateFactory::ShowFailure(Text message) {
  Text title = message;
  platform_.userInterface.Show(
      {.text = std::move(message), .title = std::move(title), .icon = MessageIcon::kExclamation});
}

}  // namespace zorkanca
