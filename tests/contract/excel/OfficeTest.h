#pragma once

#include "base/AutomationError.h"
#include "contract/ContractOffices.h"
#include "doubles/ExcelFiles.h"
#include "doubles/MemoryFileStore.h"
#include "office/model/excel/Names.h"
#include "office/model/excel/Range.h"
#include "office/model/excel/Shapes.h"
#include "office/model/excel/Workbook.h"
#include "office/model/excel/Worksheet.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <functional>
#include <iterator>
#include <string>
#include <vector>

namespace mergeloom {

/// Returns the number and the sentence of the error that a call raises.
inline AutomationError errorOf(const std::function<void()>& call) {
    try {
        call();
    } catch (const AutomationError& error) {
        return error;
    }
    return {0, "no error"};
}

/// Tests the contract of Excel's object model for each office.
class OfficeTest : public testing::TestWithParam<OfficeKind> {
  protected:
    void SetUp() override { application = start(GetParam()); }

    excel::ApplicationPtr start(OfficeKind kind) { return startContractExcel(kind, files); }
    /// Returns true if the office records steps. Excel does not record them for the calls of other programs.
    static bool hasUndo() { return GetParam() != OfficeKind::Com; }
    void add() { workbook = application->Workbooks()->Add(""); }
    void open(const std::string& bytes) {
        files.files["/book.xlsx"] = bytes;
        workbook = application->Workbooks()->Open("/book.xlsx");
    }
    /// Saves the workbook and opens the file in the embedded office, which reads it independently.
    excel::WorkbookPtr reopened() {
        workbook->SaveAs("/saved.xlsx", excel::XlFileFormat::xlOpenXMLWorkbook);
        reader = start(OfficeKind::Embedded);
        return reader->Workbooks()->Open("/saved.xlsx");
    }
    void putPicture(const std::string& sample) {
        std::ifstream stream(std::string(MERGELOOM_SAMPLES) + "/pictures/" + sample, std::ios::binary);
        files.files["/" + sample] = {std::istreambuf_iterator<char>(stream), {}};
    }

    excel::WorksheetPtr sheet(int number = 1) const { return workbook->Worksheets()->Item(number); }
    excel::RangePtr cell(int row, int column, int number = 1) const {
        return sheet(number)->Cells(row, column);
    }
    std::string active() const {
        const excel::RangePtr found = application->ActiveCell();
        return found->Worksheet()->Name() + "!" + found->AddressLocal();
    }

    MemoryFileStore files;
    excel::ApplicationPtr application;
    excel::ApplicationPtr reader;
    excel::WorkbookPtr workbook;
};

}  // namespace mergeloom
