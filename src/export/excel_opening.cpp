#include "export/excel_opening.h"

#include "export/office_opening.h"

namespace zorkanca {

namespace {

constexpr OpeningTexts kTexts = {
    .opening = u"Otvírá se nový sešit v aplikaci MS Excel ...",
    .opened = u"Dokončeno otvírání nového sešitu aplikaci MS Excel",
    .failed = u"Chyba při otvírání sešitu v aplikaci MS Excel: ",
};

}  // namespace

bool OpenExcelWorkbook(const ExportContext& context, GetOpenXlsArguments& arguments) {
  arguments.roRetXls = nullptr;
  const bool opened = TellOfOpening(context, kTexts, /*showsHourglass=*/true, [&] {
    const auto attached =
        AttachOrStart(context.platform.office, &OfficeApplications::AttachExcel, &OfficeApplications::StartExcel);
    const OpeningView view = {.visible = arguments.rVisible,
                              .visibleWithinDataProcess = context.settings.ExcelVisibleWithinDataProcess,
                              .screenUpdating = arguments.rbScreenUpdating};
    OpenUnseen(attached, view, [&](ExcelApplication& excel) {
      arguments.roRetXls = excel.AddWorkbook(IsBlank(arguments.rsTemplate) ? TextView() : arguments.rsTemplate);
    });
  });
  if (!opened) arguments.roRetXls = nullptr;
  return opened;
}

}  // namespace zorkanca
