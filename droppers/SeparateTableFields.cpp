#include "droppers/SeparateTableFields.h"

#include "droppers/CellCount.h"
#include "droppers/ControlNodes.h"
#include "droppers/StructureNodes.h"
#include "droppers/modWordNormalizeName.h"
#include "office/model/word/Bookmark.h"
#include "office/model/word/Bookmarks.h"
#include "office/model/word/Range.h"
#include "office/model/word/Selection.h"
#include "office/model/word/Tables.h"
#include "office/model/word/Window.h"
#include "xml/modMSXMLHelper.h"

#include <string>
#include <vector>

namespace mergeloom {

namespace {

constexpr const char* kQuestion =
    "You can't have fields from the same data source table\n"
    "both inside a Word table and as separate tablefields\n"
    "The separate tablefields will be removed";

/// Whether a place is in a table that has a bookmark, so that it belongs to that table.
bool isInMarkedTable(word::Bookmark& place) {
    const word::RangePtr range = place.Range();
    if (range->Tables()->Count() == 0) return false;
    const word::BookmarksPtr around = range->Bookmarks();
    for (int number = 1; number <= around->Count(); ++number) {
        if (coversSeveralCells(*around->Item(number)->Range())) return true;
    }
    return false;
}

/// The names of the separate places that an earlier drop made from a name. Asking for each possible name
/// costs the same however many bookmarks there are.
std::vector<std::string> placesOfName(const DropContext& context, word::Bookmarks& bookmarks,
                                      const std::string& baseName) {
    std::vector<std::string> places;
    for (const std::string& name : PossibleBookmarkNames(baseName)) {
        if (!bookmarks.Exists(name)) continue;
        const word::BookmarkPtr place = bookmarks.Item(name);
        const std::string found = place->Name();
        if (!IsBookmarkOfName(baseName, found) || context.places.contains(found)) continue;
        if (!isInMarkedTable(*place)) places.push_back(found);
    }
    return places;
}

std::vector<std::string> separateFields(const DropContext& context, const TreeNode& node,
                                        word::Bookmarks& bookmarks) {
    const std::string nodeName = GetAttributeValue(elementOf(context.xmlNodes, &node), Attribute::Name);
    const std::string prefix = placePrefix(context.xmlNodes, node, nodeName);
    std::vector<std::string> places;
    for (const TreeNode* field : fieldsOf(context.xmlNodes, node)) {
        const std::string name = GetAttributeValue(elementOf(context.xmlNodes, field), Attribute::Name);
        const std::string baseName = WordNormalizeName(prefix + SimplifyName(name), false);
        const std::vector<std::string> found = placesOfName(context, bookmarks, baseName);
        places.insert(places.end(), found.begin(), found.end());
    }
    return places;
}

void deletePlace(word::Document& document, const std::string& name) {
    const word::BookmarksPtr bookmarks = document.Bookmarks();
    // Another place around it may have taken it along.
    if (!bookmarks->Exists(name)) return;
    bookmarks->Item(name)->Select();
    document.ActiveWindow()->Selection()->SetText("");
}

}  // namespace

bool DeleteSeparateTableFields(DropContext& context, const TreeNode& node, word::Document& document) {
    return context.reports.trap({"CNodeDropperTable", "DeleteSeparateTableFields"}, [&] {
        const std::vector<std::string> places = separateFields(context, node, *document.Bookmarks());
        if (places.empty()) return false;
        if (!context.reports.confirm(kQuestion)) return true;
        for (const std::string& name : places)
            deletePlace(document, name);
        return false;
    });
}

}  // namespace mergeloom
