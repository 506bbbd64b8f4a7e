#include "droppers/InsertPictureFromFile.h"

#include "base/AutomationError.h"
#include "office/model/excel/Picture.h"
#include "office/model/excel/Pictures.h"
#include "office/model/excel/Shapes.h"

#include <algorithm>

namespace mergeloom {

namespace {

/// The size of a cell in a new workbook.
constexpr ColumnWidth kStandardColumn{8.43};
constexpr Points kStandardRow{15};
/// A pixel. What is less is rounded away, and the row or column would be hidden.
constexpr Points kSmallest{0.75};

double columnWidthPerPoint(excel::Range& cell) {
    return cell.ColumnWidth().value / cell.Width().value;
}

double rowHeightPerPoint(excel::Range& cell) {
    return cell.RowHeight().value / cell.Height().value;
}

/// The picture takes its size from the cell, which therefore has to have one. What hides it would hide the
/// picture, too.
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
    // A column's width goes in whole pixels, so the picture may have become wider, and too high.
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

}  // namespace mergeloom
