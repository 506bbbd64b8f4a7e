#include "office/embedded/letters/RowPatterns.h"

#include "office/embedded/letters/MergedRows.h"
#include "office/embedded/text/Story.h"
#include "office/embedded/text/TableEditor.h"

#include <algorithm>
#include <utility>

namespace mergeloom::embedded {

namespace {

using letters::ControlPath;
using opc::WordTag;

bool beginsWith(const ControlPath& path, const ControlPath& start) {
    return start.size() <= path.size() && std::equal(start.begin(), start.end(), path.begin());
}

bool isDirectlyBelow(const ControlPath& path, const ControlPath& start) {
    return path.size() == start.size() + 1 && beginsWith(path, start);
}

}  // namespace

bool isInSiblings(pugi::xml_node node, pugi::xml_node first, pugi::xml_node last) {
    for (pugi::xml_node sibling = first; sibling; sibling = sibling.next_sibling()) {
        if (isInside(node, sibling)) return true;
        if (sibling == last) break;
    }
    return false;
}

RowPatternFinder::RowPatternFinder(pugi::xml_node root, const MarkedPlaces& marked,
                                   const std::vector<PartBookmark>& bookmarks)
    : names_(root), marked_(marked), bookmarks_(bookmarks) {
    number(root);
}

/// Numbers tables and bookmarks in the order of the document.
void RowPatternFinder::number(pugi::xml_node node) {
    const WordTag tag = names_.tagOf(node);
    const bool isTable = tag == WordTag::Table;
    if (isTable) tables_.push_back(node);
    if (isTable || tag == WordTag::BookmarkStart || tag == WordTag::BookmarkEnd)
        orders_.emplace(node.hash_value(), orders_.size());
    for (const pugi::xml_node child : node.children())
        number(child);
}

void RowPatternFinder::addPlace(pugi::xml_node node, std::size_t number) {
    const ControlPath& path = marked_.places.at(number).source.path;
    places_.push_back({node, &path});
    for (pugi::xml_node row = names_.ancestor(node, WordTag::Row); row;
         row = names_.ancestor(row, WordTag::Row))
        placesByRow_[row.hash_value()].insert(path);
}

std::vector<RowPattern> RowPatternFinder::find(UnmarkedTables unmarked) {
    std::vector<const MarkedTable*> tables;
    tables.reserve(marked_.tables.size());
    for (const MarkedTable& table : marked_.tables)
        tables.push_back(&table);
    std::ranges::stable_sort(tables, {}, [](const MarkedTable* table) { return table->path.size(); });
    for (const MarkedTable* table : tables)
        findMarked(*table);
    if (unmarked == UnmarkedTables::Repeat) {
        for (const ControlPath& path : subforms())
            findUnmarked(path);
    }
    for (const RowPattern& pattern : patterns_)
        tablesWithoutRows_.erase(pattern.path);
    return std::move(patterns_);
}

void RowPatternFinder::findMarked(const MarkedTable& marked) {
    const auto bookmark = std::ranges::find(bookmarks_, marked.name, &PartBookmark::name);
    if (bookmark == bookmarks_.end()) return;
    for (const pugi::xml_node table : tablesOf(*bookmark, marked.path))
        addMarked(marked, *bookmark, table);
}

void RowPatternFinder::addMarked(const MarkedTable& marked, const PartBookmark& bookmark,
                                 pugi::xml_node table) {
    const std::vector<pugi::xml_node> rows = rowsOf(table, names_);
    std::vector<std::size_t> found;
    for (std::size_t number = 0; number < rows.size(); ++number) {
        if (hasPlaceOf(rows[number], marked.path)) found.push_back(number);
    }
    if (found.empty()) {
        tablesWithoutRows_.insert(marked.path);
        return;
    }
    RowPattern pattern{.path = marked.path, .markedTable = table, .tableEnd = table};
    // The end of the bookmark goes with the table if its start does.
    const bool goesAlong = isInside(bookmark.start, table) && table.next_sibling() == bookmark.end;
    if (goesAlong) pattern.tableEnd = bookmark.end;
    if (add(std::move(pattern), rows, found.front(), found.back()) == Added::NotSiblings) {
        refusals_.push_back("The rows of the table \"" + marked.name +
                            "\" do not repeat: they lie in several content controls.");
    }
}

/// Returns the tables that a bookmark marks: the innermost one around its start that has places of the
/// subform, or the outermost ones between its marks. A table that has both marks in one cell is not marked.
std::vector<pugi::xml_node> RowPatternFinder::tablesOf(const PartBookmark& bookmark,
                                                       const ControlPath& path) const {
    const auto hasRows = [&](pugi::xml_node table) {
        return std::ranges::any_of(rowsOf(table, names_),
                                   [&](pugi::xml_node row) { return hasPlaceOf(row, path); });
    };
    pugi::xml_node withoutRows;
    for (pugi::xml_node table = names_.ancestor(bookmark.start, WordTag::Table);
         table && !isInside(bookmark.end, cellIn(table, bookmark.start));
         table = names_.ancestor(table, WordTag::Table)) {
        if (hasRows(table)) return {table};
        if (!withoutRows) withoutRows = table;
    }
    std::vector<pugi::xml_node> tables;
    for (const pugi::xml_node table : tablesBetween(bookmark)) {
        const bool isInner =
            std::ranges::any_of(tables, [&](pugi::xml_node outer) { return isInside(table, outer); });
        if (!isInner && hasRows(table)) tables.push_back(table);
        if (!withoutRows) withoutRows = table;
    }
    if (tables.empty() && withoutRows) tables.push_back(withoutRows);
    return tables;
}

std::vector<pugi::xml_node> RowPatternFinder::tablesBetween(const PartBookmark& bookmark) const {
    if (!bookmark.end) return {};
    const std::size_t start = orders_.at(bookmark.start.hash_value());
    const std::size_t end = orders_.at(bookmark.end.hash_value());
    std::vector<pugi::xml_node> tables;
    for (const pugi::xml_node table : tables_) {
        const std::size_t order = orders_.at(table.hash_value());
        if (start < order && order < end) tables.push_back(table);
    }
    return tables;
}

/// Returns the cell of a table around a node; empty if the node is in no cell.
pugi::xml_node RowPatternFinder::cellIn(pugi::xml_node table, pugi::xml_node node) const {
    pugi::xml_node cell = names_.ancestor(node, WordTag::CellElement);
    while (cell && names_.ancestor(cell, WordTag::Table) != table)
        cell = names_.ancestor(cell, WordTag::CellElement);
    return cell;
}

/// Returns the paths of the subforms of all places, those of outer ones first.
std::vector<ControlPath> RowPatternFinder::subforms() const {
    std::set<ControlPath> found;
    for (const Place& place : places_) {
        for (std::ptrdiff_t length = 1; length < std::ssize(*place.path); ++length)
            found.emplace(place.path->begin(), place.path->begin() + length);
    }
    std::vector<ControlPath> paths(found.begin(), found.end());
    std::ranges::stable_sort(paths, {}, &ControlPath::size);
    return paths;
}

void RowPatternFinder::findUnmarked(const ControlPath& path) {
    std::vector<pugi::xml_node> tables;
    for (const Place& place : places_) {
        if (!isDirectlyBelow(*place.path, path) || isRepeated(place.node, path)) continue;
        const pugi::xml_node table = names_.ancestor(place.node, WordTag::Table);
        if (table && std::ranges::find(tables, table) == tables.end()) tables.push_back(table);
    }
    for (const pugi::xml_node table : tables)
        addUnmarked(path, table);
}

void RowPatternFinder::addUnmarked(const ControlPath& path, pugi::xml_node table) {
    const std::vector<pugi::xml_node> rows = rowsOf(table, names_);
    std::unordered_map<std::size_t, std::size_t> numbers;
    for (std::size_t number = 0; number < rows.size(); ++number)
        numbers.emplace(rows[number].hash_value(), number);
    std::set<std::size_t> found;
    for (const Place& place : places_) {
        if (!beginsWith(*place.path, path) || isRepeated(place.node, path)) continue;
        const auto number = numbers.find(rowIn(table, place.node).hash_value());
        if (number != numbers.end()) found.insert(number->second);
    }
    if (found.empty()) return;
    add({.path = path, .withoutRecords = WithoutRecords::EmptyRows}, rows, *found.begin(), *found.rbegin());
}

/// Returns the row of a table around a node; empty if there is none.
pugi::xml_node RowPatternFinder::rowIn(pugi::xml_node table, pugi::xml_node node) const {
    pugi::xml_node row = names_.ancestor(node, WordTag::Row);
    while (row && names_.ancestor(row, WordTag::Table) != table)
        row = names_.ancestor(row, WordTag::Row);
    return row;
}

bool RowPatternFinder::hasPlaceOf(pugi::xml_node row, const ControlPath& path) const {
    const auto places = placesByRow_.find(row.hash_value());
    if (places == placesByRow_.end()) return false;
    const auto first = places->second.lower_bound(path);
    return first != places->second.end() && beginsWith(*first, path);
}

/// Returns true if a node is in rows that are repeated for a subform.
bool RowPatternFinder::isRepeated(pugi::xml_node node, const ControlPath& path) const {
    for (pugi::xml_node around = node; around; around = around.parent()) {
        const auto found = patternsByRow_.find(around.hash_value());
        if (found == patternsByRow_.end()) continue;
        for (const std::size_t number : found->second) {
            if (patterns_[number].path == path) return true;
        }
    }
    return false;
}

/// Returns true if rows are shared with a pattern that does not contain all of them for an outer subform.
bool RowPatternFinder::crossesAnother(const RowPattern& pattern) const {
    const auto contains = [&](const RowPattern& outer, pugi::xml_node row) {
        return std::ranges::find(outer.rows, row) != outer.rows.end();
    };
    for (const RowPattern& other : patterns_) {
        const auto isShared = [&](pugi::xml_node row) { return contains(other, row); };
        const bool isOuter = other.path != pattern.path && beginsWith(pattern.path, other.path);
        if (isOuter
                ? std::ranges::any_of(pattern.rows, isShared) && !std::ranges::all_of(pattern.rows, isShared)
                : std::ranges::any_of(pattern.rows, isShared))
            return true;
    }
    return false;
}

RowPatternFinder::Added RowPatternFinder::add(RowPattern pattern, const std::vector<pugi::xml_node>& rows,
                                              std::size_t first, std::size_t last) {
    last = lastMergedRow(rows, first, last, names_);
    if (rows[first].parent() != rows[last].parent()) return Added::NotSiblings;
    pattern.rows.assign(rows.begin() + static_cast<std::ptrdiff_t>(first),
                        rows.begin() + static_cast<std::ptrdiff_t>(last) + 1);
    if (isRepeated(rows[first], pattern.path) || crossesAnother(pattern)) return Added::No;
    for (const pugi::xml_node row : pattern.rows)
        patternsByRow_[row.hash_value()].push_back(patterns_.size());
    patterns_.push_back(std::move(pattern));
    return Added::Yes;
}

}  // namespace mergeloom::embedded
