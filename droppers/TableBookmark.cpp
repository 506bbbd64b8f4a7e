#include "droppers/TableBookmark.h"

#include "base/AutomationError.h"
#include "base/Text.h"
#include "droppers/CellNavigation.h"
#include "droppers/FurtherPlaceNames.h"
#include "droppers/SelectionCheck.h"
#include "droppers/StructureNodes.h"
#include "droppers/modBookmarkAdd.h"
#include "droppers/modExcelNormalizeName.h"
#include "droppers/modWordNormalizeName.h"
#include "office/model/excel/Names.h"
#include "office/model/excel/Range.h"
#include "office/model/word/Bookmarks.h"
#include "office/model/word/Table.h"
#include "xml/modMSXMLHelper.h"

#include <cstdint>
#include <string>

namespace mergeloom {

namespace {

/// Returns true when a collection has a readable item of that key. A lookup that raises an error means
/// absent.
template <class Collection>
bool CollectionHasKey(Collection& collection, const std::string& key) {
    try {
        static_cast<void>(collection.Item(key));
        return true;
    } catch (const AutomationError&) {
        return false;
    }
}

/// Returns the table that a bookmark marks; null when it marks something else.
word::TablePtr tableUnder(word::Range& marked) {
    const word::TablesPtr tables = marked.Tables();
    if (tables->Count() == 0) return {};
    word::TablePtr table = tables->Item(1);
    const bool marksTable = coversSeveralCells(marked) ||
                            marked.compare(word::RangeEnd::End, *table->Range(), word::RangeEnd::End) >= 0;
    return marksTable ? table : nullptr;
}

/// Returns true when a bookmark is that of a field or another place of this drop, and not one that has lost
/// its table. A field's text may have characters that its bookmark's name cannot have.
bool isPlace(const DropContext& context, word::Bookmark& bookmark) {
    const std::string name = bookmark.Name();
    const std::string named = WordNormalizeName(bookmark.Range()->Text(), false);
    return context.places.contains(name) || equalsIgnoringCase(named, name);
}

/// Returns true when a name of the workbook may move to a new table: it belongs to a table, which has two or
/// more rows, or has lost its cells.
bool mayMove(excel::Names& names, const std::string& rangeName) {
    // A name that is taken and cannot be read belongs to one of Excel's own tables.
    if (!CollectionHasKey(names, rangeName)) return false;
    const excel::DefinedNamePtr name = names.Item(rangeName);
    const excel::RangePtr cells = rangeOrNone([&] { return name->RefersToRange(); });
    return !cells || cells->Rows()->Count() > 1;
}

}  // namespace

std::string tableBookmarkName(const TreeNode& node, const std::string& name) {
    return WordNormalizeName(name, !node.Parent());
}

std::string tableRangeName(const TreeNode& node, const std::string& name) {
    const std::string usable = ExcelNormalizeName(name, !node.Parent());
    // A table under the prefix alone could never be found again. With the prefix, the name may be too long.
    return usable.empty() ? "" : ExcelNormalizeName(std::string(kRangeNamePrefix) + usable, false);
}

std::string tableNameOf(const XmlNodeCollection& xmlNodes, const TreeNode& control,
                        std::string (*rule)(const TreeNode&, const std::string&)) {
    const TreeNode* parent = control.Parent();
    if (!parent) return {};
    return rule(*parent, GetAttributeValue(elementOf(xmlNodes, parent), Attribute::Name));
}

std::string tableNameInDrop(DropContext& context, const std::string& tableName) {
    std::string name = tableName;
    for (std::int64_t counter = 1; context.tables.contains(name); ++counter) {
        name = context.normalizeName(furtherPlaceName(tableName, counter), false);
    }
    if (!name.empty()) context.tables.add(name);
    return name;
}

void tellFurtherTable(DropContext& context, const std::string& tableName, const std::string& madeName) {
    context.reports.tell("This drop has made the table \"" + tableName +
                         "\" already; the further one is named \"" + madeName + "\".");
}

void deleteTableOf(word::Document& document, const std::string& bookmarkName) {
    const word::BookmarksPtr bookmarks = document.Bookmarks();
    if (!bookmarks->Exists(bookmarkName)) return;
    const word::TablePtr table = tableUnder(*bookmarks->Item(bookmarkName)->Range());
    if (table) table->Delete();
}

std::string markTable(DropContext& context, word::Document& document, word::Table& table,
                      const std::string& bookmarkName) {
    const word::BookmarksPtr bookmarks = document.Bookmarks();
    const word::RangePtr whole = table.Range();
    if (bookmarks->Exists(bookmarkName) && !isPlace(context, *bookmarks->Item(bookmarkName))) {
        bookmarks->Add(bookmarkName, *whole);
        return bookmarkName;
    }
    std::string name = bookmarkName;
    const word::BookmarkPtr added = rWordBookmarkAdd(context.reports, document, *whole, name);
    if (!added || context.reports.failed()) return {};
    const std::string made = added->Name();
    context.tables.add(made);
    return made;
}

excel::DefinedNamePtr nameTable(DropContext& context, excel::Workbook& workbook, const std::string& rangeName,
                                const std::string& refersTo) {
    const excel::NamesPtr names = workbook.Names();
    const bool isFree = !names->Exists(rangeName) || mayMove(*names, rangeName);
    const FurtherPlaceNames further{*names, rangeName, ExcelNormalizeName};
    excel::DefinedNamePtr added =
        names->Add(isFree ? rangeName : further.usable(further.firstFreeCounter()), refersTo);
    context.tables.add(added->Name());
    return added;
}

}  // namespace mergeloom
