#pragma once

namespace mergeloom::excel {

/// XlFileFormat: the numbers pass through SaveAs unchanged. Only those that code uses have names here.
enum class XlFileFormat : int {
    xlExcel12 = 50,
    xlOpenXMLWorkbook = 51,
    xlOpenXMLWorkbookMacroEnabled = 52,
    xlOpenXMLTemplateMacroEnabled = 53,
    xlOpenXMLTemplate = 54,
    xlExcel8 = 56,
};

/// Decides in Workbook.Close about changes that were not saved.
enum class SaveChanges { No, Yes };

/// MsoShapeType; every other kind of shape has its own number.
enum class MsoShapeType : int { msoChart = 3, msoPicture = 13, msoShapeTypeMixed = -2 };

}  // namespace mergeloom::excel
