#pragma once

#include "base/AutomationError.h"
#include "doubles/ExcelFiles.h"
#include "doubles/MemoryFileStore.h"
#include "office/embedded/excel/EmbeddedExcel.h"
#include "office/model/excel/Application.h"
#include "office/model/excel/Names.h"
#include "office/model/excel/Range.h"
#include "office/model/excel/Shapes.h"
#include "office/model/excel/Workbook.h"
#include "office/model/excel/Worksheet.h"

#include <functional>
#include <string>

namespace mergeloom {

/// Tests with an open workbook of the engine.
struct OpenWorkbook {
    explicit OpenWorkbook(const std::string& bytes = "") : files{{{"/book.xlsx", bytes}}} {
        workbook =
            bytes.empty() ? application->Workbooks()->Add("") : application->Workbooks()->Open("/book.xlsx");
    }

    excel::RangePtr cell(int row, int column, int sheet = 1) const {
        return workbook->Worksheets()->Item(sheet)->Cells(row, column);
    }
    /// Saves the workbook and returns one of its parts.
    std::string savedPart(const std::string& partName) {
        workbook->SaveAs("/saved.xlsx", excel::XlFileFormat::xlOpenXMLWorkbook);
        return opc::Package::read(files.files["/saved.xlsx"], "/saved.xlsx").readPart(partName);
    }

    MemoryFileStore files;
    excel::ApplicationPtr application = embedded::makeExcelApplication(files);
    excel::WorkbookPtr workbook;
};

/// Returns the error that a call raises, or "no error".
inline std::string errorOf(const std::function<void()>& call) {
    try {
        call();
    } catch (const AutomationError& error) {
        return error.description();
    }
    return "no error";
}

}  // namespace mergeloom
