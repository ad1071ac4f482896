#include "excel/excel_engine.h"

#include <sys/stat.h>

#include <algorithm>
#include <list>

#include "excel/grid/excel_errors.h"
#include "excel/open_workbook.h"
#include "excel/tables/blank_package.h"
#include "excel/tables/local_names.h"
#include "files/native_path.h"
#include "opc/core_properties.h"
#include "opc/document_kind.h"
#include "opc/temporary_package.h"
#include "platform/paths.h"
#include "runtime/error.h"

namespace zorkanca {

namespace {

Package OfToday(Package package) {
  SetDayOfOrigin(package, Today());
  return package;
}

}  // namespace

struct ExcelEngine::Environment {
  const Locale& locale;
  LibreOfficeConverter converter;
  ExcelWatch watch;
};

// The application with its open workbooks, the one used last first.
class EngineExcel final : public ExcelApplication, public std::enable_shared_from_this<EngineExcel> {
 public:
  explicit EngineExcel(std::shared_ptr<const ExcelEngine::Environment> environment)
      : environment_(std::move(environment)), clipboard_(std::make_shared<excel::Clipboard>()) {}

  ExcelWorkbookReference AddWorkbook(TextView Template) override;
  void OpenText(const OpenTextArguments& arguments) override;
  ExcelWorkbookReference Workbooks(TextView name) override;
  ExcelWorkbookReference ActiveWorkbook() override;
  ExcelWorkbookReference OpenFile(TextView path);

  bool Visible() const override { return visible_; }
  void Visible(bool visible) override { visible_ = visible; }
  bool ScreenUpdating() const override { return screenUpdating_; }
  void ScreenUpdating(bool updating) override { screenUpdating_ = updating; }
  void Interactive(bool) override {}  // nobody can interrupt: there is no window
  void CutCopyMode(bool mode) override;
  ExcelWindowState WindowState() const override { return windowState_; }
  void WindowState(ExcelWindowState state) override { windowState_ = state; }
  ExcelWindowState ActiveWindowState() const override;
  void ActiveWindowState(ExcelWindowState state) override;
  void WindowVisible(TextView name, bool visible) override;

 private:
  const Locale& locale() const { return environment_->locale; }
  Package Read(const std::string& path) const;
  ExcelWorkbookReference Add(Package package, Text fullName);
  ExcelWorkbookReference Find(TextView name) const;
  Text FreshName(const Text& stem);
  void RequireOpenWorkbook() const;

