#include "droppers/modExcelNamedRangeAdd.h"

#include "droppers/BookmarkNames.h"
#include "droppers/InsertPictureFromFile.h"
#include "droppers/PlaceNames.h"
#include "droppers/RangeNames.h"
#include "droppers/modExcelNormalizeName.h"
#include "office/model/excel/Application.h"
#include "office/model/excel/Names.h"

#include <cstdint>
#include <string>
#include <vector>

namespace mergeloom {

namespace {

using RangeNames = PlaceNames<excel::Names>;

/// The names of a field's places before the one with that counter. Others of them may follow the one that
/// became free.
std::vector<std::string> earlierNames(const RangeNames& names, std::int64_t counter) {
    std::vector<std::string> found;
    if (counter > 0) found.push_back(names.usable(0));
    for (std::int64_t number = 1; counter > 0 && (number <= counter || names.isTaken(number)); ++number) {
        if (number != counter) found.push_back(names.usable(number));
    }
    return found;
}

bool standsOn(excel::Shape& shape, excel::Range& cell) {
    const excel::RangePtr corner = shape.TopLeftCell();
    return corner->Row() == cell.Row() && corner->Column() == cell.Column();
}

/// A cell bears one picture of a field. One that an earlier place of the field left on it has that place's
/// name, so the new picture, which looks for its own name, would not find it. Only the field's own names are
/// asked for, which costs the same however many pictures the sheet has.
void deleteFormerPictures(excel::Range& cell, const std::vector<std::string>& names) {
    const excel::WorksheetPtr sheet = cell.Worksheet();
    for (const std::string& name : names) {
        const excel::ShapePtr shape = GetShapeByName(*sheet, name);
        if (shape && standsOn(*shape, cell)) shape->Delete();
    }
}

}  // namespace

excel::DefinedNamePtr ExcelNamedRangeAdd(DropReports& reports, excel::Workbook& workbook,
                                         const std::string& name, const NamedRangeContent& content) {
    excel::DefinedNamePtr added;
    std::string comment = "Bookmark Name = ''";
    const auto add = [&] {
        std::string shownName = content.vstrPrefix + name;
        if (content.vfBoundValueUse) shownName += kBoundValueSuffix;
        const excel::NamesPtr names = workbook.Names();
        const RangeNames rangeNames{*names, std::string(kRangeNamePrefix) + shownName, ExcelNormalizeName};
        const std::int64_t counter = rangeNames.firstFreeCounter();
        const std::string candidate = rangeNames.usable(counter);
        comment = "Bookmark Name = '" + candidate + "'";

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
