// What copying and pasting mean for sheets.
#pragma once

#include "excel/open_workbook.h"

namespace zorkanca::excel {

/// What a range gives to the clipboard: whole rows, or a part of an imported text.
/// Errors: 438 for anything else.
Clipboard CopiedFrom(const std::shared_ptr<OpenWorkbook>& workbook, std::size_t sheet, const CellArea& area);

/// Pastes rows below each other, or an import, at a place. Errors: 1004 when nothing was copied or it does not fit; 438
/// for rows of another sheet.
/// @param withFormats  false: contents alone
void PasteAt(const Clipboard& clipboard, OpenWorkbook& workbook, std::size_t sheet, CellAddress place,
             std::int32_t copies, bool withFormats);

/// `Worksheet.Paste`: fills the selection. Errors: as above.
void PasteAtSelection(OpenWorkbook& workbook, std::size_t sheet);

}  // namespace zorkanca::excel
