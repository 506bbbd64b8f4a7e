#include "droppers/FormerPlaces.h"

#include "base/Text.h"
#include "droppers/CellNavigation.h"
#include "droppers/FurtherPlaceNames.h"
#include "droppers/modExcelNamedRangeAdd.h"
#include "droppers/modExcelNormalizeName.h"
#include "office/model/excel/Names.h"
#include "office/model/excel/Range.h"
#include "office/model/excel/Shapes.h"
#include "office/model/excel/Workbook.h"
#include "office/model/excel/Worksheet.h"

#include <algorithm>

namespace mergeloom {

namespace {

/// Returns the name of the place that a cell's text shows; empty when it shows none.
std::string nameShownBy(const std::string& text) {
    if (text.size() < 3 || text.front() != '[' || text.back() != ']') return {};
    return ExcelNormalizeName(std::string(kRangeNamePrefix) + text.substr(1, text.size() - 2), false);
}

/// Returns the sheet's name and the cell's address.
std::string addressOf(excel::Range& cell) {
    return cell.Worksheet()->Name() + "!" + cell.AddressLocal();
}

bool standsForAlone(excel::Names& names, const std::string& name, excel::Range& cell) {
    const excel::RangePtr cells = rangeOrNone([&] { return names.Item(name)->RefersToRange(); });
    return cells && addressOf(*cells) == addressOf(cell);
}

}  // namespace

FormerPlaces::FormerPlaces(excel::Workbook& workbook) : workbook_(workbook) {
    const excel::NamesPtr names = workbook.Names();
    for (int number = 1; number <= names->Count(); ++number) {
        const std::string name = names->Item(number)->Name();
        const std::string folded = foldCase(name);
        if (!folded.starts_with(kRangeNamePrefix)) continue;
        names_.emplace(folded, name);
        const std::string common = withoutPlaceCounter(folded);
        if (common != folded) names_.emplace(common, name);
    }
}

PlacesOfCell FormerPlaces::on(excel::Range& cell) {
    PlacesOfCell found;
    if (names_.empty()) return found;
    const excel::NamesPtr names = workbook_.Names();
    const auto collect = [&](const NamesByKey& candidates, const std::string& key) {
        const auto [first, last] = candidates.equal_range(key);
        for (auto candidate = first; candidate != last; ++candidate)
            if (standsForAlone(*names, candidate->second, cell)) found.names.push_back(candidate->second);
    };
    collect(names_, foldCase(nameShownBy(cell.Value())));
    found.isShownByText = !found.names.empty();
    collect(picturesOf(*cell.Worksheet()), cell.AddressLocal());
    std::ranges::sort(found.names);
    const auto repeated = std::ranges::unique(found.names);
    found.names.erase(repeated.begin(), repeated.end());
    return found;
}

const FormerPlaces::NamesByKey& FormerPlaces::picturesOf(excel::Worksheet& sheet) {
    const auto [pictures, isNew] = pictures_.try_emplace(sheet.Name());
    if (!isNew) return pictures->second;
    const excel::ShapesPtr shapes = sheet.Shapes();
    for (int number = 1; number <= shapes->Count(); ++number) {
        const excel::ShapePtr shape = shapes->Item(number);
        const auto name = names_.find(foldCase(shape->Name()));
        if (name != names_.end())
            pictures->second.emplace(shape->TopLeftCell()->AddressLocal(), shape->Name());
    }
    return pictures->second;
}

void removePlaces(excel::Workbook& workbook, excel::Range& cell, const PlacesOfCell& former, NewPlace place) {
    const excel::NamesPtr names = workbook.Names();
    for (const std::string& name : former.names) {
        names->Item(name)->Delete();
        const excel::ShapePtr picture = GetShapeByName(*cell.Worksheet(), name);
        if (picture && picture->TopLeftCell()->AddressLocal() == cell.AddressLocal()) picture->Delete();
    }
    if (former.isShownByText && place == NewPlace::Picture) cell.SetValue("");
}

}  // namespace mergeloom
