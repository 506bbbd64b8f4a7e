#include "droppers/TableBookmark.h"

#include "droppers/CellCount.h"
#include "droppers/RangeNames.h"
#include "droppers/StructureNodes.h"
#include "droppers/modBookmarkAdd.h"
#include "droppers/modExcelNormalizeName.h"
#include "droppers/modWordNormalizeName.h"
#include "office/model/word/Bookmarks.h"
#include "office/model/word/Tables.h"
#include "xml/modMSXMLHelper.h"

namespace mergeloom {

namespace {

/// The table that a bookmark stands for; none when it marks something else.
word::TablePtr tableUnder(word::Range& marked) {
    const word::TablesPtr tables = marked.Tables();
    if (tables->Count() == 0) return {};
    word::TablePtr table = tables->Item(1);
    const bool marksTable = coversSeveralCells(marked) || marked.End() >= table->Range()->End();
    return marksTable ? table : nullptr;
}

}  // namespace

std::string tableBookmarkName(const TreeNode& node, const std::string& name) {
    return WordNormalizeName(name, !node.Parent());
}

std::string tableRangeName(const TreeNode& node, const std::string& name) {
    const std::string usable = ExcelNormalizeName(name, !node.Parent());
    // Nothing could find the table under the prefix alone. With it the name may have become too long.
    return usable.empty() ? "" : ExcelNormalizeName(std::string(kRangeNamePrefix) + usable, false);
}

std::string tableNameOf(const XmlNodeCollection& xmlNodes, const TreeNode& control,
                        std::string (*rule)(const TreeNode&, const std::string&)) {
    const TreeNode* parent = control.Parent();
    if (!parent) return {};
    return rule(*parent, GetAttributeValue(elementOf(xmlNodes, parent), Attribute::Name));
}

void deleteTableOf(word::Document& document, const std::string& bookmarkName) {
    const word::BookmarksPtr bookmarks = document.Bookmarks();
    if (!bookmarks->Exists(bookmarkName)) return;
    const word::TablePtr table = tableUnder(*bookmarks->Item(bookmarkName)->Range());
    if (table) table->Delete();
}

bool markTable(DropReports& reports, word::Document& document, word::Table& table,
               const std::string& bookmarkName) {
    const word::BookmarksPtr bookmarks = document.Bookmarks();
    const word::RangePtr whole = table.Range();
    if (bookmarks->Exists(bookmarkName) && !isField(*bookmarks->Item(bookmarkName))) {
        bookmarks->Add(bookmarkName, *whole);
        return true;
    }
    std::string name = bookmarkName;
    return rWordBookmarkAdd(reports, document, *whole, name) && !reports.failed();
}

}  // namespace mergeloom
