#pragma once

#include "droppers/DropContext.h"
#include "office/model/excel/Names.h"
#include "office/model/excel/Workbook.h"
#include "office/model/word/Document.h"
#include "office/model/word/Table.h"
#include "xml/TreeView.h"
#include "xml/XmlNode.h"

#include <string>

/// The bookmark, or in a workbook the range name, that identifies the table of an object or subform.
namespace mergeloom {

/// Returns the bookmark's name for the table of a node with that name. An object's ends in "T", which
/// distinguishes it from the place of a field of the same name; a subform's does not. Empty when nothing
/// usable is left.
std::string tableBookmarkName(const TreeNode& node, const std::string& name);

/// Returns the name of the cells of such a table in a workbook, by the same rule. Empty when nothing usable
/// is left.
std::string tableRangeName(const TreeNode& node, const std::string& name);

/// Returns the table's name of the object or subform that holds a control, by one of the rules above; empty
/// for a control without a parent.
std::string tableNameOf(const XmlNodeCollection& xmlNodes, const TreeNode& control,
                        std::string (*rule)(const TreeNode&, const std::string&));

/// Returns the name of a table in this drop: the given one, or a further one when this drop has already made
/// a table of that name, which is no earlier table to replace.
std::string tableNameInDrop(DropContext& context, const std::string& tableName);
/// Informs the user of the name that a further table of this drop was given.
void tellFurtherTable(DropContext& context, const std::string& tableName, const std::string& madeName);

/// Deletes the table under the bookmark. A bookmark that has lost its table stays, and so does one over a
/// single cell, which is a place in another table.
void deleteTableOf(word::Document& document, const std::string& bookmarkName);

/// Puts the bookmark over the whole table. A bookmark of that name that has lost its table moves here; a
/// field of that name keeps it, and the table gets a further name. Returns the bookmark's name; empty on
/// failure.
std::string markTable(DropContext& context, word::Document& document, word::Table& table,
                      const std::string& bookmarkName);

/// Names the cells of a table in a workbook, which the formula refers to. The name of an earlier table moves
/// here; a place of that name keeps it, and the table gets a further name.
excel::DefinedNamePtr nameTable(DropContext& context, excel::Workbook& workbook, const std::string& rangeName,
                                const std::string& refersTo);

}  // namespace mergeloom
