#include "droppers/modExcelNamedRangeAdd.h"

#include "base/AutomationError.h"
#include "droppers/FurtherPlaceNames.h"
#include "droppers/modExcelNormalizeName.h"
#include "office/model/excel/Application.h"
#include "office/model/excel/Names.h"
#include "office/model/excel/Shapes.h"

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

namespace mergeloom {

namespace {

/// The size of a cell in a new workbook.
constexpr ColumnWidth kStandardColumn{8.43};
constexpr Points kStandardRow{15};
/// A pixel. Anything smaller is rounded to 0, which would hide the row or column.
constexpr Points kSmallest{0.75};

double columnWidthPerPoint(excel::Range& cell) {
    return cell.ColumnWidth().value / cell.Width().value;
}

double rowHeightPerPoint(excel::Range& cell) {
    return cell.RowHeight().value / cell.Height().value;
}

/// Shows a hidden row or column of the cell, since the picture takes its size from the cell.
void showCell(excel::Range& cell) {
    if (cell.Width().value <= 0) cell.SetColumnWidth(kStandardColumn);
    if (cell.Height().value <= 0) cell.SetRowHeight(kStandardRow);
}

/// Scales a picture down that is larger than the largest cell.
void keepWithinLargestCell(excel::Picture& picture, excel::Range& cell) {
    const double widest = excel::kWidestColumn.value / columnWidthPerPoint(cell);
    const double highest = excel::kHighestRow.value / rowHeightPerPoint(cell);
    const Points width = picture.Width();
    const Points height = picture.Height();
    const double factor = std::min(widest / width.value, highest / height.value);
    if (factor >= 1) return;
    picture.SetWidth({width.value * factor});
    picture.SetHeight({height.value * factor});
}

void fitColumn(excel::Range& cell, excel::Picture& picture) {
    const double width = std::max(picture.Width(), kSmallest).value * columnWidthPerPoint(cell);
    cell.SetColumnWidth(std::min(ColumnWidth{width}, excel::kWidestColumn));
}

void fitRow(excel::Range& cell, excel::Picture& picture) {
    const double height = std::max(picture.Height(), kSmallest).value * rowHeightPerPoint(cell);
    cell.SetRowHeight(std::min(Points{height}, excel::kHighestRow));
}

void takeWidthOf(excel::Picture& picture, excel::Range& cell) {
    const double formerWidth = picture.Width().value;
    const double formerHeight = picture.Height().value;
    picture.SetWidth(cell.Width());
    picture.SetHeight({formerHeight * (picture.Width().value / formerWidth)});
    // A column's width is a whole number of pixels, so the picture may have become wider, and too high.
    keepWithinLargestCell(picture, cell);
}

void place(excel::Picture& picture, excel::Range& cell, CellFit fit) {
    showCell(cell);
    keepWithinLargestCell(picture, cell);
    if (fit == CellFit::FitPicture) {
        fitColumn(cell, picture);
        fitRow(cell, picture);
    }
    picture.SetLeft(cell.Left());
    picture.SetTop(cell.Top());
    takeWidthOf(picture, cell);
    fitRow(cell, picture);
}

using RangeNames = FurtherPlaceNames<excel::Names>;

/// Returns the names of a field's places other than the one with that counter. A name that became free may
/// have taken ones after it.
std::vector<std::string> earlierNames(const RangeNames& names, std::int64_t counter) {
    std::vector<std::string> found;
    if (counter > 0) found.push_back(names.usable(0));
    for (std::int64_t number = 1; counter > 0 && (number <= counter || names.isTaken(number)); ++number) {
        if (number != counter) found.push_back(names.usable(number));
    }
    return found;
}

bool isOn(excel::Shape& shape, excel::Range& cell) {
    const excel::RangePtr corner = shape.TopLeftCell();
    return corner->Row() == cell.Row() && corner->Column() == cell.Column();
}

/// Deletes the pictures that earlier places of the field left on the cell, which has at most one. They have
/// those places' names, so the new picture, which replaces the one of its own name, would not find them. Only
/// the field's own names are looked up, so the cost does not depend on the number of pictures.
void deleteFormerPictures(excel::Range& cell, const std::vector<std::string>& names) {
    const excel::WorksheetPtr sheet = cell.Worksheet();
    for (const std::string& name : names) {
        const excel::ShapePtr shape = GetShapeByName(*sheet, name);
        if (shape && isOn(*shape, cell)) shape->Delete();
    }
}

}  // namespace

excel::ShapePtr GetShapeByName(excel::Worksheet& sheet, const std::string& name) {
    try {
        return sheet.Shapes()->Item(name);
    } catch (const AutomationError&) {
        return {};
    }
}

void InsertPictureFromFile(DropReports& reports, excel::Range& cell, const std::string& name,
                           const std::string& file, CellFit fit) {
    reports.trap({"modExcelNamedRangeAdd", "InsertPictureFromFile"}, [&] {
        const excel::WorksheetPtr sheet = cell.Worksheet();
        if (const excel::ShapePtr former = GetShapeByName(*sheet, name)) former->Delete();
        cell.Select();
        const excel::PicturePtr picture = sheet->Pictures()->Insert(file);
        picture->SetName(name);
        place(*picture, cell, fit);
        return true;
    });
}

excel::DefinedNamePtr ExcelNamedRangeAdd(DropReports& reports, excel::Workbook& workbook,
                                         const std::string& name, const NamedRangeContent& content) {
    excel::DefinedNamePtr added;
    std::string candidate;
    const auto comment = [&] { return "Bookmark Name = '" + candidate + "'"; };
    const auto add = [&] {
        std::string shownName = content.vstrPrefix + name;
        if (content.vfBoundValueUse) shownName += kBoundValueSuffix;
        const excel::NamesPtr names = workbook.Names();
        const RangeNames rangeNames{*names, std::string(kRangeNamePrefix) + shownName, ExcelNormalizeName};
        const std::int64_t counter = rangeNames.firstFreeCounter();
        candidate = rangeNames.usable(counter);

        const excel::RangePtr cell = workbook.Application()->ActiveCell();
        if (!content.vstrPictureFile.empty()) deleteFormerPictures(*cell, earlierNames(rangeNames, counter));
        added = names->Add(candidate, "=" + cell->AddressLocal());
        if (content.vstrPictureFile.empty()) {
            cell->SetValue("[" + shownName + "]");
        } else {
            InsertPictureFromFile(reports, *cell, candidate, content.vstrPictureFile, CellFit::FitPicture);
        }
        return true;
    };
    reports.trap({"modExcelNamedRangeAdd", "ExcelNamedRangeAdd"}, add, comment);
    return reports.failed() ? nullptr : added;
}

}  // namespace mergeloom
