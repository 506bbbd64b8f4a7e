#include "droppers/CNodeDropperTable.h"

#include "droppers/CNodeDropperField.h"
#include "droppers/DropContext.h"
#include "droppers/FieldSelection.h"
#include "droppers/LinkedFields.h"
#include "droppers/SelectionCheck.h"
#include "droppers/StructureNodes.h"
#include "droppers/TableBookmark.h"
#include "droppers/modWordNormalizeName.h"
#include "office/model/word/Application.h"
#include "office/model/word/Bookmarks.h"
#include "office/model/word/Document.h"
#include "office/model/word/Range.h"
#include "office/model/word/Selection.h"
#include "office/model/word/Table.h"
#include "office/model/word/TableSize.h"
#include "xml/TreeView.h"
#include "xml/modMSXMLHelper.h"

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

namespace mergeloom {

namespace {

/// Returns the font size in points that lets the columns of a table fit on a page; none keeps the document's
/// own.
constexpr std::optional<double> tableFontSize(int columns) {
    if (columns <= 10) return {};
    if (columns <= 15) return 10;
    return columns <= 20 ? 8 : 7;
}

constexpr const char* kQuestion =
    "You can't have fields from the same data source table\n"
    "both inside a Word table and as separate tablefields\n"
    "The separate tablefields will be removed";

/// Returns true for a place in a table that has a bookmark, so that it belongs to that table.
bool isInMarkedTable(word::Bookmark& place) {
    const word::RangePtr range = place.Range();
    if (range->Tables()->Count() == 0) return false;
    const word::BookmarksPtr around = range->Bookmarks();
    for (int number = 1; number <= around->Count(); ++number) {
        if (coversSeveralCells(*around->Item(number)->Range())) return true;
    }
    return false;
}

/// Returns the names of the separate places that an earlier drop made from a name. Each possible name is
/// looked up, so the cost does not depend on the number of bookmarks.
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
    // It may have been deleted with another place around it.
    if (!bookmarks->Exists(name)) return;
    bookmarks->Item(name)->Select();
    document.ActiveWindow()->Selection()->SetText("");
}

/// Removes the places of an object's fields that were dropped one by one outside of its table, since a field
/// is filled either record by record in the table or once. Asks the user first. Returns true when the user
/// cancelled; then nothing is removed.
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

/// Sets the table's font size and leaves the caret after the table.
void finishTable(word::Table& table, word::Selection& selection) {
    table.Select();
    const std::optional<double> size = tableFontSize(table.Columns()->Count());
    if (size) selection.Font()->SetSize(*size);
    selection.Tables()->Item(1)->Select();
    selection.Collapse(word::WdCollapseDirection::wdCollapseEnd);
}

}  // namespace

/// The rows of a table, which grows where linked fields need more of them. They are kept, since an office
/// searches all rows for one.
class CNodeDropperTable::TableRows {
  public:
    explicit TableRows(word::Table& table) : rows_(table.Rows()) {
        for (int number = 1; number <= rows_->Count(); ++number)
            known_.push_back(rows_->Item(number));
    }

    word::CellPtr cell(int row, int column) {
        while (static_cast<int>(known_.size()) < row)
            known_.push_back(rows_->Add());
        return known_[static_cast<std::size_t>(row) - 1]->Cells()->Item(column);
    }

  private:
    word::RowsPtr rows_;
    std::vector<word::RowPtr> known_;
};

bool CNodeDropperTable::TableDrop(const TreeNode& robjTVNode, const word::DocumentPtr& robjDocument,
                                  const std::string& name, const FieldKeys* fieldKeys) {
    return context_.reports.trap({kTableModule, "TableDrop"}, [&] {
        if (!robjTVNode.Child()) return false;
        if (!takesCompositeDrop(*robjDocument->Application()->Selection())) {
            return context_.reports.refuse("It is impossible to insert the table into current selection.");
        }
        const ControlNodes columns = columnsOf(robjTVNode, fieldKeys ? *fieldKeys : chooseFields(robjTVNode));
        return areColumns(columns) && insertTable({robjTVNode, robjDocument, name}, columns);
    });
}

FieldKeys CNodeDropperTable::chooseFields(const TreeNode& node) {
    ShowFields(node);
    if (mDialogFields.ListCount() == 0) return {};
    mDialogFields_Load();
    if (context_.settings.showDialog && context_.fieldDialog) {
        mDialogFields.SetVisible(true);
        context_.fieldDialog->Show(mDialogFields);
    } else {
        mbtnInsert_Click();
    }
    FieldKeys columns;
    for (const TreeNode* column : columnsOf(node, selectedKeys_))
        columns.push_back(column->Key());
    return columns;
}

