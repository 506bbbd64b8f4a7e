#include "droppers/SeparateTableFields.h"

#include "droppers/ControlNodes.h"
#include "droppers/StructureNodes.h"
#include "droppers/modWordNormalizeName.h"
#include "office/model/word/Bookmark.h"
#include "office/model/word/Bookmarks.h"
#include "office/model/word/Selection.h"
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

/// The names of the document's bookmarks that were made from a name. Asking for each possible name costs the
/// same however many bookmarks there are.
std::vector<std::string> placesOfName(word::Bookmarks& bookmarks, const std::string& baseName) {
    std::vector<std::string> places;
    for (const std::string& name : PossibleBookmarkNames(baseName)) {
        if (!bookmarks.Exists(name)) continue;
        const std::string found = bookmarks.Item(name)->Name();
        if (IsBookmarkOfName(baseName, found)) places.push_back(found);
    }
    return places;
}

std::vector<std::string> separateFields(const XmlNodeCollection& xmlNodes, const TreeNode& node,
                                        word::Bookmarks& bookmarks) {
    const std::string tableName = GetAttributeValue(elementOf(xmlNodes, &node), Attribute::Name);
    std::vector<std::string> places;
    for (const TreeNode* field : fieldsOf(xmlNodes, node)) {
        const std::string name = GetAttributeValue(elementOf(xmlNodes, field), Attribute::Name);
        const std::string baseName = WordNormalizeName(tableName + SimplifyName(name), false);
        const std::vector<std::string> found = placesOfName(bookmarks, baseName);
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
        const std::vector<std::string> places = separateFields(context.xmlNodes, node, *document.Bookmarks());
        if (places.empty()) return false;
        if (!context.reports.confirm(kQuestion)) return true;
        for (const std::string& name : places)
            deletePlace(document, name);
        return false;
    });
}

}  // namespace mergeloom
