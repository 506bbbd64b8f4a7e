#include "droppers/CNodeDropperTable.h"

#include "droppers/CNodeDropperField.h"
#include "droppers/ControlNames.h"
#include "droppers/FieldDialog.h"
#include "droppers/LinkedFields.h"
#include "droppers/SelectionCheck.h"
#include "droppers/SeparateTableFields.h"
#include "droppers/StructureNodes.h"
#include "droppers/TableBookmark.h"
#include "droppers/TableFontSize.h"
#include "office/model/word/Application.h"
#include "office/model/word/Cells.h"
#include "office/model/word/Font.h"
#include "office/model/word/Range.h"
#include "office/model/word/Rows.h"
#include "office/model/word/Tables.h"
#include "xml/modMSXMLHelper.h"

#include <algorithm>

namespace mergeloom {

namespace {

word::CellPtr cellOf(word::Table& table, int row, int column) {
    const word::RowsPtr rows = table.Rows();
    while (rows->Count() < row)
        rows->Add();
    return rows->Item(row)->Cells()->Item(column);
}

/// Sizes the table's font and leaves the caret behind the table.
void finishTable(word::Table& table, word::Selection& selection) {
    table.Select();
    const std::optional<double> size = tableFontSize(table.Columns()->Count());
    if (size) selection.Font()->SetSize(*size);
    selection.Tables()->Item(1)->Select();
    selection.Collapse(word::WdCollapseDirection::wdCollapseEnd);
}

}  // namespace

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
    const word::SelectionPtr selection = drop.document->Application()->Selection();
    const std::string bookmarkName = tableNameInDrop(context_, tableBookmarkName(drop.node, drop.name));
    deleteTableOf(*drop.document, bookmarkName);

    const word::RangePtr place = selection->Range();
    if (DeleteSeparateTableFields(context_, drop.node, *drop.document)) context_.reports.cancel();
    if (context_.reports.failed()) return false;
    place->Select();
    selection->TypeParagraph();
    const word::TablePtr table =
        drop.document->Tables()->Add(*selection->Range(), kFieldRow, static_cast<int>(columns.size()));
    if (!FillTable(drop, *table, columns)) return false;
    // Nothing could find a table under an empty name.
    if (!bookmarkName.empty() && !markTable(context_, *drop.document, *table, bookmarkName)) {
        return false;
    }
    finishTable(*table, *selection);
    return true;
}

bool CNodeDropperTable::FillTable(const Drop& drop, word::Table& table, const ControlNodes& columns) {
    return context_.reports.trap({kTableModule, "FillTable"}, [&] {
        const std::vector<ControlNodes> places =
            placesOfColumns(context_.xmlNodes, columns, fieldsOf(context_.xmlNodes, drop.node));
        const word::CellsPtr captions = table.Rows()->Item(kCaptionRow)->Cells();
        for (int number = 1; number <= captions->Count() && !context_.reports.failed(); ++number) {
            const word::CellPtr caption = captions->Item(number);
            fillColumn(drop, table, *caption, places.at(static_cast<std::size_t>(number) - 1));
        }
        return !context_.reports.failed();
    });
}

void CNodeDropperTable::fillColumn(const Drop& drop, word::Table& table, word::Cell& caption,
                                   const ControlNodes& places) {
    const XmlNode field = elementOf(context_.xmlNodes, places.front());
    caption.Range()->SetText(GetControlCaption(context_.reports, field));
    int row = kFieldRow;
    for (const TreeNode* place : places) {
        dropIntoCell(drop, *cellOf(table, row, caption.ColumnIndex()), *place);
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
