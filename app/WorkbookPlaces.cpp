#include "app/Places.h"
#include "office/model/excel/Names.h"
#include "office/model/excel/Range.h"
#include "office/model/excel/Shapes.h"
#include "office/model/excel/SheetReference.h"
#include "office/model/excel/Worksheet.h"

#include <algorithm>
#include <tuple>
#include <unordered_map>

namespace mergeloom {

namespace {

/// Returns the cells that a name refers to; none for a constant, a formula or deleted cells.
excel::RangePtr cellsOf(excel::DefinedName& name) {
    try {
        return name.RefersToRange();
    } catch (const AutomationError& error) {
        if (error.number() != kApplicationDefined) throw;
        return nullptr;
    }
}

CellLocation locationOf(excel::Range& cells, const std::string& refersTo) {
    return {refersTo, cells.Worksheet()->Name(), cells.Row(), cells.Column()};
}

Place placeOf(excel::DefinedName& name) {
    const std::string formula = name.RefersToLocal();
    const excel::RangePtr cells = cellsOf(name);
    if (!cells) return {name.Name(), "name", formula, {}, CellLocation{formula, {}, 0, 0}};
    return {name.Name(), "name", formula.substr(1), cells->Value(), locationOf(*cells, formula)};
}

Place placeOf(excel::Shape& picture) {
    const excel::RangePtr cell = picture.TopLeftCell();
    CellLocation location = locationOf(*cell, {});
    const std::string where = excel::writtenSheetName(location.sheet) + "!" + cell->AddressLocal();
    return {picture.Name(), "picture", where, {}, std::move(location)};
}

void addNames(excel::Names& names, std::vector<Place>& places) {
    const int count = names.Count();
    for (int number = 1; number <= count; ++number) {
        const excel::DefinedNamePtr name = names.Item(number);
        if (name->Visible()) places.push_back(placeOf(*name));
    }
}

void addPictures(excel::Shapes& shapes, std::vector<Place>& places) {
    const int count = shapes.Count();
    for (int number = 1; number <= count; ++number) {
        const excel::ShapePtr shape = shapes.Item(number);
        if (shape->Type() == excel::MsoShapeType::msoPicture) places.push_back(placeOf(*shape));
    }
}

/// The positions of the sheets in the row of tabs.
using SheetNumbers = std::unordered_map<std::string, int>;

auto orderOf(const Place& place, const SheetNumbers& sheets) {
    const auto& location = std::get<CellLocation>(place.location);
    const auto sheet = sheets.find(location.sheet);
    const bool hasCells = sheet != sheets.end();
    return std::tuple{!hasCells, hasCells ? sheet->second : 0, location.row, location.column, place.name};
}

}  // namespace

std::vector<Place> placesOf(excel::Workbook& workbook) {
    std::vector<Place> places;
    addNames(*workbook.Names(), places);
    SheetNumbers sheets;
    const excel::WorksheetsPtr worksheets = workbook.Worksheets();
    for (int number = 1; number <= worksheets->Count(); ++number) {
        const excel::WorksheetPtr sheet = worksheets->Item(number);
        sheets[sheet->Name()] = number;
        addPictures(*sheet->Shapes(), places);
    }
    std::ranges::stable_sort(places, {}, [&](const Place& place) { return orderOf(place, sheets); });
    return places;
}

}  // namespace mergeloom
