#include "office/embedded/excel/ExcelSaveFormats.h"

#include "office/model/excel/Enumerations.h"

#include <array>

namespace mergeloom::embedded {

namespace {

using excel::XlFileFormat;

constexpr auto kFormats = std::to_array<SaveFormat>({
    {static_cast<int>(XlFileFormat::xlOpenXMLWorkbook), "xlsx",
     "application/vnd.openxmlformats-officedocument.spreadsheetml.sheet.main+xml", false},
    {static_cast<int>(XlFileFormat::xlOpenXMLWorkbookMacroEnabled), "xlsm",
     "application/vnd.ms-excel.sheet.macroEnabled.main+xml", true},
    {static_cast<int>(XlFileFormat::xlOpenXMLTemplate), "xltx",
     "application/vnd.openxmlformats-officedocument.spreadsheetml.template.main+xml", false},
    {static_cast<int>(XlFileFormat::xlOpenXMLTemplateMacroEnabled), "xltm",
     "application/vnd.ms-excel.template.macroEnabled.main+xml", true},
});

}  // namespace

const SaveFormats& excelSaveFormats() {
    static const SaveFormats formats{"workbook", kFormats};
    return formats;
}

}  // namespace mergeloom::embedded
