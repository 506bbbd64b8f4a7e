#include "office/embedded/excel/WorkbookContent.h"

#include "base/AutomationError.h"
#include "base/Text.h"
#include "office/model/excel/Range.h"
#include "office/opc/UnreadableFile.h"

#include <algorithm>
#include <cstdint>
#include <utility>

namespace mergeloom::embedded {

namespace {

StyleSheet readStyles(opc::Package& package, const std::string& workbookPart) {
    const std::string partName = package.relatedPart(workbookPart, "styles");
    if (partName.empty()) return {};
    return {package.readPart(partName), partName, package.fileName()};
}

SharedStrings readSharedStrings(opc::Package& package, const std::string& workbookPart) {
    const std::string partName = package.relatedPart(workbookPart, "sharedStrings");
    if (partName.empty())
        opc::raiseUnreadable(package.fileName(), "it refers to a shared text, but it has none");
    return {package.readPart(partName), partName, package.fileName()};
}

std::size_t indexOfSharedText(const StoredCell& cell) {
    const bool isNumber =
        !cell.value.empty() && cell.value.find_first_not_of("0123456789") == std::string::npos;
    return isNumber && cell.value.size() < 10 ? std::stoul(cell.value) : std::string::npos;
}

[[noreturn]] void refuse(const std::string& sentence) {
    throw AutomationError(kApplicationDefined, sentence);
}

}  // namespace

WorkbookContent::WorkbookContent(opc::Package package, FileStore& files)
    : package_(std::move(package)),
      files_(files),
      workbook_(package_, undo_),
      styles_(readStyles(package_, workbook_.partName())),
      calculationChain_(package_, workbook_.partName(), undo_),
      hasCalculated_(!package_.relatedPart(workbook_.partName(), "calcChain").empty()),
      sheets_(workbook_.sheets().size()) {}

SheetContent& WorkbookContent::sheet(std::size_t index) {
    std::unique_ptr<SheetContent>& content = sheets_.at(index);
    if (!content) {
        content = std::make_unique<SheetContent>(workbook_.sheets()[index],
                                                 SheetDependencies{package_, pictures_, styles_, undo_});
    }
    return *content;
}

std::optional<std::size_t> WorkbookContent::worksheetNamed(const std::string& name) const {
    const std::vector<SheetEntry>& all = workbook_.sheets();
    const auto found = std::ranges::find_if(all, [&](const SheetEntry& entry) {
        return entry.kind == SheetKind::Worksheet && equalsIgnoringCase(entry.name, name);
    });
    if (found == all.end()) return {};
    return static_cast<std::size_t>(found - all.begin());
}

bool WorkbookContent::isWorksheetActive() const {
    return workbook_.sheets()[workbook_.activeSheet()].kind == SheetKind::Worksheet;
}

std::size_t WorkbookContent::activeWorksheet() const {
    const std::size_t active = workbook_.activeSheet();
    if (!isWorksheetActive()) {
        refuse("The active sheet '" + workbook_.sheets()[active].name + "' has no cells.");
    }
    return active;
}

void WorkbookContent::activate(std::size_t index) {
    const std::size_t former = workbook_.activeSheet();
    if (former == index) return;
    if (workbook_.sheets().at(index).hidden) {
        refuse("The sheet '" + workbook_.sheets()[index].name + "' is hidden.");
    }
    if (isWorksheetActive()) setTabSelected(sheet(former).part(), false);
    setTabSelected(sheet(index).part(), true);
    workbook_.setActiveSheet(index);
}

std::string WorkbookContent::textOf(std::size_t sheetIndex, const excel::CellPosition& cell) {
    const StoredCell stored = sheet(sheetIndex).part().cell(cell);
    if (stored.type == CellType::Boolean) return stored.value == "1" ? "TRUE" : "FALSE";
    if (stored.type != CellType::SharedText) return stored.value;
    if (!sharedStrings_) sharedStrings_ = readSharedStrings(package_, workbook_.partName());
    return sharedStrings_->text(indexOfSharedText(stored));
}

void WorkbookContent::setText(std::size_t sheetIndex, const excel::CellPosition& cell,
                              const std::string& text) {
    SheetContent& content = sheet(sheetIndex);
    if (content.merged().isCovered(cell)) return;
    if (utf16Length(text) > excel::kMaxCellText) refuse("A cell cannot hold a text of that length.");
    const StoredCell stored = prepareWriting(content, cell);
    const std::string written = content.tables().allowedText(cell, text);
    content.part().setText(cell, written);
    content.tables().textWasSet(cell, written);
    if (!stored.formula.empty()) calculationChain_.remove(content.entry().sheetId, cell);
}

void WorkbookContent::setContent(std::size_t sheetIndex, const excel::CellPosition& cell,
                                 const CellContent& content) {
    SheetContent& sheetContent = sheet(sheetIndex);
    if (sheetContent.tables().isHeader(cell)) {
        refuse("The cell " + addressOf(cell) + " of the sheet '" + sheetContent.entry().name +
               "' is in the header of a table, which has to be a text.");
    }
    const StoredCell stored = prepareWriting(sheetContent, cell);
    sheetContent.part().setContent(cell, content);
    const bool hasFormula = !sheetContent.part().cell(cell).formula.empty();
    if (!stored.formula.empty() && !hasFormula) calculationChain_.remove(sheetContent.entry().sheetId, cell);
    if (hasFormula && stored.formula.empty()) calculationChain_.clear();
}

StoredCell WorkbookContent::prepareWriting(SheetContent& sheet, const excel::CellPosition& cell) {
    StoredCell stored = sheet.part().cell(cell);
    checkMayWrite(sheet, cell, stored);
    touch();
    // Any formula may refer to the cell, so the stored results may be outdated.
    if (hasCalculated_) workbook_.calculateOnLoad();
    return stored;
}

void WorkbookContent::fill(std::size_t sheetIndex, const excel::CellArea& area, const std::string& text) {
    if (std::int64_t{area.rows()} * area.columns() > excel::kMaxFilledCells) {
        refuse("The area " + addressOf(area) + " has too many cells to fill.");
    }
    for (int row = area.first.row; row <= area.last.row; ++row) {
        for (int column = area.first.column; column <= area.last.column; ++column)
            setText(sheetIndex, {row, column}, text);
    }
}

void WorkbookContent::checkMayWrite(SheetContent& sheet, const excel::CellPosition& cell,
                                    const StoredCell& stored) const {
    const std::string what = "The cell " + addressOf(cell) + " of the sheet '" + sheet.entry().name + "' ";
    if (sheet.protection().contents && styles_.isLocked(stored.style)) {
        refuse(what + "is protected. Take the sheet's protection off first.");
    }
    if (stored.arrayArea && stored.arrayArea->first != stored.arrayArea->last) {
        refuse(what + "is part of an array formula, which can only be changed as a whole.");
    }
    if (sheet.isInPivotTable(cell)) refuse(what + "is part of a pivot table.");
}

void WorkbookContent::storeParts() {
    calculationChain_.store();
    for (const std::unique_ptr<SheetContent>& content : sheets_) {
        if (content) content->store();
    }
    workbook_.store();
}

}  // namespace mergeloom::embedded
