#include "office/embedded/letters/LabelSheet.h"

#include "base/Text.h"
#include "office/embedded/text/Story.h"
#include "office/embedded/text/TableEditor.h"
#include "office/opc/XmlPart.h"

#include <algorithm>
#include <string>
#include <string_view>

namespace mergeloom::embedded {

namespace {

using opc::WordTag;

std::string widthOf(pugi::xml_node cell, const opc::WordNames& names) {
    const pugi::xml_node properties = cell.child(names.element("tcPr").c_str());
    return names.value(properties.child(names.element("tcW").c_str()), "w");
}

/// Returns true if a body has text outside of a table.
bool hasTextOutside(pugi::xml_node body, pugi::xml_node table, const opc::WordNames& names) {
    return static_cast<bool>(body.find_node([&](pugi::xml_node node) {
        if (names.tagOf(node) != WordTag::TextElement) return false;
        const std::string_view text = node.text().get();
        return text.find_first_not_of(" \u00A0") != std::string_view::npos && !isInside(node, table);
    }));
}

/// Returns true if a cell has no visible content.
bool isEmptyCell(pugi::xml_node cell, const opc::WordNames& names) {
    return !cell.find_node([&](pugi::xml_node node) {
        const WordTag tag = names.tagOf(node);
        return tag == WordTag::Run || tag == WordTag::Table || tag == WordTag::ContentControl;
    });
}

}  // namespace

std::vector<pugi::xml_node> labelCells(pugi::xml_node cellWithPlaces, const opc::WordNames& names) {
    const pugi::xml_node table = names.ancestor(cellWithPlaces, WordTag::Table);
    if (!table) return {};
    std::vector<pugi::xml_node> cells{cellWithPlaces};
    for (const pugi::xml_node row : rowsOf(table, names)) {
        for (const pugi::xml_node cell : cellsOf(row, names)) {
            const bool isLabel = cell != cellWithPlaces && isEmptyCell(cell, names) &&
                                 widthOf(cell, names) == widthOf(cellWithPlaces, names);
            if (isLabel) cells.push_back(cell);
        }
    }
    return cells.size() > 1 ? cells : std::vector<pugi::xml_node>();
}

pugi::xml_node cellOfAllPlaces(WordContent& content, const letters::PlaceSources& sources) {
    if (!sources.tables.empty()) return {};
    pugi::xml_node common;
    for (const BookmarkRecord* record : content.bookmarks().withHidden()) {
        if (!sources.places.contains(foldCase(record->name))) continue;
        const Story& story = *record->story;
        const pugi::xml_node cell =
            &story == &content.body().story ? story.cellOf(record->start) : pugi::xml_node();
        if (!cell || (common && common != cell)) return {};
        common = cell;
    }
    const opc::WordNames& names = content.body().story.names();
    const pugi::xml_node table = names.ancestor(common, WordTag::Table);
    return hasTextOutside(content.body().story.root(), table, names) ? pugi::xml_node() : common;
}

}  // namespace mergeloom::embedded