  std::shared_ptr<const ExcelEngine::Environment> environment_;
  std::shared_ptr<excel::Clipboard> clipboard_;
  std::list<ExcelWorkbookReference> workbooks_;
  std::int64_t lastNumber_ = 0;
  bool visible_ = false;
  bool screenUpdating_ = true;
  ExcelWindowState windowState_ = ExcelWindowState::kNormal;
  ExcelWindowState activeWindowState_ = ExcelWindowState::kNormal;
};

// Workbooks of other formats become ours first; what the file is called does not matter.
Package EngineExcel::Read(const std::string& path) const {
  struct stat status {};
  if (stat(path.c_str(), &status) != 0) {
    RaiseExcelError(Text(u"The file ").append(FromNativePath(path)).append(u" could not be found."));
  }
  constexpr std::string_view kBinary = "application/vnd.ms-excel.sheet.binary.macroEnabled.main";
  if (DocumentKindOf(path) == DocumentKind::kPackage) {
    Package package = Package::Open(path);
    if (package.ContentTypeOf(package.MainPart()) != kBinary) return package;
  }
  const TemporaryPackage converted(".xlsx");  // the package keeps the file open
  environment_->converter.ToOpenXml(path, converted.path());
  return Package::Open(converted.path());
}

ExcelWorkbookReference EngineExcel::Add(Package package, Text fullName) {
  const std::weak_ptr<EngineExcel> weak = weak_from_this();
  const auto self = [weak] {
    std::shared_ptr<EngineExcel> application = weak.lock();
    if (!application) RaiseExcelError(ExcelError::kObjectRequired, u"Object required");
    return application;
  };
  const auto is = [](const ExcelWorkbook& workbook) {
    return [&workbook](const ExcelWorkbookReference& each) { return each.get() == &workbook; };
  };
  excel::WorkbookHolder holder{
      .application = [self] { return self(); },
      .activate =
          [self, is](const ExcelWorkbook& workbook) {
            auto& all = self()->workbooks_;
            const auto place = std::find_if(all.begin(), all.end(), is(workbook));
            if (place != all.end()) all.splice(all.begin(), all, place);
          },
      .isActive = [self](const ExcelWorkbook& workbook) { return self()->workbooks_.front().get() == &workbook; },
      .close =
          [weak, is](const ExcelWorkbook& workbook) {
            if (const auto application = weak.lock()) application->workbooks_.remove_if(is(workbook));
          },
      .clipboard = clipboard_,
      .converter = environment_->converter,
      .locale = locale(),
      .watch = environment_->watch};
  auto content = std::make_unique<excel::WorkbookContent>(std::move(package), locale(), environment_->watch);
  workbooks_.push_front(
      std::make_shared<excel::OpenWorkbook>(std::move(content), std::move(fullName), std::move(holder)));
  return workbooks_.front();
}

Text EngineExcel::FreshName(const Text& stem) {
  Text name;
  do {
    name = stem + DecimalText(++lastNumber_);
  } while (Find(name));
  return name;
}

ExcelWorkbookReference EngineExcel::AddWorkbook(TextView Template) {
  if (Template.empty()) return Add(excel::BlankWorkbook(locale()), FreshName(excel::NewWorkbookName(locale())));
  const std::string path = AbsolutePath(ToNativePath(Template));
  return Add(OfToday(Read(path)), FreshName(Text(GetBaseName(FromNativePath(path)))));
}

ExcelWorkbookReference EngineExcel::OpenFile(TextView path) {
  const std::string native = AbsolutePath(ToNativePath(path));
  const Text fullName = FromNativePath(native);
  for (const ExcelWorkbookReference& each : workbooks_) {
    if (each->FullName() == fullName) return each;
  }
  return Add(Read(native), fullName);
}

void EngineExcel::OpenText(const OpenTextArguments& arguments) {
  const std::string path = AbsolutePath(ToNativePath(arguments.Filename));
  const Text fullName = FromNativePath(path);
  if (Find(GetFileName(fullName))) {
    RaiseExcelError(Text(u"A workbook named ").append(GetFileName(fullName)).append(u" is open already."));
  }
  const auto import = excel::ImportedText::Open(path, arguments, locale(), environment_->watch);
  const auto workbook = std::static_pointer_cast<excel::OpenWorkbook>(Add(excel::BlankWorkbook(locale()), fullName));
  excel::SheetModel& sheet = workbook->Sheet(0);
  const excel::CellArea area{1, 1, std::max(import->rows(), 1), import->columns()};
  sheet.Lay({.area = area, .source = import, .withFormats = true});
  sheet.isImport = true;
}

ExcelWorkbookReference EngineExcel::Find(TextView name) const {
  const auto found = std::find_if(workbooks_.begin(), workbooks_.end(), [&](const ExcelWorkbookReference& each) {
    return EqualsIgnoringCase(each->Name(), name);
  });
  return found == workbooks_.end() ? nullptr : *found;
}

ExcelWorkbookReference EngineExcel::Workbooks(TextView name) {
  ExcelWorkbookReference workbook = Find(name);
  if (!workbook) Raise(RuntimeError::kSubscriptOutOfRange);
  return workbook;
}

void EngineExcel::RequireOpenWorkbook() const {
  if (workbooks_.empty()) Raise(RuntimeError::kObjectNotSet);
}

ExcelWorkbookReference EngineExcel::ActiveWorkbook() {
  RequireOpenWorkbook();
  return workbooks_.front();
}

void EngineExcel::CutCopyMode(bool mode) {
  if (mode) RaiseUnsupportedExcelMember(u"Application.CutCopyMode = True");
  *clipboard_ = std::monostate();
}

ExcelWindowState EngineExcel::ActiveWindowState() const {
  RequireOpenWorkbook();
  return activeWindowState_;
}

void EngineExcel::ActiveWindowState(ExcelWindowState state) {
  RequireOpenWorkbook();
  activeWindowState_ = state;
}

void EngineExcel::WindowVisible(TextView name, bool) {
  Workbooks(name);  // without windows there is nothing to show
}

ExcelEngine::ExcelEngine(const Locale& locale, LibreOfficeConverter converter, ExcelWatch watch)
    : environment_(std::make_shared<const Environment>(Environment{locale, std::move(converter), std::move(watch)})) {}

ExcelEngine::~ExcelEngine() = default;

ExcelApplicationReference ExcelEngine::AttachExcel() {
  if (!running_) Raise(RuntimeError::kCannotCreateObject);
  return running_;
}

ExcelApplicationReference ExcelEngine::StartExcel() {
  if (!running_) running_ = std::make_shared<EngineExcel>(environment_);
  return running_;
}

ExcelWorkbookReference ExcelEngine::GetWorkbook(TextView path) {
  StartExcel();
  return running_->OpenFile(path);
}

}  // namespace zorkanca
