#pragma once

#include "StructureTest.h"
#include "base/Text.h"
#include "doubles/ExcelFiles.h"
#include "office/factory/OfficeFactory.h"
#include "office/model/excel/Names.h"
#include "office/model/excel/Range.h"
#include "office/model/excel/Shapes.h"
#include "office/model/excel/Workbook.h"
#include "office/model/excel/Worksheet.h"

#include <memory>
#include <set>
#include <string>

namespace mergeloom {

inline constexpr int kLastRow = 1048576;
inline constexpr int kLastColumn = 16384;

/// Returns a picture file of that many pixels (GIF), three quarters of a point each.
inline std::string pictureFile(int width, int height) {
    const auto number = [](int value) {
        return std::string{static_cast<char>(value & 0xFF), static_cast<char>(value >> 8)};
    };
    return "GIF89a" + number(width) + number(height) + std::string(3, '\0') + ";";
}

/// Tests with an open workbook, and a structure document with its tree.
class ExcelDropTest : public StructureTest {
  protected:
    /// Opens an empty workbook, or one whose sheet holds this XML.
    void open(const std::string& sheetXml = "") {
        if (sheetXml.empty()) {
            application = makeExcelApplication(OfficeKind::Embedded, files);
            workbook = application->Workbooks()->Add("");
        } else {
            openFile(workbookFile({{.name = "Sheet1", .xml = sheetXml}}));
        }
    }
    void openFile(const std::string& bytes) {
        files.files["/given.xlsx"] = bytes;
        application = makeExcelApplication(OfficeKind::Embedded, files);
        workbook = application->Workbooks()->Open("/given.xlsx");
    }
    /// Opens a workbook with merged cells.
    void openMerged(const std::string& area) {
        open("<sheetData/><mergeCells count=\"1\"><mergeCell ref=\"" + area + "\"/></mergeCells>");
    }

    bool drop(const TreeNode& dropped, DocumentType type = DocumentType::ByView,
              const FieldKeys* fields = nullptr) {
        CNodeDropper dropper{errors, messages, [&](const std::string& image) { return pictures[image]; },
                             progress, dialog};
        return dropper.NodeDrop(dropped, workbook, xmlNodes, dialog != nullptr, type, fields);
    }

    excel::WorksheetPtr sheet() { return workbook->Worksheets()->Item(1); }
    excel::RangePtr cell(int row, int column) { return sheet()->Cells(row, column); }
    void goTo(int row, int column) { cell(row, column)->Select(); }
    /// Returns the address of the active cell, such as "B3".
    std::string active() { return replaceAll(application->ActiveCell()->AddressLocal(), "$", ""); }

    /// Returns the texts of ten rows and six columns: a line for each row up to the last one with a text, "|"
    /// between the cells up to the last one with a text.
    std::string cells(int firstRow = 1, int firstColumn = 1) {
        std::string shown;
        std::string emptyRows;
        for (int row = firstRow; row < firstRow + 10; ++row) {
            const std::string texts = textsOfRow(row, firstColumn);
            emptyRows += texts + "\n";
            if (texts.empty()) continue;
            shown += emptyRows;
            emptyRows.clear();
        }
        return shown;
    }
    /// Returns the names of the workbook and their cells, such as "ammPrice=B3 ", in alphabetical order.
    std::string names() {
        std::set<std::string> sorted;
        const excel::NamesPtr all = workbook->Names();
        for (int number = 1; number <= all->Count(); ++number) {
            const excel::DefinedNamePtr name = all->Item(number);
            const std::string formula = replaceAll(name->RefersToLocal(), "$", "");
            sorted.insert(name->Name() + replaceAll(formula, "Sheet1!", ""));
        }
        std::string shown;
        for (const std::string& name : sorted)
            shown += name + " ";
        return shown;
    }
    /// Returns the pictures and their cells, such as "ammLogo:B3 ", from back to front.
    std::string shapes() {
        std::string shown;
        const excel::ShapesPtr all = sheet()->Shapes();
        for (int number = 1; number <= all->Count(); ++number) {
            const excel::ShapePtr shape = all->Item(number);
            shown += shape->Name() + ":" + replaceAll(shape->TopLeftCell()->AddressLocal(), "$", "") + " ";
        }
        return shown;
    }

    excel::ApplicationPtr application;
    excel::WorkbookPtr workbook;

  private:
    std::string textsOfRow(int row, int firstColumn) {
        std::string shown;
        std::string empty;
        for (int column = firstColumn; column < firstColumn + 6; ++column) {
            const std::string text = cell(row, column)->Value();
            if (!text.empty()) {
                shown += empty + text;
                empty.clear();
            }
            empty += "|";
        }
        return shown;
    }
};

}  // namespace mergeloom
