#pragma once

#include "droppers/DropContext.h"
#include "office/model/excel/DefinedName.h"
#include "office/model/excel/Workbook.h"
#include "office/model/word/Document.h"
#include "office/model/word/Table.h"
#include "xml/TreeView.h"
#include "xml/XmlNodeCollection.h"

#include <string>

/// The bookmark, and in a workbook the range name, by which the table of an object or subform is known.
namespace mergeloom {

/// The bookmark's name for the table of a node with that name: an object's ends in "T", which keeps it apart
/// from the place of a field of the same name, a subform's does not. Empty when nothing usable is left.
std::string tableBookmarkName(const TreeNode& node, const std::string& name);

/// The name of the cells of such a table in a workbook, by the same rule. Empty when nothing usable is left.
std::string tableRangeName(const TreeNode& node, const std::string& name);

/// The name of the table of the object or subform that a control stands in, by one of the rules above; empty
/// for a control without a parent.
std::string tableNameOf(const XmlNodeCollection& xmlNodes, const TreeNode& control,
                        std::string (*rule)(const TreeNode&, const std::string&));

/// The name of a table in this drop: the given one, or a further one when the drop made a table of that name
/// already, which is no earlier table to replace. The user is told then.
std::string tableNameInDrop(DropContext& context, const std::string& tableName);

/// Deletes the table under the bookmark. A bookmark that holds no table any more, and one over a single cell
/// of a table, which is a place in another table, stay.
void deleteTableOf(word::Document& document, const std::string& bookmarkName);

/// Puts the bookmark over the whole table. A bookmark of that name that has lost its table moves here; a
/// field of that name keeps it, and the table gets a further name. False when it failed.
bool markTable(DropContext& context, word::Document& document, word::Table& table,
               const std::string& bookmarkName);

/// Names the cells of a table in a workbook. The name of an earlier table moves here; a place of that name
/// keeps it, and the table gets a further name. The formula leads to the cells.
excel::DefinedNamePtr nameTable(DropContext& context, excel::Workbook& workbook, const std::string& rangeName,
                                const std::string& refersTo);

}  // namespace mergeloom