ControlNodes CNodeDropperTable::columnsOf(const TreeNode& node, const FieldKeys& keys) {
    const std::string nodeName = GetAttributeValue(elementOf(context_.xmlNodes, &node), Attribute::Name);
    const std::string prefix = placePrefix(context_.xmlNodes, node, nodeName);
    ControlNodes columns = chosenControls(node, keys);
    std::erase_if(columns, [&](const TreeNode* column) {
        const XmlNode element = elementOf(context_.xmlNodes, column);
        return !isSubform(element) &&
               !takesName(context_, {.node = element, .parentName = prefix, .treeNode = column});
    });
    return columns;
}

void CNodeDropperTable::ShowFields(const TreeNode& node) {
    context_.reports.trap({kTableModule, "ShowFields"}, [&] {
        mDialogFields.SetObject(node.Text());
        for (const TreeNode* field : fieldsOf(context_.xmlNodes, node)) {
            mDialogFields.AddItem(field->Text(), field->Index());
            keysByIndex_.emplace(field->Index(), field->Key());
        }
        return true;
    });
}

void CNodeDropperTable::CollectSelectedFields() {
    context_.reports.trap({kTableModule, "CollectSelectedFields"}, [&] {
        selectedKeys_.clear();
        for (const FieldSelection::Item& item : mDialogFields.items()) {
            // A node's number and its key differ, since not every node has a key.
            if (item.selected) selectedKeys_.push_back(keysByIndex_.at(item.itemData));
        }
        return true;
    });
}

void CNodeDropperTable::mDialogFields_Load() {
    mDialogFields.SetInsertHandler([this] { mbtnInsert_Click(); });
}

void CNodeDropperTable::mbtnInsert_Click() {
    CollectSelectedFields();
    mDialogFields.SetVisible(false);
}

bool CNodeDropperTable::areColumns(const ControlNodes& chosen) {
    const auto isNoColumn = [&](const TreeNode* control) {
        return isSubform(elementOf(context_.xmlNodes, control));
    };
    const auto subform = std::ranges::find_if(chosen, isNoColumn);
    if (subform == chosen.end()) return !chosen.empty();
    return context_.reports.refuse("The subform \"" + (*subform)->Text() +
                                   "\" cannot be a column of a table.");
}

bool CNodeDropperTable::insertTable(const Drop& drop, const ControlNodes& columns) {
    if (columns.size() > word::kMaxTableColumns)
        return context_.reports.refuse(word::tooManyColumns(columns.size()));
    const word::SelectionPtr selection = drop.document->Application()->Selection();
    const std::string ownName = tableBookmarkName(drop.node, drop.name);
    const std::string bookmarkName = tableNameInDrop(context_, ownName);
    deleteTableOf(*drop.document, bookmarkName);

    const word::RangePtr place = selection->Range();
    if (DeleteSeparateTableFields(context_, drop.node, *drop.document)) context_.reports.cancel();
    if (context_.reports.failed()) return false;
    place->Select();
    selection->TypeParagraph();
    const word::TablePtr table =
        drop.document->Tables()->Add(*selection->Range(), kFieldRow, static_cast<int>(columns.size()));
    if (!FillTable(drop, *table, columns)) return false;
    // A table under an empty name could never be found again.
    if (!bookmarkName.empty()) {
        const std::string made = markTable(context_, *drop.document, *table, bookmarkName);
        if (made.empty()) return false;
        if (bookmarkName != ownName) tellFurtherTable(context_, ownName, made);
    }
    finishTable(*table, *selection);
    return true;
}

bool CNodeDropperTable::FillTable(const Drop& drop, word::Table& table, const ControlNodes& columns) {
    return context_.reports.trap({kTableModule, "FillTable"}, [&] {
        const std::vector<ControlNodes> places =
            placesOfColumns(context_.xmlNodes, columns, fieldsOf(context_.xmlNodes, drop.node));
        TableRows rows(table);
        for (int column = 1; column <= static_cast<int>(places.size()) && !context_.reports.failed();
             ++column) {
            fillColumn(drop, rows, column, places.at(static_cast<std::size_t>(column) - 1));
        }
        return !context_.reports.failed();
    });
}

void CNodeDropperTable::fillColumn(const Drop& drop, TableRows& rows, int column,
                                   const ControlNodes& places) {
    const XmlNode field = elementOf(context_.xmlNodes, places.front());
    rows.cell(kCaptionRow, column)->Range()->SetText(GetControlCaption(context_.reports, field));
    int row = kFieldRow;
    for (const TreeNode* place : places) {
        dropIntoCell(drop, *rows.cell(row, column), *place);
        ++row;
    }
}

void CNodeDropperTable::dropIntoCell(const Drop& drop, word::Cell& cell, const TreeNode& field) {
    cell.Select();
    drop.document->Application()->Selection()->Collapse(word::WdCollapseDirection::wdCollapseStart);
    const FieldDropArguments arguments{.node = elementOf(context_.xmlNodes, &field),
                                       .parentName = placePrefix(context_.xmlNodes, drop.node, drop.name),
                                       .treeNode = &field};
    CNodeDropperField(context_).FieldDrop(arguments, drop.document);
}

}  // namespace mergeloom
