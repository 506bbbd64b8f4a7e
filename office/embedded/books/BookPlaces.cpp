#include "office/embedded/books/BookPlaces.h"

#include "base/Text.h"
#include "office/model/excel/SheetReference.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace mergeloom::embedded {

namespace {

/// The cells of a defined name.
struct NamedCells {
    std::string name;
    std::size_t sheet = 0;
    excel::CellArea area{};
};

bool isBelow(const letters::ControlPath& path, const letters::ControlPath& outer) {
    return path.size() > outer.size() && std::equal(outer.begin(), outer.end(), path.begin());
}

class PlaceFinder {
  public:
    PlaceFinder(WorkbookContent& content, const letters::PlaceSources& sources)
        : content_(content), sources_(sources) {
        // The last map is that of parts that are on no sheet.
        found_.maps.resize(content.workbook().sheets().size() + 1);
        found_.hiddenRows.resize(found_.maps.size());
    }

    BookPlaces find() {
        readNames();
        for (std::size_t table = 0; table < found_.tables.size(); ++table)
            findPattern(table);
        std::erase_if(found_.tables, [](const BookTable& table) { return table.firstRow == 0; });
        std::ranges::sort(found_.tables, {},
                          [](const BookTable& table) { return std::pair(table.sheet, table.firstRow); });
        findGroups();
        assignTables();
        return std::move(found_);
    }

  private:
    void readNames() {
        DefinedNames& names = content_.workbook().names();
        for (std::size_t index = 0; index < names.count(); ++index) {
            const DefinedNames::Entry entry = names.at(index);
            const std::string folded = foldCase(entry.name);
            const auto place = sources_.places.find(folded);
            const auto table = sources_.tables.find(folded);
            const bool isSource = place != sources_.places.end() || table != sources_.tables.end();
            if (!isSource && !marksFilledRows(entry.name)) continue;
            const std::optional<excel::SheetReference> reference = excel::parseReference(entry.formula);
            const std::optional<std::size_t> sheet =
                reference ? content_.worksheetNamed(reference->sheetName) : std::nullopt;
            if (!sheet) {
                if (isSource) refuse("The name " + entry.name + " refers to no cells.");
                continue;
            }
            const NamedCells cells{entry.name, *sheet, reference->area};
            if (!isSource) {
                noteFilledRows(cells);
            } else if (table != sources_.tables.end() && (place == sources_.places.end() || isTable(cells))) {
                found_.tables.push_back({cells.name, table->second, cells.sheet, cells.area});
            } else {
                addPlace(cells, place->second);
            }
        }
    }

    /// Returns true for more than one row, unless the cells are merged.
    [[nodiscard]] bool isTable(const NamedCells& cells) {
        const excel::CellArea merged = content_.sheet(cells.sheet).merged().areaAt(cells.area.first);
        return cells.area.rows() > 1 && merged != cells.area;
    }

    void noteFilledRows(const NamedCells& cells) {
        if (cells.name.starts_with(kHiddenRowsName)) {
            found_.hiddenRows[cells.sheet].push_back(cells.area);
        } else {
            added_.push_back(cells);
        }
    }

    void addPlace(const NamedCells& cells, const letters::PlaceSource& source) {
        BookPlace place{cells.name, source, cells.sheet,
                        content_.sheet(cells.sheet).merged().areaAt(cells.area.first).first};
        const auto picture = content_.sheet(cells.sheet).drawing().find(cells.name);
        place.isPicture = picture.has_value();
        found_.places.push_back(std::move(place));
    }

    [[nodiscard]] bool isIn(const BookPlace& place, const BookTable& table) const {
        return place.sheet == table.sheet && table.area.contains(place.cell);
    }

    void findPattern(std::size_t number) {
        BookTable& table = found_.tables[number];
        for (const BookPlace& place : found_.places) {
            if (!isIn(place, table) || !isBelow(place.source.path, table.path)) continue;
            const excel::CellArea merged = content_.sheet(place.sheet).merged().areaAt(place.cell);
            table.firstRow = table.firstRow == 0 ? place.cell.row : std::min(table.firstRow, place.cell.row);
            table.lastRow = std::max(table.lastRow, merged.last.row);
        }
        if (table.firstRow == 0) refuse("The table " + table.name + " has no places of its fields.");
    }

    /// Makes repeated rows of the tables, which are in the order of their rows. Tables side by side share
    /// them.
    void findGroups() {
        std::vector<BookTable> kept;
        for (BookTable& table : found_.tables) {
            const bool follows = !kept.empty() && kept.back().sheet == table.sheet;
            RowMap& map = found_.maps[table.sheet];
            if (follows && kept.back().lastRow >= table.firstRow) {
                const bool isBeside = kept.back().firstRow == table.firstRow &&
                                      kept.back().lastRow == table.lastRow &&
                                      !excel::intersection(kept.back().area, table.area);
                if (!isBeside) {
                    found_.obstacles.push_back("the tables " + kept.back().name + " and " + table.name +
                                               " overlap");
                    continue;
                }
            } else {
                addGroup(map, table);
            }
            table.group = map.groups().size() - 1;
            map.widen(table.group, table.area.first.column, lastColumnOf(table));
            kept.push_back(std::move(table));
        }
        found_.tables = std::move(kept);
    }

    void addGroup(RowMap& map, const BookTable& table) {
        RepeatedRows rows{table.firstRow, table.lastRow, table.lastRow, table.area.first.column,
                          table.area.last.column};
        for (const NamedCells& added : added_) {
            if (added.sheet == table.sheet && added.area.first.row == rows.last + 1)
                rows.end = added.area.last.row;
        }
        map.add(rows);
    }

    /// Returns the last column of a table and of the formulas that adjoin it, which are repeated with it.
    [[nodiscard]] int lastColumnOf(const BookTable& table) {
        const SheetPart& part = content_.sheet(table.sheet).part();
        int column = table.area.last.column;
        const auto hasFormula = [&](int next) {
            for (int row = table.firstRow; row <= table.lastRow; ++row) {
                if (!part.cell({row, next}).formula.empty()) return true;
            }
            return false;
        };
        while (column < excel::kLastColumn && hasFormula(column + 1))
            ++column;
        return column;
    }

    void assignTables() {
        for (BookPlace& place : found_.places) {
            for (std::size_t table = 0; table < found_.tables.size(); ++table) {
                const BookTable& rows = found_.tables[table];
                const bool isInPattern = place.cell.row >= rows.firstRow && place.cell.row <= rows.lastRow;
                if (isIn(place, rows) && isInPattern) place.table = table;
            }
        }
    }

    void refuse(const std::string& sentence) { found_.refusals.push_back(sentence); }

    WorkbookContent& content_;
    const letters::PlaceSources& sources_;
    BookPlaces found_;
    std::vector<NamedCells> added_;
};

}  // namespace

BookPlaces findBookPlaces(WorkbookContent& content, const letters::PlaceSources& sources) {
    return PlaceFinder(content, sources).find();
}

bool marksFilledRows(std::string_view name) {
    return name.starts_with(kAddedRowsName) || name.starts_with(kHiddenRowsName);
}

}  // namespace mergeloom::embedded
