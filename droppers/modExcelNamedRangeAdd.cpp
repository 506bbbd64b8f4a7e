#include "droppers/modExcelNamedRangeAdd.h"

#include "droppers/BookmarkNames.h"
#include "droppers/InsertPictureFromFile.h"
#include "droppers/RangeNames.h"
#include "droppers/modExcelNormalizeName.h"
#include "office/model/excel/Application.h"
#include "office/model/excel/Names.h"

#include <cstdint>
#include <string>
#include <vector>

namespace mergeloom {

namespace {

/// The names that a place may have: a stem and, behind it, a counter from 1 when the stem is taken.
class PlaceNames {
  public:
    PlaceNames(excel::Names& names, const std::string& shownName)
        : names_(names), stem_(std::string(kRangeNamePrefix) + shownName), further_(stem_) {
        further_ += kFurtherPlaceSuffix;
        // Whether a name is taken is asked before it is shortened to a range's name.
        if (names_.Exists(stem_)) counter_ = names_.firstFreeCounter(further_);
    }

    /// The name of the new place.
    [[nodiscard]] std::string candidate() const { return usable(counter_); }

    /// The names of the field's earlier places. Others of them may stand behind the one that became free.
    [[nodiscard]] std::vector<std::string> earlier() const {
        std::vector<std::string> found;
        if (counter_ > 0) found.push_back(usable(0));
        for (std::int64_t number = 1; counter_ > 0 && mayBeTaken(number); ++number) {
            if (number != counter_) found.push_back(usable(number));
        }
        return found;
    }

  private:
    [[nodiscard]] bool mayBeTaken(std::int64_t number) const {
        return number <= counter_ || names_.Exists(further_ + std::to_string(number));
    }
    [[nodiscard]] std::string usable(std::int64_t counter) const {
        return ExcelNormalizeName(counter == 0 ? stem_ : further_ + std::to_string(counter), false);
    }

    excel::Names& names_;
    std::string stem_;
    std::string further_;
    std::int64_t counter_ = 0;
};

bool standsOn(excel::Shape& shape, excel::Range& cell) {
    const excel::RangePtr corner = shape.TopLeftCell();
    return corner->Row() == cell.Row() && corner->Column() == cell.Column();
}

/// A cell bears one picture of a field. One that an earlier place of the field left on it has that place's
/// name, so the new picture, which looks for its own name, would not find it. Only the field's own names are
/// asked for, which costs the same however many pictures the sheet has.
void deleteFormerPictures(excel::Range& cell, const std::vector<std::string>& earlierNames) {
    const excel::WorksheetPtr sheet = cell.Worksheet();
    for (const std::string& name : earlierNames) {
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
        std::string shownName = content.prefix + name;
        if (content.boundValueUse) shownName += kBoundValueSuffix;
        const excel::NamesPtr names = workbook.Names();
        const PlaceNames placeNames{*names, shownName};
        const std::string candidate = placeNames.candidate();
        comment = "Bookmark Name = '" + candidate + "'";

        const excel::RangePtr cell = workbook.Application()->ActiveCell();
        if (!content.pictureFile.empty()) deleteFormerPictures(*cell, placeNames.earlier());
        added = names->Add(candidate, "=" + cell->AddressLocal());
        if (content.pictureFile.empty()) {
            cell->SetValue("[" + shownName + "]");
        } else {
            InsertPictureFromFile(reports, *cell, candidate, content.pictureFile, CellFit::FitPicture);
        }
        return true;
    };
    reports.trap({"modExcelNamedRangeAdd", "ExcelNamedRangeAdd"}, add, comment);
    return reports.failed() ? nullptr : added;
}

}  // namespace mergeloom
